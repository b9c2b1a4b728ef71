// The first lesson: ten steps, each done in the real control and told, with the graph that goes along.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, before, describe, test } from "node:test";
import { idle, launch, noise, text } from "./browser.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

let browser;
let page;

// Until `look` gives what is wanted.
async function eventually(look, wanted, what) {
  for (let turn = 0; turn < 400 && (await look()) !== wanted; ++turn)
    await new Promise((resume) => setTimeout(resume, 15));
  assert.equal(await look(), wanted, what);
}

async function press(...keys) {
  for (const each of keys) {
    const parts = each.split("+");
    for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
    await page.keyboard.press(parts.at(-1));
    for (const held of parts.slice(0, -1)) await page.keyboard.up(held);
    await idle(page);
  }
}

// What has the focus: an element's id or name, and in the control the name of the part, as in "txtTableau 3".
const active = () =>
  page.evaluate(() => {
    const { activeElement: node } = document;
    const part = node.shadowRoot?.activeElement;
    return part ? [part.dataset.name, part.dataset.index].filter(Boolean).join(" ") : node.id || node.localName;
  });

async function tabTo(wanted, key = "Tab") {
  for (let turn = 0; turn < 40 && (await active()) !== wanted; ++turn) await press(key);
  assert.equal(await active(), wanted);
}

const outcome = () => page.evaluate(() => document.getElementById("uitkomst").dataset.gevolg);
const told = () => page.evaluate(() => document.getElementById("uitkomst").innerText.replaceAll("\u00a0", " ").trim());
const corner = () => page.evaluate(() => document.getElementById("punt").textContent);
const stepShown = () => page.evaluate(() => document.querySelector(".stap:not([hidden]) .teller").textContent);

async function open(options) {
  page = await browser.open("les.html", options);
  await eventually(stepShown, "Stap 1 van 10");
  await eventually(() => page.evaluate(() => document.querySelectorAll("#voortgang button").length), 10);
}

// ---- What a pupil does in each step, from anywhere in the control

async function typeIn(cell, number) {
  await tabTo(cell);
  await press("Control+a");
  await page.keyboard.type(number);
  await press("Enter");
}

async function message(keys, name, words) {
  await press(...keys);
  await eventually(() => text(page, name).then((shown) => shown?.trim()), words);
  await press("Enter");
}

async function sweep(column, row) {
  await press("Alt+w", "v");
  await eventually(() => text(page, "txtKolom"), "1");
  for (let at = 1; at < column; ++at) await press("ArrowUp");
  await press("Tab");
  for (let at = 1; at < row; ++at) await press("ArrowUp");
  await press("Enter");
}

const pivotIn = (column) => message(["Alt+w", "p"], "lblPivot_kolom", column);
const basicSolution = () => press("Alt+w", "b", "Enter");
const optimal = (key) => message(["Alt+w", key], "lblMelding", "Optimale oplossing gevonden!");

const lesson = [
  { act: () => typeIn("txtRij_F 1", "-2"), says: /F − 2x − 3y = 0/, at: "Hoekpunt (0, 0): F = 0" },
  { act: () => typeIn("txtRL 2", "8"), says: /Rij 1 is y ≤ 6/, at: "Hoekpunt (0, 0): F = 0" },
  { act: basicSolution, says: /6 vormen, 8 schalen en 14 pond bloem/, at: "Hoekpunt (0, 0): F = 0" },
  { act: () => pivotIn("2"), says: /Kolom 2 en rij 1/, at: "Hoekpunt (0, 0): F = 0" },
  { act: () => sweep(2, 1), says: /y = 6 en F = 18.*2 schalen en 8 pond/s, at: "Hoekpunt (0, 6): F = 18" },
  { act: () => pivotIn("1"), says: /Kolom 1 en rij 2/, at: "Hoekpunt (0, 6): F = 18" },
  { act: () => sweep(1, 2), says: /x = 2, y = 6 en F = 22/, at: "Hoekpunt (2, 6): F = 22" },
  { act: () => optimal("p"), says: /F = 22 − x₃ − 2x₄/, at: "Hoekpunt (2, 6): F = 22" },
  { act: basicSolution, says: /2 schalen koekjes en 6 taarten.*x 5 = 4/s, at: "Hoekpunt (2, 6): F = 22" },
  { act: () => optimal("o"), says: /F = 24, precies 2 meer/, at: "Hoekpunt (3, 6): F = 24" },
];

async function intoTheControl() {
  for (let turn = 0; turn < 40 && !/^txt/.test(await active()); ++turn) await press("Tab");
  assert.match(await active(), /^txt/);
}

async function outOfTheControl() {
  await press("Escape");
  await tabTo("volgende");
}

async function take({ act, says, at }) {
  await intoTheControl();
  await act();
  await eventually(outcome, "goed");
  assert.match(await told(), says);
  await eventually(corner, at);
}

async function next(number) {
  await outOfTheControl();
  await press("Enter");
  await eventually(stepShown, `Stap ${number} van 10`);
}

// The first steps, up to the one of this number.
async function reach(number) {
  for (let at = 1; at < number; ++at) {
    await take(lesson[at - 1]);
    await next(at + 1);
  }
}

for (const [engine, from] of [
  ["chromium", "file"],
  ["firefox", "server"],
  ["webkit", "server"],
])
  describe(`in ${engine}, from ${from},`, () => {
    before(async () => {
      browser = await launch({ engine });
      await open({ from });
    });
    after(() => browser?.close());

    test("the lesson is done by keyboard alone, and every step is told as the tableau has it", async () => {
      await reach(10);
      await take(lesson[9]);
      assert.equal(await page.evaluate(() => document.getElementById("volgende").checkVisibility()), false);
      assert.equal(await page.evaluate(() => document.querySelectorAll("#voortgang .gedaan").length), 10);
      assert.deepEqual(noise(page), []);
    });
  });

describe("the lesson", () => {
  before(async () => (browser = await launch()));
  after(() => browser?.close());

  const disabled = (selector) => page.$eval(selector, (button) => button.disabled);

  test("waits for the step that it asks, and says what is not it yet", async () => {
    await open();
    assert.equal(await disabled("#volgende"), true);
    await intoTheControl();
    await typeIn("txtRij_F 1", "2");
    await eventually(outcome, "plus");
    assert.match(await told(), /In rij F komt het tegengestelde, dus −2/);
    await typeIn("txtRij_F 1", "7");
    await eventually(outcome, "anders");
    assert.match(await told(), /nog niet −2/);
    assert.equal(await disabled("#volgende"), true);
    await take(lesson[0]);
    assert.equal(await disabled("#volgende"), false);
    await page.close();
  });

  test("tells what another step led to, and begins again where the pupil was", async () => {
    await open();
    await reach(5);
    const { saved } = await page.evaluate(() => document.getElementById("tableau").tableau);
    await intoTheControl();
    await sweep(2, 3);
    await eventually(outcome, "anders");
    assert.match(await told(), /negatief.*begin hem opnieuw/s);
    assert.equal(await disabled("#volgende"), true);
    await page.click("#opnieuw");
    await eventually(() => page.evaluate(() => document.getElementById("tableau").tableau.saved), saved);
    assert.equal(await told(), "");
    await take(lesson[4]);
    await page.close();
  });

  test("goes on with the tableau of its step, whatever was tried after it was done", async () => {
    await open();
    await reach(5);
    await take(lesson[4]);
    await sweep(1, 3);
    await next(6);
    await eventually(corner, "Hoekpunt (0, 6): F = 18");
    await page.close();
  });

  test("goes back to a step that was done, with its tableau, and no further than was reached", async () => {
    await open();
    await reach(6);
    const reached = await page.$$eval(
      "#voortgang button",
      (buttons) => buttons.filter(({ disabled }) => !disabled).length,
    );
    assert.equal(reached, 6);
    await page.click("#voortgang li:nth-child(5) button");
    assert.equal(await stepShown(), "Stap 5 van 10");
    await eventually(corner, "Hoekpunt (0, 0): F = 0");
    assert.equal(await page.evaluate(() => document.activeElement.localName), "h2");
    assert.equal(await disabled("#volgende"), false);
    await page.close();
  });

  test("goes on after a reload", async () => {
    await open();
    await reach(3);
    await page.reload();
    await eventually(stepShown, "Stap 3 van 10");
    await idle(page);
    assert.equal(await text(page, "txtRL", 2), "8");
    await page.close();
  });

  test("moves its corner in the graph, and draws another line for another number", async () => {
    const dot = () =>
      page.$eval("#stip", async (node) => {
        await Promise.all(node.getAnimations().map(({ finished }) => finished));
        const circle = node.getBoundingClientRect();
        const [middle, right] = [circle.x + circle.width / 2, circle.y + circle.height / 2];
        const corners = [...document.querySelectorAll("[data-hoek]")].filter((each) => {
          const { x, y, width, height } = each.getBoundingClientRect();
          return Math.hypot(x + width / 2 - middle, y + height / 2 - right) < 1;
        });
        return corners[0]?.dataset.hoek;
      });
    const line = () =>
      page.evaluate(() =>
        [...document.querySelectorAll("path.acht, path.negen")].map((node) => getComputedStyle(node).display).join(),
      );
    await open();
    assert.equal(await dot(), "0,0");
    assert.equal(await line(), "inline,none");
    await reach(10);
    assert.equal(await dot(), "0,0");
    assert.equal(await line(), "none,inline");
    await take(lesson[9]);
    await eventually(dot, "3,6");
    await page.close();
  });

  test("survives a problem of another size in its control", async () => {
    await open();
    await page.evaluate(() => {
      const tableau = document.getElementById("tableau");
      tableau.prmNrKleinerGelijkVglen = 1;
      tableau.prmShow = true;
    });
    await page.click("#opnieuw");
    await eventually(() => text(page, "txtRL", 3), " 14");
    await intoTheControl();
    await take(lesson[0]);
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  test("has no obstacle that axe-core knows, at its beginning and when a step is done", async () => {
    const obstacles = async () => {
      const { violations } = await page.evaluate(() => axe.run(document));
      return violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 120)}`));
    };
    await open();
    await page.evaluate(axe);
    assert.deepEqual(await obstacles(), []);
    await take(lesson[0]);
    assert.deepEqual(await obstacles(), []);
    await page.close();
  });

  test("is not scrolled sideways on a phone", async () => {
    await open({ width: 360, height: 740 });
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 360);
    await page.close();
  });
});

test("every link of the lesson leads somewhere", async (t) => {
  browser = await launch();
  t.after(() => browser.close());
  await open();
  for (const link of await page.$$eval("a[href]", (nodes) => nodes.map(({ href }) => href)))
    assert.equal((await fetch(link)).status, 200, link);
});
