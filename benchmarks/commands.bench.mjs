// What a pupil waits for after a choice, in Chromium: the control's commands, and the same changes on a static copy of
// what it shows, which is the least that the browser needs for them.
import { readFile } from "node:fs/promises";
import { join } from "node:path";
import { launchTimed, packages, script, traced, wholePage } from "./web/pages.mjs";
import { element } from "./web/problem.mjs";
import { say } from "./web/say.mjs";

const rounds = 11;
const html = wholePage(`${script}<script src="commands.js"></script>\n${element}`);

const browser = await launchTimed();
try {
  const commands = await readFile(new URL("web/commands.js", import.meta.url));
  const pages = [];
  for (const { folder, suffix } of packages) {
    await browser.write(join(folder, "commands.js"), commands);
    pages.push({ page: await browser.openPage(html, { folder }), suffix, play: "playControl" });
  }
  pages.push({ page: await browser.openPage(html), suffix: " of a static copy", play: "playCopy" });
  for (const { page } of pages) await page.evaluate(() => document.querySelector("tabulon-lpctrl").ready);
  await pages.at(-1).page.bringToFront();
  await pages.at(-1).page.evaluate(() => becomeCopy());
  // The first two rounds warm the engine up.
  for (let round = -2; round < rounds; ++round)
    for (const { page, suffix, play } of pages) {
      await page.bringToFront();
      const runs = await traced(page, () => page.evaluate((name) => window[name](), play));
      if (round >= 0) for (const { name, milliseconds } of runs) say(name + suffix, milliseconds, "ms");
    }
} finally {
  await browser.close();
}
