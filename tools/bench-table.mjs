// Runs the benchmarks in rounds and prints one table: each name's least and median run, those of its peers of the same
// rounds, and the ratio: the median of ours to theirs, round by round. Below 1 ours is better.
//
//   node tools/bench-table.mjs native commands     only these parts
//   node tools/bench-table.mjs --beside=folder     holds dist/web against another package, as that of yesterday
//
// Times are those that the thread computes, so that a machine that is busy elsewhere changes little; what is by the
// clock says so.
//
//   build/native/benchmarks       part native: benchmarks/*_benchmark.cpp
//   benchmarks/<part>.bench.mjs   prints a line of JSON {"name", "value", "unit"} for each run
//   benchmarks/peers.json         {"<name>": ["<name of a peer>", ...]}
import { spawnSync } from "node:child_process";
import { readdirSync, readFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const root = fileURLToPath(new URL("..", import.meta.url));
const nativeRounds = 9;

// What the package of --beside took has the name of ours, and this.
export const beside = ", beside";

export const fromGoogleBenchmark = (report) =>
  report.benchmarks.map(({ name, cpu_time, time_unit, error_message }) => {
    if (error_message) throw new Error(`${name}: ${error_message}`);
    return { name: `native: ${name}`, value: cpu_time, unit: time_unit };
  });

export const fromLines = (text) =>
  text
    .split("\n")
    .filter((line) => line.startsWith("{"))
    .map((line) => JSON.parse(line));

// The runs of each name, in their order.
export function gather(runs) {
  const results = new Map();
  for (const { name, value, unit } of runs) {
    const result = results.get(name) ?? { name, unit, values: [] };
    result.values.push(value);
    results.set(name, result);
  }
  return results;
}

export function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  return (sorted[Math.floor((sorted.length - 1) / 2)] + sorted[Math.ceil((sorted.length - 1) / 2)]) / 2;
}

// A round is one machine's mood: what was slow in it was slow for both.
export function ratio(ours, theirs) {
  if (ours.unit !== theirs.unit) throw new Error(`${ours.name} is in ${ours.unit}, ${theirs.name} in ${theirs.unit}`);
  const rounds = Math.min(ours.values.length, theirs.values.length);
  return median(ours.values.slice(0, rounds).map((value, round) => value / theirs.values[round]));
}

// A line for each result and peer; a result that is a peer alone has none of its own.
export function lines(results, peers) {
  const named = new Set(Object.values(peers).flat());
  const shown = [...results.values()].filter(({ name }) => !named.has(name) && !name.endsWith(beside));
  return shown.flatMap((result) => {
    const { name, unit, values } = result;
    const own = { name, least: Math.min(...values), median: median(values), unit };
    const others = [...(peers[name] ?? []), name + beside].map((peer) => results.get(peer)).filter(Boolean);
    const lineOf = (peer) => ({
      "held against": peer.name === name + beside ? "the package beside" : peer.name.replace(/^\w+: /, ""),
      "its least": Math.min(...peer.values),
      "its median": median(peer.values),
      ratio: ratio(result, peer),
    });
    return others.length ? others.map((peer, at) => ({ ...(at ? {} : own), ...lineOf(peer) })) : [own];
  });
}

const shown = (value) => (typeof value === "number" ? String(Number(value.toPrecision(3))) : (value ?? ""));

export function table(rows) {
  const columns = ["name", "least", "median", "unit", "held against", "its least", "its median", "ratio"];
  const cells = [columns, ...rows.map((row) => columns.map((column) => shown(row[column])))];
  const widths = columns.map((_, index) => Math.max(...cells.map((line) => line[index].length)));
  const isWord = (index) => ["name", "unit", "held against"].includes(columns[index]);
  return cells
    .map((line) =>
      line
        .map((cell, index) => (isWord(index) ? cell.padEnd(widths[index]) : cell.padStart(widths[index])))
        .join("  ")
        .trimEnd(),
    )
    .join("\n");
}

function output(command, options, environment = {}) {
  const { status, stdout, error } = spawnSync(command, options, {
    cwd: root,
    env: { ...process.env, ...environment },
    encoding: "utf8",
    maxBuffer: 1 << 28,
    stdio: ["ignore", "pipe", "inherit"],
  });
  if (status !== 0) throw new Error(`${command} ${options[0]}: ${error?.message ?? `ended with ${status}`}`);
  return stdout;
}

const runNative = () =>
  Array.from({ length: nativeRounds }, () =>
    output(join(root, "build/native/benchmarks"), ["--benchmark_format=json", "--benchmark_min_time=0.01"]),
  ).flatMap((report) => fromGoogleBenchmark(JSON.parse(report)));

const scripts = () =>
  readdirSync(join(root, "benchmarks"))
    .filter((name) => name.endsWith(".bench.mjs"))
    .map((name) => name.replace(".bench.mjs", ""));

const runScript = (part, other) =>
  fromLines(
    output(
      process.execPath,
      [join(root, `benchmarks/${part}.bench.mjs`)],
      other ? { TABULON_BESIDE: resolve(other) } : {},
    ),
  );

function main(words) {
  const other = words.find((word) => word.startsWith("--beside="))?.replace("--beside=", "");
  const asked = words.filter((word) => !word.startsWith("--"));
  const parts = ["native", ...scripts()];
  const unknown = asked.find((word) => !parts.includes(word));
  if (unknown) throw new Error(`There is no part ${unknown}; the parts are ${parts.join(", ")}.`);
  const runs = parts
    .filter((part) => !asked.length || asked.includes(part))
    .flatMap((part) => (part === "native" ? runNative() : runScript(part, other)));
  const peers = JSON.parse(readFileSync(join(root, "benchmarks/peers.json"), "utf8"));
  console.log(table(lines(gather(runs), peers)));
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  try {
    main(process.argv.slice(2));
  } catch (error) {
    console.error(error.message);
    process.exit(1);
  }
}
