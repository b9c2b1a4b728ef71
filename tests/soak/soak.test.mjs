// ./soak, for a moment.
import assert from "node:assert/strict";
import { spawn, spawnSync } from "node:child_process";
import { existsSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { root } from "../../tools/sources.mjs";
import { launch, problem } from "../browser/browser.mjs";
import { headless, inBrowser } from "./hosts.mjs";
import { expectNothingLeft, nodesHeld } from "./leaks.mjs";
import { memoryOfChildren } from "./memory.mjs";
import { lineOf, soak } from "./soak.mjs";

// A host whose rounds are given, and what was written of it.
async function soaked(round, options = {}) {
  const written = [];
  const closed = [];
  const host = (name) => ({
    name,
    open: async () => ({ round: (seed, seen) => round(seed, seen, name), close: () => closed.push(name) }),
  });
  const fault = await soak([host("one"), host("two")], {
    minutes: 0,
    seed: 5,
    write: (text) => written.push(text),
    ...options,
  });
  return { fault, written, closed };
}

describe("a soak", () => {
  test("gives every host a round at least, and a line", async () => {
    const { fault, written, closed } = await soaked(async (_, seen) => void (seen.events += 7));
    assert.equal(fault, undefined);
    assert.deepEqual(closed, ["one", "two"]);
    assert.equal(written.length, 2);
    assert.match(written[0], /^one .* 1 rounds +7 events +(\d+|-) MB +- nodes$/);
  });

  test("goes on with the next seed until its share of the time is over", async () => {
    const seeds = { one: [], two: [] };
    const round = async (seed, _, name) => {
      seeds[name].push(seed);
      await new Promise((resume) => setTimeout(resume, 5));
    };
    await soaked(round, { minutes: 0.005 });
    for (const name of ["one", "two"]) {
      assert.ok(seeds[name].length > 1, `${name}: ${seeds[name]}`);
      assert.deepEqual(
        seeds[name],
        seeds[name].map((_, at) => 5 + at),
      );
    }
  });

  test("tells of a round that is not over, from time to time", async () => {
    const written = [];
    let told;
    const heard = new Promise((resume) => (told = resume));
    const write = (text) => {
      written.push(text);
      told();
    };
    const round = (_, seen) => {
      seen.nodes = 12;
      return heard;
    };
    await soak([{ name: "slow", open: async () => ({ round, close() {} }) }], { minutes: 0, seed: 1, write, every: 1 });
    assert.match(written[0], /^slow .* 0 rounds .* 12 nodes$/);
  });

  test("stops at the first fault, and says how to see it again", async () => {
    const { fault, written, closed } = await soaked(
      async (seed) => {
        if (seed === 7) throw new Error("the focus is nowhere");
      },
      { minutes: 1 },
    );
    assert.equal(fault.seed, 7);
    assert.deepEqual(closed, ["one"]);
    assert.match(written.at(-1), /the focus is nowhere/);
    assert.match(written.at(-1), /TABULON_SEED=7 \.\/soak 0 one$/);
  });
});

test("the memory is that of the programs that were started", async () => {
  const program = spawn(process.execPath, ["-e", "console.log(1); setTimeout(() => {}, 60000)"]);
  await new Promise((resume) => program.stdout.once("data", resume));
  assert.ok(memoryOfChildren() > 10, `${memoryOfChildren()} MB`);
  program.kill();
  await new Promise((resume) => program.once("exit", resume));
});

test("a line has its columns", () => {
  assert.equal(
    lineOf("chromium", 120_000, { rounds: 3, events: 1800, memory: 512, nodes: 420 }),
    "chromium    2.0 min         3 rounds      1800 events           512 MB        420 nodes",
  );
});

// The programs are built by the parts of ./test that go before.
const builtHeadless = ["sanitize", "native"].map((preset) => `build/${preset}/shell_tests`);
const program = builtHeadless.find((path) => existsSync(join(root, path)));

describe("a moment of a soak", () => {
  const moment = (host) => soak([host], { minutes: 0, seed: 20250901, write: console.log });

  test("without a screen", async () => {
    assert.equal(await moment(headless({ events: 2000, program })), undefined);
  });

  test("in a browser, where elements come and go", async () => {
    assert.equal(await moment(inBrowser("chromium", { events: 60 })), undefined);
  });
});

test("a page that keeps the elements that are gone is a fault", async () => {
  const browser = await launch({ engine: "chromium" });
  try {
    const page = await browser.open(problem());
    const held = await nodesHeld(page);
    await page.evaluate(() => {
      globalThis.kept = [1, 2, 3].map(() => document.body.appendChild(document.createElement("tabulon-lpctrl")));
      return Promise.all(globalThis.kept.map((element) => element.ready));
    });
    await assert.rejects(expectNothingLeft(page, held, 0), /nodes are left without an element/);
    await page.evaluate(() => delete globalThis.kept);
    await expectNothingLeft(page, held);
  } finally {
    await browser.close();
  }
});

test("a program that breaks is a fault that shows what it said", async () => {
  const broken = headless({ events: 1, program: process.execPath });
  const fault = await soak([broken], { minutes: 0, seed: 1, write() {} });
  assert.match(fault.error.message, /bad option: --gtest_filter/);
});

test("a program without the test is a fault", async () => {
  const idle = headless({ events: 1, program: "/bin/true" });
  const fault = await soak([idle], { minutes: 0, seed: 1, write() {} });
  assert.match(fault.error.message, /^no test has run/);
});

test("a host that nobody knows is no host", () => {
  const { status, stderr } = spawnSync(join(root, "soak"), ["1", "netscape"], { encoding: "utf8" });
  assert.equal(status, 2);
  assert.match(stderr, /^usage: /);
});
