// What stands in a Parquet file: node parquet.mjs FILE
import { DuckDBInstance } from '@duckdb/node-api';

const connection = await (await DuckDBInstance.create(':memory:')).connect();
const rows = await connection.runAndReadAll(
    `SELECT line, tp_oa.number, concatenation.part, text, error FROM '${process.argv[2]}' ORDER BY line`);
for (const row of rows.getRowsJson())
    console.log(row.join('|'));
