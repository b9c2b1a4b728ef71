// What the module and its page have agreed on stands in tables; a side that does not keep to them does not compile.
import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { cpSync, mkdirSync, mkdtempSync, readFileSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { after, describe, test } from "node:test";
import { makeContract, readTable, rowsOf } from "../../tools/make-contract.mjs";
import { root } from "../../tools/sources.mjs";

const folder = mkdtempSync(join(tmpdir(), "contract-"));
after(() => rmSync(folder, { recursive: true }));

const run = (command, args, options) =>
  new Promise((resolve) =>
    execFile(command, args, options, (error, stdout, stderr) => resolve(error ? `${stdout}${stderr}` || "failed" : "")),
  );

// A change of one table: { path, from, to }. Each has to change it.
function changed({ path, from, to }) {
  const before = readTable(path);
  const after = before.replace(from, to);
  assert.notEqual(after, before, `${path} has no ${from}`);
  return after;
}

let copies = 0;

// What the TypeScript compiler says of the page with this change of a table; "" when it compiles.
async function pageWith(change) {
  const copy = join(folder, `page${++copies}`);
  cpSync(join(root, "hosts/web"), join(copy, "hosts/web"), { recursive: true });
  for (const name of ["package.json", "tsconfig.json"]) cpSync(join(root, name), join(copy, name));
  symlinkSync(join(root, "node_modules"), join(copy, "node_modules"));
  makeContract(join(copy, "build/contract"), (path) => (path === change?.path ? changed(change) : readTable(path)));
  return run(process.execPath, [join(root, "node_modules/typescript/bin/tsc"), "--noEmit"], { cwd: copy });
}

// What the C++ compiler says of a source with this change of a table.
async function sourceWith(source, change) {
  const over = join(folder, `source${++copies}`);
  if (change) {
    mkdirSync(dirname(join(over, change.path)), { recursive: true });
    writeFileSync(join(over, change.path), changed(change));
  }
  const warnings = ["-Wall", "-Wextra", "-Werror", "-Wno-unknown-attributes", "-Wno-ignored-attributes"];
  return run("clang++-19", ["-std=c++23", "-fsyntax-only", ...warnings, `-I${over}`, `-I${root}`, join(root, source)]);
}

describe("a table", () => {
  test("is rows, and rows in rows", () => {
    const [row, ...others] = rowsOf('// a word\nROW(name, FIELD(u8, one) LIST(Point, two), "a, b (c")\n#undef ROW\n');
    assert.deepEqual(others, []);
    assert.deepEqual(row, { word: "ROW", given: ["name", "FIELD(u8, one) LIST(Point, two)", '"a, b (c"'] });
    assert.deepEqual(rowsOf(row.given[1]), [
      { word: "FIELD", given: ["u8", "one"] },
      { word: "LIST", given: ["Point", "two"] },
    ]);
    assert.deepEqual(rowsOf(""), []);
  });

  test("that is not closed is refused", () => {
    assert.throws(() => rowsOf("ROW(name, FIELD(u8, one)"), /not closed/);
    assert.throws(() => rowsOf("int row = 1;"), /not a row/);
  });
});

const properties = "platform/properties.def";
const newProperty = { path: properties, from: "MENU_PROPERTY(Checked)", to: "PROPERTY(Shadow, FIELD(u8, depth))\n$&" };
const twoSwapped = {
  path: properties,
  from: /(PROPERTY\(ToolTip.*\n)(PROPERTY\(SpokenName.*\n)/,
  to: "$2$1",
};

describe("the page", () => {
  test("keeps to the tables as they stand", async () => assert.equal(await pageWith(), ""));

  const drifts = {
    "a new property": [newProperty, /setShadow/],
    "a field that a property has no more": [{ path: properties, from: "FIELD(flag, wraps)", to: "" }, /wraps/],
    "a field of another type": [{ path: properties, from: "FIELD(text, tip)", to: "FIELD(u8, tip)" }, /number/],
    "a new kind of control": [{ path: "platform/enums.def", from: "PictureBox,", to: "PictureBox, Timer," }, /Timer/],
    "a new system colour": [
      { path: "platform/look.def", from: "SYSTEM_COLOUR(window,", to: "SYSTEM_COLOUR(desk, 0x80000001U)\n$&" },
      /2147483649/,
    ],
    "a new key": [{ path: "platform/keys.def", from: "KEY(tab,", to: "KEY(pause, 19)\n$&" }, /pause|19/],
    "a new kind of stroke": [
      { path: "hosts/web/wire/records.def", from: "STROKE(Dots,", to: "STROKE(Arc, FIELD(Point, at))\n$&" },
      /never/,
    ],
    "a field that a record has no more": [
      { path: "hosts/web/wire/records.def", from: "FIELD(flag, checkable)", to: "" },
      /checkable/,
    ],
    "a new wish of the module": [
      { path: "hosts/web/wire/imports.def", from: "IMPORT(none, beep, ())", to: "$&\nIMPORT(none, print, ())" },
      /print/,
    ],
    "a call that the module has no more": [
      { path: "hosts/web/wire/exports.def", from: "EXPORT(none, menu_dismiss, ())", to: "" },
      /menu_dismiss/,
    ],
    "a call that takes something else": [
      { path: "hosts/web/wire/exports.def", from: "i32 value, flag dragging", to: "flag dragging, i32 value" },
      /number|boolean/,
    ],
  };
  for (const [what, [change, complaint]] of Object.entries(drifts))
    test(`does not compile with ${what}`, async () => assert.match(await pageWith(change), complaint));
});

describe("the module", () => {
  const mirror = "hosts/web/mirror.cpp";
  const calls = "hosts/web/exports.cpp";

  test("keeps to the tables as they stand", async () => {
    assert.equal(await sourceWith(mirror), "");
    assert.equal(await sourceWith(calls), "");
  });

  const drifts = {
    "a new property": [mirror, newProperty, /writers_follow_the_table/],
    "properties in another order": [mirror, twoSwapped, /writers_follow_the_table/],
    "a new field of a property": [
      mirror,
      { path: properties, from: "FIELD(Colour, fore)", to: "$& FIELD(Colour, edge)" },
      /edge/,
    ],
    "a new field of a record": [
      mirror,
      { path: "hosts/web/wire/records.def", from: "FIELD(flag, highlighted)", to: "$& FIELD(flag, faint)" },
      /faint/,
    ],
    "a kind of stroke that is not written": [
      mirror,
      { path: "hosts/web/wire/records.def", from: /STROKE\(Stamp.*\n/, to: "" },
      /strokes_in_table/,
    ],
    "a call that takes something else": [
      calls,
      { path: "hosts/web/wire/exports.def", from: "i32 value, flag dragging", to: "i32 value" },
      /scroll/,
    ],
    "a call that does not stand in the table": [
      calls,
      { path: "hosts/web/wire/exports.def", from: "EXPORT(none, menu_dismiss, ())", to: "" },
      /menu_dismiss/,
    ],
    "a new method": [
      calls,
      { path: "hosts/web/wire/enums.def", from: "ENUM(Method,", to: "ENUM(Method, ShowHelp," },
      /ShowHelp/,
    ],
  };
  for (const [what, [source, change, complaint]] of Object.entries(drifts))
    test(`does not compile with ${what}`, async () => assert.match(await sourceWith(source, change), complaint));
});

describe("the page's sources", () => {
  makeContract(join(folder, "contract"));
  const read = (path) => readFileSync(path, "utf8");
  const made = { "#shared": join(folder, "contract/shared.ts"), "#wire": join(folder, "contract/wire.ts") };
  // Of types, too: what a file names is what it knows.
  const imports = (path) =>
    [...read(path).matchAll(/\bfrom\s+"([^"]+)"/g)]
      .map(([, target]) => made[target] ?? join(dirname(path), target.replace(/\.js$/, ".ts")))
      .filter((target) => target.endsWith(".ts"));

  // The first circle that is met from a file, or undefined.
  function circle(path, way = [], done = new Set()) {
    if (way.includes(path)) return [...way.slice(way.indexOf(path)), path];
    if (done.has(path)) return undefined;
    for (const target of imports(path)) {
      const found = circle(target, [...way, path], done);
      if (found) return found;
    }
    done.add(path);
    return undefined;
  }

  test("a circle is found", () => {
    writeFileSync(join(folder, "a.ts"), 'import type { B } from "./b.js";\n');
    writeFileSync(join(folder, "b.ts"), 'export type { A } from "./a.js";\n');
    assert.equal(circle(join(folder, "a.ts")).length, 3);
  });

  test("import each other in no circle", () => {
    assert.ok(imports(join(root, "hosts/web/page.ts")).includes(made["#wire"]));
    assert.equal(circle(join(root, "hosts/web/tabulon.ts")), undefined);
  });
});
