\echo Use "CREATE EXTENSION qx_messages" to load this file. \quit

-- A superuser runs this, in a schema that others may have put something into: so what is called is that of the server.

-- Functions of a PDU or a page, which is bytea or text of hexadecimal digits, alone and with options.
DO $do$
DECLARE
    function record;
    argument record;
    options pg_catalog.text;
BEGIN
    FOR function IN
        SELECT * FROM (VALUES ('sms_text', 'sms_text', 'text'), ('sms_address', 'sms_address', 'text'),
                              ('sms_time', 'sms_time', 'text'), ('sms_type', 'sms_type', 'text'),
                              ('sms_reference', 'sms_reference', 'int4'), ('sms_part', 'sms_part', 'int4'),
                              ('sms_parts', 'sms_parts', 'int4'), ('sms_json', 'sms_json', 'json'),
                              ('sms_remarks', 'sms_remarks', 'json'), ('sms_error', 'sms_error', 'text'),
                              ('sms_fields_json', 'sms_fields', 'json'), ('cbs_text', 'cbs_text', 'text'),
                              ('cbs_json', 'cbs_json', 'json'), ('cbs_error', 'cbs_error', 'text'))
                      AS functions(name, symbol, gives)
    LOOP
        FOR argument IN SELECT * FROM (VALUES ('bytea', 'octets'), ('text', 'digits')) AS arguments(type, kind) LOOP
            FOREACH options IN ARRAY ARRAY['', ', options pg_catalog.text'] LOOP
                EXECUTE pg_catalog.format('CREATE FUNCTION @extschema@.%I(pdu pg_catalog.%s%s) RETURNS pg_catalog.%s AS %L, %L '
                               'LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100',
                               function.name, argument.type, options, function.gives, 'MODULE_PATHNAME',
                               pg_catalog.concat(function.symbol, '_', argument.kind));
            END LOOP;
        END LOOP;
    END LOOP;
    -- The body is read with the path of whoever calls it, in which anybody's types may come first.
    FOR argument IN SELECT * FROM (VALUES ('bytea', '', ''), ('text', '', ''), ('bytea', ', options pg_catalog.text', ', $2'),
                                          ('text', ', options pg_catalog.text', ', $2')) AS arguments(type, options, passed)
    LOOP
        EXECUTE pg_catalog.format('CREATE FUNCTION @extschema@.sms_fields(pdu pg_catalog.%s%s, OUT name pg_catalog.text, '
                       'OUT value pg_catalog.text, OUT meaning pg_catalog.text, OUT octet pg_catalog.int4, '
                       'OUT length pg_catalog.int4, OUT mask pg_catalog.int4) RETURNS SETOF pg_catalog.record '
                       'LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE ROWS 15 AS %L', argument.type, argument.options,
                       pg_catalog.format('SELECT field.name, field.value, field.meaning, field.octet, field.length, field.mask '
                       'FROM pg_catalog.json_to_recordset(@extschema@.sms_fields_json($1%s)) AS field(name pg_catalog.text, '
                       'value pg_catalog.text, meaning pg_catalog.text, octet pg_catalog.int4, length pg_catalog.int4, '
                       'mask pg_catalog.int4)', argument.passed));
    END LOOP;
END
$do$;

-- The PDUs of a group, of which the text is made in the end.
CREATE FUNCTION @extschema@.sms_join_pdus(pdus pg_catalog.bytea[]) RETURNS pg_catalog.text AS 'MODULE_PATHNAME', 'sms_join_octets'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION @extschema@.sms_join_pdus(pdus pg_catalog.text[]) RETURNS pg_catalog.text AS 'MODULE_PATHNAME', 'sms_join_digits'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE AGGREGATE @extschema@.sms_join(pdu pg_catalog.bytea) (
    SFUNC = pg_catalog.array_append, STYPE = pg_catalog.bytea[], INITCOND = '{}', COMBINEFUNC = pg_catalog.array_cat,
    FINALFUNC = @extschema@.sms_join_pdus, PARALLEL = SAFE);
CREATE AGGREGATE @extschema@.sms_join(pdu pg_catalog.text) (
    SFUNC = pg_catalog.array_append, STYPE = pg_catalog.text[], INITCOND = '{}', COMBINEFUNC = pg_catalog.array_cat,
    FINALFUNC = @extschema@.sms_join_pdus, PARALLEL = SAFE);

CREATE FUNCTION @extschema@.sms_encode_json(number pg_catalog.text, message pg_catalog.text) RETURNS pg_catalog.json
    AS 'MODULE_PATHNAME', 'sms_encode_json' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION @extschema@.sms_encode_json(number pg_catalog.text, message pg_catalog.text, reference pg_catalog.int4) RETURNS pg_catalog.json
    AS 'MODULE_PATHNAME', 'sms_encode_json' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION @extschema@.sms_encode(number pg_catalog.text, message pg_catalog.text) RETURNS pg_catalog.text[]
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS 'SELECT array(SELECT pg_catalog.json_array_elements_text(@extschema@.sms_encode_json($1, $2)))';
CREATE FUNCTION @extschema@.sms_encode(number pg_catalog.text, message pg_catalog.text, reference pg_catalog.int4) RETURNS pg_catalog.text[]
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS 'SELECT array(SELECT pg_catalog.json_array_elements_text(@extschema@.sms_encode_json($1, $2, $3)))';
