// The page as one file.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { gunzipSync } from 'node:zlib';
import { fromBlock, toBlock } from '../../web/script/blocks.js';
import { chance, names, packageFolder, root } from './support.mjs';

const page = readFileSync(`${root}build/web/qxpdu.html`, 'utf8');
const policy = /<meta http-equiv="Content-Security-Policy" content="([^"]*)">/.exec(page)[1].split('; ');
const script = /<script>(.*?)<\/script>/s.exec(page)[1];
const style = /<style>(.*?)<\/style>/s.exec(page)[1];
const block = (id) => new RegExp(`<script type="text/plain" id="${id}">([^<]*)</script>`).exec(page)[1];
const hashOf = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;

test('its policy lets in its own script and style, and nothing out', () => {
    assert.deepEqual(policy.sort(), [
        "base-uri 'none'",
        "connect-src 'none'",
        "default-src 'none'",
        "form-action 'none'",
        "require-trusted-types-for 'script'",
        `script-src ${hashOf(script)} 'wasm-unsafe-eval'`,
        `style-src ${hashOf(style)}`,
        "trusted-types 'none'",
    ]);
});

test('there is one script, no handler, and no address that leads out', () => {
    assert.equal(page.match(/<script(?! type="text\/plain")/g).length, 1);
    assert.doesNotMatch(page.replace(script, ''), / (?:src|href|on\w+|style)=/);
});

test('its blocks are the module and the names of characters', () => {
    assert.deepEqual(gunzipSync(fromBlock(block('module'))), readFileSync(`${packageFolder}/qxpdu.wasm`));
    assert.deepEqual(gunzipSync(fromBlock(block('names'))), names);
});

test('octets of any number come back from characters that HTML leaves as they are', () => {
    const random = chance(7);
    for (let size = 0; size < 64; ++size) {
        const octets = Uint8Array.from({ length: size }, () => random(256));
        assert.deepEqual(fromBlock(toBlock(octets)), octets);
    }
    assert.equal(toBlock(Uint8Array.of(0x00, 0x1a, 0x78)), '\u0100\x06O\u0100');
    const every = toBlock(Uint8Array.from({ length: 7 * 4096 }, () => random(256)));
    assert.doesNotMatch(every, /[\0\r<]/);
    assert.ok(Buffer.byteLength(every) < 7 * 4096 * 1.18);
});

test('it is under 500 KB without the names of characters', () => {
    const size = Buffer.byteLength(page) - Buffer.byteLength(block('names'));
    assert.ok(size < 500_000, `${size}`);
});
