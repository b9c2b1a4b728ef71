// Pages of Chromium whose main thread is timed: what it computes, not how long it waits.
//
//   const pages = await openPages({ ours: problem(lists) });
//   await pages.timed(async () => { ... page.evaluate(() => timed("OK", () => button.click())) });   // says "OK"
//
// A page marks where something begins and ends, and the trace has the thread's time at each mark.
import { cp, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { setTimeout as pause } from "node:timers/promises";
import { launch } from "../../tests/browser/browser.mjs";
import { beside } from "../../tools/bench-table.mjs";

// The packages: ours and, where there is one, the one beside it, with what is added to the names of its results.
export const packages = [
  { folder: "", suffix: "" },
  ...(process.env.TABULON_BESIDE ? [{ folder: "beside", suffix: beside }] : []),
];

// In the page, before its own scripts.
function marks() {
  window.begin = (name) => performance.mark(`begin ${name}`);
  window.end = (name) => performance.mark(`end ${name}`);
  window.timed = (name, work) => {
    begin(name);
    work();
    end(name);
  };
  window.nextFrame = () => new Promise((resume) => requestAnimationFrame(resume));
  window.settled = async () => {
    await nextFrame();
    await nextFrame();
  };
}

// Until the browser has done what it does around a window that it has opened; whoever starts a page has one open.
async function atRest(session) {
  const computed = async () => {
    const { processInfo } = await session.send("SystemInfo.getProcessInfo");
    return processInfo.reduce((seconds, { cpuTime }) => seconds + cpuTime, 0);
  };
  for (let before = 0, now = await computed(); now - before > 0.015; now = await computed()) {
    before = now;
    await pause(150);
  }
}

export async function launchTimed() {
  const browser = await launch({ engine: "chromium", whole: true });
  const session = await browser.browser.target().createCDPSession();
  if (process.env.TABULON_BESIDE)
    await cp(process.env.TABULON_BESIDE, join(browser.folder, "beside"), { recursive: true });
  let count = 0;

  async function visit(page, html, folder = "") {
    const name = join(folder, `timed${++count}.html`);
    await writeFile(join(browser.folder, name), html);
    await page.goto(`${browser.origin}/${name}`);
  }

  // A page of a folder of the package. `cold` opens it as who has never been here.
  async function openPage(html, { folder = "", cold = false } = {}) {
    const context = cold ? await browser.browser.createBrowserContext() : browser.browser.defaultBrowserContext();
    const page = await context.newPage();
    page.closeAll = () => (cold ? context.close() : page.close());
    // What notes the times stands in the page itself.
    await page.setBypassCSP(true);
    await page.evaluateOnNewDocument(marks);
    await page.setViewport({ width: 900, height: 700 });
    await visit(page, html, folder);
    if (cold) await atRest(session);
    return page;
  }
  return { ...browser, openPage, visit };
}

async function trace(page, categories, work) {
  await page.tracing.start({ categories });
  await work();
  const { traceEvents } = JSON.parse(Buffer.from(await page.tracing.stop()).toString());
  return traceEvents.sort((a, b) => a.ts - b.ts);
}

// What the page's main thread computed between the marks while `work` ran: [{name, milliseconds}].
export async function traced(page, work) {
  const events = await trace(page, ["blink.user_timing"], work);
  const begun = new Map();
  const found = [];
  for (const { name, tts, pid, ts } of events.filter((event) => event.tts)) {
    const [, edge, what] = /^(begin|end) (.*)$/.exec(name) ?? [];
    if (edge === "begin") begun.set(pid + what, { tts, ts });
    if (edge === "end") found.push({ name: what, milliseconds: (tts - begun.get(pid + what).tts) / 1000 });
  }
  return found;
}

// The longest that the page's main thread computed without a pause while `work` ran, in milliseconds: for so long no key
// would have been heard.
export async function longestTask(page, work) {
  const events = await trace(page, ["toplevel", "blink.user_timing"], async () => {
    await page.evaluate(() => begin("work"));
    await work();
    await page.evaluate(() => end("work"));
  });
  const { pid, tid, ts: from } = events.find(({ name }) => name === "begin work");
  const { ts: to } = events.find(({ name }) => name === "end work");
  const isTask = (event) => event.pid === pid && event.tid === tid && event.name === "ThreadControllerImpl::RunTask";
  const tasks = events.filter((event) => isTask(event) && event.tdur && event.ts >= from && event.ts < to);
  return Math.max(...tasks.map(({ tdur }) => tdur)) / 1000;
}

export const wholePage = (body) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>Simplex</title>
<link rel="icon" href="data:,">
<body>
${body}
</body>
</html>
`;

export const script = '<script src="tabulon.js"></script>';
