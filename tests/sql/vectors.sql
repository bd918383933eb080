-- The vectors, for whichever database has loaded the functions. There is a table vectors(line) of JSON, the vectors of
-- tests/vectors as they are; each statement gives what differs, and has to give nothing.

-- told: vectors of PDUs, with what is told of them beside the octets.
CREATE TABLE told AS
SELECT line->>'octets' AS pdu,
       CASE WHEN (line->>'service-centre') <> 'unknown' THEN 'smsc=' || (line->>'service-centre') || ' ' ELSE '' END ||
       CASE WHEN (line->>'direction') <> 'unknown' THEN 'direction=' || (line->>'direction') || ' ' ELSE '' END ||
       coalesce('failure-cause=' || (line->>'failure-cause') || ' ', '') ||
       coalesce('length=' || (line->>'announced'), '') AS options,
       line->'means' AS means
FROM vectors WHERE (line->>'service-centre') IS NOT NULL;

-- pages: those of cell broadcast.
CREATE TABLE pages AS
SELECT line->>'octets' AS page, coalesce(line->>'format', '') AS format, line->'means' AS means
FROM vectors WHERE (line->>'octets') IS NOT NULL AND (line->>'service-centre') IS NULL;

-- There are as many as were there when this was written, or more.
SELECT 'fewer PDUs', count(*) FROM told HAVING count(*) < 1190;
SELECT 'fewer pages', count(*) FROM pages HAVING count(*) < 500;

-- A broken PDU has an error, which names the octet and the field; nothing else has one.
SELECT 'error', pdu, options, sms_error(pdu, options), means->>'fault' FROM told
WHERE (sms_error(pdu, options) IS NULL) <> ((means->'fault'->>'octet') IS NULL)
   OR sms_error(pdu, options) NOT LIKE 'octet ' || (means->'fault'->>'octet') || ': %'
   OR ((means->'fault'->>'code') = 'field-cut' AND (means->'fault'->>'field') LIKE 'TP-__%'
       AND sms_error(pdu, options) NOT LIKE '%' || (means->'fault'->>'field') || '%');

-- A broken PDU gives NULL.
SELECT 'broken', pdu, options FROM told
WHERE (means->>'fault') IS NOT NULL
  AND coalesce(sms_text(pdu, options), sms_address(pdu, options), sms_time(pdu, options), sms_type(pdu, options),
               CAST(sms_json(pdu, options) AS text), CAST(sms_remarks(pdu, options) AS text),
               CAST(sms_reference(pdu, options) AS text), CAST(sms_part(pdu, options) AS text),
               CAST(sms_parts(pdu, options) AS text)) IS NOT NULL;

-- Where a header leaves no room for it, a text is empty; the vectors have none then. What JSON writes as \u0000 no database
-- takes out of it.
SELECT 'text', pdu, options, sms_text(pdu, options), means->>'text' FROM told
WHERE (means->>'fault') IS NULL AND CAST(means AS text) NOT LIKE '%\u0000%'
  AND coalesce(sms_text(pdu, options), '') <> coalesce(means->>'text', '');

SELECT 'no text', pdu, options, sms_text(pdu, options) FROM told
WHERE (means->>'fault') IS NULL AND sms_text(pdu, options) IS NULL AND (means->'text') IS NOT NULL;

SELECT 'address', pdu, options, sms_address(pdu, options) FROM (
    SELECT pdu, options, coalesce(means->'TP-OA', means->'TP-DA', means->'TP-RA') AS address
    FROM told WHERE (means->>'fault') IS NULL) AS one
WHERE sms_address(pdu, options) IS DISTINCT FROM
      coalesce(address->>'text',
               CASE WHEN CAST(address->>'ton' AS text) = '1' AND (address->>'digits') <> '' THEN '+' ELSE '' END || (address->>'digits'));

SELECT 'time', pdu, options, sms_time(pdu, options), means->'TP-SCTS'->>'time' FROM told
WHERE (means->>'fault') IS NULL AND sms_time(pdu, options) IS DISTINCT FROM (means->'TP-SCTS'->>'time');

SELECT 'type', pdu, options, sms_type(pdu, options), means->>'type' FROM told
WHERE (means->>'fault') IS NULL AND sms_type(pdu, options) IS DISTINCT FROM (means->>'type');

SELECT 'place', pdu, options, sms_reference(pdu, options), sms_part(pdu, options), sms_parts(pdu, options) FROM told
WHERE (means->>'fault') IS NULL
  AND (CAST(sms_reference(pdu, options) AS text)
           IS DISTINCT FROM CAST(means->'header'->'concatenation'->>'reference' AS text)
    OR CAST(sms_part(pdu, options) AS text) IS DISTINCT FROM CAST(means->'header'->'concatenation'->>'part' AS text)
    OR CAST(sms_parts(pdu, options) AS text)
           IS DISTINCT FROM CAST(means->'header'->'concatenation'->>'total' AS text));

SELECT 'remarks', pdu, options, sms_remarks(pdu, options), means->>'remarks' FROM told
WHERE (means->>'fault') IS NULL
  AND (json_array_length(sms_remarks(pdu, options)) <> json_array_length(means->'remarks')
    OR (json_array_length(means->'remarks') = 1
        AND CAST(sms_remarks(pdu, options) AS text) NOT LIKE '[{"code":"' || (means->'remarks'->0->>'code') ||
            '","octet":' || (means->'remarks'->0->>'octet') || ',%'));

-- Fields that are numbers, those of broken PDUs as well as far as they are there.
SELECT 'field', pdu, options, field, means->>field FROM told,
     (SELECT 'TP-MTI' AS field UNION SELECT 'TP-MMS' UNION SELECT 'TP-LP' UNION SELECT 'TP-RD' UNION SELECT 'TP-VPF'
      UNION SELECT 'TP-SRI' UNION SELECT 'TP-SRR' UNION SELECT 'TP-SRQ' UNION SELECT 'TP-UDHI' UNION SELECT 'TP-RP'
      UNION SELECT 'TP-MR' UNION SELECT 'TP-PID' UNION SELECT 'TP-DCS' UNION SELECT 'TP-ST' UNION SELECT 'TP-FCS'
      UNION SELECT 'TP-CT' UNION SELECT 'TP-MN' UNION SELECT 'TP-UDL' UNION SELECT 'TP-CDL') AS fields
WHERE (SELECT CAST(value AS text) FROM sms_fields(pdu, options) WHERE name = field)
      IS DISTINCT FROM CAST(means->>field AS text);

SELECT 'page', page, format, cbs_text(page, format) FROM pages
WHERE (means->>'fault') IS NULL AND json_array_length(means->'pages') = 1 AND CAST(means AS text) NOT LIKE '%\u0000%'
  AND coalesce(cbs_text(page, format), '') <> coalesce(means->'pages'->0->>'text', '');

SELECT 'error of a page', page, format, cbs_error(page, format) FROM pages
WHERE (cbs_error(page, format) IS NULL) <> ((means->'fault'->>'octet') IS NULL)
   OR cbs_error(page, format) NOT LIKE 'octet ' || (means->'fault'->>'octet') || ': %'
   OR ((means->>'fault') IS NOT NULL AND coalesce(cbs_text(page, format), CAST(cbs_json(page, format) AS text)) IS NOT NULL);

SELECT 'JSON of a page', page, format, cbs_json(page, format) FROM pages
WHERE (means->>'fault') IS NULL
  AND CAST(cbs_json(page, format) AS text) NOT LIKE '{"format":2,"octets":"' || page || '","type":"%,"message_identifier":{"raw":' ||
      (means->>'identifier') || ',%';
