// What is packed for a page (tools/pack.mjs) and unpacked in it, by the module that does so there.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { asSigns, pack, unpack } from "../../tools/pack.mjs";
import { root } from "../../tools/sources.mjs";

const unpacker = readFileSync(join(root, "build/web/unpack.wasm"));
const seed = 20261122;

// Numbers below 2^32 that are the same in each run.
function* numbers() {
  for (let state = seed; ; state = (Math.imul(state, 1664525) + 1013904223) >>> 0) yield state;
}

function randomBytes(count, below = 256) {
  const from = numbers();
  return Uint8Array.from({ length: count }, () => Math.floor((from.next().value / 2 ** 32) * below));
}

const text = (words) => new TextEncoder().encode(words);
const noise = randomBytes(30000);

describe("unpacking gives what was packed", () => {
  for (const [what, bytes] of [
    ["nothing", new Uint8Array(0)],
    ["one byte", new Uint8Array([0])],
    ["every byte", Uint8Array.from({ length: 256 }, (_, at) => at)],
    ["one byte for longer than any copy", new Uint8Array(1000).fill(7)],
    ["a text that goes on in itself", text("De pivot staat in kolom x 2. ".repeat(40))],
    [`noise (seed ${seed})`, noise],
    ["noise again after much else", Buffer.concat([noise, new Uint8Array(90000), noise, noise.subarray(1, 9)])],
    ["few kinds of bytes, with copies of all distances", randomBytes(60000, 3)],
    ["the module of the control", readFileSync(join(root, "build/web/tabulon.wasm"))],
    ["the module of the lesson", readFileSync(join(root, "build/web/lesson.wasm"))],
  ])
    test(what, () => {
      const packed = pack(bytes);
      assert.match(packed, /^[ -~]*$/, "signs that every encoding of pages has");
      assert.doesNotMatch(packed, /["\\<]/, "signs that stand for themselves in a script and in a page");
      assert.ok(Buffer.from(bytes).equals(unpack(packed, unpacker)));
    });
});

test("what is damaged is not taken for whole, and ends", () => {
  const bytes = readFileSync(join(root, "build/web/lesson.wasm"));
  const packed = pack(bytes);
  const places = numbers();
  for (let round = 0; round < 40; ++round) {
    const at = places.next().value % (packed.length - 100);
    const other = packed[at] === "a" ? "b" : "a";
    const damaged = packed.slice(0, at) + other + packed.slice(at + 1);
    let unpacked;
    try {
      unpacked = unpack(damaged, unpacker);
    } catch (error) {
      assert.ok(error instanceof WebAssembly.RuntimeError, `at ${at} (seed ${seed}): ${error}`);
      continue;
    }
    assert.ok(!bytes.equals(unpacked), `at ${at} (seed ${seed})`);
  }
});

test("bytes as signs are told apart, and are fewer than two for each", () => {
  const signs = Array.from({ length: 256 }, (_, byte) => asSigns([byte]));
  assert.equal(new Set(signs).size, 256);
  assert.match(signs.join(""), /^([#-|]|[}~][#-|])*$/);
  assert.ok(asSigns(unpacker).length < 1.5 * unpacker.length);
});
