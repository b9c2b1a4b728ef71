// What every file of the project keeps to.
import assert from "node:assert/strict";
import { accessSync, constants, readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { allFiles, root } from "../../tools/sources.mjs";

const files = allFiles();
const isText = (bytes) => !bytes.includes(0);

// What ties a text to one machine: the folder this checkout stands in (unless it is right under the root, where
// its name may be any word), and anyone's home.
const homes = [`/${"home"}/`, `/${"Users"}/`, `C:\\${"Users"}`];
const here = root.replace(/\/$/, "");
const machinePaths = here.split("/").length > 2 ? [here, ...homes] : homes;
const machinePathIn = (text, paths = machinePaths) => paths.find((path) => text.includes(path));

// A lock file that names where packages come from makes everyone fetch them there.
const namesASource = (lock) => /"resolved"\s*:\s*"[a-z+]+:/.test(lock);

describe("no file is tied to a machine", () => {
  test("a machine's path is recognised", () => {
    assert.equal(machinePathIn("cd /some/where/else", ["/some/where"]), "/some/where");
    assert.equal(machinePathIn(`see /${"home"}/anna/notes`), `/${"home"}/`);
    assert.equal(machinePathIn("see tools/sources.mjs"), undefined);
  });

  test("no text names a machine's path", () => {
    const found = files
      .map((path) => [path, readFileSync(join(root, path))])
      .filter(([, bytes]) => isText(bytes) && machinePathIn(bytes.toString("utf8")))
      .map(([path]) => path);
    assert.deepEqual(found, []);
  });

  test("a lock file that names a source is recognised", () => {
    assert.ok(namesASource(`{ "${"resolved"}": "${"https"}://example.org/a.tgz" }`));
    assert.ok(!namesASource('{ "version": "1.0.0" }'));
  });

  test("the lock file names no source", () => {
    assert.ok(!namesASource(readFileSync(join(root, "package-lock.json"), "utf8")));
  });
});

describe("no test stands where no runner looks", () => {
  const isTestLike = (path) => /[._](test|spec|fuzz|bench|benchmark)\.\w+$/.test(path);
  const runs = [
    /^tests\/.+\.test\.mjs$/,
    /^tests\/[^/]+\/(.+\/)?[^/]+_test\.cpp$/,
    /^fuzz\/[^/]+_fuzz\.cpp$/,
    /^benchmarks\/[^/]+_benchmark\.cpp$/,
    /^benchmarks\/[^/]+\.bench\.mjs$/,
  ];
  const isRun = (path) => runs.some((pattern) => pattern.test(path));

  test("a misplaced test is recognised", () => {
    for (const path of [
      "tests/pivot_test.cpp",
      "simplex/pivot_test.cpp",
      "tests/browser/page.test.ts",
      "fuzz/a/b_fuzz.cpp",
    ]) {
      assert.ok(isTestLike(path) && !isRun(path), path);
    }
    assert.ok(isRun("tests/simplex/pivot_test.cpp"));
  });

  test("every test is run", () => {
    assert.deepEqual(
      files.filter((path) => isTestLike(path) && !isRun(path)),
      [],
    );
  });
});

test("the commands can be run", () => {
  for (const command of ["run", "test", "bench", "soak", ".ci/run"]) accessSync(join(root, command), constants.X_OK);
});
