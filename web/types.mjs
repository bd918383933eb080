// TypeScript's types of the objects that the JSON schemas of the tool tell of.
import { readFileSync } from 'node:fs';

const INDENT = '    ';

/** 'SerialNumber' of serial_number. */
const typeName = (name) => name.replace(/(?:^|_)(\w)/g, (_, letter) => letter.toUpperCase());

const isPlain = (name) => /^[A-Za-z_]\w*$/.test(name);

/** 'Cell.Broadcast' of cell.schema.json#/$defs/broadcast. */
function referred(reference) {
    const [, file, name] = /^(?:(\w+)\.schema\.json)?#\/\$defs\/(\w+)$/.exec(reference);
    return (file ? `${typeName(file)}.` : '') + typeName(name);
}

const union = (schemas, indent) => [...new Set(schemas.map((schema) => typeOf(schema, indent)))].join(' | ');

function objectOf({ properties = {}, required = [], additionalProperties }, indent) {
    const inner = indent + INDENT;
    const members = Object.entries(properties).map(
        ([name, schema]) => `${isPlain(name) ? name : JSON.stringify(name)}${required.includes(name) ? '' : '?'}: ${typeOf(schema, inner)};`
    );
    if (additionalProperties !== false)
        members.push(`[name: string]: ${additionalProperties && !members.length ? typeOf(additionalProperties, inner) : 'unknown'};`);
    return `{\n${members.map((member) => `${inner}${member}\n`).join('')}${indent}}`;
}

const PLAIN = { integer: 'number', number: 'number', string: 'string', boolean: 'boolean', null: 'null' };

function typeOf(schema, indent = '') {
    if (schema === true)
        return 'unknown';
    if (schema.$ref)
        return referred(schema.$ref);
    if ('const' in schema)
        return JSON.stringify(schema.const);
    if (schema.enum)
        return schema.enum.map((value) => JSON.stringify(value)).join(' | ');
    const choice = schema.oneOf ?? schema.anyOf;
    if (choice && schema.type === undefined)
        return union(choice, indent);
    if (Array.isArray(schema.type))
        return union(schema.type.map((type) => ({ ...schema, type })), indent);
    if (schema.type === 'array')
        return `Array<${typeOf(schema.items ?? true, indent)}>`;
    if (schema.type === 'object')
        return objectOf(schema, indent);
    if (PLAIN[schema.type])
        return PLAIN[schema.type];
    throw new Error(`no type for ${JSON.stringify(schema)}`);
}

/** The namespace of one schema: a type for each of its objects, and Result, any of those that a command writes. */
function namespaceOf(folder, command) {
    const { $defs, oneOf, title } = JSON.parse(readFileSync(`${folder}/${command}.schema.json`, 'utf8'));
    const types = Object.entries($defs).map(([name, schema]) => `type ${typeName(name)} = ${typeOf(schema, INDENT)};`);
    types.push(`/** ${title}. */\n${INDENT}type Result = ${union(oneOf, INDENT)};`);
    return `export declare namespace ${typeName(command)} {\n${types.map((type) => INDENT + type).join('\n')}\n}\n`;
}

export function typesOf(folder) {
    return ['decode', 'cell', 'inspect', 'encode', 'count'].map((command) => namespaceOf(folder, command)).join('\n');
}
