// The module, out of the blocks of the page that hold it.
import { fromBlock } from '../script/blocks.js';
import { Qxpdu } from '../script/qxpdu.js';

/** The octets of a block, which is packed by gzip. */
async function octetsOf(id) {
    const packed = fromBlock(document.getElementById(id).textContent);
    const unpacked = new Blob([packed]).stream().pipeThrough(new DecompressionStream('gzip'));
    return new Uint8Array(await new Response(unpacked).arrayBuffer());
}

class Engine extends Qxpdu {
    #names;

    /** Reads messages, or with `cell` pages of cell broadcast. */
    decode(input, { cell, ...options } = {}) {
        return cell ? super.decodePages(input, options) : super.decode(input, options);
    }

    /** Once this is fulfilled, count() names characters. */
    names() {
        this.#names ??= octetsOf('names').then((rows) => this.setNames(rows));
        return this.#names;
    }
}

export async function load() {
    return new Engine(await WebAssembly.compile(await octetsOf('module')));
}
