// Makes the TypeScript of the tables that C++ reads as they are: build/contract/shared.ts of platform/*.def, what
// every host shares, build/contract/wire.ts of hosts/web/wire/*.def, what passes between module and page, and
// build/contract/lesson.ts of hosts/web/lesson/wire/*.def, the same of the lesson's module.
//
//   node tools/make-contract.mjs
//
// A table is rows of the form WORD(argument, ...); an argument may be rows again. Comments and the lines of the
// preprocessor are left out.
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const root = fileURLToPath(new URL("..", import.meta.url));

// ---- Reading tables

// Splits where `separates` says so, outside quotes and parentheses.
function split(text, separates) {
  const parts = [""];
  let depth = 0;
  let quoted = false;
  for (const letter of text) {
    if (letter === '"') quoted = !quoted;
    if (!quoted && letter === ")") depth -= 1;
    if (!quoted && depth === 0 && separates(letter)) parts.push("");
    else parts[parts.length - 1] += letter;
    if (!quoted && letter === "(") depth += 1;
  }
  if (depth !== 0 || quoted) throw new Error(`not closed: ${text.trim().slice(0, 60)}`);
  return parts.map((part) => part.trim());
}

// The rows of a table, or of an argument that is rows: [{ word, given: [text, ...] }].
export function rowsOf(table) {
  const plain = table.replace(/^\s*#.*$/gm, "").replace(/\/\/.*$/gm, "");
  return [...plain.matchAll(/\S/g)].length === 0 ? [] : calls(plain);
}

function calls(text) {
  const found = [];
  let rest = text.trim();
  while (rest) {
    const word = /^[A-Z_]+(?=\()/.exec(rest)?.[0];
    if (!word) throw new Error(`not a row: ${rest.slice(0, 60)}`);
    const [given] = split(rest.slice(word.length), (letter) => /[\sA-Z]/.test(letter));
    found.push({ word, given: split(given.slice(1, -1), (letter) => letter === ",") });
    rest = rest.slice(word.length + given.length).trim();
  }
  return found;
}

const given = (rows, word) => rows.filter((row) => row.word === word).map((row) => row.given);

// ---- Writing TypeScript

const camel = (name) => name.replace(/_([a-z])/g, (_, letter) => letter.toUpperCase());
const hex = (colour) => `"#${colour.slice(2).toLowerCase()}"`;
const number = (text) => String(Number(text.replace(/U$/, "")));
const made = (source, ...blocks) =>
  `${[`// Made by tools/make-contract.mjs from ${source}.`, ...blocks].join("\n\n")}\n`;

const enumOf = (name, values) => `export enum ${name} {\n${values.map((value) => `  ${value},\n`).join("")}}`;
const plainEnums = (rows) => given(rows, "ENUM").map(([name, ...values]) => enumOf(name, values));
// An enum of rows (name, value), the value as `write` has it.
const enumOfRows = (name, rows, write) =>
  `export enum ${name} {\n${rows.map(([key, value]) => `  ${camel(key)} = ${write(value)},\n`).join("")}}`;

// ---- What every host shares

const decimal = (at) => String(at).replace(/^(-?)0\./, "$1.");

// A path of straight lines, as short as SVG has it.
function svgPath([first, ...others]) {
  let path = `M${first.map(decimal).join(" ")}`;
  let before = first;
  for (const [x, y] of others) {
    if (y === before[1]) path += `H${decimal(x)}`;
    else if (x === before[0]) path += `V${decimal(y)}`;
    else path += `L${decimal(x)} ${decimal(y)}`;
    before = [x, y];
  }
  return path;
}

const round = (at) => decimal(Math.round(at * 100) / 100);

// Two half circles, from the bottom.
function svgDisc([x, y], width) {
  const radius = width / 2;
  const half = (down) => `a${round(radius)} ${round(radius)} 0 1 0 0${down < 0 ? "" : " "}${round(down)}`;
  return `M${round(x)} ${round(y + radius)}${half(-width)}${half(width)}z`;
}

// Lines of one kind that follow each other are one shape, so that they are painted at once.
function joined(shapes) {
  const all = [];
  for (const shape of shapes) {
    const last = all.at(-1);
    if (shape.paint.startsWith("stroke") && last?.paint === shape.paint) last.path += shape.path;
    else all.push({ ...shape });
  }
  return all;
}

function pictures(rows) {
  const paths = new Map(
    given(rows, "PATH").map(([name, spots]) => [name, rowsOf(spots).map((spot) => spot.given.map(Number))]),
  );
  const pathOf = (name) => {
    if (!paths.has(name)) throw new Error(`no such path: ${name}`);
    return paths.get(name);
  };
  const shapes = {
    AREA: ([ink, path]) => ({ path: `${svgPath(pathOf(path))}z`, paint: `fill: Ink.${camel(ink)}` }),
    LINE: ([ink, path, width]) => ({
      path: svgPath(pathOf(path)),
      paint: `stroke: Ink.${camel(ink)}, width: ${width}`,
    }),
    DISC: ([ink, path, width]) => ({
      path: pathOf(path)
        .map((spot) => svgDisc(spot, Number(width)))
        .join(""),
      paint: `fill: Ink.${camel(ink)}`,
    }),
  };
  const all = given(rows, "PICTURE").map(([name, parts]) => ({
    name,
    shapes: joined(rowsOf(parts).map(({ word, given: values }) => shapes[word](values))),
  }));
  // A path that several shapes have is written once.
  const drawn = all.flatMap((picture) => picture.shapes.map(({ path }) => path));
  const shared = [...new Set(drawn.filter((path, at) => drawn.indexOf(path) !== at))];
  const pathText = (path) => (shared.includes(path) ? `path${shared.indexOf(path)}` : `"${path}"`);
  const shapeText = ({ path, paint }) => `    { path: ${pathText(path)}, ${paint} },\n`;
  return [
    enumOfRows("Ink", given(rows, "INK"), hex),
    enumOf("Picture", ["None", ...all.map(({ name }) => name)]),
    "// In a square of 24 by 24; with a stroke or filled.\nexport interface Shape {\n  readonly path: string;\n  readonly fill?: Ink;\n  readonly stroke?: Ink;\n  readonly width?: number;\n}",
    shared.map((path) => `const ${pathText(path)} = "${path}";`).join("\n"),
    `export const shapes: Record<Picture, readonly Shape[]> = {\n  [Picture.None]: [],\n${all
      .map((picture) => `  [Picture.${picture.name}]: [\n${picture.shapes.map(shapeText).join("")}  ],\n`)
      .join("")}};`,
  ];
}

function errorWords(rows) {
  const errors = given(rows, "RUN_TIME_ERROR");
  const [[unknown]] = given(rows, "UNKNOWN_ERROR");
  const ways = ["Instead", "Behind", "Unsaid"];
  const row = ([, code, about, way, words]) => `  ${code}: [${about}, Said.${way}, ${words}],\n`;
  return [
    "// Where what was given is said: in the place of what the words are about, behind it, or nowhere.",
    enumOf("Said", ways),
    `export const errorWords: { readonly [number: number]: readonly [about: string, given: Said, words: string] } = {\n${errors.map(row).join("")}};`,
    `export const unknownError = ${unknown};`,
  ];
}

export function sharedContract(table) {
  const look = rowsOf(table("platform/look.def"));
  const keys = rowsOf(table("platform/keys.def"));
  return made(
    "platform/*.def",
    ...plainEnums(rowsOf(table("platform/enums.def"))),
    enumOfRows("Key", given(keys, "KEY"), number),
    enumOfRows("Modifier", given(keys, "MODIFIER"), number),
    enumOfRows("Look", given(look, "COLOUR"), hex),
    enumOfRows("SystemColour", given(look, "SYSTEM_COLOUR"), number),
    enumOfRows("Measure", given(look, "MEASURE"), number),
    ...pictures(rowsOf(table("platform/pictures.def"))),
    ...errorWords(rowsOf(table("platform/run_time_errors.def"))),
  );
}

// ---- What passes between module and page

const readerWords = { flag: "boolean", text: "string", bytes: "Uint8Array", Colour: "number" };
for (const type of ["u8", "u16", "u32", "i32", "f32", "f64"]) readerWords[type] = "number";

// How a field is read, and its type.
function field({ word, given: [type, name] }, enums) {
  const one = readerWords[type]
    ? { read: `record.${type === "Colour" ? "u32" : type}()`, type: readerWords[type] }
    : { read: enums.has(type) ? "record.u8()" : `read${type}(record)`, type };
  const all = { read: `record.list(read${type})`, type: `readonly ${type}[]` };
  return { name: camel(name), ...(word === "LIST" ? all : one) };
}

function record(name, fields) {
  const members = fields.map((each) => `  readonly ${each.name}: ${each.type};\n`).join("");
  return `export interface ${name} {\n${members}}`;
}
const literal = (fields) => `{ ${fields.map((each) => `${each.name}: ${each.read}`).join(", ")} }`;
const reader = (name, fields) => `export const read${name} = (record: Reader): ${name} => (${literal(fields)});`;

const readerInterface = `// What values are read from (record.ts).
export interface Reader {
  u8(): number;
  u16(): number;
  u32(): number;
  i32(): number;
  f32(): number;
  f64(): number;
  flag(): boolean;
  text(): string;
  bytes(): Uint8Array;
  list<Value>(read: (record: Reader) => Value): readonly Value[];
}`;

function strokes(rows, enums) {
  const all = given(rows, "STROKE").map(([name, fields]) => ({
    name,
    fields: rowsOf(fields).map((each) => field(each, enums)),
  }));
  const kind = (name) => ({ name: "kind", type: `StrokeKind.${name}`, read: `StrokeKind.${name}` });
  return [
    enumOf(
      "StrokeKind",
      all.map(({ name }) => name),
    ),
    ...all.map(({ name, fields }) => record(`${name}Stroke`, [kind(name), ...fields])),
    `export type Stroke = ${all.map(({ name }) => `${name}Stroke`).join(" | ")};`,
    `const strokeReaders: Record<StrokeKind, (record: Reader) => Stroke> = {\n${all
      .map(({ name, fields }) => `  [StrokeKind.${name}]: (record) => (${literal([kind(name), ...fields])}),\n`)
      .join("")}};`,
    "export const readStroke = (record: Reader): Stroke => strokeReaders[record.u8() as StrokeKind](record);",
  ];
}

function properties(rows, enums) {
  const all = rows
    .map(({ word, given: [name, fields] }, place) => ({ word, name, bit: 2 ** place, rows: fields ?? "" }))
    .filter(({ word }) => word === "PROPERTY")
    .map((each) => ({ ...each, fields: rowsOf(each.rows).map((row) => field(row, enums)) }));
  const line = ({ name, bit, fields }) =>
    `  if (marked & ${bit}) of.set${name}(${fields.length ? literal(fields) : ""});\n`;
  return [
    ...all.filter(({ fields }) => fields.length).map(({ name, fields }) => record(`${name}Value`, fields)),
    `// Who shows a control: told of each property by its own name.\nexport interface Properties {\n${all
      .map(({ name, fields }) => `  set${name}(${fields.length ? `value: ${name}Value` : ""}): void;\n`)
      .join("")}}`,
    `// Reads the values of the marked properties, in the order of their bits.\nexport function readProperties(record: Reader, marked: number, of: Properties): void {\n${all
      .map(line)
      .join("")}}`,
  ];
}

const parameters = (list) =>
  list === "()" ? [] : split(list.slice(1, -1), (letter) => letter === ",").map((each) => each.split(/\s+/));

// A number in JavaScript; a truth value may be given to the module as such, and comes from it as 0 or 1.
const toModule = (type, enums) => (type === "flag" ? "boolean" : fromModule(type, enums));
const fromModule = (type, enums) => (type === "none" ? "void" : enums.has(type) ? type : "number");

function functions(name, rows, enums, { takes, gives }, more = "") {
  const line = ([result, own, list]) => {
    const taken = parameters(list).map(([type, parameter]) => `${camel(parameter)}: ${takes(type, enums)}`);
    return `  ${own}(${taken.join(", ")}): ${gives(result, enums)};\n`;
  };
  return `export type ${name} = {\n${more}${rows.map(line).join("")}};`;
}

const plainRecords = (rows, enums) =>
  rows.flatMap(([name, rest]) => {
    const fields = rowsOf(rest).map((each) => field(each, enums));
    return [record(name, fields), reader(name, fields)];
  });

const memory = "  memory: WebAssembly.Memory;\n  _initialize(): void;\n";

export function wireContract(table) {
  const shared = rowsOf(table("platform/enums.def"));
  const own = rowsOf(table("hosts/web/wire/enums.def"));
  const records = rowsOf(table("hosts/web/wire/records.def"));
  const sharedEnums = [...given(shared, "ENUM").map(([name]) => name), "Picture"];
  const enums = new Set([...sharedEnums, ...given(own, "ENUM").map(([name]) => name)]);
  const asks = { takes: fromModule, gives: toModule };
  const offers = { takes: toModule, gives: fromModule };
  const body = [
    readerInterface,
    ...plainEnums(own),
    ...plainRecords([...given(records, "SHARED"), ...given(records, "RECORD")], enums),
    ...strokes(records, enums),
    ...properties(rowsOf(table("platform/properties.def")), enums),
    "// What the module asks of its page.",
    functions("Imports", given(rowsOf(table("hosts/web/wire/imports.def")), "IMPORT"), enums, asks),
    "// What the page asks of its module.",
    functions("Exports", given(rowsOf(table("hosts/web/wire/exports.def")), "EXPORT"), enums, offers, memory),
  ];
  const used = sharedEnums.filter((name) => new RegExp(`: ${name}\\b`).test(body.join("\n")));
  return made(
    "platform/*.def and hosts/web/wire/*.def",
    `import type { ${used.sort().join(", ")} } from "./shared.js";`,
    ...body,
  );
}

export function lessonContract(table) {
  const folder = "hosts/web/lesson/wire";
  const enums = new Set();
  const asks = { takes: fromModule, gives: toModule };
  const offers = { takes: toModule, gives: fromModule };
  return made(
    `${folder}/*.def`,
    'import type { Reader } from "./wire.js";',
    ...plainRecords(given(rowsOf(table(`${folder}/records.def`)), "RECORD"), enums),
    "// What the lesson's module asks of its page.",
    functions("LessonImports", given(rowsOf(table(`${folder}/imports.def`)), "IMPORT"), enums, asks),
    "// What the page asks of the lesson's module.",
    functions("LessonExports", given(rowsOf(table(`${folder}/exports.def`)), "EXPORT"), enums, offers, memory),
  );
}

// The names that a module is to import and export.
export const namesOf = (path, word) => given(rowsOf(readTable(path)), word).map(([, name]) => name);

export const readTable = (path) => readFileSync(join(root, path), "utf8");

export function makeContract(folder = join(root, "build/contract"), table = readTable) {
  mkdirSync(folder, { recursive: true });
  writeFileSync(join(folder, "shared.ts"), sharedContract(table));
  writeFileSync(join(folder, "wire.ts"), wireContract(table));
  writeFileSync(join(folder, "lesson.ts"), lessonContract(table));
}

if (process.argv[1] === fileURLToPath(import.meta.url)) makeContract();
