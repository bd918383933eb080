// Makes Parquet of what qxpdu decode writes as JSON Lines: node parquet.mjs FROM.jsonl TO.parquet
import { DuckDBInstance } from '@duckdb/node-api';

// A column for each member that an object may have, and the same ones whatever the lines have: no text becomes a date, and none
// is missing. Fields are structs; what has members of its own or several shapes is JSON.
const number = 'STRUCT(raw INTEGER, meaning VARCHAR)';
const octets = 'STRUCT(raw VARCHAR, meaning VARCHAR)';
const time = 'STRUCT(raw VARCHAR, meaning VARCHAR, "time" VARCHAR)'; // ISO 8601 with the zone that the message has
const party = `"number" VARCHAR, type_of_number ${number}, numbering_plan ${number}`;
const address = `STRUCT(raw VARCHAR, meaning VARCHAR, ${party})`;
const types = {
    BIGINT: 'line argument report_on',
    INTEGER: 'format reference reference_bits total',
    VARCHAR: 'file error octets type direction time text data locking_shift single_shift duplicate_of report_on_file language',
    [number]: 'tp_mti tp_mms tp_lp tp_rd tp_vpf tp_sri tp_srr tp_srq tp_udhi tp_rp unused_bits tp_mr tp_pid tp_st tp_fcs tp_ct ' +
        'tp_mn tp_cdl tp_udl message_identifier message_type number_of_pages',
    [octets]: 'tp_pi tp_ud tp_cd surplus signature',
    [time]: 'tp_scts tp_dt warning_time',
    [address]: 'sc_address tp_oa tp_da tp_ra',
    [`STRUCT(${party})`]: 'address',
    'STRUCT(raw VARCHAR, meaning VARCHAR, "time" VARCHAR, seconds BIGINT, single_shot BOOLEAN)': 'tp_vp',
    [`STRUCT(raw INTEGER, meaning VARCHAR, alphabet VARCHAR, "class" INTEGER, compressed BOOLEAN, automatic_deletion BOOLEAN,
             reserved BOOLEAN, waiting STRUCT("type" VARCHAR, active BOOLEAN, stored BOOLEAN))`]: 'tp_dcs',
    'STRUCT(reference INTEGER, reference_bits INTEGER, total INTEGER, part INTEGER)': 'concatenation',
    'STRUCT(destination INTEGER, originator INTEGER, bits INTEGER)': 'ports',
    'STRUCT(code VARCHAR, octet BIGINT, field VARCHAR, expected BIGINT, found BIGINT)': 'fault',
    'STRUCT(code VARCHAR, octet BIGINT, field VARCHAR, meaning VARCHAR)[]': 'remarks',
    'VARCHAR[]': 'warnings',
    JSON: 'tp_udh libQX_Encoding joined parts_missing gaps serial_number data_coding_scheme page_parameter ' +
        'warning_type pages pages_joined pages_missing duplicate_pages',
};
const columns = Object.entries(types).flatMap(([type, names]) => names.split(' ').map((name) => `"${name}": '${type}'`));

const [from, to] = process.argv.slice(2).map((path) => `'${path.replaceAll("'", "''")}'`);
// What it needs came with the package; nothing else is fetched.
const database = await DuckDBInstance.create(':memory:', {
    autoinstall_known_extensions: 'false',
    autoload_known_extensions: 'false',
});
const connection = await database.connect();
await connection.run(`COPY (SELECT * FROM read_json(${from}, format = 'newline_delimited', columns = {${columns}}))
                      TO ${to} (FORMAT parquet, COMPRESSION zstd)`);
