// What the npm package sms-segments-calculator counts of texts: a JSON string a line, and an object a line for each.
// segments.js FOLDER, in which the package is installed
const { createInterface } = require("readline");
const { createRequire } = require("module");
const { SegmentedMessage } = createRequire(process.argv[2] + "/")("sms-segments-calculator");

createInterface({ input: process.stdin }).on("line", (line) => {
    const message = new SegmentedMessage(JSON.parse(line));
    const unitBits = message.encodingName === "UCS-2" ? 16 : 7;
    const parts = message.segments.map((segment) => Array.from(segment, (one) => one.raw ?? "").join(""));
    console.log(JSON.stringify({
        alphabet: message.encodingName,
        units: message.messageSize / unitBits,
        room: Math.floor(message.segments.at(-1).freeSizeInBits() / unitBits),
        parts,
    }));
});
