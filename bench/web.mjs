// Processor time of a message in the module, in the tool and in node-pdu: node bench/web.mjs [LINES]; see bench/web.sh.
import { spawnSync } from 'node:child_process';
import { existsSync } from 'node:fs';
import { createRequire } from 'node:module';
import { Qxpdu } from '../web/script/qxpdu.js';
import { batchesOf, makeCommands, mixedLines, module, names, root, tool } from '../tests/web/support.mjs';

const COUNT = Number(process.argv[2] ?? 20000);
const RUNS = Number(process.env.QX_RUNS ?? 7);
const lines = mixedLines(COUNT);
const batches = [...batchesOf(lines)].map((batch) => new TextEncoder().encode(batch));

/** The least of several runs: what else the machine does only adds. */
function leastOf(measure) {
    return Math.min(...Array.from({ length: RUNS }, measure));
}

function processorOf(work) {
    const { user, system } = process.cpuUsage();
    work();
    const after = process.cpuUsage();
    return after.user - user + after.system - system;
}

/** Without what the tool takes to start. */
function ofTool(words) {
    const measure = (input) => leastOf(() => {
        const { stderr, error } = spawnSync('/usr/bin/time', ['-f', '%U %S', tool, ...words], {
            input,
            maxBuffer: 1 << 30,
            stdio: ['pipe', 'ignore', 'pipe'],
        });
        if (error)
            throw error;
        const [user, system] = stderr.toString().trim().split('\n').at(-1).split(' ').map(Number);
        return (user + system) * 1e6;
    });
    const many = Array(10).fill(`${lines.join('\n')}\n`).join('');
    return (measure(many) - measure('')) / (10 * COUNT);
}

function ofModule(words) {
    const commands = makeCommands();
    return leastOf(() => processorOf(() => batches.forEach((batch) => commands.run(words, batch)))) / COUNT;
}

function ofFunction(call) {
    return leastOf(() => processorOf(() => lines.forEach(call))) / COUNT;
}

const qxpdu = new Qxpdu(module);
qxpdu.setNames(names);
const rows = [];
const row = (name, microseconds, note = '') => rows.push(`| ${name} | ${microseconds.toFixed(1)} | ${note} |`);
const decodedByTool = ofTool(['decode', '--jsonl']);
const decoded = ofModule(['decode', '--jsonl']);
row('tool, `decode --jsonl`', decodedByTool);
row('module, the same text', decoded, `${(decoded / decodedByTool).toFixed(1)} times the tool`);
const inspectedByTool = ofTool(['inspect', '--jsonl']);
const inspected = ofModule(['inspect', '--jsonl']);
row('tool, `inspect --jsonl`', inspectedByTool);
row('module, the same text', inspected, `${(inspected / inspectedByTool).toFixed(1)} times the tool`);
row('`decode(line)`, a call and an object each', ofFunction((line) => qxpdu.decode(line)));

const peer = `${root}build/web/node-pdu`;
if (existsSync(peer)) {
    const { parse } = createRequire(`${peer}/package.json`)('node-pdu');
    let thrown = 0;
    const took = ofFunction((line) => {
        try {
            parse(line);
        } catch {
            ++thrown;
        }
    });
    row('node-pdu 2.1.1, `parse(line)`', took, `throws on ${Math.round(thrown / RUNS)} of ${COUNT}`);
}

const full = 'ağ€ “quoted” '.repeat(120).slice(0, 1400);
const keystrokes = Array.from({ length: 200 }, (_, index) => full + index);
const stroke = leastOf(() => processorOf(() => keystrokes.forEach((text) => {
    qxpdu.count(text);
    for (const { octets } of qxpdu.encode(text, { to: '+4179123' }).pdus.slice(0, 1))
        qxpdu.inspect(octets);
}))) / keystrokes.length;
row('a keystroke: count, encode, map, 1,400 characters in UCS2', stroke);
const [part] = qxpdu.encode('a'.repeat(160), { to: '+4179123' }).pdus;
row('a keystroke: decode and map of a full PDU', leastOf(() => processorOf(() => {
    for (let i = 0; i < 200; ++i) {
        qxpdu.decode(part.octets);
        qxpdu.inspect(part.octets);
    }
})) / 200);
console.log(['| what | µs | |', '|---|---|---|', ...rows].join('\n'));
