// The hosts of a soak, by name: what a round is on each.
import { spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { mkdir } from "node:fs/promises";
import { join, resolve } from "node:path";
import { launch } from "../browser/browser.mjs";
import { startWalk } from "../browser/walk.mjs";
import { root } from "../../tools/sources.mjs";
import { expectNothingLeft, nodesHeld } from "./leaks.mjs";

const built = (path) => {
  const whole = resolve(root, path);
  if (!existsSync(whole)) throw new Error(`${path} is not there: ./soak builds it`);
  return whole;
};

// ---- A program that walks by itself: a fault is what it says when it ends badly.

const mostShown = 20_000; // characters of what it says, the last

function run([command, ...given], { cwd, env }) {
  return new Promise((resolve, reject) => {
    const program = spawn(command, given, {
      cwd,
      env: { ...process.env, ...env },
      stdio: ["ignore", "pipe", "pipe"],
    });
    let said = "";
    for (const stream of [program.stdout, program.stderr])
      stream.on("data", (text) => (said = (said + text).slice(-mostShown)));
    program.once("error", reject);
    program.once("close", (code, signal) =>
      code === 0 ? resolve(said) : reject(new Error(`${said}\n${signal ?? `exit code ${code}`}`)),
    );
  });
}

const scratch = join(root, "build/scratch/soak");

// One test that takes its seed from the environment. A filter that no test has would pass, and show nothing.
const byTest = ({ name, program, through = [], filter, env, events }) => ({
  name,
  async open() {
    const path = built(program);
    await mkdir(scratch, { recursive: true });
    return {
      async round(seed, seen) {
        const said = await run([...through, path, `--gtest_filter=${filter}`], {
          cwd: scratch,
          env: { ...env, TABULON_SEED: seed },
        });
        if (!/\[ {2}PASSED {2}\] 1 test\./.test(said)) throw new Error(`no test has run:\n${said}`);
        seen.events += events;
      },
      close() {},
    };
  },
});

// Without a screen, every step checked by sanitizers.
export const headless = ({ events = 20_000, program = "build/sanitize/shell_tests" } = {}) =>
  byTest({
    name: "headless",
    program,
    filter: "RandomWalk.*",
    env: {
      ASAN_OPTIONS: "detect_stack_use_after_return=1",
      UBSAN_OPTIONS: "print_stacktrace=1",
      TABULON_EVENTS: events,
    },
    events,
  });

// The COM object, in a container that calls back from wherever it is called: four calls at least in each round of the
// test's.
export const activex = ({ rounds = 1000, program = "build/windows/activex_tests.exe" } = {}) =>
  byTest({
    name: "activex",
    program,
    through: [join(root, "tools/in-wine.sh"), "wine"],
    filter: "InPlaceHostileInAContainer.*",
    env: { TABULON_ROUNDS: rounds, TABULON_WINDOWS: 1 },
    events: rounds * 4,
  });

// ---- A browser, with elements that are made, moved and removed.

export const inBrowser = (engine, { events = 300 } = {}) => ({
  name: engine,
  async open() {
    built("dist/web/tabulon.js");
    const browser = await launch({ engine });
    return {
      async round(seed, seen) {
        const walk = await startWalk(browser, { seed, comeAndGo: true });
        const heldWithOne = engine === "chromium" ? await nodesHeld(walk.page) : undefined;
        for (let event = 0; event < events; ++event, ++seen.events) {
          await walk.step();
          if (event % 50 === 0) seen.nodes = await walk.nodes();
        }
        if (heldWithOne !== undefined) await expectNothingLeft(walk.page, heldWithOne);
        await walk.end();
      },
      close: () => browser.close(),
    };
  },
});

export const hosts = {
  headless,
  chromium: (options) => inBrowser("chromium", options),
  firefox: (options) => inBrowser("firefox", options),
  webkit: (options) => inBrowser("webkit", options),
  activex,
};
