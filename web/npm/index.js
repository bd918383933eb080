// Short messages and pages of cell broadcast, between octets and objects.
import { Qxpdu } from '../script/qxpdu.js';

/** The octets of a file beside this one, in Node.js and in browsers. */
async function octetsOf(name) {
    const url = new URL(name, import.meta.url);
    if (url.protocol === 'file:')
        return (await import('node:fs/promises')).readFile(url);
    const response = await fetch(url);
    if (!response.ok)
        throw new Error(`${url}: ${response.status} ${response.statusText}`);
    return new Uint8Array(await response.arrayBuffer());
}

async function unpacked(octets) {
    const stream = new Blob([octets]).stream().pipeThrough(new DecompressionStream('gzip'));
    return new Uint8Array(await new Response(stream).arrayBuffer());
}

const random = globalThis.crypto ?? (await import('node:crypto')).webcrypto;
const [module, names] = await Promise.all([octetsOf('./qxpdu.wasm'), octetsOf('./names.gz').then(unpacked)]);
const qxpdu = new Qxpdu(await WebAssembly.compile(module), random);
qxpdu.setNames(names);

export const decode = (input, options) => qxpdu.decode(input, options);
export const decodePages = (input, options) => qxpdu.decodePages(input, options);
export const inspect = (input, options) => qxpdu.inspect(input, options);
export const encode = (text, options) => qxpdu.encode(text, options);
export const count = (text, options) => qxpdu.count(text, options);
export const reader = (options) => qxpdu.reader(options);
export const run = (words, input) => qxpdu.run(words, input);
