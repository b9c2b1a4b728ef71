// docs/behaviour.md names the tests that hold each rule. They are there.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { allFiles, root } from "../../tools/sources.mjs";

const read = (path) => readFileSync(join(root, path), "utf8");
const tests = new Set(allFiles("tests"));

// The rows of all tables, without their heads and lines: [rule, why, held by].
const rowsOf = (page) =>
  page
    .split("\n")
    .filter((line) => line.startsWith("|") && !/^\| (rule|-+) /.test(line))
    .map((line) =>
      line
        .slice(1, -1)
        .split(" | ")
        .map((cell) => cell.trim()),
    );

// What stands in the last column: a scenario, or a file and the name of one of its tests.
const namedTests = (cell) => [...cell.matchAll(/`([^`]+)`/g)].map(([, name]) => name);

const escaped = (text) => text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&");

const definitions = {
  cpp: (name) => new RegExp(`^TEST(_F|_P)?\\(${escaped(name).replace("\\.", ", ")}\\) \\{`, "m"),
  mjs: (name) => new RegExp(`^ *test\\(\\s*"${escaped(name)}"`, "m"),
};

function exists(named) {
  const [, file, kind, name] = named.match(/^([\w/-]+(?:\.test)?\.(cpp|mjs|txt))(?:: (.+))?$/) ?? [];
  const path = `tests/${file}`;
  if (!tests.has(path)) return false;
  if (kind === "txt") return file.startsWith("scenarios/") && !name;
  return name !== undefined && definitions[kind](name).test(read(path));
}

describe("a test that is named", () => {
  const there = [
    "simplex/pivot_test.cpp: PivotRow.NeverHasRightHandSideZero",
    "control/cells_test.cpp: Refused.IsShownKeptAndNotStored",
    "browser/element.test.mjs: are write-only",
    "scenarios/unbounded.txt",
  ];
  for (const named of there) test(`${named} is there`, () => assert.ok(exists(named)));

  const missing = [
    "simplex/pivot_test.cpp",
    "simplex/pivot_test.cpp: PivotRow.NeverHasRightHandSide",
    "simplex/pivot_test.cpp: NeverHasRightHandSideZero",
    "simplex/sweep_test.cpp: PivotRow.NeverHasRightHandSideZero",
    "browser/element.test.mjs: are write",
    "scenarios/README.md",
    "scenarios/nowhere.txt",
  ];
  for (const named of missing) test(`${named} is not`, () => assert.ok(!exists(named)));
});

describe("what is odd on purpose", () => {
  const rows = rowsOf(read("docs/behaviour.md"));

  test("is written down", () => assert.ok(rows.length > 100, `${rows.length} rules`));

  test("has a rule, a reason and a test in every line", () => {
    const complete = (row) => row.length === 3 && row.every(Boolean) && namedTests(row[2]).length > 0;
    assert.deepEqual(
      rows.filter((row) => !complete(row)),
      [],
    );
  });

  test("stands there once", () => {
    const rules = rows.map(([rule]) => rule);
    assert.deepEqual(
      rules.filter((rule, at) => rules.indexOf(rule) !== at),
      [],
    );
  });

  test("is held by tests that are there", () => {
    const missing = rows.flatMap((row) => namedTests(row.at(-1))).filter((named) => !exists(named));
    assert.deepEqual(missing, []);
  });
});
