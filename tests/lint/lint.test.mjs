// The whole tree as the formatters write it, and as the linters have nothing to say about it. `node tools/tidy.mjs`
// and `node_modules/.bin/biome check` say the same, and where.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { join } from "node:path";
import { describe, test } from "node:test";
import { allFiles, isCpp, root } from "../../tools/sources.mjs";
import { findings, isRead, parts } from "../../tools/tidy.mjs";

// GoogleTest looks for that one under its own name, and in its own form.
const sources = allFiles().filter((path) => isCpp(path) && !path.startsWith("tests/activex/googletest/"));

function isSilent(command, ...options) {
  const { status, stdout, stderr, error } = spawnSync(command, options, { cwd: root, encoding: "utf8" });
  assert.equal(status, 0, error?.message ?? stdout + stderr);
}

test("C++ is formatted", () => isSilent("clang-format-19", "--dry-run", "-Werror", ...sources));

test("scripts, styles and JSON are formatted, and Biome finds nothing in them", () =>
  isSilent(join(root, "node_modules/.bin/biome"), "ci", "--colors=off", "--error-on-warnings", root));

describe("clang-tidy finds nothing", { concurrency: 2 }, () => {
  const read = parts();

  test("and every source is read", () => {
    const seen = new Set(read.flatMap((part) => part.sources));
    const isUnread = (path) => isRead(path) && !seen.has(join(root, path));
    assert.deepEqual(sources.filter(isUnread), []);
  });

  for (const part of read) test(part.name, async () => assert.equal(await findings(part), ""));
});
