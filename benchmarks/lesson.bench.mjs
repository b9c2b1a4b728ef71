// How long the page is deaf after an input, in Chromium: the longest that its main thread computes without a pause, from
// a real key or click until all that comes of it is there. In the lesson around the control and in the maker, with a
// problem of a textbook and with the largest.
import { problem } from "../tests/browser/browser.mjs";
import { launchTimed, longestTask, script, traced, wholePage } from "./web/pages.mjs";
import { say } from "./web/say.mjs";
import { problems } from "./web/words.mjs";

const rounds = 9;
const manySteps = 80;
const les = '<script src="tabulon-les.js"></script>';

const browser = await launchTimed();

// Until nothing more comes: two frames, and the rest after typing where there is one.
async function settled(page, milliseconds = 0) {
  await new Promise((resume) => setTimeout(resume, milliseconds));
  await page.evaluate(async () => {
    const isBusy = () => document.querySelector("tabulon-lpctrl[aria-busy]");
    do await nextFrame();
    while (isBusy());
    await settled();
  });
}

// A round more than is counted, which warms the engine up.
async function measure(page, name, act, { before = () => {}, rest = 0 } = {}) {
  await page.bringToFront();
  for (let round = -1; round < rounds; ++round) {
    await before();
    await settled(page, rest);
    const milliseconds = await longestTask(page, async () => {
      await act();
      await settled(page, rest);
    });
    if (round >= 0) say(`lesson: ${name}`, milliseconds, "ms");
  }
}

// ---- The lesson

// In a tab of its own, which keeps its log over a reload.
async function openLesson(words) {
  const maker = await browser.openPage(wholePage(les));
  const { parameters } = await maker.evaluate(
    async (problem) => (await tabulonLes.thinking()).read(problem).problem,
    words,
  );
  await maker.close();
  const lesson = `<tabulon-les bewaar="meten">${problem(parameters)}</tabulon-les>`;
  const page = await browser.openPage(wholePage(script + les + lesson), { cold: true });
  await page.waitForSelector(inLog(".title"));
  return page;
}

const inControl = (name) => `tabulon-lpctrl >>> [data-name="${name}"]`;
const inLog = (selector) => `tabulon-les >>> ${selector}`;

// A step by the dialog, up to the click that makes it: x1 and x2 take each other's place in the basis.
let steps = 0;
async function beforeStep(page) {
  await page.click(inControl("cmd_Bewerken"));
  await page.click(inControl("mnu_Kolommen_vegen"));
  await page.waitForSelector(inControl("OKButton"));
  if (++steps % 2) return;
  await page.click(`${inControl("VScrollKolom")} .arrow`);
  await page.waitForFunction(
    (box) => box.value === "2" || box.textContent === "2",
    {},
    await page.waitForSelector(inControl("txtKolom")),
  );
}

async function makeSteps(page, count) {
  for (let step = 0; step < count; ++step) {
    await beforeStep(page);
    await page.click(inControl("OKButton"));
    await settled(page);
  }
}

// What the log itself does for the paper, and for the screen after it.
async function measureTurns(page, size) {
  const turn = (type) => page.evaluate((name) => timed(name, () => dispatchEvent(new Event(name))), type);
  await turn("afterprint");
  for (let round = 0; round < rounds; ++round)
    for (const type of ["beforeprint", "afterprint"]) {
      const [{ milliseconds }] = await traced(page, () => turn(type));
      say(`lesson: ${type}, ${manySteps} in the log, ${size}`, milliseconds, "ms");
      await settled(page);
    }
}

const click = (page, selector) => async () => page.click(selector);

async function measureLesson(size, words) {
  const page = await openLesson(words);
  const timed = (name, act, options) => measure(page, `${name}, ${size}`, act, options);
  await timed("a step", click(page, inControl("OKButton")), { before: () => beforeStep(page) });
  await timed("Waarom?", click(page, inLog(".why.ahead")));
  await timed("Waarom? of a step", click(page, inLog("li .why")));
  await timed("Klopt het?", click(page, inLog("li .judge")));
  await timed("Stap terug", click(page, inLog(".back")));
  await timed("Stap vooruit", click(page, inLog(".forward")));
  await timed("unfold", click(page, inLog("li summary")), {
    before: () =>
      page.$eval(inLog("li details"), (details) => details.open && details.querySelector("summary").click()),
  });
  await timed("copy a table", click(page, inLog("li .table")));
  await timed("copy LaTeX", click(page, inLog("li .latex")));
  await makeSteps(page, manySteps - rounds - 1);
  await timed(`a step, ${manySteps} in the log`, click(page, inControl("OKButton")), {
    before: () => beforeStep(page),
  });
  const again = async () => {
    await page.reload();
    await page.waitForSelector(inLog("li"));
  };
  await timed(`Afdrukken, ${manySteps} in the log, with the browser's paper`, click(page, inLog(".print")), {
    before: again,
  });
  await measureTurns(page, size);
  await page.closeAll();
}

// ---- The maker

// As long as the maker waits for more, and the while that what comes then takes.
const rest = 900;

async function measureMaker(size, words) {
  const page = await browser.openPage("<!doctype html>");
  await page.goto(`${browser.origin}/maker.html`);
  await page.waitForSelector("#oordeel > *");
  const given = (text) =>
    page.$eval(
      "#probleem",
      (field, value) => {
        field.value = value;
        field.dispatchEvent(new Event("input"));
        field.focus();
        field.setSelectionRange(value.length, value.length);
      },
      text,
    );
  const timed = (name, act, options) => measure(page, `${name}, ${size}`, act, { rest, ...options });
  await timed("a key in the problem", () => page.keyboard.press("0"), { before: () => given(words) });
  await timed("a key that makes a mistake", () => page.keyboard.press("+"), { before: () => given(words) });
  await given(words);
  await timed("a key in the title", async () => page.keyboard.press("a"), { before: () => page.focus("#titel") });
  await timed("copy the link", click(page, '[data-kopieer="link"]'));
  await timed("another example", click(page, "#keuzes button:nth-child(2)"), { before: () => given(words) });
  await page.close();
}

try {
  for (const [size, words] of Object.entries(problems)) await measureLesson(size, words);
  for (const [size, words] of Object.entries(problems)) await measureMaker(size, words);
} finally {
  await browser.close();
}
