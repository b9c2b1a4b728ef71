// The lesson around the control: what is done is told, taken back and asked about, in the hands of a pupil.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

const lesson = (attributes = "", parameters = twoProducts) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Les</title>
<link rel="icon" href="data:,">
<link rel="stylesheet" href="voorbeelden.css">
<script src="tabulon.js"></script>
<script src="tabulon-les.js"></script>
<body>
<main>
<h1>De meubelmaker</h1>
<tabulon-les ${attributes}>${problem(parameters)}</tabulon-les>
<p><label>Antwoord <textarea id="answer"></textarea></label></p>
</main>
`;

const inLesson = (selector) => `tabulon-les >>> ${selector}`;
// Of the newest step, or of the one so many before it.
const inStep = (selector, before = 0) => inLesson(`li:nth-child(${before + 1}) ${selector}`);

let page;

// Waits for what a person would wait for.
async function eventually(look, wanted) {
  for (let turn = 0; turn < 200; ++turn) {
    if (JSON.stringify(await look()) === JSON.stringify(wanted)) return;
    await sleep(20);
  }
  assert.deepEqual(await look(), wanted);
}

// The texts of what is seen of these.
const seen = (selector) =>
  page.evaluate(
    (selector) =>
      [...(document.querySelector("tabulon-les").shadowRoot?.querySelectorAll(selector) ?? [])]
        .filter((each) => each.checkVisibility())
        .map((each) => each.textContent.replaceAll("\u00a0", " ")),
    selector,
  );
const steps = () => seen("li > p:first-child");
const title = () => text(page, "lblNRTableau");

async function open(browser, attributes, options = {}) {
  page = await browser.open(lesson(attributes, options.parameters), { width: 1200, ...options });
  await eventually(() => seen(".title"), ["Logboek"]);
}

// By the dialog, whose bars begin at 1.
async function sweep(column, row) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_Kolommen_vegen"));
  for (const [bar, box, wanted] of [
    ["VScrollKolom", "txtKolom", column],
    ["VScrollRij", "txtRij", row],
  ]) {
    await eventually(() => text(page, box), "1");
    for (let at = 2; at <= wanted; ++at) {
      await page.click(`${control(bar)} .arrow`);
      await eventually(() => text(page, box), String(at));
    }
  }
  await page.click(control("OKButton"));
  await idle(page);
}

async function choose(menu, item) {
  await page.click(control(menu));
  await page.click(control(item));
  await idle(page);
}

async function type(name, index, words) {
  await page.click(control(name, index));
  await page.keyboard.type(words);
  await page.keyboard.press("Tab");
  await idle(page);
}

const wrongStep = [
  "Het quotiënt van rij 2 was kleiner (6) dan dat van rij 3 (9).",
  "Nu staat rechts in rij 2 een negatief getal: -6.",
];
const firstPivot = [
  "Kolom x 2: daar staat in rij F het meest negatieve getal, -5; minder negatief is x 1 met -3.",
  "Rij 1: in kolom x 2 staat 0, dus deze rij telt niet mee.",
  "Rij 2: 12 : 2 = 6, het kleinste positieve quotiënt.",
  "Rij 3: 18 : 2 = 9, dat is groter.",
  "De pivot staat in kolom x 2, rij 2.",
];

for (const engine of ["chromium", "firefox", "webkit"])
  describe(`in ${engine}`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());
    afterEach(async () => {
      assert.deepEqual(noise(page), []);
      await page.close();
    });

    for (const from of ["server", "file"])
      test(`a step is told, and judged when somebody asks, from ${from}`, async () => {
        await open(browser, "", { from });
        assert.deepEqual(await seen(".empty"), ["Wat je in het tableau doet, komt hier te staan."]);
        await sweep(2, 3);
        await eventually(steps, ["x 2 komt in de basis, x 5 gaat eruit."]);
        assert.deepEqual(await seen(".operation"), [
          "rij F := rij F + 2.5 × rij 3",
          "rij 2 := rij 2 − 1 × rij 3",
          "rij 3 := rij 3 : 2",
        ]);
        assert.deepEqual(await seen(".empty, .answer p"), []);
        await page.click(inStep(".judge"));
        await eventually(() => seen("li .answer p"), wrongStep);
        await page.click(inStep(".why"));
        await eventually(() => seen("li .answer p"), firstPivot);
      });

    test("steps are taken back and done again, as many as there are", async () => {
      await open(browser);
      await type("txtRL", 1, "5/2");
      await sweep(2, 2);
      await choose("cmd_Opties", "mnu_Breuken");
      const all = await steps();
      assert.equal(all.length, 3);
      for (let left = 2; left >= 0; --left) {
        await page.click(inLesson(".back"));
        await eventually(steps, all.slice(3 - left));
      }
      assert.equal(await title(), "1-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 4");
      await page.click(inLesson(".back"));
      for (let done = 1; done <= 3; ++done) {
        await page.click(inLesson(".forward"));
        await eventually(steps, all.slice(3 - done));
      }
      assert.equal(await title(), "2-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 2+1/2");
    });

    test("the log is there again after a reload where the page says so", async () => {
      await open(browser, 'bewaar="meubels"');
      await type("txtRL", 1, "7");
      await sweep(2, 2);
      await sweep(1, 3);
      const all = await steps();
      assert.equal(all.length, 3);
      await page.click(inLesson(".back"));
      await eventually(steps, all.slice(1));
      await page.goto(await page.evaluate(() => location.href));
      await idle(page);
      await eventually(steps, all.slice(1));
      assert.equal(await title(), "2-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 7");
      await page.click(inLesson(".forward"));
      await eventually(steps, all);
      assert.equal(await title(), "3-e Simplex-tableau");
    });

    test("an earlier tableau unfolds with its pivot marked, and goes to the clipboard", async () => {
      await open(browser);
      await sweep(2, 2);
      await page.click(inStep("summary"));
      await eventually(() => seen("li caption"), ["1-e Simplex-tableau, pivot in rij 2, kolom x 2"]);
      assert.deepEqual(await seen("li .pivot"), ["2"]);
      assert.deepEqual(await seen("li tr:nth-child(2) > *"), ["F", "-3", "-5", "0", "0", "0", "0"]);
      await page.click(inStep(".latex"));
      await eventually(() => seen("li .copies button"), ["Kopieer als tabel", "Gekopieerd"]);
      await page.evaluate(() => document.querySelector("#answer").focus());
      await page.keyboard.down("Control");
      await page.keyboard.press("v");
      await page.keyboard.up("Control");
      await eventually(
        () => page.evaluate(() => document.querySelector("#answer").value),
        [
          "\\begin{array}{l|rrrrr|r}",
          "   & x_{1} & x_{2} & x_{3} & x_{4} & x_{5} & RL \\\\ \\hline",
          "  F & -3 & -5 & 0 & 0 & 0 & 0 \\\\ \\hline",
          "  x_{3} & 1 & 0 & 1 & 0 & 0 & 4 \\\\",
          "  x_{4} & 0 & \\boxed{2} & 0 & 1 & 0 & 12 \\\\",
          "  x_{5} & 3 & 2 & 0 & 0 & 1 & 18 \\\\",
          "\\end{array}",
          "",
        ].join("\n"),
      );
      assert.deepEqual(await seen("li .copies button"), ["Kopieer als tabel", "Kopieer als LaTeX"]);
    });
  });
