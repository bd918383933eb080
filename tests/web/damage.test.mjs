// Damaged input never traps, and gives what the tool gives of it. QX_DAMAGED tells how many inputs of each kind there are.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { batchesOf, chance, makeCommands, mixedLines, runTool } from './support.mjs';

const COUNT = Number(process.env.QX_DAMAGED ?? 10000);
const random = chance(Number(process.env.QX_SEED ?? 20261123));
const commands = makeCommands();
const sources = mixedLines(2000);

const NOISE = ['', 'F', '00', 'FFFFFF', 'g', '€', '\t', '+CMGL: 1,1,,', '"', ': ', '0x', '\0', '\ud83d\ude00', '|', '1A', ' '];

/** A few pieces of a line cut out, doubled, or put in. */
function damaged(line) {
    let text = line;
    for (let times = 1 + random(4); times > 0; --times) {
        const begin = random(text.length + 1);
        const end = Math.min(text.length, begin + random(12));
        const piece = [NOISE[random(NOISE.length)], text.slice(begin, end).repeat(2), random(65536).toString(16).toUpperCase()][random(3)];
        text = text.slice(0, begin) + piece + text.slice(end);
    }
    return text.replaceAll('\n', ' ');
}

const lines = Array.from({ length: COUNT }, () => damaged(sources[random(sources.length)]));

function assertSame(words, input) {
    const { status, output } = commands.run(words, input);
    const expected = runTool(words, input);
    assert.equal(output, expected.output, words.join(' '));
    assert.equal(status, expected.status);
}

for (const words of [['decode', '--jsonl', '--join', '--each'], ['inspect', '--jsonl'], ['cell', '--jsonl', '--join']])
    test(`${COUNT} damaged lines, ${words.join(' ')}`, () => {
        for (const batch of batchesOf(lines, 1024))
            assertSame(words, batch);
    });

test(`${COUNT} damaged lines, one by one`, () => {
    for (const line of lines) {
        assert.ok(commands.run(['decode', '--jsonl'], line).status < 2, line);
        assert.equal(typeof commands.mayHavePdu(line), 'boolean');
    }
});

test(`${COUNT} damaged objects to encode`, () => {
    const objects = Array.from({ length: COUNT }, (_, index) =>
        damaged(JSON.stringify({ to: '+4179123', text: lines[index], 'concat-reference': random(256), class: random(5), validity: `${random(99)}d` })));
    for (const batch of batchesOf(objects, 1024))
        assertSame(['encode', '--jsonl'], batch);
});

test(`${COUNT} damaged texts to count`, () => {
    for (const batch of batchesOf(lines, 1024))
        assertSame(['count', '--jsonl', '--lines', '--language=all'], batch);
});
