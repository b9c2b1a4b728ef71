// Changes the sources one small step at a time, in a copy of the tree, and tells which changes no test notices.
//
//   node tools/mutate.mjs              every change of mutations.mjs
//   node tools/mutate.mjs graph sort   those of the rooms among the words, or with one of the words in file or text
//
// The copy is build/mutate; the checkout is never written. A change that survives the tests of its own room is held
// against those of the others as well. The answer is 1 where one survives, 2 where a change or the tests do not fit.
import { spawnSync } from "node:child_process";
import { existsSync, mkdirSync, readFileSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { mutations, rooms } from "./mutations.mjs";
import { allFiles, root } from "./sources.mjs";

const copy = join(root, "build/mutate");
const buildMinutes = 10;
const testMinutes = 4;

// ---- Finding

const isSource = (path) => /\.(cpp|h|ts)$/.test(path);

const stands = (file, text) => readFileSync(join(root, file), "utf8").includes(text);

// A text that is gone, or stands more than once, is a change that nobody has thought about.
function locate({ room, find }, files) {
  const { sources, of } = rooms[room];
  const inRoom = files.filter((path) => isSource(path) && sources.includes(dirname(path)) && (!of || of.test(path)));
  const found = inRoom.filter((path) => stands(path, find));
  if (found.length !== 1) throw new Error(`${room}: "${find}" stands in ${found.length} files`);
  const text = readFileSync(join(root, found[0]), "utf8");
  const at = text.indexOf(find);
  if (text.indexOf(find, at + 1) >= 0) throw new Error(`${found[0]}: "${find}" stands there more than once`);
  return { file: found[0], line: text.slice(0, at).split("\n").length };
}

const onOneLine = (text) => text.replace(/\s+/g, " ").trim() || "nothing";

const told = ({ room, file, line, find, becomes }) =>
  `${room}: ${file}:${line}: ${onOneLine(find)} -> ${onOneLine(becomes)}`;

// Every change with its place.
export function placed() {
  const files = allFiles();
  const faults = [];
  const all = mutations.flatMap((mutation) => {
    try {
      return [{ ...mutation, ...locate(mutation, files) }];
    } catch (error) {
      faults.push(error.message);
      return [];
    }
  });
  if (faults.length) throw new Error(`These changes no longer fit:\n${faults.join("\n")}`);
  return all;
}

function chosen(words) {
  const has = (mutation) => (word) => (word in rooms ? word === mutation.room : told(mutation).includes(word));
  return placed().filter((mutation) => !words.length || words.some(has(mutation)));
}

// ---- The copy

function writeIfOther(file, bytes) {
  if (existsSync(file) && readFileSync(file).equals(bytes)) return;
  mkdirSync(dirname(file), { recursive: true });
  writeFileSync(file, bytes);
}

// What the copy has of an earlier day and the checkout has no more goes. What is the same keeps its time, so that it
// is not built again.
function bringUpToDate() {
  const files = allFiles();
  const list = join(copy, "build/files.txt");
  const before = existsSync(list) ? readFileSync(list, "utf8").split("\n") : [];
  for (const path of before) if (!files.includes(path)) rmSync(join(copy, path), { force: true });
  for (const path of files) writeIfOther(join(copy, path), readFileSync(join(root, path)));
  writeIfOther(list, Buffer.from(files.join("\n")));
  if (!existsSync(join(copy, "node_modules"))) symlinkSync(join(root, "node_modules"), join(copy, "node_modules"));
}

// ---- Building and testing

// TABULON_SEED would choose other numbers than those of every day.
const { TABULON_SEED: _, ...environment } = process.env;
const hasCcache = spawnSync("ccache", ["--version"]).status === 0;
if (hasCcache) environment.CMAKE_CXX_COMPILER_LAUNCHER = "ccache";

// True where the command ends well, within its time.
function run(minutes, command, options, folder = copy) {
  const limited = ["--kill-after=10", `${minutes}m`, command, ...options];
  const { status, stdout, stderr } = spawnSync("timeout", limited, {
    cwd: folder,
    env: environment,
    encoding: "utf8",
    maxBuffer: 1 << 28,
    stdio: ["ignore", "pipe", "pipe"],
  });
  return { well: status === 0, said: stdout + stderr };
}

const build = (preset, ...targets) =>
  run(buildMinutes, "cmake", ["--build", "--preset", preset, "--target", ...targets]).well;

const packageWeb = () => run(buildMinutes, process.execPath, ["tools/package-web.mjs"]).well;

const nativeFolder = join(copy, "build/native");

// Each kind of room: how it is built for one of its tests, and how that is run.
const kinds = {
  native: {
    build: (test) => build("native", test),
    test: (test) =>
      run(
        testMinutes,
        join(nativeFolder, test),
        ["--gtest_fail_fast", "--gtest_brief=1"],
        join(nativeFolder, "scratch", test.replace("_tests", "")),
      ),
  },
  page: { build: packageWeb, test: testInBrowser },
  module: { build: () => build("web", "tabulon_web") && packageWeb(), test: testInBrowser },
};

function testInBrowser(test) {
  return run(testMinutes, process.execPath, ["--test", `tests/browser/${test}.test.mjs`]);
}

// The test that notices, "" where none does, undefined where it cannot be built.
function noticedBy({ kind, tests }) {
  for (const test of tests) {
    if (!kinds[kind].build(test)) return undefined;
    if (!kinds[kind].test(test).well) return test;
  }
  return "";
}

function verdictOn(mutation) {
  const file = join(copy, mutation.file);
  const before = readFileSync(file, "utf8");
  writeFileSync(
    file,
    before.replace(mutation.find, () => mutation.becomes),
  );
  try {
    return noticedBy(rooms[mutation.room]);
  } finally {
    writeFileSync(file, before);
  }
}

// Without a change all must be well, or nothing that is told would mean anything.
function expectWell(wanted) {
  const kindsOf = new Map(wanted.flatMap(({ room }) => rooms[room].tests.map((test) => [test, rooms[room].kind])));
  const isWeb = [...kindsOf.values()].some((kind) => kind !== "native");
  // The browser's scenarios are compared with those of the headless host.
  const targets = isWeb ? { native: ["scenarios_tests"], web: ["all"] } : { native: ["scenarios_tests"] };
  for (const [preset, names] of Object.entries(targets)) {
    const { well, said } = run(buildMinutes, "cmake", ["--preset", preset]);
    if (!well || !build(preset, ...names)) throw new Error(`${said}\nThe copy cannot be built.`);
  }
  for (const [test, kind] of kindsOf) {
    const noticed = noticedBy({ kind, tests: [test] });
    if (noticed !== "") throw new Error(`Without any change ${test} ${noticed ? "fails" : "cannot be built"}.`);
  }
}

function main(words) {
  const wanted = chosen(words);
  if (!wanted.length) throw new Error("No change has one of these words.");
  mkdirSync(copy, { recursive: true });
  bringUpToDate();
  expectWell(wanted);
  const survivors = [];
  let unbuilt = 0;
  for (const mutation of wanted) {
    const test = verdictOn(mutation);
    if (test === undefined) ++unbuilt;
    if (test === "") survivors.push(mutation);
    const verdict = test === undefined ? "does not compile" : test ? `killed by ${test}` : "SURVIVES";
    console.log(`${verdict.padEnd(28)} ${told(mutation)}`);
  }
  const killed = wanted.length - survivors.length - unbuilt;
  console.log(`\n${killed} killed, ${survivors.length} survived, ${unbuilt} did not compile`);
  for (const mutation of survivors) console.log(`  ${told(mutation)}`);
  return survivors.length ? 1 : 0;
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  try {
    process.exitCode = main(process.argv.slice(2));
  } catch (error) {
    console.error(error.message);
    process.exitCode = 2;
  }
}
