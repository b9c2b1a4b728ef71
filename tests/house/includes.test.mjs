// Includes and imports run one way, from the hosts down to platform/, and never in a circle.
import assert from "node:assert/strict";
import { existsSync, readFileSync } from "node:fs";
import { dirname, join, normalize } from "node:path";
import { describe, test } from "node:test";
import { bracketedIncludes, circles, imports, quotedIncludes, wrongArrows } from "../../tools/include-direction.mjs";
import { allFiles, isCpp, root } from "../../tools/sources.mjs";

const isAllowed = (path, target) => wrongArrows([{ path, targets: [target] }]).length === 0;

describe("the arrows", () => {
  const allowed = [
    ["platform/focus.cpp", "platform/controls.h"],
    ["numbers/display.cpp", "platform/run_time_error.h"],
    ["control/basSafeCtl.cpp", "numbers/display.h"],
    ["control/basSafeCtl_start.cpp", "control/basSafeCtl.h"],
    ["simplex/pivot.cpp", "control/basSafeCtl.h"],
    ["simplex/pivot.cpp", "simplex/pivot.h"],
    ["simplex/tableau_commands.cpp", "simplex/sweep.h"],
    ["lesson/verdict.cpp", "simplex/sweep.h"],
    ["lesson/verdict.cpp", "control/basSafeCtl.h"],
    ["lesson/reader.cpp", "numbers/expression.h"],
    ["shell/menus.cpp", "files/writer.h"],
    ["control/grid.cpp", "simplex/pivot.h"],
    ["control/grid.cpp", "control/cells.h"],
    ["control/LPctrl.cpp", "control/grid.h"],
    ["control/LPctrl.cpp", "graph/panel.h"],
    ["control/LPctrl.cpp", "control/basSafeCtl.h"],
    ["hosts/web/exports.cpp", "control/LPctrl.h"],
    ["hosts/web/exports.cpp", "hosts/web/bridge.h"],
    ["hosts/web/page.ts", "build/contract/shared.ts"],
    ["build/contract/wire.ts", "build/contract/shared.ts"],
    ["tests/graph/panel_test.cpp", "hosts/headless/page.h"],
  ];
  for (const [path, target] of allowed) {
    test(`${path} may know ${target}`, () => assert.ok(isAllowed(path, target)));
  }

  const refused = [
    ["platform/focus.cpp", "numbers/display.h"],
    ["platform/focus.cpp", "control/LPctrl.h"],
    ["numbers/display.cpp", "control/basSafeCtl.h"],
    ["numbers/display.cpp", "simplex/pivot.h"],
    ["control/basSafeCtl.cpp", "control/LPctrl.h"],
    ["control/basSafeCtl.cpp", "control/grid.h"],
    ["control/basSafeCtl.cpp", "simplex/pivot.h"],
    ["simplex/pivot.cpp", "control/LPctrl.h"],
    ["simplex/pivot.cpp", "files/writer.h"],
    ["simplex/pivot_handlers.cpp", "control/LPctrl.h"],
    ["simplex/sweep.cpp", "simplex/messages.h"],
    ["simplex/sweep.cpp", "lesson/verdict.h"],
    ["lesson/verdict.cpp", "control/LPctrl.h"],
    ["lesson/verdict.cpp", "control/grid.h"],
    ["lesson/verdict.cpp", "simplex/tableau_commands.h"],
    ["lesson/verdict.cpp", "hosts/web/bridge.h"],
    ["control/grid.cpp", "lesson/verdict.h"],
    ["graph/panel.cpp", "hosts/web/bridge.h"],
    ["graph/panel.cpp", "control/grid.h"],
    ["files/writer.cpp", "shell/menus.h"],
    ["control/grid.cpp", "control/LPctrl.h"],
    ["control/LPctrl.cpp", "hosts/headless/page.h"],
    ["control/LPctrl.cpp", "tests/support/page.h"],
    ["hosts/web/exports.cpp", "hosts/headless/page.h"],
    ["hosts/web/exports.cpp", "tests/support/page.h"],
    ["hosts/activex/server.cpp", "hosts/web/bridge.h"],
    ["hosts/activex/server.cpp", "build/contract/wire.ts"],
    ["build/contract/shared.ts", "hosts/web/page.ts"],
    ["elsewhere/file.cpp", "platform/controls.h"],
  ];
  for (const [path, target] of refused) {
    test(`${path} may not know ${target}`, () => assert.ok(!isAllowed(path, target)));
  }
});

describe("a circle", () => {
  const circlesOf = (graph) => circles(Object.entries(graph).map(([path, targets]) => ({ path, targets })));

  test("is found however long it is, each once", () => {
    assert.deepEqual(circlesOf({ "a.ts": ["b.js"], "b.ts": ["c.js"], "c.ts": ["a.js"], "d.ts": ["a.js"] }), [
      ["a", "b", "c"],
    ]);
    assert.deepEqual(circlesOf({ "a.ts": ["b.js"], "b.ts": ["a.js"], "c.ts": ["d.js", "a.js"], "d.ts": ["c.js"] }), [
      ["a", "b"],
      ["c", "d"],
    ]);
  });

  test("goes through a header and what implements it", () => {
    assert.deepEqual(circlesOf({ "a.h": [], "a.cpp": ["a.h", "b.h"], "b.h": ["a.h"] }), [["a", "b"]]);
  });

  test("is none where two ways lead to one file", () => {
    assert.deepEqual(circlesOf({ "a.ts": ["b.js", "c.js"], "b.ts": ["d.js"], "c.ts": ["d.js"], "d.ts": [] }), []);
  });
});

describe("reading sources", () => {
  test("an include is found however it is spaced, and a commented one is not", () => {
    const text = '#include "a.h"\n  #  include   "b/c.h"\n// #include "d.h"\n#include <vector>\n';
    assert.deepEqual(quotedIncludes(text), ["a.h", "b/c.h"]);
    assert.deepEqual(bracketedIncludes(text), ["vector"]);
  });

  test("an import is found over more than one line, of types, and while running; a commented one is not", () => {
    const text = [
      'import { a,\n  b } from "./a.js";',
      'import type { C } from "./c.js";',
      'import "./d.js";',
      'export * from "./e.js";',
      'const f = await import("./f.js");',
      '// import { g } from "./g.js";',
      'export const words = "from";',
    ].join("\n");
    assert.deepEqual(imports(text), ["./a.js", "./c.js", "./d.js", "./e.js", "./f.js"]);
  });
});

describe("our sources", () => {
  const read = (path) => readFileSync(join(root, path), "utf8");

  // As the compiler looks: beside the file first, then from the root.
  const resolveInclude = (path, target) => {
    const beside = normalize(join(dirname(path), target));
    return existsSync(join(root, beside)) ? beside : normalize(target);
  };
  const headers = allFiles()
    .filter((path) => isCpp(path) && !path.startsWith("tests/activex/googletest/"))
    .map((path) => ({ path, targets: quotedIncludes(read(path)).map((target) => resolveInclude(path, target)) }));

  // "#name" is what package.json says; any other name is a package's.
  const named = JSON.parse(read("package.json")).imports ?? {};
  const resolveImport = (path, target) => {
    if (target in named) return [normalize(named[target])];
    return target.startsWith(".") ? [normalize(join(dirname(path), target)).replace(/\.js$/, ".ts")] : [];
  };
  // What is made while building is read where it has been made.
  const made = Object.values(named).map(normalize);
  const scripts = [...allFiles().filter((path) => /\.(ts|mts|mjs)$/.test(path)), ...made]
    .filter((path) => existsSync(join(root, path)))
    .map((path) => ({ path, targets: imports(read(path)).flatMap((target) => resolveImport(path, target)) }));
  const ofTheControl = scripts.filter(({ path }) => path.endsWith(".ts"));

  test("there are sources to read", () => {
    for (const sources of [headers, ofTheControl]) assert.ok(sources.some(({ targets }) => targets.length > 0));
  });

  test("what is known lies below", () => {
    assert.deepEqual(wrongArrows([...headers, ...ofTheControl]), []);
  });

  test("no file knows itself through others", () => {
    assert.deepEqual([...circles(headers), ...circles(scripts)], []);
  });

  test("our own headers stand in quotes, from the root", () => {
    const own = ({ path }) =>
      bracketedIncludes(read(path))
        .filter((target) => target.includes("/") && existsSync(join(root, target)))
        .map((target) => `${path} includes <${target}>`);
    assert.deepEqual(headers.flatMap(own), []);
  });
});
