// The heap of the page's module, tried by a module that is built on the same one: heap.cpp.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { root } from "../../tools/sources.mjs";

const faults = ["none", "no memory", "misaligned", "not zeroed", "overwritten"];
const steps = 20000;

function heap() {
  const module = new WebAssembly.Module(readFileSync(join(root, "build/web/module_tests.wasm")));
  const { exports } = new WebAssembly.Instance(module, {});
  exports._initialize();
  return exports;
}

describe("every way to take memory", () => {
  for (const seed of [1, 2, 3, 4, 5]) {
    test(`takes it from one heap, in walk ${seed}`, () => {
      assert.equal(faults[heap().walk(seed, steps)], "none");
    });
  }

  test("takes again what was given back", () => {
    const { walk, memory } = heap();
    walk(1, steps);
    const { byteLength } = memory.buffer;
    for (let round = 0; round < 10; ++round) assert.equal(faults[walk(1, steps)], "none");
    assert.equal(memory.buffer.byteLength, byteLength);
  });

  test("is refused more than there can be, and serves on", () => {
    const { walk, granted_beyond_all: grantedBeyondAll } = heap();
    assert.equal(grantedBeyondAll(), 0);
    assert.equal(faults[walk(1, steps)], "none");
  });
});
