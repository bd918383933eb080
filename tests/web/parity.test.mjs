// The module gives what the tool gives, octet for octet.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { batchesOf, chance, makeCommands, mixedLines, runTool, vectors } from './support.mjs';

const commands = makeCommands();
const mixed = mixedLines(20000);
const messages = vectors().filter(({ octets, means }) => octets !== undefined && !means?.format);
const pages = vectors().filter(({ means }) => means?.format);
const texts = vectors().filter(({ text }) => text !== undefined);

function assertSame(words, input) {
    const { status, output } = commands.run(words, input);
    const expected = runTool(words, input);
    const lines = output.split('\n');
    const expectedLines = expected.output.split('\n');
    const at = lines.findIndex((line, index) => line !== expectedLines[index]);
    assert.equal(lines[at], expectedLines[at], `${words.join(' ')}, line ${at + 1} of the output`);
    assert.equal(output, expected.output);
    assert.equal(status, expected.status, words.join(' '));
    assert.ok(expectedLines.length > 1, 'the tool wrote something');
}

test('there are inputs', () => {
    assert.equal(mixed.length, 20000);
    assert.ok(messages.length > 1000 && pages.length > 100 && texts.length > 100, `${messages.length} ${pages.length} ${texts.length}`);
});

for (const words of [
    ['decode', '--jsonl'],
    ['decode', '--jsonl', '--join', '--each'],
    ['decode', '--jsonl', '--ignore-time-zone', '--strict'],
    ['decode', '--jsonl', '--as=libQX_Encoding'],
    ['inspect', '--jsonl'],
    ['cell', '--jsonl', '--join', '--each'],
])
    test(`20,000 mixed lines, ${words.join(' ')}`, () => {
        for (const batch of batchesOf(mixed))
            assertSame(words, batch);
    });

for (const smsc of ['yes', 'no'])
    for (const direction of ['to-mobile', 'from-mobile'])
        for (const command of ['decode', 'inspect'])
            test(`vectors of messages, ${command}, service centre ${smsc}, ${direction}`, () => {
                const chosen = messages.filter((vector) => vector['service-centre'] === smsc && vector.direction === direction);
                for (const batch of batchesOf(chosen.map(({ octets }) => octets)))
                    if (batch.trim() !== '')
                        assertSame([command, '--jsonl', `--smsc=${smsc}`, `--direction=${direction}`], batch);
            });

for (const type of ['gsm', 'umts', 'etws'])
    test(`vectors of cell broadcast, ${type}`, () => {
        const lines = pages.filter(({ means }) => means.format === type).map(({ octets }) => octets);
        for (const batch of batchesOf(lines)) {
            assertSame(['cell', '--jsonl', `--type=${type}`], batch);
            assertSame(['inspect', '--jsonl', `--type=${type}`], batch);
            assertSame(['cell', '--jsonl', '--join'], batch);
        }
    });

test('vectors of texts, counted', () => {
    const lines = texts.map(({ text }) => text.replaceAll(/[\r\n]/g, ' '));
    for (const options of [[], ['--language=all', '--replace'], ['--alphabet=ucs2'], ['--as=libQX_Encoding'], ['--concat-bits=16', '--port=9200']])
        for (const batch of batchesOf(lines))
            assertSame(['count', '--jsonl', '--lines', ...options], batch);
});

test('vectors of texts, encoded', () => {
    const objects = texts.map(({ text, reference, bits }) =>
        JSON.stringify({ to: '+4179123', text, 'concat-reference': reference, 'concat-bits': bits }));
    for (const options of [[], ['--language=all'], ['--replace'], ['--status-report=all', '--class=1', '--validity=2d']])
        for (const batch of batchesOf(objects, 512))
            assertSame(['encode', '--jsonl', ...options], batch);
    const hosts = texts.map(({ text }) => JSON.stringify({ to: '+4179123', text, 'concat-reference': 7 }));
    for (const batch of batchesOf(hosts, 512))
        assertSame(['encode', '--jsonl', '--as=libQX_Encoding'], batch);
});

test('pages are written', () => {
    const objects = texts.map(({ text }) => JSON.stringify({ text, id: '0x1112', code: 7 }));
    for (const batch of batchesOf(objects, 512))
        assertSame(['cell', 'encode', '--jsonl'], batch);
});

test('the other forms: an array, text, commands for a modem', () => {
    const [batch] = batchesOf(mixed.slice(0, 300));
    assertSame(['decode', '--json', '--join'], batch);
    assertSame(['inspect'], batch);
    assertSame(['encode', '--at', '--to=+4179123', '--concat-reference=7'], 'It is a long way. '.repeat(20));
    assertSame(['count'], 'It’s 5 €');
});

const log = mixed.slice(0, 3000).flatMap((line, index) =>
    index % 3 === 0 ? [`+CMGL: ${index},1,,${Math.max(0, line.length / 2 - 8)}`, line] : [`12:00:0${index % 10} chatter`, '']);

for (const [name, lines] of [['a list', mixed.slice(0, 3000)], ['a log', log]])
    test(`${name} in pieces is the same as at once`, () => {
        const whole = `${lines.join('\n')}\n`;
        const words = ['decode', '--jsonl', '--join', '--each'];
        const expected = runTool(words, whole).output;
        assert.ok(expected.length > 10000);
        for (const most of [100, 5000, 100000]) {
            const random = chance(most);
            const session = commands.open(words);
            let output = '';
            for (let begin = 0; begin < whole.length;) {
                const end = begin + 1 + random(most);
                output += session.take(whole.slice(begin, end)).output;
                begin = end;
            }
            output += session.finish().output;
            assert.equal(output, expected, `pieces of up to ${most}`);
        }
    });

test('what can be given of a list in pieces is given', () => {
    const session = commands.open(['inspect', '--jsonl']);
    const pdu = '0791214365870921040B912143658709F100002120312143658006C83468530E01\n';
    const given = session.take(pdu.repeat(2000)).output;
    assert.ok(given.split('\n').length > 900, 'a list shows what it is by its length');
    session.close();
});

test('a character is whole where a piece ends in it', () => {
    const session = commands.open(['decode', '--jsonl']);
    session.take('\ud83d');
    session.take('\ude00\n');
    assert.equal(session.finish().output, runTool(['decode', '--jsonl'], '\u{1f600}\n').output);
});
