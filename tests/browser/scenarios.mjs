// Every scenario, in a browser, with real mouse and key events; what is seen must be what the headless host
// shows, to the letter. There is a test file for each engine, so that they run side by side.
//
//   playScenarios("firefox");
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
import { launch, problem } from "./browser.mjs";
import { look } from "./scenario-eyes.mjs";
import { play, sentences } from "./scenario-player.mjs";

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

// { LABEL: the text dumped under it }
function readDumps(text) {
  const parts = text.split(/^== /m).slice(1);
  return Object.fromEntries(parts.map((part) => part.match(/^([^\n]*)\n(.*)$/s).slice(1)));
}

// What the headless host understands of each scenario and sees in it, and the language in which they are written.
async function headless() {
  const scratch = await mkdtemp(join(tmpdir(), "tabulon-dumps-"));
  const read = (name) => readFile(join(scratch, name), "utf8");
  const scenario = async (name) => ({
    steps: JSON.parse(await read(`${name}.json`)),
    dumps: readDumps(await read(`${name}.dump`)),
  });
  try {
    const player = promisify(execFile)(headlessPlayer(), ["--gtest_filter=All/Scenario.*"], {
      cwd: scratch,
      env: { ...process.env, TABULON_SCENARIO_DUMPS: scratch },
    });
    // A scenario that fails there is told there; what it dumped stands here all the same.
    await player.catch((error) => assert.equal(error.code, 1, error.message));
    const names = files.map((file) => basename(file, ".txt"));
    const all = await Promise.all(names.map(scenario));
    return {
      language: JSON.parse(await read("language.json")),
      scenarios: new Map(names.map((name, at) => [name, all[at]])),
    };
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

export function playScenarios(engine) {
  describe(`scenarios in ${engine}`, () => {
    let browser, language, scenarios, fakeTimers;

    before(async () => {
      [{ language, scenarios }, fakeTimers] = await Promise.all([headless(), fakeTimersScript()]);
      browser = await launch({ engine });
    });
    after(() => browser?.close());

    test("there are scenarios to play", () => assert.ok(files.length > 0));

    test("the player knows every sentence of the language, and no other", () => {
      assert.deepEqual(Object.keys(sentences).sort(), [...language.sentences].sort());
    });

    test("the eyes see all that a sentence asks for", async () => {
      const page = await browser.open(`<script src="tabulon.js"></script>${problem({})}`);
      const { controls } = await page.evaluate(look, { named: [{ name: "txtRL", index: 1 }] });
      assert.deepEqual(
        language.seen.filter((each) => !(each in controls[0])),
        [],
      );
      await page.close();
    });

    for (const file of files) {
      const name = basename(file, ".txt");
      test(name.replaceAll("-", " "), () => play(browser, { ...scenarios.get(name), fakeTimers, file }));
    }
  });
}
