// exp, log, pow, sin and cos as the page computes them, beside the C library's: elementary.cpp in two modules.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { root } from "../../tools/sources.mjs";

const count = 2_000_000;
const seed = Number(process.env.TABULON_SEED ?? 20250901);

function functions(name) {
  const module = new WebAssembly.Module(readFileSync(join(root, `build/web/${name}.wasm`)));
  const { exports } = new WebAssembly.Instance(module, {});
  exports._initialize();
  return exports;
}

const own = functions("module_tests");
const library = functions("library_functions");

const view = new DataView(new ArrayBuffer(8));

// Doubles in their order are whole numbers in theirs.
function place(number) {
  view.setFloat64(0, number);
  const bits = view.getBigInt64(0);
  return bits < 0n ? -(bits & 0x7fff_ffff_ffff_ffffn) : bits;
}

function unitsApart(left, right) {
  if (Object.is(left, right)) return 0;
  if (Number.isNaN(left) || Number.isNaN(right) || !Object.is(Math.sign(left), Math.sign(right))) return Infinity;
  return Math.abs(Number(place(left) - place(right)));
}

// Marsaglia's xorshift.
let state = seed | 1;
function bits() {
  state ^= state << 13;
  state ^= state >>> 17;
  state ^= state << 5;
  return state >>> 0;
}
const between = (low, high) => low + (high - low) * ((bits() + bits() / 2 ** 32) / 2 ** 32);
const one = (ways) => ways[bits() % ways.length]();
// What a person types.
const typed = (most) => () => Math.round(between(-most, most) * 100) / 100;
const anyNumber = () => {
  view.setUint32(0, bits());
  view.setUint32(4, bits());
  return view.getFloat64(0);
};

const ways = {
  exp: [[() => between(-746, 710), () => between(-2, 2), typed(50), anyNumber]],
  log: [[() => between(0.5, 2), () => between(0, 1000), typed(1000), anyNumber]],
  pow: [
    [() => between(0.5, 2), typed(100), () => Math.round(between(-50, 50)), anyNumber],
    [() => between(-800, 800), typed(10), () => Math.round(between(-20, 20)), anyNumber],
  ],
  sin: [[() => between(-1000, 1000), typed(1000), () => (Math.PI / 2) * Math.round(between(-1e6, 1e6)), anyNumber]],
  cos: [[() => between(-1000, 1000), typed(1000), () => (Math.PI / 2) * Math.round(between(-1e6, 1e6)), anyNumber]],
};

for (const [name, argumentWays] of Object.entries(ways)) {
  test(`${name} is the C library's within one unit in the last place, and looks the same; TABULON_SEED=${seed}`, (t) => {
    let different = 0;
    for (let i = 0; i < count; ++i) {
      const given = argumentWays.map(one);
      const [found, expected] = [own[name](...given), library[name](...given)];
      if (Object.is(found, expected)) continue;
      ++different;
      const told = `${name}(${given.join(", ")}): ${found}, the library's ${expected}`;
      assert.ok(unitsApart(found, expected) <= 1, told);
      assert.ok(own.show_the_same(found, expected), told);
    }
    t.diagnostic(`${different} of ${count} differ in the last place`);
  });
}

describe("at the ends of the numbers", () => {
  const ends = [0, 1, 0.5, 2, 3, 1e300, 2 ** 53 - 1, 5e-324, 2.2250738585072014e-308, Infinity].flatMap((x) => [x, -x]);
  ends.push(Number.NaN, 709.782712893384, 709.7827128933841, -745.1332191019411, -745.1332191019412);
  const agree = (name, ...given) => {
    const [found, expected] = [own[name](...given), library[name](...given)];
    assert.ok(unitsApart(found, expected) <= 1, `${name}(${given.join(", ")}): ${found}, the library's ${expected}`);
  };

  for (const name of ["exp", "log", "sin", "cos"]) {
    test(`${name} answers as the C library`, () => {
      for (const number of ends) agree(name, number);
    });
  }

  test("pow answers as the C library", () => {
    for (const base of ends) for (const exponent of ends) agree("pow", base, exponent);
  });
});

test("a power that a number can hold is that number", () => {
  for (let base = 2; base <= 1000; ++base)
    for (let exponent = 1, power = BigInt(base); power <= 2n ** 53n; ++exponent, power *= BigInt(base))
      assert.equal(own.pow(base, exponent), Number(power), `${base} to the power ${exponent}`);
});
