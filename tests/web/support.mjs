// What the tests of the module have in common: the module, the tool beside it, and inputs.
import { spawnSync } from 'node:child_process';
import { webcrypto } from 'node:crypto';
import { readFileSync, readdirSync } from 'node:fs';
import { gunzipSync } from 'node:zlib';
import { Commands } from '../../web/script/module.js';

globalThis.crypto ??= webcrypto; // which Node.js 18 has in its module alone

export const root = new URL('../../', import.meta.url).pathname;
export const packageFolder = `${root}build/web/npm`;
export const tool = process.env.QXPDU ?? `${root}build/tool/tools/qxpdu/qxpdu`;

export const module = new WebAssembly.Module(readFileSync(`${packageFolder}/qxpdu.wasm`));
export const names = gunzipSync(readFileSync(`${packageFolder}/names.gz`));

export function makeCommands() {
    const commands = new Commands(module);
    commands.setNames(names);
    return commands;
}

/** What the tool itself gives, { status, output }. */
export function runTool(words, input) {
    const { status, stdout, error } = spawnSync(tool, words, { input, maxBuffer: 1 << 30 });
    if (error)
        throw error;
    return { status, output: stdout.toString() };
}

/** Octets of vectors, an object each. */
export function vectors() {
    const folder = `${root}tests/vectors`;
    return readdirSync(folder)
        .filter((file) => file.endsWith('.jsonl'))
        .flatMap((file) => readFileSync(`${folder}/${file}`, 'utf8').trimEnd().split('\n').map((line) => JSON.parse(line)));
}

export function mixedLines(count) {
    const { stdout, status } = spawnSync('python3', [`${root}bench/lines.py`, `${count}`, 'mixed'], { maxBuffer: 1 << 30 });
    if (status !== 0)
        throw new Error('bench/lines.py failed');
    return stdout.toString().trimEnd().split('\n');
}

/** The lines in texts that one call takes. */
export function* batchesOf(lines, size = 4096) {
    for (let begin = 0; begin < lines.length; begin += size)
        yield `${lines.slice(begin, begin + size).join('\n')}\n`;
}

/** Numbers that look random and are the same in each run: mulberry32. */
export function chance(seed) {
    let state = seed;
    return (limit) => {
        state = (state + 0x6d2b79f5) | 0;
        let mixed = Math.imul(state ^ (state >>> 15), 1 | state);
        mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed;
        return ((mixed ^ (mixed >>> 14)) >>> 0) % limit;
    };
}
