// The table of ./bench.
import assert from "node:assert/strict";
import { test } from "node:test";
import { againstMark, convert, fromGoogleBenchmark, fromLines, table } from "../../tools/bench-table.mjs";

test("times and sizes change unit, and never into each other", () => {
  assert.equal(convert(1500, "us", "ms"), 1.5);
  assert.equal(convert(2, "MB", "kB"), 2048);
  assert.equal(convert(3, "frames", "frames"), 3);
  assert.equal(convert(3, "ms", "kB"), undefined);
});

test("a result stands beside its mark, in the mark's unit", () => {
  const marks = { start: { mark: 100, unit: "ms", of: "a blink" } };
  assert.deepEqual(againstMark({ name: "start", value: 0.05, unit: "s" }, marks), {
    name: "start",
    value: 50,
    unit: "ms",
    mark: 100,
    ratio: 0.5,
    of: "a blink",
  });
  assert.throws(() => againstMark({ name: "start", value: 3, unit: "kB" }, marks), /cannot be held against/);
});

test("of repeated runs the median is taken", () => {
  const report = {
    benchmarks: [
      { run_name: "pivot", aggregate_name: "mean", real_time: 9, time_unit: "ns" },
      { run_name: "pivot", aggregate_name: "median", real_time: 7, time_unit: "ns" },
    ],
  };
  assert.deepEqual(fromGoogleBenchmark(report), [{ name: "pivot", value: 7, unit: "ns" }]);
});

test("a script's other output is no result", () => {
  assert.deepEqual(fromLines('warming up\n{"name":"a","value":1,"unit":"ms"}\n'), [
    { name: "a", value: 1, unit: "ms" },
  ]);
});

test("the table has a line for each result, its columns aligned", () => {
  assert.equal(
    table([
      { name: "start", value: 50, unit: "ms", mark: 100, ratio: 0.5, of: "a blink" },
      { name: "a", value: 1234.567, unit: "kB" },
    ]),
    ["name   value  unit  mark  ratio  of", "start     50  ms     100    0.5  a blink", "a       1235  kB"].join("\n"),
  );
});
