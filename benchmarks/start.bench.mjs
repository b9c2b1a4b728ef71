// How a page with the control starts, in Chromium, for who has never been there: from the script's tag to finished
// layout, and to the first painted picture. Beside it a page with a static copy of what the control shows.
import { launchTimed, packages, script, traced, wholePage } from "./web/pages.mjs";
import { element } from "./web/problem.mjs";
import { say } from "./web/say.mjs";

const rounds = 11;
const noteStart = '<script>window.startedAt = performance.now(); begin("start: laid out");</script>';
const noteLayout = `<script type="module">
  const element = document.querySelector("tabulon-lpctrl");
  await element.ready;
  element.shadowRoot.querySelector('[data-name="txtTableau"]').getBoundingClientRect();
  window.laidOutAt = performance.now();
  end("start: laid out");
</script>`;

// A page with the control's picture and no control: markup and a style sheet.
const staticCopy = (page) =>
  page.evaluate(() => {
    const { shadowRoot } = document.querySelector("tabulon-lpctrl");
    const surface = shadowRoot.querySelector(".surface");
    for (const box of surface.querySelectorAll("input")) box.setAttribute("value", box.value);
    const css = [...shadowRoot.adoptedStyleSheets[0].cssRules].map((rule) => rule.cssText).join("\n");
    return `<div><template shadowrootmode="open"><style>${css}</style>${surface.outerHTML}</template></div>`;
  });

const noteCopy = `<script>
  document.querySelector("div").shadowRoot.querySelector('[data-name="txtTableau"]').getBoundingClientRect();
  window.laidOutAt = performance.now();
  end("start: laid out");
</script>`;

const times = (page) =>
  page.evaluate(async () => {
    while (!(window.laidOutAt && performance.getEntriesByName("first-contentful-paint").length)) await nextFrame();
    const [{ startTime }] = performance.getEntriesByName("first-contentful-paint");
    return { "laid out": laidOutAt - startedAt, painted: startTime - startedAt };
  });

async function start(browser, { html, folder, suffix }, isCounted) {
  const page = await browser.openPage("<!doctype html>", { cold: true });
  let found;
  const runs = await traced(page, async () => {
    await browser.visit(page, html, folder);
    found = await times(page);
  });
  await page.closeAll();
  if (!isCounted) return;
  for (const { name, milliseconds } of runs) say(name + suffix, milliseconds, "ms");
  for (const [name, milliseconds] of Object.entries(found))
    say(`start: ${name}, by the clock${suffix}`, milliseconds, "ms");
}

const browser = await launchTimed();
try {
  const control = wholePage(`${noteStart}${script}\n${element}\n${noteLayout}`);
  const page = await browser.openPage(wholePage(`${script}\n${element}`));
  await page.evaluate(() => document.querySelector("tabulon-lpctrl").ready);
  const copy = wholePage(`${noteStart}${await staticCopy(page)}\n${noteCopy}`);
  await page.close();
  const all = [
    ...packages.map((each) => ({ ...each, html: control })),
    { html: copy, folder: "", suffix: " of a static copy" },
  ];
  // To and fro, for who comes first finds the machine otherwise than who comes last.
  for (let round = -1; round < rounds; ++round, all.reverse())
    for (const each of all) await start(browser, each, round >= 0);
} finally {
  await browser.close();
}
