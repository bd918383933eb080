// What the module refuses, and how it goes on after a failure.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { runInNewContext } from 'node:vm';
import { MOST_INPUT } from '../../web/script/module.js';
import { Qxpdu } from '../../web/script/qxpdu.js';
import { makeCommands, module, names, runTool } from './support.mjs';

const PDU = '0791214365870921040B912143658709F100002120312143658006C83468530E01';

/** Ends the instance as a fault of the module would. */
const trap = (commands) => commands.guarded(({ exports }) => exports.run(-1, 1, -1, 1));

test('it asks the system for the time and for chance, and for nothing that leads out', () => {
    const wanted = WebAssembly.Module.imports(module).map(({ name }) => name).sort();
    const allowed = ['__syscall_poll', '__syscall_stat64', 'clock_time_get', 'emscripten_notify_memory_growth', 'environ_get',
        'environ_sizes_get', 'fd_close', 'fd_read', 'fd_write', 'getentropy', 'proc_exit'];
    assert.deepEqual(wanted.filter((name) => !allowed.includes(name)), []);
});

test('a trap is an error, and the next call is answered', () => {
    const commands = makeCommands();
    assert.throws(() => trap(commands), { message: /^the module failed, and begins anew: / });
    assert.match(commands.run(['decode', '--jsonl'], PDU).output, /"text":"Hi €!"/);
    assert.match(commands.run(['count', '--jsonl'], '’').output, /RIGHT SINGLE QUOTATION MARK/, 'names are there again');
});

test('a reader of an instance that failed says so', () => {
    const commands = makeCommands();
    const session = commands.open(['decode', '--jsonl']);
    assert.throws(() => trap(commands));
    assert.throws(() => session.take(PDU), { message: /what came before is lost/ });
});

test('a reader of an instance that failed leaves the next instance as it is', () => {
    const commands = makeCommands();
    const first = commands.open(['decode', '--jsonl']);
    assert.throws(() => trap(commands));
    const second = commands.open(['decode', '--jsonl']);
    second.take(`${PDU}\n`);
    assert.throws(() => first.take(PDU), new Error('what came before is lost'));
    assert.throws(() => first.finish(), new Error('what came before is lost'));
    first.close();
    assert.match(second.finish().output, /"line":1,.*"text":"Hi €!"/);
});

test('a reader that is closed says so, and others go on', () => {
    const qxpdu = new Qxpdu(module);
    const other = qxpdu.reader();
    const [finished, closed] = [qxpdu.reader(), qxpdu.reader()];
    finished.finish();
    closed.close();
    for (const reader of [finished, closed]) {
        assert.throws(() => reader.take(PDU), new Error('the reader is closed'));
        assert.throws(() => reader.finish(), new Error('the reader is closed'));
        reader.close();
    }
    assert.equal([...other.take(`${PDU}\n`), ...other.finish()][0].text, 'Hi €!');
});

test('an exception of the module, which has no words, is told in words', () => {
    const exception = new WebAssembly.Exception(new WebAssembly.Tag({ parameters: ['i32'] }), [0]);
    assert.throws(() => makeCommands().guarded(() => { throw exception; }), {
        message: 'the module failed, and begins anew: an exception that nothing caught',
        cause: exception,
    });
});

test('what is neither a string nor octets is refused', () => {
    const qxpdu = new Qxpdu(module);
    const wrong = new TypeError('the input is neither a string nor a Uint8Array');
    for (const input of [undefined, null, 123, [PDU, PDU], { length: 4 }, new ArrayBuffer(4), new Uint16Array(4), new DataView(new ArrayBuffer(4))])
        for (const name of ['decode', 'decodePages', 'inspect', 'count', 'isText'])
            assert.throws(() => qxpdu[name](input), wrong, `${name} ${input}`);
    for (const text of [123, [PDU], new Uint8Array(4), { length: 4 }])
        assert.throws(() => qxpdu.encode(text, { to: '1' }), new TypeError('the text is no string'));
    for (const piece of [undefined, 123, new Uint8Array(4)])
        assert.throws(() => qxpdu.reader().take(piece), new TypeError('the piece is no string'));
});

test('octets are taken, a Buffer and those of another context too', () => {
    const qxpdu = new Qxpdu(module);
    for (const octets of [new TextEncoder().encode(PDU), Buffer.from(PDU), runInNewContext('Uint8Array.from(octets)', { octets: Buffer.from(PDU) })])
        assert.equal(qxpdu.decode(octets)[0].text, 'Hi €!');
    assert.equal(qxpdu.count(new TextEncoder().encode('5 €\n')).septets, 5);
});

for (const [text, septets] of [['hello', 5], ['hello\n', 6], ['hello\n\n', 7], ['\n', 1], ['hello\r\n', 7]])
    test(`the line feed at the end counts: ${JSON.stringify(text)}`, () => {
        const qxpdu = new Qxpdu(module);
        assert.equal(qxpdu.count(text).septets, septets);
        assert.equal(qxpdu.encode(text, { to: '1' }).pdus[0].septets, septets);
    });

test('half a character is the sign for what cannot be shown', () => {
    const qxpdu = new Qxpdu(module);
    for (const text of ['a\ud83d', '\ude00a', 'a\ud83db']) {
        const { pdus } = qxpdu.encode(text, { to: '1' });
        assert.equal(qxpdu.decode(pdus[0].octets)[0].text, text.replace(/[^ab]/, '\ufffd'));
        assert.equal(qxpdu.count(text).characters, text.length);
    }
    assert.equal(qxpdu.decode(qxpdu.encode('\ud83d\ude00', { to: '1' }).pdus[0].octets)[0].text, '\u{1f600}');
});

test('a text that JSON makes longer than the most input is told how many messages it needs', () => {
    const qxpdu = new Qxpdu(module);
    const needed = 'the text needs 3922 parts, 255 at most'; // 600,000 septets by 153
    for (const text of ['"'.repeat(600000), '\n'.repeat(600000), `${'"'.repeat(599999)}\r`])
        assert.equal(qxpdu.encode(text, { to: '1' }).error, needed);
    assert.throws(() => qxpdu.encode('"'.repeat(MOST_INPUT + 1), { to: '1' }),
        new RangeError('the input has 1048577 octets, 1048576 are the most'));
});

test('the most input is taken, and more is refused', () => {
    const commands = makeCommands();
    const lines = `${PDU}\n`.repeat(Math.floor(MOST_INPUT / (PDU.length + 1)));
    const most = lines + ' '.repeat(MOST_INPUT - lines.length);
    assert.equal(commands.run(['decode', '--jsonl'], most).output.split('\n').length, lines.split('\n').length);
    assert.throws(() => commands.run(['decode', '--jsonl'], `${most} `), new RangeError('the input has 1048577 octets, 1048576 are the most'));
    assert.throws(() => commands.mayHavePdu(`${most} `), RangeError);
    assert.equal(commands.run(['count', '--jsonl'], 'a'.repeat(MOST_INPUT)).status, runTool(['count', '--jsonl'], 'a'.repeat(MOST_INPUT)).status);
});

test('octets are counted, not characters', () => {
    assert.throws(() => makeCommands().run(['count', '--jsonl'], '€'.repeat(MOST_INPUT / 2)), RangeError);
});

test('long inputs on after another find memory', () => {
    const commands = makeCommands();
    for (let i = 0; i < 100; ++i)
        commands.run(['decode', '--jsonl'], `${PDU}\n`.repeat(3000));
    const { length } = commands.guarded(({ exports }) => exports.memory.buffer.byteLength === 0 ? [] : new Uint8Array(exports.memory.buffer));
    assert.ok(length < 1 << 27, `${length} octets of memory`);
});

for (const [words, message] of [
    [[], 'a command is required'],
    [['translate'], 'translate is no command'],
    [['decode', '--smcs=no'], '--smcs is no option'],
    [['decode', '--smsc'], '--smsc: a value is required'],
    [['decode', '--smsc=maybe'], '--smsc: maybe is neither yes nor no'],
    [['decode', '--join=2'], '--join: 2 is no value of a flag'],
    [['decode', '--each'], '--each requires --join'],
    [['decode', '--smsc=no', '--no-smsc'], '--smsc excludes --no-smsc'],
    [['decode', '--threads=0'], '-j,--threads: 0 is no number from 1 to 256'],
    [['decode', '--threads=257'], '-j,--threads: 257 is no number from 1 to 256'],
    [['decode', '--threads=08'], '-j,--threads: 08 is no number from 1 to 256'],
    [['encode', 'hello'], 'hello is no option'],
    [['encode', '--greek', '--to=1', '--lines'], '--greek: only with --as libQX_Encoding'],
])
    test(`wrong options: ${words.join(' ')}`, () => {
        assert.deepEqual({ ...makeCommands().run(words, PDU) }, { status: 2, output: '', messages: message, lacksNames: false });
    });

test('options may be given in each of their forms', () => {
    const commands = makeCommands();
    const report = (...words) => commands.run(['encode', '--to=+4179123', ...words], 'hi').output;
    assert.equal(report('--status-report'), report('--status-report=first'));
    assert.notEqual(report('--status-report'), report());
    assert.equal(report('--', 'hi'), report());
    assert.equal(report('--class=0'), runTool(['encode', '--to=+4179123', '--class=0'], 'hi').output);
    assert.equal(commands.run(['decode', '-j=2', '--jsonl'], PDU).messages, 'qxpdu: --threads: warning: 1 thread could be started, 2 asked for\n');
});

test('more options than are kept give what fewer do', () => {
    const commands = makeCommands();
    const first = commands.run(['encode', '--to=+41', '--class=0'], 'hi').output;
    for (let i = 0; i < 100; ++i)
        commands.run(['encode', `--to=+${1000 + i}`], 'hi');
    assert.equal(commands.run(['encode', '--to=+41', '--class=0'], 'hi').output, first);
});

test('references of parts are random', () => {
    const qxpdu = new Qxpdu(module);
    const references = Array.from({ length: 40 }, () => qxpdu.encode('a'.repeat(200), { to: '1' }).pdus[0].concatenation.reference);
    assert.ok(new Set(references).size > 10, `${references}`);
});

test('now is now', () => {
    const { pdus } = new Qxpdu(module).encode('hi', { type: 'deliver', from: 'Bank' });
    const [{ tp_scts }] = new Qxpdu(module).decode(pdus[0].octets);
    assert.ok(Math.abs(Date.parse(tp_scts.time) - Date.now()) < 5000, tp_scts.time);
});

test('names of characters come with their table', () => {
    const commands = new Qxpdu(module);
    assert.equal(commands.run(['count', '--jsonl'], '’').lacksNames, true);
    assert.equal(commands.count('’').forces_ucs2[0].name, undefined);
    commands.setNames(names);
    assert.equal(commands.count('’').forces_ucs2[0].name, 'RIGHT SINGLE QUOTATION MARK');
    assert.equal(commands.count('漢').forces_ucs2[0].name, 'CJK Ideograph');
    assert.equal(commands.run(['count', '--jsonl'], '’').lacksNames, false);
});

test('a text is told from what has PDUs in it', () => {
    const qxpdu = new Qxpdu(module);
    for (const text of ['hello', 'Meet me at 12:30, room 0815', 'two\nlines', ''])
        assert.equal(qxpdu.isText(text), true, text);
    for (const input of [PDU, `hello\n${PDU}`, '+CMT: ,24', `PDU: ${PDU.match(/../g).join(' ')}`])
        assert.equal(qxpdu.isText(input), false, input);
});

test('options of functions are those of commands', () => {
    const qxpdu = new Qxpdu(module);
    assert.throws(() => qxpdu.decode(PDU, { smsc: 'maybe' }), new TypeError('--smsc: maybe is neither yes nor no'));
    assert.throws(() => qxpdu.reader({ each: true }), new TypeError('--each requires --join'));
    assert.equal(qxpdu.decode(PDU, { ignoreTimeZone: true, smsc: undefined, join: false })[0].tp_scts.time, '2012-02-13T12:34:56');
    assert.equal(qxpdu.decode(PDU, { 'ignore-time-zone': true })[0].tp_scts.time, '2012-02-13T12:34:56');
    assert.match(qxpdu.encode('hi', { to: 'x' }).error, /^to: /);
    assert.equal(qxpdu.encode(null, { type: 'status-report', to: '+41', reference: 7 }).pdus.length, 1);
});

test('a reader gives the objects of a log', () => {
    const reader = new Qxpdu(module).reader({ join: true });
    assert.deepEqual(reader.take('+CMT: ,25\n'), []);
    const objects = [...reader.take(`${PDU}\n`), ...reader.finish()];
    assert.deepEqual(objects.map(({ line, text }) => ({ line, text })), [{ line: 2, text: 'Hi €!' }]);
    const pages = new Qxpdu(module).reader({ cell: true });
    assert.deepEqual([...pages.take('403211120111C8329BFD06\n'), ...pages.finish()].map(({ text }) => text), ['Hello']);
});
