// The table of ./bench.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { fromGoogleBenchmark, fromLines, gather, lines, median, ratio, table } from "../../tools/bench-table.mjs";

const result = (name, ...values) => ({ name, unit: "ms", values });
const results = (...all) => new Map(all.map((each) => [each.name, each]));

test("a native run is timed by what its thread computes", () => {
  const report = { benchmarks: [{ name: "pivot", cpu_time: 7, real_time: 19, time_unit: "ns" }] };
  assert.deepEqual(fromGoogleBenchmark(report), [{ name: "native: pivot", value: 7, unit: "ns" }]);
});

test("a benchmark that failed has no time", () => {
  const report = { benchmarks: [{ name: "pivot", error_message: "another optimum" }] };
  assert.throws(() => fromGoogleBenchmark(report), /pivot: another optimum/);
});

test("a script's other output is no result", () => {
  assert.deepEqual(fromLines('warming up\n{"name":"a","value":1,"unit":"ms"}\n'), [
    { name: "a", value: 1, unit: "ms" },
  ]);
});

test("runs of one name are one result, in their order", () => {
  const runs = [3, 1].map((value) => ({ name: "a", value, unit: "ms" }));
  assert.deepEqual(gather(runs).get("a"), result("a", 3, 1));
});

test("the median is the middle run, or between the two in the middle", () => {
  assert.equal(median([9, 1, 5]), 5);
  assert.equal(median([9, 1, 5, 3]), 4);
});

test("a slow moment of the machine, which both have, changes no ratio", () => {
  assert.equal(ratio(result("ours", 10, 1000, 20), result("theirs", 20, 2000, 40)), 0.5);
});

test("what is measured in other units is not held against each other", () => {
  assert.throws(() => ratio(result("a", 1), { name: "b", unit: "kB", values: [1] }), /a is in ms, b in kB/);
});

test("each peer of a result has a line, and a peer none of its own", () => {
  const found = lines(results(result("web: ours", 2, 4), result("web: peer", 4, 8), result("web: limit", 1, 1)), {
    "web: ours": ["web: peer", "web: limit"],
  });
  assert.deepEqual(
    found.map(({ name, "held against": peer, ratio: figure }) => [name, peer, figure]),
    [
      ["web: ours", "peer", 0.5],
      [undefined, "limit", 3],
    ],
  );
});

test("the package beside is held against by its name", () => {
  const [line] = lines(results(result("ours", 3), result("ours, beside", 6)), {});
  assert.deepEqual([line["held against"], line.ratio], ["the package beside", 0.5]);
});

test("a peer that did not run leaves the result alone in its line", () => {
  assert.deepEqual(lines(results(result("ours", 3)), { ours: ["peer"] }), [
    { name: "ours", least: 3, median: 3, unit: "ms" },
  ]);
});

test("the table has a line for each result, its columns aligned", () => {
  assert.equal(
    table([
      { name: "start", least: 5, median: 50, unit: "ms", "held against": "a copy", ratio: 0.5 },
      { name: "a", least: 1, median: 1234.567, unit: "kB" },
    ]),
    [
      "name   least  median  unit  held against  its least  its median  ratio",
      "start      5      50  ms    a copy                                 0.5",
      "a          1    1230  kB",
    ].join("\n"),
  );
});

test("no name is its own peer, or the peer of two", () => {
  const peers = JSON.parse(readFileSync(new URL("../../benchmarks/peers.json", import.meta.url), "utf8"));
  const named = Object.values(peers).flat();
  assert.deepEqual(new Set(named).size, named.length);
  assert.deepEqual(
    named.filter((name) => name in peers),
    [],
  );
});
