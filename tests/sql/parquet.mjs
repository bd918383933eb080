// The columns and some of what stands in Parquet files, which all have the same columns, one for each member that the JSON Schemas
// of qxpdu decode name: node parquet.mjs SCHEMAS FILE…
import { readFileSync } from 'node:fs';
import { DuckDBInstance } from '@duckdb/node-api';

const [schemas, ...files] = process.argv.slice(2);
const connection = await (await DuckDBInstance.create(':memory:')).connect();
const rowsOf = async (query) => (await connection.runAndReadAll(query)).getRowsJson().map((row) => row.join('|').replaceAll('\0', '\\0'));

const definitionsOf = (name) => JSON.parse(readFileSync(`${schemas}/${name}.schema.json`, 'utf8')).$defs;
const { message, record, joined, duplicate, error, free } = definitionsOf('decode');
const cell = definitionsOf('cell');
const objects = [message, record, joined, duplicate, error, free, cell.broadcast, cell.joined, cell.duplicate, cell.host_page];
const members = new Set(objects.flatMap((object) => Object.keys(object.properties)));

const [columns, ...others] = await Promise.all(files.map((file) =>
    rowsOf(`SELECT column_name, column_type FROM (DESCRIBE SELECT * FROM '${file}')`)));
console.log(columns.join('\n'));
for (const column of columns)
    members.delete(column.split('|')[0]);
if (members.size)
    console.log(`no column: ${[...members]}`);
for (const file of files) {
    console.log(`${(await rowsOf(`SELECT count(*) FROM '${file}'`))[0]} rows`);
    for (const row of await rowsOf(`SELECT line, tp_oa.number, tp_scts.time, concatenation.part, text, error, tp_udh->>'raw'
                                    FROM '${file}' ORDER BY line`))
        console.log(row);
}
if (others.some((other) => other.join() !== columns.join()))
    console.log('other columns');
