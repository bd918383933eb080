\echo Use "CREATE EXTENSION qx_messages" to load this file. \quit

-- A superuser runs this, in a schema that others may have put something into: so what is called is that of the server.

-- Functions of a PDU or a page, which is bytea or text of hexadecimal digits, alone and with options.
DO $do$
DECLARE
    function record;
    argument record;
    options text;
BEGIN
    FOR function IN
        SELECT * FROM (VALUES ('sms_text', 'sms_text', 'text'), ('sms_address', 'sms_address', 'text'),
                              ('sms_time', 'sms_time', 'text'), ('sms_type', 'sms_type', 'text'),
                              ('sms_reference', 'sms_reference', 'integer'), ('sms_part', 'sms_part', 'integer'),
                              ('sms_parts', 'sms_parts', 'integer'), ('sms_json', 'sms_json', 'json'),
                              ('sms_remarks', 'sms_remarks', 'json'), ('sms_error', 'sms_error', 'text'),
                              ('sms_fields_json', 'sms_fields', 'json'), ('cbs_text', 'cbs_text', 'text'),
                              ('cbs_json', 'cbs_json', 'json'), ('cbs_error', 'cbs_error', 'text'))
                      AS functions(name, symbol, gives)
    LOOP
        FOR argument IN SELECT * FROM (VALUES ('bytea', 'octets'), ('text', 'digits')) AS arguments(type, kind) LOOP
            FOREACH options IN ARRAY ARRAY['', ', options text'] LOOP
                EXECUTE pg_catalog.format('CREATE FUNCTION @extschema@.%I(pdu %s%s) RETURNS %s AS %L, %L '
                               'LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100',
                               function.name, argument.type, options, function.gives, 'MODULE_PATHNAME',
                               function.symbol || '_' || argument.kind);
            END LOOP;
        END LOOP;
    END LOOP;
    FOR argument IN SELECT * FROM (VALUES ('bytea', ''), ('text', ''), ('bytea', 'options'), ('text', 'options'))
                             AS arguments(type, options)
    LOOP
        EXECUTE pg_catalog.format('CREATE FUNCTION @extschema@.sms_fields(pdu %s%s, OUT name text, OUT value text, OUT meaning text, '
                       'OUT octet integer, OUT length integer, OUT mask integer) RETURNS SETOF record '
                       'LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE ROWS 15 AS %L',
                       argument.type, CASE argument.options WHEN '' THEN '' ELSE ', options text' END,
                       'SELECT row.name, row.value, row.meaning, row.octet, row.length, row.mask '
                       'FROM pg_catalog.json_to_recordset(@extschema@.sms_fields_json($1'
                       || CASE argument.options WHEN '' THEN '' ELSE ', $2' END ||
                       ')) AS row(name text, value text, meaning text, octet integer, length integer, mask integer)');
    END LOOP;
END
$do$;

-- The PDUs of a group, of which the text is made in the end.
CREATE FUNCTION @extschema@.sms_join_pdus(pdus bytea[]) RETURNS text AS 'MODULE_PATHNAME', 'sms_join_octets'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION @extschema@.sms_join_pdus(pdus text[]) RETURNS text AS 'MODULE_PATHNAME', 'sms_join_digits'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE AGGREGATE @extschema@.sms_join(pdu bytea) (
    SFUNC = pg_catalog.array_append, STYPE = bytea[], INITCOND = '{}', COMBINEFUNC = pg_catalog.array_cat,
    FINALFUNC = @extschema@.sms_join_pdus, PARALLEL = SAFE);
CREATE AGGREGATE @extschema@.sms_join(pdu text) (
    SFUNC = pg_catalog.array_append, STYPE = text[], INITCOND = '{}', COMBINEFUNC = pg_catalog.array_cat,
    FINALFUNC = @extschema@.sms_join_pdus, PARALLEL = SAFE);

CREATE FUNCTION @extschema@.sms_encode_json(number text, message text) RETURNS json
    AS 'MODULE_PATHNAME', 'sms_encode_json' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION @extschema@.sms_encode_json(number text, message text, reference integer) RETURNS json
    AS 'MODULE_PATHNAME', 'sms_encode_json' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION @extschema@.sms_encode(number text, message text) RETURNS text[]
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS 'SELECT array(SELECT pg_catalog.json_array_elements_text(@extschema@.sms_encode_json($1, $2)))';
CREATE FUNCTION @extschema@.sms_encode(number text, message text, reference integer) RETURNS text[]
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS 'SELECT array(SELECT pg_catalog.json_array_elements_text(@extschema@.sms_encode_json($1, $2, $3)))';
