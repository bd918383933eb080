// Short messages and pages of cell broadcast, between octets and objects: the entry of browsers, which fetch the files.
// Bundlers know a file of the package by `new URL` with its name in place.
import { Qxpdu } from '../script/qxpdu.js';
import { functionsOf } from './functions.js';

async function fetched(url) {
    const response = await fetch(url);
    if (!response.ok)
        throw new Error(`${url}: ${response.status} ${response.statusText}`);
    return response;
}

async function octetsOf(response) {
    return new Uint8Array(await response.arrayBuffer());
}

const wasm = await octetsOf(await fetched(new URL('./qxpdu.wasm', import.meta.url)));
const qxpdu = new Qxpdu(await WebAssembly.compile(wasm));

export const { decode, decodePages, inspect, encode, count, reader, run } = functionsOf(qxpdu);

let names;

async function fetchNames() {
    const { body } = await fetched(new URL('./names.gz', import.meta.url));
    qxpdu.setNames(await octetsOf(new Response(body.pipeThrough(new DecompressionStream('gzip')))));
}

/** Once it is fulfilled, count() has names. What failed is tried again with the next call. */
export function loadNames() {
    names ??= fetchNames().catch((error) => {
        names = undefined;
        throw error;
    });
    return names;
}
