// The functions of the package.
export const functionsOf = (qxpdu) => ({
    decode: (input, options) => qxpdu.decode(input, options),
    decodePages: (input, options) => qxpdu.decodePages(input, options),
    inspect: (input, options) => qxpdu.inspect(input, options),
    encode: (text, options) => qxpdu.encode(text, options),
    count: (text, options) => qxpdu.count(text, options),
    reader: (options) => qxpdu.reader(options),
    run: (words, input) => qxpdu.run(words, input),
});
