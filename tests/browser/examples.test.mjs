// The pages that a teacher could use: each opens without a complaint, its problem is the one that it states in
// inequalities, and every step of its worked answer is what the control does.
import assert from "node:assert/strict";
import { after, before, describe, test } from "node:test";
import { control, launch, noise, idle, text } from "./browser.mjs";

// F at the optimum, and what the basic variables are worth there.
const pages = [
  { path: "index.html", F: " 36", values: { "x  1": " 2", "x  2": " 6", "x  3": " 2" } },
  { path: "standaard.html", F: " 13", values: { "x  1": " 2", "x  3": " 1", "x  5": " 1" } },
  { path: "breuken.html", F: " 13.4", values: { "x  1": " 2.2", "x  2": " 1.7" } },
  // x = (2, 3, 5) costs 62, and the ">=" row is met exactly.
  { path: "big-m.html", F: "-62", values: { "x  1": " 2", "x  2": " 3", "x  3": " 5" } },
  { path: "groot.html", F: " 620", values: { "x  1": " 10", "x  2": " 10", "x  6": " 10" } }, // x 3 = 40 stands in row 8
  { path: "grafisch.html", F: " 15", values: { "x  1": " 3", "x  2": " 3", "x  5": " 1" } },
  { path: "object.html", F: " 22", values: { "x  1": " 4", "x  2": " 2" } },
];

const shows = async (page, name, wanted) => {
  for (let look = 0; look < 100 && (await text(page, name)) !== wanted; ++look) {
    await new Promise((resume) => setTimeout(resume, 20));
  }
  assert.equal(await text(page, name), wanted, name);
};

// The basic variables in the rows that are shown.
async function solution(page) {
  const found = {};
  for (let row = 1; row <= 7; ++row) {
    const variable = await text(page, "lblBasis", row);
    if (variable) found[variable] = await text(page, "txtRL", row);
  }
  return found;
}

// The coefficients of x₁, x₂, ... in a line such as "F = 3x₁ + x₃" or "2x₁ − x₂ ≤ 4".
const digits = "₁₂₃₄₅₆";
function coefficients(line, _, lines) {
  const count = Math.max(
    ...lines
      .join("")
      .match(/[₁-₆]/g)
      .map((digit) => digits.indexOf(digit) + 1),
  );
  const found = Array(count).fill(0);
  for (const [, sign, number, digit] of line.matchAll(/([−-])?\s*(\d*)x([₁-₆])/g))
    found[digits.indexOf(digit)] = (sign ? -1 : 1) * Number(number || 1);
  return found;
}

// The largest page states its problem in a table: a row for each constraint, and the gains at its end.
async function checkTable(page) {
  const rows = await page.$$eval(".getallen tbody tr", (lines) =>
    lines.map((line) => [...line.cells].slice(1).map((cell) => cell.textContent)),
  );
  const gains = rows.pop();
  for (let at = 0; at < 5; ++at) assert.equal(Number(await text(page, "txtRij_F", at + 1)), -gains[at]);
  for (const [row, cells] of rows.slice(0, 7).entries()) {
    assert.equal((await text(page, "txtRL", row + 1)).trim(), cells.at(-1));
    for (let at = 0; at < 5; ++at) assert.equal((await text(page, "txtTableau", row * 5 + at + 1)).trim(), cells[at]);
  }
  await page.close();
}

const numberIn = (cell, word) => cell.match(new RegExp(`${word} (\\d+)`))[1];
// "−4,5" on the page is "-4.5" in the tableau, and " 4.5" has the place of its sign.
const asShown = (number) =>
  number
    .replace("−", "-")
    .replace(",", ".")
    .replace(/^(?!-)/, " ");

// Sweeps by the dialog: its bars begin at 1.
async function sweep(page, [, column, row]) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_Kolommen_vegen"));
  for (const [bar, box, wanted] of [
    ["VScrollKolom", "txtKolom", numberIn(column, "kolom")],
    ["VScrollRij", "txtRij", numberIn(row, "rij")],
  ]) {
    await shows(page, box, "1");
    for (let at = 2; at <= Number(wanted); ++at) {
      await page.click(`${control(bar)} .arrow`);
      await shows(page, box, String(at));
    }
  }
  await page.click(control("OKButton"));
  await idle(page);
}

async function confirm(page, message) {
  await shows(page, "lblMelding", message);
  await page.keyboard.press("Enter");
  await idle(page);
}

async function optimiseByMouse(page) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await confirm(page, "Optimale oplossing gevonden!");
}

async function optimiseByKeyboard(page) {
  await page.keyboard.down("Alt");
  await page.keyboard.press("KeyW");
  await page.keyboard.up("Alt");
  await page.keyboard.press("KeyO");
  await confirm(page, "Optimale oplossing gevonden!");
}

describe("the example pages", () => {
  let browser;
  before(async () => (browser = await launch()));
  after(() => browser?.close());

  for (const { path, F, values } of pages) {
    for (const [how, optimise] of Object.entries({ "by mouse": optimiseByMouse, "by keyboard": optimiseByKeyboard })) {
      test(`${path} reaches its optimum ${how}`, async () => {
        const page = await browser.open(path);
        await optimise(page);
        await shows(page, "lblFRL", F);
        const found = await solution(page);
        for (const [variable, value] of Object.entries(values)) assert.equal(found[variable], value, variable);
        assert.deepEqual(noise(page), []);
        await page.close();
      });
    }
  }

  for (const { path } of pages)
    test(`${path} gives the control the problem that it states`, async () => {
      const page = await browser.open(path);
      const stated = await page.$$eval(".stelsel b", (nodes) => nodes.map((node) => node.textContent));
      const rows = stated.slice(0, -1).map(coefficients);
      if (!rows.length) return checkTable(page);
      const [F, ...constraints] = rows;
      for (const [at, coefficient] of F.entries())
        assert.equal(Number(await text(page, "txtRij_F", at + 1)), coefficient ? -coefficient : 0, stated[0]);
      for (const [row, numbers] of constraints.entries()) {
        const right = stated[row + 1].match(/[≤≥=] (\d+)$/)[1];
        assert.equal((await text(page, "txtRL", row + 1)).trim(), right);
        for (const [at, coefficient] of numbers.entries())
          assert.equal(Number(await text(page, "txtTableau", row * 5 + at + 1)), coefficient, stated[row + 1]);
      }
      await page.close();
    });

  for (const { path } of pages)
    test(`${path} has a worked answer that is what the control does`, async () => {
      const page = await browser.open(path);
      const told = await page.$$eval(".stappen tbody tr", (rows) =>
        rows.map((row) => [...row.cells].map((cell) => cell.textContent)),
      );
      assert.ok(told.length > 2);
      for (const [at, cells] of told.entries()) {
        await page.click(control("cmd_Bewerken"));
        await page.click(control("mnu_Pivot_element"));
        await shows(page, "lblNRTableau", `${cells[0]}-e Simplex-tableau`);
        const last = at === told.length - 1;
        await shows(
          page,
          ...(last ? ["lblMelding", "Optimale oplossing gevonden!"] : ["lblPivot_kolom", numberIn(cells[1], "kolom")]),
        );
        if (!last) await shows(page, "lblPivot_rij", numberIn(cells[2], "rij"));
        await page.keyboard.press("Enter");
        await idle(page);
        await shows(page, "lblFRL", asShown(cells.at(-1)));
        if (!last) await sweep(page, cells);
      }
      assert.deepEqual(noise(page), []);
      await page.close();
    });

  test("the page with a script gives problems whose optimum it knows", async () => {
    const page = await browser.open("script.html");
    for (let round = 0; round < 3; ++round) {
      await optimiseByMouse(page);
      const F = (await text(page, "lblFRL")).trim();
      await page.click("#waarde", { clickCount: 3 });
      await page.keyboard.type(F);
      await page.click("#antwoord button");
      assert.equal(await page.$eval("#uitslag", (node) => node.textContent), "Goed!");
      await page.click("#nieuw");
      await shows(page, "lblNRTableau", "1-e Simplex-tableau");
    }
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  test("the page with a script states its constraints, and what it works out is so", async () => {
    const page = await browser.open("script.html");
    const lines = await page.$$eval("#opgave b", (nodes) => nodes.map((node) => node.textContent));
    const [F, ...rows] = lines.slice(0, -1).map(coefficients);
    for (let at = 0; at < 2; ++at) {
      assert.equal(Number(await text(page, "txtRij_F", at + 1)), -F[at]);
      for (let row = 0; row < 2; ++row)
        assert.equal(Number(await text(page, "txtTableau", row * 5 + at + 1)), rows[row][at]);
    }
    await optimiseByMouse(page);
    const worked = await page.$eval("#uitwerking", (node) => node.textContent);
    assert.ok(worked.endsWith(`= ${(await text(page, "lblFRL")).trim()}.`), worked);
    await page.close();
  });

  test("every page is reached from the start page", async () => {
    const page = await browser.open("index.html");
    const links = await page.$$eval(".oefeningen a", (nodes) => nodes.map((node) => node.getAttribute("href")));
    assert.deepEqual(links, [
      "standaard.html",
      "breuken.html",
      "grafisch.html",
      "big-m.html",
      "groot.html",
      "script.html",
      "object.html",
    ]);
    await page.close();
  });
});

for (const engine of ["firefox", "webkit"]) {
  describe(`in ${engine}`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());

    for (const [how, optimise] of Object.entries({ "by mouse": optimiseByMouse, "by keyboard": optimiseByKeyboard })) {
      test(`the start page reaches its optimum ${how}`, async () => {
        const page = await browser.open("index.html");
        await optimise(page);
        await shows(page, "lblFRL", " 36");
        assert.deepEqual(noise(page), []);
        await page.close();
      });
    }
  });
}
