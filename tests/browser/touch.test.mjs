// With a finger, on a phone of 360 pixels: the log, the maker and the first lesson, by touches as the browser gets them
// from its screen and the letters of the phone's own keyboard.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

const phone = { width: 360, height: 740, hasTouch: true, isMobile: true };

let browser;
let page;
let session;
before(async () => (browser = await launch({ engine: "chromium" })));
after(() => browser?.close());
afterEach(async () => {
  assert.deepEqual(noise(page), []);
  await page.close();
});

// Until `look` gives what is wanted.
async function eventually(look, wanted) {
  for (let turn = 0; turn < 400 && (await look()) !== wanted; ++turn)
    await new Promise((resume) => setTimeout(resume, 15));
  assert.equal(await look(), wanted);
}

async function open(place) {
  page = await browser.open("<p></p>", { wait: false });
  await page.setViewport(phone);
  session = await page.createCDPSession();
  const path = place.startsWith("<") ? "vinger.html" : place;
  if (place.startsWith("<")) await browser.write(path, place);
  await page.goto(`${browser.origin}/${path}`);
  await idle(page);
}

// Whether a finger that goes where this stands lands on it; then it is lifted there. A phone's browser brings what gets
// the focus into sight, when it has the time for it, and what stood under the finger may then be gone.
async function touches(node) {
  await node.evaluate(async (each) => {
    each.scrollIntoView({ block: "center", inline: "center" });
    for (let frame = 0; frame < 2; ++frame) await new Promise((resume) => requestAnimationFrame(resume));
    globalThis.landed = false;
    each.addEventListener("touchstart", () => (globalThis.landed = true), { once: true, passive: true });
  });
  const { x, y, width, height } = await node.boundingBox();
  const finger = (type, ...touchPoints) => session.send("Input.dispatchTouchEvent", { type, touchPoints });
  await finger("touchStart", { x: x + width / 2, y: y + height / 2 });
  const landed = await page.evaluate(() => globalThis.landed);
  await finger(landed ? "touchEnd" : "touchCancel");
  return landed;
}

async function tap(selector) {
  const node = await page.waitForSelector(selector, { visible: true });
  let landed = false;
  for (let turn = 0; turn < 20 && !landed; ++turn) landed = await touches(node);
  assert.ok(landed, `${selector} is out of reach`);
  await idle(page);
}

const tapIn = (...names) => names.reduce((before, name) => before.then(() => tap(control(name))), Promise.resolve());

// Of what takes a finger, outside the control: what is narrower or lower than 44 pixels.
const small = () =>
  page.evaluate(() => {
    const within = (root) =>
      [...root.querySelectorAll("*")].flatMap((each) =>
        each.shadowRoot && each.localName !== "tabulon-lpctrl" ? [each, ...within(each.shadowRoot)] : [each],
      );
    return within(document)
      .filter((each) => each.matches("a, button, summary, input, select, textarea") && each.checkVisibility())
      .map((each) => [each.id || each.textContent.trim(), each.getBoundingClientRect()])
      .filter(([, { width, height }]) => Math.min(width, height) < 44)
      .map(([name, { width, height }]) => `${name}: ${width} by ${height}`);
  });

async function fits() {
  assert.deepEqual(await small(), []);
  assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), phone.width);
}

// The bars of the dialog begin at 1.
async function sweep(column, row) {
  await tapIn("cmd_Bewerken", "mnu_Kolommen_vegen");
  for (const [bar, box, wanted] of [
    ["VScrollKolom", "txtKolom", column],
    ["VScrollRij", "txtRij", row],
  ])
    for (let at = 2; at <= wanted; ++at) {
      await tap(`${control(bar)} .arrow`);
      await eventually(() => text(page, box), String(at));
    }
  await tapIn("OKButton");
}

describe("the log under a finger", () => {
  const lesson = `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Les</title>
<link rel="icon" href="data:,">
<link rel="stylesheet" href="voorbeelden.css">
<script src="tabulon.js"></script>
<script src="tabulon-les.js"></script>
<body>
<main><tabulon-les>${problem({
    prmNrBeslisVar: 2,
    prmNrKleinerGelijkVglen: 3,
    prmSTR_DLfunctie: " -3, -5",
    prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
    prmSTR_RL: " 4, 12, 18",
  })}</tabulon-les></main>`;

  const inLog = (selector) => `tabulon-les >>> ${selector}`;
  const shown = (selector) =>
    page.evaluate(
      (part) =>
        [...document.querySelector("tabulon-les").shadowRoot.querySelectorAll(part)]
          .filter((each) => each.checkVisibility())
          .map(({ textContent }) => textContent.replaceAll("\u00a0", " "))
          .join("\n"),
      selector,
    );

  test("asks why, and whether a step was right", async () => {
    await open(lesson);
    await tap(inLog(".why.ahead"));
    await eventually(() => shown(".answer.ahead p:last-child"), "De pivot staat in kolom x 2, rij 2.");
    await sweep(2, 3);
    await eventually(() => shown("li > p:first-child"), "x 2 komt in de basis, x 5 gaat eruit.");
    await tap(inLog("li .judge"));
    await eventually(() => shown("li .answer p:last-child"), "Nu staat rechts in rij 2 een negatief getal: -6.");
    await fits();
  });

  test("takes a step back and forward, and unfolds what was before it", async () => {
    await open(lesson);
    await sweep(2, 2);
    await tap(inLog("li summary"));
    await eventually(() => shown("li caption"), "1-e Simplex-tableau, pivot in rij 2, kolom x 2");
    await fits();
    await tap(inLog(".back"));
    await eventually(() => shown("li"), "");
    assert.equal(await text(page, "lblNRTableau"), "1-e Simplex-tableau");
    await tap(inLog(".forward"));
    await eventually(() => text(page, "lblNRTableau"), "2-e Simplex-tableau");
    await tap(inLog(".now summary"));
    await eventually(() => shown("caption"), "2-e Simplex-tableau");
    await tap(inLog(".now .table"));
    await eventually(() => shown(".now .table"), "Gekopieerd");
  });
});

describe("the maker under a finger", () => {
  const valueIn = (id) => page.$eval(`#${id}`, ({ value }) => value);
  const shown = (selector) => page.$eval(selector, ({ innerText }) => innerText.replace(/\s+/g, " ").trim());

  test("takes a problem, a title and a question, and gives a link", async () => {
    await open("maker.html");
    await tap("#keuzes button:last-child");
    await tap("#probleem");
    await page.keyboard.type("max F = x\nx <= 3");
    await eventually(() => shown("#oordeel b"), "De methode komt in 1 stap bij het optimum: F = 3, met x = 3.");
    await tap("#titel");
    await page.keyboard.type("Met de duim");
    await tap("#erbij");
    await page.keyboard.type("Hoeveel?");
    await eventually(() => shown("#vragen li"), "Hoeveel?");
    await fits();
    await tap("#vraagvelden .knoopje");
    await eventually(() => page.$$eval("#vraagvelden fieldset", ({ length }) => length), 0);
    await tap('[data-kopieer="link"]');
    await eventually(() => shown('[data-kopieer="link"]'), "Gekopieerd");
    assert.equal(await page.evaluate(() => getSelection().toString()), await valueIn("link"));
    await fits();
  });

  test("leads to a mistake, and puts back what an example has replaced", async () => {
    await open("maker.html");
    await tap("#probleem");
    await page.keyboard.type("x <= \n");
    await tap("#titel");
    await tap(".vindplaats");
    assert.equal(await page.evaluate(() => document.activeElement.id), "probleem");
    const typed = await valueIn("probleem");
    await tap("#keuzes button:nth-child(2)");
    assert.notEqual(await valueIn("probleem"), typed);
    await tap("#terug");
    assert.equal(await valueIn("probleem"), typed);
    await fits();
  });
});

describe("the first lesson under a finger", () => {
  const outcome = () => page.$eval("#uitkomst", ({ dataset }) => dataset.gevolg);
  const stepShown = () => page.$eval(".stap:not([hidden]) .teller", ({ textContent }) => textContent);

  async function typeIn(index, name, words) {
    await tap(control(name, index));
    for (let at = 0; at < 3; ++at) await page.keyboard.press("Backspace");
    for (let at = 0; at < 3; ++at) await page.keyboard.press("Delete");
    await page.keyboard.type(words);
    await page.keyboard.press("Enter");
    await idle(page);
  }
  const pivot = () => tapIn("cmd_Bewerken", "mnu_Pivot_element", "OKButton");
  const steps = [
    () => typeIn(1, "txtRij_F", "-2"),
    () => typeIn(2, "txtRL", "8"),
    () => tapIn("cmd_Bewerken", "mnu_Basisoplossing", "OKButton"),
    pivot,
    () => sweep(2, 1),
    pivot,
    () => sweep(1, 2),
    () => tapIn("cmd_Bewerken", "mnu_Pivot_element", "cmdOK"),
    () => tapIn("cmd_Bewerken", "mnu_Basisoplossing", "OKButton"),
    () => tapIn("cmd_Bewerken", "mnu_optimaliseren", "cmdOK"),
  ];

  test("is done from its first step to its last", async () => {
    await open("les.html");
    for (const [at, act] of steps.entries()) {
      await eventually(stepShown, `Stap ${at + 1} van 10`);
      await act();
      await eventually(outcome, "goed");
      await fits();
      if (at + 1 < steps.length) await tap("#volgende");
    }
    assert.equal(await page.$eval("#punt", ({ textContent }) => textContent), "Hoekpunt (3, 6): F = 24");
    await tap("#voortgang li:nth-child(3) button");
    await eventually(stepShown, "Stap 3 van 10");
  });
});
