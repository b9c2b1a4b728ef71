// Every scenario, in a browser, with real mouse and key events; what is seen must be what the headless host
// shows, to the letter.
import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { existsSync } from "node:fs";
import { mkdtemp, readFile, readdir, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { basename, join } from "node:path";
import { after, before, describe, test } from "node:test";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import * as esbuild from "esbuild";
import { launch } from "./browser.mjs";
import { readDumps, readScenario } from "./scenario-language.mjs";
import { play } from "./scenario-player.mjs";

const root = fileURLToPath(new URL("../..", import.meta.url));
const folder = join(root, "tests/scenarios");
const files = (await readdir(folder)).filter((name) => name.endsWith(".txt")).sort();

// TABULON_SCENARIOS names the program where it is not in one of its usual places.
function headlessPlayer() {
  const places = [
    process.env.TABULON_SCENARIOS,
    ...["native", "sanitize"].map((preset) => join(root, "build", preset, "scenarios_tests")),
  ];
  return (
    places.find((place) => place && existsSync(place)) ??
    assert.fail("build the tests of this machine first: ./test native")
  );
}

async function headlessDumps() {
  const scratch = await mkdtemp(join(tmpdir(), "tabulon-dumps-"));
  try {
    const player = promisify(execFile)(headlessPlayer(), ["--gtest_filter=All/Scenario.*"], {
      cwd: scratch,
      env: { ...process.env, TABULON_SCENARIO_DUMPS: scratch },
    });
    // A scenario that fails there is told there; what it dumped stands here all the same.
    await player.catch((error) => assert.equal(error.code, 1, error.message));
    const names = files.map((file) => basename(file, ".txt"));
    const texts = await Promise.all(names.map((name) => readFile(join(scratch, `${name}.dump`), "utf8")));
    return new Map(names.map((name, at) => [name, readDumps(texts[at])]));
  } finally {
    await rm(scratch, { recursive: true, force: true });
  }
}

async function fakeTimersScript() {
  const built = await esbuild.build({
    stdin: { contents: 'export { install } from "@sinonjs/fake-timers";', resolveDir: root },
    bundle: true,
    write: false,
    format: "iife",
    globalName: "FakeTimers",
    external: ["util", "timers", "timers/promises"], // asked for in node alone
    logLevel: "error",
  });
  return built.outputFiles[0].text;
}

describe("scenarios in the browser", () => {
  let browser, dumps, fakeTimers;

  before(async () => {
    [dumps, fakeTimers] = await Promise.all([headlessDumps(), fakeTimersScript()]);
    browser = await launch();
  });
  after(() => browser?.close());

  test("there are scenarios to play", () => assert.ok(files.length > 0));

  for (const file of files) {
    test(basename(file, ".txt").replaceAll("-", " "), async () => {
      const scenario = readScenario(await readFile(join(folder, file), "utf8"));
      await play(browser, scenario, { fakeTimers, dumps: dumps.get(basename(file, ".txt")), file });
    });
  }
});
