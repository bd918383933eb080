// Makes Parquet of what qxpdu writes as JSON Lines: node parquet.mjs FROM.jsonl TO.parquet
import { DuckDBInstance } from '@duckdb/node-api';

const [from, to] = process.argv.slice(2).map((path) => `'${path.replaceAll("'", "''")}'`);
// What it needs came with the package; nothing else is fetched.
const database = await DuckDBInstance.create(':memory:', {
    autoinstall_known_extensions: 'false',
    autoload_known_extensions: 'false',
});
const connection = await database.connect();
// Every line is looked at, so that a member that few messages have is a column all the same.
await connection.run(`COPY (SELECT * FROM read_json(${from}, format = 'newline_delimited', sample_size = -1))
                      TO ${to} (FORMAT parquet, COMPRESSION zstd)`);
