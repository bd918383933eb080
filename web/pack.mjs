// Packs the module into the page, one file, and into the npm package: node web/pack.mjs BUILD OUTPUT
// BUILD is the folder in which CMake built the module; OUTPUT gets qxpdu.html and npm/.
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { copyFileSync, mkdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { toBlock } from './script/blocks.js';
import { typesOf } from './types.mjs';

const [build, output] = process.argv.slice(2);
const here = new URL('.', import.meta.url).pathname;
const module = readFileSync(`${build}/web/qxpdu.wasm`);
const names = readFileSync(`${build}/tools/qxpdu/names/UnicodeNames.inc`);
const [, version] = /^CMAKE_PROJECT_VERSION:STATIC=(.*)$/m.exec(readFileSync(`${build}/CMakeCache.txt`, 'utf8'));
const packed = (octets) => gzipSync(octets, { level: 9 });
/** The same, smaller by a twentieth, for a hundred times the time. */
const wellPacked = (file) => execFileSync('zopfli', ['-c', file], { maxBuffer: 1 << 26 });

function bundled(file, ...options) {
    return execFileSync('esbuild', [`${here}${file}`, '--bundle', '--charset=utf8', '--log-level=warning', ...options], {
        encoding: 'utf8',
        maxBuffer: 1 << 26,
    }).trimEnd();
}

/** The source that a content security policy names an inline script or style by. */
const hashOf = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;

/** Puts the text where the template has a mark, which is there once. */
function filled(template, mark, text) {
    const [before, after, ...rest] = template.split(mark);
    if (after === undefined || rest.length > 0)
        throw new Error(`${mark} stands ${after === undefined ? 'nowhere' : 'twice'} in index.html`);
    return before + text + after;
}

function block(id, octets) {
    return `<script type="text/plain" id="${id}">${toBlock(octets)}</script>\n`;
}

function makePage() {
    const script = bundled('page/page.js', '--minify', '--format=iife', '--target=es2022');
    const style = bundled('page/page.css', '--minify');
    if (/<\/script|<!--/i.test(script) || /<\/style/i.test(style))
        throw new Error('the script or the style ends in the middle');
    const namesBlock = block('names', packed(names));
    let page = readFileSync(`${here}page/index.html`, 'utf8');
    page = filled(page, "'SCRIPT-HASH'", hashOf(script));
    page = filled(page, "'STYLE-HASH'", hashOf(style));
    page = filled(page, '<style></style>', `<style>${style}</style>`);
    page = filled(page, '<script></script>', `${block('module', wellPacked(`${build}/web/qxpdu.wasm`))}${namesBlock}<script>${script}</script>`);
    writeFileSync(`${output}/qxpdu.html`, page);
    return Buffer.byteLength(page) - Buffer.byteLength(namesBlock);
}

function makePackage() {
    const folder = `${output}/npm`;
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    for (const entry of ['browser.js', 'node.js'])
        writeFileSync(`${folder}/${entry}`, `${bundled(`npm/${entry}`, '--format=esm', '--platform=neutral', '--external:node:*')}\n`);
    writeFileSync(`${folder}/qxpdu.wasm`, module);
    writeFileSync(`${folder}/names.gz`, packed(names));
    const about = JSON.parse(readFileSync(`${here}npm/package.json`, 'utf8'));
    writeFileSync(`${folder}/package.json`, `${JSON.stringify({ ...about, version }, null, 2)}\n`);
    const functions = readFileSync(`${here}npm/functions.d.ts`, 'utf8');
    writeFileSync(`${folder}/index.d.ts`, functions + typesOf(`${here}../docs/schema`));
    copyFileSync(`${here}npm/README.md`, `${folder}/README.md`);
}

const MOST = 500_000;
makePackage();
const size = makePage();
console.log(`qxpdu.html: ${size} octets without the names of characters`);
if (size >= MOST)
    throw new Error(`${MOST} octets are the most`);
