// A browser that is new enough may have an old processor, on which it knows no vectors.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { join } from "node:path";
import { test } from "node:test";
import { root } from "../../tools/sources.mjs";

const old = ["--no-enable-sse4-1", "--no-enable-avx"];
const compile = 'new WebAssembly.Module(require("node:fs").readFileSync(process.argv[1]))';

for (const name of ["tabulon", "lesson", "unpack"])
  test(`${name}.wasm compiles where the processor has no vectors`, () => {
    const { status, stderr } = spawnSync(process.execPath, [
      ...old,
      "--no-wasm-lazy-validation",
      "--eval",
      compile,
      join(root, `build/web/${name}.wasm`),
    ]);
    assert.equal(status, 0, String(stderr));
  });
