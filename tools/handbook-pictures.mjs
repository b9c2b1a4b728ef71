// The handbook's pictures, made of the real control by a person's means:
//
//   await makePictures("dist/web")   // dist/web/handboek/pivot.png ...
//
// They are made anew when the control or this file has changed; build/pictures keeps the last ones. Where there is no
// browser the handbook goes without, and ./test and ./release see to it that there is one.
import { createHash } from "node:crypto";
import { existsSync } from "node:fs";
import { cp, mkdir, readFile, rm, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";

const root = fileURLToPath(new URL("..", import.meta.url));
const kept = join(root, "build/pictures");
const scale = 2;

const browsers = ["/usr/bin/chromium", "/usr/bin/chromium-browser", "/usr/bin/google-chrome", "/snap/bin/chromium"];

// ---- The problems

const furniture = { n: 2, less: [" 1, 0, 0, 2, 3, 2", 3], F: " -3, -5", right: " 4, 12, 18" };
const honey = { n: 2, less: [" 3, 2, 1, 4", 2], F: " -3, -4", right: " 10, 9" };
const ice = { n: 2, less: [" 2, 1, 1, 1, 1, 0", 3], F: " -3, -2", right: " 9, 6, 4" };
const feed = {
  ...{ n: 3, less: [" 2, 1, 2", 1], more: [" 1, 5, 4", 1], equal: [" 1, 1, 1", 1] },
  ...{ F: " 4, 8, 6", right: " 17, 37, 10" },
};

const attributes = ({ n, less, more = ["", 0], equal = ["", 0], F, right }) => ({
  prmNrBeslisVar: n,
  prmNrKleinerGelijkVglen: less[1],
  prmNrGroterGelijkVglen: more[1],
  prmNrGelijkVglen: equal[1],
  prmSTR_DLfunctie: F,
  prmSTR_KleinerGelijkVglen: less[0],
  prmSTR_GroterGelijkVglen: more[0],
  prmSTR_GelijkVglen: equal[0],
  prmSTR_RL: right,
});

// ---- What a person does

const click = (name, index) => async (page) => {
  const which = index ? `[data-index="${index}"]` : "";
  await page.click(`tabulon-lpctrl >>> [data-name="${name}"]${which}`);
};
const choose = (menu, item) => [click(menu), click(item)];
const press = (key) => (page) => page.keyboard.press(key);
const type = (text) => (page) => page.keyboard.type(text);
// A bar of a dialog, from 1 to a number.
const raise = (bar, to) => Array(to - 1).fill((page) => page.click(`tabulon-lpctrl >>> [data-name="${bar}"] .arrow`));
const sweepDialog = (column, row) => [
  ...choose("cmd_Bewerken", "mnu_Kolommen_vegen"),
  ...raise("VScrollKolom", column),
  ...raise("VScrollRij", row),
];
const sweep = (column, row) => [...sweepDialog(column, row), click("OKButton")];

// Of the log, which then stands around the tableau.
const inLog = (selector) => (page) => page.click(`tabulon-les >>> ${selector}`);

const usualHeight = 312;
// A problem, what is done with it, and the height of a picture with the log below the tableau.
const pictures = {
  tableau: [furniture, []],
  menu: [furniture, [click("cmd_Bewerken")]],
  pivot: [furniture, choose("cmd_Bewerken", "mnu_Pivot_element")],
  vegen: [furniture, sweepDialog(2, 2)],
  tweede: [furniture, sweep(2, 2)],
  optimum: [furniture, choose("cmd_Bewerken", "mnu_optimaliseren")],
  basisoplossing: [
    furniture,
    [...choose("cmd_Bewerken", "mnu_optimaliseren"), click("cmdOK"), ...choose("cmd_Bewerken", "mnu_Basisoplossing")],
  ],
  breuken: [
    honey,
    [...choose("cmd_Opties", "mnu_Breuken"), ...choose("cmd_Bewerken", "mnu_optimaliseren"), click("cmdOK")],
  ],
  "big-m": [feed, []],
  grafiek: [ice, [...sweep(1, 3), ...choose("cmd_Opties", "mnu_Grafiek")]],
  nieuw: [furniture, [click("cmd_Bestand"), click("mnu_Nieuw"), click("mnu_Nieuw_Big_M")]],
  logboek: [furniture, [...sweep(2, 3), inLog(".judge")], 720],
  invoerfout: [furniture, [click("txtTableau", 1), type("1,5"), press("Enter")]],
};

// ---- Taking them

const idle = (page) =>
  page.evaluate(async () => {
    const element = document.querySelector("tabulon-lpctrl");
    await element.ready;
    const frame = () => new Promise((resume) => requestAnimationFrame(resume));
    while (element.hasAttribute("aria-busy")) await frame();
    await frame();
  });

// What fades or blinks has done so when the same is seen twice.
async function steady(look) {
  for (let before = await look(); ; ) {
    const now = await look();
    if (Buffer.compare(before, now) === 0) return now;
    before = now;
  }
}

async function take(page, [problem, steps, withLog]) {
  const height = withLog ?? usualHeight;
  await page.setViewport({ width: 640, height: height + 28, deviceScaleFactor: scale });
  await page.evaluate(
    (given, around) => {
      const element = document.createElement("tabulon-lpctrl");
      for (const [name, value] of Object.entries(given)) element.setAttribute(name, value);
      const place = document.createElement(around);
      place.append(element);
      document.body.replaceChildren(place);
    },
    attributes(problem),
    withLog ? "tabulon-les" : "div",
  );
  await idle(page);
  if (withLog) await page.waitForSelector("tabulon-les >>> .log");
  for (const step of steps) {
    await step(page);
    await idle(page);
  }
  return steady(() => page.screenshot({ clip: { x: 8, y: 8, width: 616, height } }));
}

async function takeAll(web, executablePath) {
  const browser = await puppeteer.launch({ executablePath, args: ["--no-sandbox", "--disable-gpu"] });
  try {
    const place = join(web, "handboek");
    await mkdir(place, { recursive: true });
    const blank = join(place, "leeg.html");
    await writeFile(
      blank,
      '<!doctype html><html lang="nl"><style>body { margin: 16px; font: 16px sans-serif }</style>' +
        '<script src="../tabulon.js"></script><script src="../tabulon-les.js"></script><body>',
    );
    for (const [name, picture] of Object.entries(pictures)) {
      const page = await browser.newPage();
      await page.goto(pathToFileURL(blank).href);
      await writeFile(join(place, `${name}.png`), await take(page, picture));
      await page.close();
    }
    await rm(blank);
  } finally {
    await browser.close();
  }
}

export async function makePictures(web) {
  const hash = createHash("sha256");
  const made = ["tabulon.js", "tabulon-les.js"].map((name) => join(web, name));
  for (const file of [...made, fileURLToPath(import.meta.url)]) hash.update(await readFile(file));
  const sum = hash.digest("hex");
  const stamp = join(kept, "made-of");
  if (existsSync(stamp) && (await readFile(stamp, "utf8")) === sum) {
    await cp(join(kept, "handboek"), join(web, "handboek"), { recursive: true });
    return;
  }
  const executablePath = process.env.CHROMIUM ?? browsers.find(existsSync);
  if (!executablePath) {
    console.log(`The handbook is left without pictures: there is no browser at ${browsers.join(", ")}.`);
    return;
  }
  await takeAll(web, executablePath);
  await rm(kept, { recursive: true, force: true });
  await cp(join(web, "handboek"), join(kept, "handboek"), { recursive: true });
  await writeFile(stamp, sum);
}
