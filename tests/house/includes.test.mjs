// Includes run one way, from the hosts down to platform/.
import assert from "node:assert/strict";
import { existsSync, readFileSync } from "node:fs";
import { dirname, join, normalize } from "node:path";
import { describe, test } from "node:test";
import { bracketedIncludes, quotedIncludes, wrongIncludes } from "../../tools/include-direction.mjs";
import { allFiles, isCpp, root } from "../../tools/sources.mjs";

const isAllowed = (path, target) => wrongIncludes([{ path, includes: [target] }]).length === 0;

describe("the rule", () => {
  const allowed = [
    ["platform/focus.cpp", "platform/controls.h"],
    ["numbers/display.cpp", "platform/run_time_error.h"],
    ["control/basSafeCtl.cpp", "numbers/display.h"],
    ["control/basSafeCtl_start.cpp", "control/basSafeCtl.h"],
    ["simplex/pivot.cpp", "control/basSafeCtl.h"],
    ["simplex/pivot.cpp", "simplex/pivot.h"],
    ["graph/panel_handlers.cpp", "control/LPctrl.h"],
    ["shell/menu_handlers.cpp", "files/writer.h"],
    ["control/LPctrl.cpp", "simplex/pivot.h"],
    ["control/LPctrl.cpp", "control/basSafeCtl.h"],
    ["hosts/web/exports.cpp", "control/LPctrl.h"],
    ["hosts/web/exports.cpp", "hosts/web/bridge.h"],
    ["tests/graph/panel_test.cpp", "hosts/headless/page.h"],
  ];
  for (const [path, target] of allowed) {
    test(`${path} may include ${target}`, () => assert.ok(isAllowed(path, target)));
  }

  const refused = [
    ["platform/focus.cpp", "numbers/display.h"],
    ["platform/focus.cpp", "control/LPctrl.h"],
    ["numbers/display.cpp", "control/basSafeCtl.h"],
    ["numbers/display.cpp", "simplex/pivot.h"],
    ["control/basSafeCtl.cpp", "control/LPctrl.h"],
    ["control/basSafeCtl.cpp", "simplex/pivot.h"],
    ["simplex/pivot.cpp", "control/LPctrl.h"],
    ["simplex/pivot.cpp", "files/writer.h"],
    ["simplex/pivot_handlers.h", "control/LPctrl.h"],
    ["graph/panel_handlers.cpp", "hosts/web/bridge.h"],
    ["graph/panel_handlers.cpp", "control/grid.h"],
    ["control/LPctrl.cpp", "hosts/headless/page.h"],
    ["control/LPctrl.cpp", "tests/support/page.h"],
    ["hosts/web/exports.cpp", "hosts/headless/page.h"],
    ["hosts/activex/server.cpp", "hosts/web/bridge.h"],
    ["hosts/web/exports.cpp", "tests/support/page.h"],
    ["elsewhere/file.cpp", "platform/controls.h"],
  ];
  for (const [path, target] of refused) {
    test(`${path} may not include ${target}`, () => assert.ok(!isAllowed(path, target)));
  }

  test("an include is found however it is spaced, and a commented one is not", () => {
    const text = '#include "a.h"\n  #  include   "b/c.h"\n// #include "d.h"\n#include <vector>\n';
    assert.deepEqual(quotedIncludes(text), ["a.h", "b/c.h"]);
    assert.deepEqual(bracketedIncludes(text), ["vector"]);
  });
});

describe("our sources", () => {
  // As the compiler looks: beside the file first, then from the root.
  const resolve = (path, target) => {
    const beside = normalize(join(dirname(path), target));
    return existsSync(join(root, beside)) ? beside : normalize(target);
  };
  const sources = allFiles()
    .filter(isCpp)
    .map((path) => {
      const text = readFileSync(join(root, path), "utf8");
      return {
        path,
        includes: quotedIncludes(text).map((target) => resolve(path, target)),
        bracketed: bracketedIncludes(text),
      };
    });

  test("there are sources to read", () => assert.ok(sources.some(({ includes }) => includes.length > 0)));

  test("includes run one way", () => assert.deepEqual(wrongIncludes(sources), []));

  test("our own headers stand in quotes, from the root", () => {
    const own = ({ path, bracketed }) =>
      bracketed
        .filter((target) => target.includes("/") && existsSync(join(root, target)))
        .map((target) => `${path} includes <${target}>`);
    assert.deepEqual(sources.flatMap(own), []);
  });
});
