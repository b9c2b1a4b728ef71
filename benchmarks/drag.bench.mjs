// What dragging the cross over the graph costs, in Chromium, a move a frame: all that the page's main thread does for
// a frame, and the longest frame of each round. Beside it a bare canvas and a graph library (uPlot) that draw as much.
import { readFile } from "node:fs/promises";
import { join } from "node:path";
import { problem } from "../tests/browser/browser.mjs";
import { median } from "../tools/bench-table.mjs";
import { launchTimed, packages, script, traced, wholePage } from "./web/pages.mjs";
import { say } from "./web/say.mjs";

const rounds = 7;
const moves = 60;
const file = (path) => readFile(new URL(path, import.meta.url));

const lists = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};
const drag = '<script src="drag.js"></script>';
const pageOf = (kind, rest) => ({ kind, html: wholePage(`${drag}${rest}`) });
const kinds = [
  ...packages.map((each) => ({ ...each, ...pageOf("control", script + problem(lists)) })),
  { folder: "", suffix: " of a bare canvas", ...pageOf("canvas", "<canvas></canvas><p></p><p></p><p></p>") },
  {
    folder: "",
    suffix: " of uPlot",
    ...pageOf("library", '<script src="uplot.js"></script><div></div><p></p><p></p><p></p>'),
  },
];

const browser = await launchTimed();
try {
  await browser.write("uplot.js", await file("../node_modules/uplot/dist/uPlot.iife.min.js"));
  for (const { folder } of packages) await browser.write(join(folder, "drag.js"), await file("web/drag.js"));
  for (const each of kinds) {
    each.page = await browser.openPage(each.html, each);
    await each.page.bringToFront();
    await each.page.evaluate((kind) => prepare[kind](), each.kind);
  }
  for (let round = -1; round < rounds; ++round)
    for (const { page, suffix } of kinds) {
      await page.bringToFront();
      const runs = await traced(page, () => page.evaluate((count) => dragAround(count), moves));
      const frames = runs.map(({ milliseconds }) => milliseconds);
      if (round < 0) continue;
      say(`drag: a frame${suffix}`, median(frames), "ms");
      say(`drag: the longest frame${suffix}`, Math.max(...frames), "ms");
    }
} finally {
  await browser.close();
}
