// Octets in the characters of a page, seven bits each. Base64 has six, and would make the page larger by a seventh.

const BITS = 7;
const MASK = 0x7f;

/** What HTML changes or ends by, as characters that have the same seven bits. */
const moved = (code) => (code === 0x00 || code === 0x0d || code === 0x3c ? code | 0x100 : code);

export function toBlock(octets) {
    const codes = [];
    let bits = 0;
    let count = 0;
    for (const octet of octets) {
        bits = ((bits << 8) | octet) & 0xffff;
        count += 8;
        for (; count >= BITS; count -= BITS)
            codes.push(moved((bits >> (count - BITS)) & MASK));
    }
    if (count > 0)
        codes.push(moved((bits << (BITS - count)) & MASK));
    return codes.map((code) => String.fromCharCode(code)).join('');
}

export function fromBlock(text) {
    const octets = new Uint8Array(Math.floor((text.length * BITS) / 8));
    let bits = 0;
    let count = 0;
    let at = 0;
    for (let i = 0; i < text.length; ++i) {
        bits = ((bits << BITS) | (text.charCodeAt(i) & MASK)) & 0xffff;
        count += BITS;
        if (count >= 8) {
            count -= 8;
            octets[at++] = bits >> count;
        }
    }
    return octets;
}
