// Runs every benchmark and prints one table: name, value, unit, the mark it is held against, and their ratio.
//
//   build/native/benchmarks       benchmarks/*_benchmark.cpp, the median of their repetitions
//   benchmarks/*.bench.mjs        each prints a line of JSON {"name", "value", "unit"} for each result
//   benchmarks/marks.json         {"<name>": {"mark": 12, "unit": "us", "of": "what the mark is"}}
import { spawnSync } from "node:child_process";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const root = fileURLToPath(new URL("..", import.meta.url));
const repetitions = 5;
const seconds = { ns: 1e-9, us: 1e-6, µs: 1e-6, ms: 1e-3, s: 1 };
const bytes = { B: 1, kB: 1024, MB: 1024 * 1024 };

// A value in another unit of the same kind; undefined where the two do not measure the same.
export function convert(value, from, to) {
  if (from === to) return value;
  const scale = [seconds, bytes].find((known) => from in known && to in known);
  return scale && (value * scale[from]) / scale[to];
}

export function fromGoogleBenchmark(report) {
  return report.benchmarks
    .filter((run) => run.aggregate_name === "median")
    .map((run) => ({ name: run.run_name, value: run.real_time, unit: run.time_unit }));
}

export const fromLines = (text) =>
  text
    .split("\n")
    .filter((line) => line.startsWith("{"))
    .map((line) => JSON.parse(line));

// A result beside its mark, in the mark's unit. A ratio below 1 is better than the mark.
export function againstMark(result, marks) {
  const mark = marks[result.name];
  if (!mark) return result;
  const value = convert(result.value, result.unit, mark.unit);
  if (value === undefined) throw new Error(`${result.name}: ${result.unit} cannot be held against ${mark.unit}`);
  return { name: result.name, value, unit: mark.unit, mark: mark.mark, ratio: value / mark.mark, of: mark.of };
}

const shown = (value) => (typeof value === "number" ? String(Number(value.toPrecision(4))) : (value ?? ""));

export function table(rows) {
  const columns = ["name", "value", "unit", "mark", "ratio", "of"];
  const cells = [columns, ...rows.map((row) => columns.map((column) => shown(row[column])))];
  const widths = columns.map((_, index) => Math.max(...cells.map((line) => line[index].length)));
  const isNumber = (index) => ["value", "mark", "ratio"].includes(columns[index]);
  return cells
    .map((line) =>
      line
        .map((cell, index) => (isNumber(index) ? cell.padStart(widths[index]) : cell.padEnd(widths[index])))
        .join("  ")
        .trimEnd(),
    )
    .join("\n");
}

function output(command, ...options) {
  const { status, stdout, error } = spawnSync(command, options, {
    cwd: root,
    encoding: "utf8",
    maxBuffer: 1 << 28,
    stdio: ["ignore", "pipe", "inherit"],
  });
  if (status !== 0) throw new Error(`${command} ${options[0]}: ${error?.message ?? `ended with ${status}`}`);
  return stdout;
}

function runNative() {
  const program = join(root, "build/native/benchmarks");
  if (!existsSync(program)) return [];
  const report = output(
    program,
    "--benchmark_format=json",
    `--benchmark_repetitions=${repetitions}`,
    "--benchmark_report_aggregates_only=true",
    "--benchmark_min_time=0.1",
  );
  return fromGoogleBenchmark(JSON.parse(report));
}

function runScripts() {
  const scripts = readdirSync(join(root, "benchmarks")).filter((name) => name.endsWith(".bench.mjs"));
  return scripts.sort().flatMap((name) => fromLines(output(process.execPath, join(root, "benchmarks", name))));
}

function main(words) {
  const file = join(root, "benchmarks/marks.json");
  const marks = existsSync(file) ? JSON.parse(readFileSync(file, "utf8")) : {};
  const chosen = ({ name }) => words.length === 0 || words.some((word) => name.includes(word));
  const results = [...runNative(), ...runScripts()].filter(chosen);
  if (results.length === 0) throw new Error("No benchmark ran.");
  console.log(table(results.map((result) => againstMark(result, marks))));
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  try {
    main(process.argv.slice(2));
  } catch (error) {
    console.error(error.message);
    process.exit(1);
  }
}
