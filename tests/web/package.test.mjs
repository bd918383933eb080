// The npm package as who installs it has it.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { cpSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { test } from 'node:test';
import { batchesOf, makeCommands, mixedLines, packageFolder, root, tool, vectors } from './support.mjs';

const trial = `${root}build/web/trial`;
rmSync(trial, { recursive: true, force: true });
mkdirSync(trial, { recursive: true });
cpSync(packageFolder, `${trial}/node_modules/qxpdu`, { recursive: true });
writeFileSync(`${trial}/package.json`, '{"type":"module"}');

const about = JSON.parse(readFileSync(`${packageFolder}/package.json`, 'utf8'));

/** Standard output of a program beside the installed package. */
function outputOf(name, program) {
    writeFileSync(`${trial}/${name}`, program);
    const { status, stdout, stderr } = spawnSync(process.execPath, [`${trial}/${name}`]);
    assert.equal(status, 0, stderr.toString());
    return stdout.toString();
}

test('it holds what it names, and depends on nothing', () => {
    assert.deepEqual(readdirSync(packageFolder).sort(), [...about.files, 'README.md', 'package.json'].sort());
    assert.equal(about.dependencies, undefined);
    assert.deepEqual(about.exports['.'], { types: './index.d.ts', default: './index.js' });
    assert.match(readFileSync(`${root}CMakeLists.txt`, 'utf8'), new RegExp(`project\\(QX_Encoding VERSION ${about.version} `));
});

test('it has these functions and no others', async () => {
    const exported = Object.keys(await import(`${packageFolder}/index.js`)).sort();
    assert.deepEqual(exported, ['count', 'decode', 'decodePages', 'encode', 'inspect', 'reader', 'run']);
    const typed = [...readFileSync(`${packageFolder}/index.d.ts`, 'utf8').matchAll(/^export declare function (\w+)/gm)].map(([, name]) => name);
    assert.deepEqual([...new Set(typed)].sort(), exported);
});

test('it runs where there is no crypto before Node.js 19', () => {
    const program = `delete globalThis.crypto;
const { encode } = await import('qxpdu');
console.log(encode('a'.repeat(200), { to: '1' }).pdus.length);`;
    assert.equal(outputOf('old.js', program), '2\n');
});

const readme = readFileSync(`${packageFolder}/README.md`, 'utf8');
const examples = [...readme.matchAll(/^```js\n(.*?)^```$/gms)].map(([, program]) => program);

test('its README has three examples', () => assert.equal(examples.length, 3));

for (const [index, example] of examples.entries())
    test(`example ${index + 1} of its README prints what its comments say`, () => {
        const printed = outputOf(`example${index}.js`, example).trimEnd().split('\n');
        const expected = [...example.matchAll(/^\/\/ (.*)$/gm)].map(([, line]) => line);
        assert.ok(expected.length > 0);
        assert.deepEqual(printed, expected);
    });

/** What the compiler says of a source. */
function faultsIn(name, source) {
    writeFileSync(`${trial}/${name}`, source);
    const options = ['--noEmit', '--strict', '--target', 'es2022', '--module', 'es2022', '--moduleResolution', 'node'];
    const { stdout } = spawnSync('tsc', [...options, name], { cwd: trial });
    return stdout.toString();
}

/** Objects of a command, one of each set of members. */
function samplesOf(words, lines) {
    const commands = makeCommands();
    const samples = new Map();
    for (const batch of batchesOf(lines, 1024))
        for (const line of commands.run([...words, '--jsonl'], batch).output.split('\n').slice(0, -1))
            samples.set([...line.matchAll(/"(\w+)":/g)].map(([, name]) => name).join(), JSON.stringify(JSON.parse(line)));
    assert.ok(samples.size > 1);
    return [...samples.values()].slice(0, 400);
}

const octets = vectors().filter((vector) => vector.octets).map((vector) => vector.octets);
const texts = vectors().filter(({ text }) => text !== undefined).map(({ text }) => text.replaceAll(/[\r\n]/g, ' '));

for (const [type, words, lines] of [
    ['Decode', ['decode', '--join', '--each'], [...mixedLines(2000), ...octets]],
    ['Decode', ['decode', '--as=libQX_Encoding'], mixedLines(200)],
    ['Cell', ['cell', '--join', '--each'], octets],
    ['Inspect', ['inspect'], [...mixedLines(1000), ...octets]],
    ['Count', ['count', '--lines', '--language=all'], texts],
    ['Encode', ['encode', '--language=all'], texts.map((text) => JSON.stringify({ to: '+41', text, 'concat-reference': 1 }))],
])
    test(`the types hold what comes: ${words.join(' ')}`, () => {
        const samples = samplesOf(words, lines);
        const source = `import type { ${type} } from 'qxpdu';\nexport const samples: ${type}.Result[] = [\n${samples.join(',\n')}\n];\n`;
        assert.equal(faultsIn(`${words[0]}.ts`, source), '');
    });

test('the types refuse what never comes', () => {
    const error = '{ format: 2, line: 1, error: "no" }';
    for (const [wrong, why] of [
        ['{ format: 2, line: 1, error: "no", wrong: 1 }', 'wrong'],
        ['{ format: 2, line: 1 }', 'error'],
        ['{ format: 3, line: 1, error: "no" }', '2'],
        ['{ format: 2, line: "1", error: "no" }', 'number'],
    ]) {
        const source = `import type { Decode } from 'qxpdu';\nexport const good: Decode.Error = ${error};\nexport const one: Decode.Error = ${wrong};\n`;
        assert.match(faultsIn('wrong.ts', source), new RegExp(`^wrong\\.ts\\(3,.*${why}`), wrong);
    }
});

test('the types fit the functions', () => {
    const source = `import { count, decode, decodePages, encode, inspect, reader, run } from 'qxpdu';
const results = decode('00', { join: true, smsc: 'no' });
for (const result of results)
    if ('tp_oa' in result && result.tp_oa)
        console.log(result.tp_oa.number?.length);
const pages: string[] = decodePages('00', { type: 'gsm' }).map((page) => JSON.stringify(page));
const sent = encode('hi', { to: '+41', statusReport: 'all', class: 0 });
if ('pdus' in sent)
    console.log(sent.pdus[0]?.tpdu_length, count('hi', { language: 'tr' }).format, inspect('00', { cell: true }), pages);
reader({ cell: true, type: 'umts' }).take('').map((page) => page.format);
const { status }: { status: number } = run(['decode']);
// @ts-expect-error
decode('00', { smsc: 'maybe' });
// @ts-expect-error
encode('hi', { recipient: '+41' });
console.log(status);
`;
    assert.equal(faultsIn('functions.ts', `declare const console: { log(...values: unknown[]): void };\n${source}`), '');
});

/** Names of options of an interface, with those that it extends, as the command line has them. */
function optionsOf(name) {
    const types = readFileSync(`${packageFolder}/index.d.ts`, 'utf8');
    const [, parents = '', body] = new RegExp(`interface ${name}(?: extends ([^{]*?))? \\{\n(.*?)^\\}`, 'ms').exec(types);
    const own = [...body.matchAll(/^ {4}(\w+)\?:/gm)].map(([, option]) => option.replace(/[A-Z]/g, (letter) => `-${letter.toLowerCase()}`));
    const picked = [...parents.matchAll(/Pick<\w+, ([^>]*)>/g)].flatMap(([, names]) => [...names.matchAll(/'(\w+)'/g)].map(([, option]) => option));
    const inherited = [...parents.replaceAll(/Pick<[^>]*>/g, '').matchAll(/\w+/g)].flatMap(([parent]) => optionsOf(parent));
    return [...own, ...picked, ...inherited];
}

// Those of a terminal, of tables, of files, and of inputs that the function has by itself.
const NOT_HERE = ['json', 'jsonl', 'no-smsc', 'file', 'threads', 'line-buffered', 'progress', 'no-progress', 'brief', 'columns',
    'input-column', 'no-heading', 'each-line', 'color', 'at', 'lines', 'help'];

for (const [command, name] of [['decode', 'DecodeOptions'], ['cell', 'PageOptions'], ['inspect', 'InspectOptions'], ['encode', 'EncodeOptions'], ['count', 'CountOptions']])
    test(`the types have the options of ${command}`, () => {
        const help = spawnSync(tool, ['help', command]).stdout.toString();
        const options = [...help.matchAll(/^ +(?:-\w,)?--([a-z-]+)/gm)].map(([, option]) => option).filter((option) => !NOT_HERE.includes(option));
        assert.ok(options.length > 3, help);
        assert.deepEqual([...new Set(optionsOf(name))].sort(), [...new Set(options)].sort());
    });
