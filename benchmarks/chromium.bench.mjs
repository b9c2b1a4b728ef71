// What a pupil waits for, in Chromium: the first tableau, and a menu choice; the arithmetic there; and the size
// of what the page loads.
import { readFile } from "node:fs/promises";
import { gzipSync } from "node:zlib";
import { launch, problem } from "../tests/browser/browser.mjs";

const say = (name, value, unit) => console.log(JSON.stringify({ name, value, unit }));
const median = (numbers) => numbers.sort((a, b) => a - b)[Math.floor(numbers.length / 2)];
const file = (path) => readFile(new URL(path, import.meta.url));

// 10 variables and 10 "<=" rows, always the same.
function tenByTen() {
  let state = 20;
  const next = (least, most) => {
    state = (state * 48271) % 2147483647;
    return least + (state % (most - least + 1));
  };
  const list = (count, make) => Array.from({ length: count }, () => ` ${make()}`).join(",");
  return problem({
    prmNrBeslisVar: 10,
    prmNrKleinerGelijkVglen: 10,
    prmSTR_DLfunctie: list(10, () => -next(1, 20)),
    prmSTR_KleinerGelijkVglen: list(100, () => next(1, 10)),
    prmSTR_RL: list(10, () => next(10, 100)),
  });
}

// From the end of the script's transfer to a shown tableau with finished layout.
async function firstTableau(browser) {
  const page = await browser.open(tenByTen());
  const time = await page.evaluate(
    () =>
      window.shownAt -
      performance.getEntriesByType("resource").find((entry) => entry.name.endsWith("/tabulon.js")).responseEnd,
  );
  await page.close();
  return time;
}

const noteFirstTableau = (page) =>
  page.evaluateOnNewDocument(() => {
    document.addEventListener("DOMContentLoaded", async () => {
      await customElements.whenDefined("tabulon-lpctrl");
      const element = document.querySelector("tabulon-lpctrl");
      await element.ready;
      element.shadowRoot.querySelector('[data-name="txtTableau"]').getBoundingClientRect();
      window.shownAt = performance.now();
    });
  });

// From the choice in an open menu to finished layout; then whatever has opened is closed, and the grid reset.
async function menuChoice(browser, button, item) {
  const page = await browser.open(tenByTen());
  const times = [];
  for (let round = 0; round < 30; ++round) {
    times.push(
      await page.evaluate(
        async (buttonName, itemName) => {
          const element = document.querySelector("tabulon-lpctrl");
          const find = (name) => element.shadowRoot.querySelector(`[data-name="${name}"]`);
          const pause = () => new Promise((resume) => setTimeout(resume, 20));
          const choose = async (opener, chosen) => {
            find(opener).click();
            await pause();
            const start = performance.now();
            find(chosen).click();
            find("txtTableau").getBoundingClientRect();
            element.shadowRoot.querySelector("dialog[open]")?.getBoundingClientRect();
            return performance.now() - start;
          };
          const time = await choose(buttonName, itemName);
          await pause();
          element.shadowRoot.querySelector('dialog[open] [data-name="cmdOK"]')?.click();
          await pause();
          await choose("cmd_Bewerken", "mnu_Reset");
          return time;
        },
        button,
        item,
      ),
    );
  }
  await page.close();
  return median(times);
}

const script = await file("../dist/web/tabulon.js");
say("tabulon.js", script.length / 1024, "kB");
say("tabulon.js gzipped", gzipSync(script, { level: 9 }).length / 1024, "kB");

const browser = await launch({ whole: true });
try {
  const openPage = browser.browser.newPage.bind(browser.browser);
  browser.browser.newPage = async () => {
    const page = await openPage();
    await noteFirstTableau(page);
    return page;
  };
  const starts = [];
  for (let round = 0; round < 15; ++round) starts.push(await firstTableau(browser));
  say("script to first tableau", median(starts), "ms");
  say("menu to layout: Optimaliseren", await menuChoice(browser, "cmd_Bewerken", "mnu_optimaliseren"), "ms");
  say("menu to layout: Breuken", await menuChoice(browser, "cmd_Opties", "mnu_Breuken"), "ms");

  await browser.write("benchmarks.wasm", await file("../build/web/benchmarks.wasm"));
  await browser.write("work.mjs", await file("web/work.mjs"));
  const page = await browser.open("<p>Metingen</p>", { wait: false });
  const results = await page.evaluate(async () => {
    const { load, time } = await import("./work.mjs");
    return time(await load(await (await fetch("benchmarks.wasm")).arrayBuffer()));
  });
  for (const result of results) say(`chromium: ${result.name}`, result.value, result.unit);
} finally {
  await browser.close();
}
