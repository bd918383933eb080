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
    assert.deepEqual(about.exports['.'], { types: './index.d.ts', node: './node.js', browser: './browser.js', default: './browser.js' });
    assert.match(readFileSync(`${root}CMakeLists.txt`, 'utf8'), new RegExp(`project\\(QX_Encoding VERSION ${about.version} `));
});

test('it has these functions and no others', async () => {
    const exported = Object.keys(await import(`${packageFolder}/node.js`)).sort();
    assert.deepEqual(exported, ['count', 'decode', 'decodePages', 'encode', 'inspect', 'loadNames', 'reader', 'run']);
    const typed = [...readFileSync(`${packageFolder}/index.d.ts`, 'utf8').matchAll(/^export declare function (\w+)/gm)].map(([, name]) => name);
    assert.deepEqual([...new Set(typed)].sort(), exported);
});

test('it runs where there is no crypto before Node.js 19', () => {
    const program = `delete globalThis.crypto;
const { encode } = await import('qxpdu');
console.log(encode('a'.repeat(200), { to: '1' }).pdus.length);`;
    assert.equal(outputOf('old.js', program), '2\n');
});

/** Has browser.js as a browser would, and tells what was fetched: the file that is asked for, or nothing at all. */
const BROWSER = `import { readFileSync } from 'node:fs';
const fetched = [];
globalThis.fetch = async (url) => {
    fetched.push(url.pathname.split('/').pop());
    return globalThis.lacking === fetched.at(-1) ? new Response('', { status: 404, statusText: 'Not Found' }) : new Response(readFileSync(url));
};
const { count, decode, loadNames, ...others } = await import('./node_modules/qxpdu/browser.js');
`;

test('a browser has the same functions', () => {
    const printed = outputOf('same.js', `${BROWSER}console.log(Object.keys({ count, decode, loadNames, ...others }).sort().join());
console.log(Object.keys(await import('qxpdu')).sort().join());`).split('\n');
    assert.equal(printed[0], 'count,decode,decodePages,encode,inspect,loadNames,reader,run');
    assert.equal(printed[1], printed[0]);
});

test('a browser fetches the module at once, and the names when they are asked for, once', () => {
    assert.deepEqual(outputOf('browser.js', `${BROWSER}console.log(decode('0791214365870921040B912143658709F100002120312143658006C83468530E01')[0].text);
console.log(count('’').forces_ucs2[0].name, fetched.join());
await Promise.all([loadNames(), loadNames()]);
console.log(count('’').forces_ucs2[0].name, fetched.join());`).split('\n'),
    ['Hi €!', 'undefined qxpdu.wasm', 'RIGHT SINGLE QUOTATION MARK qxpdu.wasm,names.gz', '']);
});

test('names that did not come may be asked for again', () => {
    assert.match(outputOf('again.js', `${BROWSER}globalThis.lacking = 'names.gz';
console.log(await loadNames().catch(({ message }) => message));
globalThis.lacking = undefined;
await loadNames();
console.log(count('’').forces_ucs2[0].name);`), /\/names\.gz: 404 Not Found\nRIGHT SINGLE QUOTATION MARK\n$/);
});

test('Node.js reads the names when a count has one to tell', () => {
    assert.equal(outputOf('wanted.js', `import { renameSync } from 'node:fs';
import { count, loadNames } from 'qxpdu';
const file = new URL('./node_modules/qxpdu/names.gz', import.meta.url);
renameSync(file, new URL('names.away', file));
console.log(count('hello').septets);
try { count('’'); } catch ({ message }) { console.log(/ENOENT/.test(message)); }
renameSync(new URL('names.away', file), file);
console.log(await loadNames(), count('’').forces_ucs2[0].name);`), '5\ntrue\nundefined RIGHT SINGLE QUOTATION MARK\n');
});

test('bundlers find its files, and nothing of Node.js for a browser', () => {
    for (const [entry, files] of [['browser.js', 2], ['node.js', 2]]) {
        const source = readFileSync(`${packageFolder}/${entry}`, 'utf8');
        for (const name of ['qxpdu.wasm', 'names.gz'])
            assert.match(source, new RegExp(`new URL\\("\\./${name}", import\\.meta\\.url\\)`), entry);
        assert.equal(source.match(/import\.meta/g).length, files, entry);
    }
    writeFileSync(`${trial}/bundled.js`, "import { decode } from 'qxpdu';\nconsole.log(decode('00'));\n");
    for (const [platform, hasNode] of [['browser', false], ['node', true]]) {
        const { status, stdout, stderr } = spawnSync('esbuild', ['bundled.js', '--bundle', '--format=esm', `--platform=${platform}`], { cwd: trial });
        assert.equal(status, 0, stderr.toString());
        assert.equal(/from "node:/.test(stdout.toString()), hasNode, platform);
    }
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

test('the examples of its README compile', () => {
    const source = examples.map((example) => example.replaceAll(/^import .*$/gm, '')).map((example) => `{\n${example}}\n`);
    const names = [...readme.matchAll(/^import \{ (.*) \} from/gm)].flatMap(([, list]) => list.split(', '));
    const imports = `import { ${[...new Set(names)].join(', ')} } from 'qxpdu';\ndeclare const console: { log(...values: unknown[]): void };\n`;
    assert.equal(faultsIn('examples.ts', imports + source.join('')), '');
});

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
    ['Decoded', ['decode'], mixedLines(2000)],
    ['DecodedTogether', ['decode', '--join', '--each'], [...mixedLines(2000), ...octets]],
    ['DecodedByHost', ['decode', '--as=libQX_Encoding'], mixedLines(200)],
    ['DecodedPage', ['cell'], octets],
    ['DecodedPagesTogether', ['cell', '--join', '--each'], octets],
    ['DecodedPageByHost', ['cell', '--as=libQX_Encoding'], octets],
    ['Inspect.Result', ['inspect'], [...mixedLines(1000), ...octets]],
    ['Count.Result', ['count', '--lines', '--language=all'], texts],
    ['Encode.Result', ['encode', '--language=all'], texts.map((text) => JSON.stringify({ to: '+41', text, 'concat-reference': 1 }))],
])
    test(`the types hold what comes: ${words.join(' ')}`, () => {
        const samples = samplesOf(words, lines);
        const source = `import type { ${type.split('.')[0]} } from 'qxpdu';\nexport const samples: ${type}[] = [\n${samples.join(',\n')}\n];\n`;
        assert.equal(faultsIn(`${type}.ts`, source), '');
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
const octets = new Uint8Array(2);
const [message] = decode(octets);
if (message.error !== undefined) {
    const error: string = message.error;
    const none: undefined = message.tp_oa;
    console.log(error, none);
} else {
    const none: undefined = message.error;
    console.log(none, message.tp_oa?.number, message.text);
}
decode('00', { join: true })[0].joined?.length;
decode('00', { as: 'libQX_Encoding' })[0].libQX_Encoding;
decodePages(octets, { join: true })[0].pages_missing;
inspect(octets)[0].map?.length;
count(octets).forces_ucs2?.[0]?.name;
declare const options: import('qxpdu').DecodeOptions;
decode('00', options)[0].joined?.length;
// @ts-expect-error
decode('00')[0].joined;
// @ts-expect-error
decode('00', { join: true })[0].libQX_Encoding?.m_WorkText;
// @ts-expect-error
decode(7);
// @ts-expect-error
encode(octets);
const pages: string[] = decodePages('00', { type: 'gsm' }).map((page) => JSON.stringify(page));
const sent = encode('hi', { to: '+41', statusReport: 'all', class: 0 });
if (sent.pdus)
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
