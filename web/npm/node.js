// Short messages and pages of cell broadcast, between octets and objects: the entry of Node.js, which has the files at hand.
import { webcrypto } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { gunzipSync } from 'node:zlib';
import { Qxpdu } from '../script/qxpdu.js';
import { functionsOf } from './functions.js';

const qxpdu = new Qxpdu(new WebAssembly.Module(readFileSync(new URL('./qxpdu.wasm', import.meta.url))), webcrypto);
qxpdu.setNames(() => gunzipSync(readFileSync(new URL('./names.gz', import.meta.url))));

export const { decode, decodePages, inspect, encode, count, reader, run } = functionsOf(qxpdu);

/** There is nothing to wait for. */
export const loadNames = () => Promise.resolve();
