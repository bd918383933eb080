// The page as one file.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { gunzipSync } from 'node:zlib';
import { names, packageFolder, root } from './support.mjs';

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
        `script-src ${hashOf(script)} 'wasm-unsafe-eval'`,
        `style-src ${hashOf(style)}`,
    ]);
});

test('there is one script, no handler, and no address that leads out', () => {
    assert.equal(page.match(/<script(?! type="text\/plain")/g).length, 1);
    assert.doesNotMatch(page.replace(script, ''), / (?:src|href|on\w+|style)=/);
});

test('its blocks are the module and the names of characters', () => {
    assert.deepEqual(gunzipSync(Buffer.from(block('module'), 'base64')), readFileSync(`${packageFolder}/qxpdu.wasm`));
    assert.deepEqual(gunzipSync(Buffer.from(block('names'), 'base64')), names);
});

test('it is under 500 KB without the names of characters', () => {
    const size = Buffer.byteLength(page) - block('names').length;
    assert.ok(size < 500_000, `${size}`);
});
