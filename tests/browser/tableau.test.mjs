// What a page may know of the tableau: what is done to it, its numbers, and a saved one put back.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(() => page?.close());

const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: "-3,-5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

// Every change from now on, with the title that stood there when it was told.
async function open(body = problem(twoProducts)) {
  page = await browser.open(body);
  await idle(page);
  await page.evaluate(() => {
    window.told = [];
    addEventListener("tabulon-change", ({ detail: { cause, column, row }, target }) => {
      const title = target.shadowRoot.querySelector('[data-name="lblNRTableau"]').textContent;
      told.push([cause, row, column, title.slice(0, 3)].join(" "));
    });
  });
}
const told = () => page.evaluate(() => told.splice(0));

async function choose(item) {
  await page.click(control(item === "mnu_Breuken" ? "cmd_Opties" : "cmd_Bewerken"));
  await page.click(control(item));
  await idle(page);
}
const tableau = () => page.evaluate(() => LPctrl1.tableau);
const restoreError = (saved) =>
  page.evaluate((saved) => {
    try {
      LPctrl1.restore(saved);
    } catch (error) {
      return [error.name, error.number, error.message];
    }
  }, saved);

describe("a change", () => {
  test("of a cell is told with its place, when it is seen", async () => {
    await open();
    await page.click(control("txtTableau", 6));
    await page.keyboard.type("1/2");
    await page.keyboard.press("Tab");
    await page.click(control("txtRL", 1));
    await page.keyboard.type("8");
    await page.keyboard.press("Tab");
    assert.deepEqual(await told(), ["cell 2 1 1-e", "cell 1 0 1-e"]);
  });

  test("by a sweep is told with its pivot, under the new title", async () => {
    await open();
    await choose("mnu_Kolommen_vegen");
    await page.focus(control("VScrollKolom"));
    await page.keyboard.press("ArrowUp");
    await page.keyboard.press("Enter");
    await idle(page);
    assert.equal(await text(page, "lblNRTableau"), "2-e Simplex-tableau");
    const [change] = await told();
    assert.match(change, /^sweep [12] [12] 2-e$/);
  });

  test("by an option, by Reset and by a script is told too", async () => {
    await open();
    await choose("mnu_Breuken");
    await choose("mnu_Reset");
    await page.evaluate(() => (LPctrl1.prmRL = " 1, 2, 3"));
    assert.deepEqual(await told(), ["fractions 0 0 1-e", "reset 0 0 1-e", "parameters 0 0 1-e"]);
  });

  test("is that of all elements of the page, which share the tableau", async () => {
    await open(`${problem(twoProducts)}${problem(twoProducts, 'id="LPctrl2"')}`);
    await page.evaluate(() => {
      window.targets = [];
      addEventListener("tabulon-change", ({ target }) => targets.push(target.id));
      LPctrl1.prmRL = " 1, 2, 3";
    });
    assert.deepEqual(await page.evaluate(() => targets.sort()), ["LPctrl1", "LPctrl2"]);
  });

  test("may be answered by putting another tableau back", async () => {
    await open();
    await page.evaluate(() => {
      const { saved } = LPctrl1.tableau;
      LPctrl1.addEventListener("tabulon-change", ({ detail }) => detail.cause === "reset" || LPctrl1.restore(saved), {
        once: true,
      });
      LPctrl1.prmRL = " 1, 2, 3";
    });
    assert.deepEqual(await told(), ["parameters 0 0 1-e", "restore 0 0 1-e"]);
    assert.equal(await text(page, "txtRL", 3), " 18");
    assert.deepEqual(noise(page), []);
  });
});

describe("the tableau", () => {
  test("has the numbers, texts, names and counts of what is shown, and of the first one", async () => {
    await open();
    await choose("mnu_optimaliseren");
    await page.keyboard.press("Enter");
    await idle(page);
    const { current, first, columns, saved, ...rest } = await tableau();
    assert.deepEqual(rest, {
      NrTableau: 3,
      NrBeslisVar: 2,
      NrKleinerGelijkVglen: 3,
      NrGroterGelijkVglen: 0,
      NrGelijkVglen: 0,
      BigM: 100,
      Breuken: false,
      pivot: null,
    });
    assert.deepEqual(columns[0], { name: "x  1", kind: "decision" });
    assert.deepEqual(columns[4], { name: "x  5", kind: "slack" });
    assert.deepEqual(current.basis, [3, 2, 1]);
    assert.deepEqual(first.basis, [3, 4, 5]);
    assert.deepEqual(current.rowF.right, { value: 36, text: " 36" });
    assert.equal(current.rows[0].cells[3].text, " 0.333333");
    assert.equal(current.rows[0].cells[3].value, 1 / 3);
    assert.deepEqual(first.rowF.cells[1], { value: -5, text: "-5" });
    assert.match(saved, /^Tabloria op Internet\r\n 3 \r\n 2 \r\n/);
  });

  test("names every kind of variable, and the pivot that was searched", async () => {
    const kinds = { prmNrBeslisVar: 1, prmNrKleinerGelijkVglen: 1, prmNrGroterGelijkVglen: 1, prmNrGelijkVglen: 1 };
    await open(problem({ ...kinds, prmSTR_DLfunctie: "-1", prmSTR_KleinerGelijkVglen: " 1", prmSTR_RL: " 4, 0, 0" }));
    await choose("mnu_Pivot_element");
    const { columns, pivot } = await tableau();
    assert.deepEqual(
      columns.map(({ name, kind }) => `${name} ${kind}`),
      ["x  1 decision", "x  2 slack", "s  1 surplus", "q  1 artificial-greater", "r  1 artificial-equal"],
    );
    assert.equal(pivot?.column, 3 - 2);
  });

  test("cannot be written, and is not there before the control is", async () => {
    await open();
    const early = () => document.createElement("tabulon-lpctrl").tableau === undefined;
    assert.equal(await page.evaluate(early), true);
    assert.equal(await page.evaluate(() => Reflect.set(LPctrl1, "tableau", {})), false);
  });

  test("that the counts of a script do not make is error 9", async () => {
    await open();
    const asked = () => {
      LPctrl1.prmNrKleinerGelijkVglen = 11;
      try {
        return LPctrl1.tableau;
      } catch (error) {
        return error.number;
      }
    };
    assert.equal(await page.evaluate(asked), 9);
  });
});

describe("a saved tableau", () => {
  test("is put back in the midst of a problem, and goes on from there", async () => {
    await open();
    const { saved } = await tableau();
    await choose("mnu_optimaliseren");
    await page.keyboard.press("Enter");
    await idle(page);
    const { saved: optimal } = await tableau();
    await page.evaluate((saved) => LPctrl1.restore(saved), saved);
    assert.equal(await text(page, "lblNRTableau"), "1-e Simplex-tableau");
    assert.equal((await tableau()).saved, saved);
    await page.evaluate((saved) => LPctrl1.restore(saved), optimal);
    assert.equal(await text(page, "lblNRTableau"), "3-e Simplex-tableau");
    assert.equal(await text(page, "lblFRL"), " 36");
    await choose("mnu_Reset");
    assert.equal((await tableau()).saved, saved);
  });

  const bad = [
    ["of another kind", () => "iets anders\r\n", 54],
    ["that ends too soon", (saved) => saved.slice(0, -9), 62],
    ["with a number beyond 16 bits", (saved) => saved.replace(" 2 \r\n", " 40000 \r\n"), 6],
    ["of more columns than there are", (saved) => saved.replace(" 2 \r\n", " 31 \r\n") + " 0\r\n".repeat(2000), 9],
    ["that is empty", () => "", 62],
  ];
  for (const [what, spoil, number] of bad) {
    test(`${what} is error ${number} and changes nothing`, async () => {
      await open();
      const before = await tableau();
      const [name, given] = await restoreError(spoil(before.saved));
      assert.equal(name, "TabulonError");
      assert.equal(given, number);
      assert.deepEqual(await tableau(), before);
      assert.deepEqual(await told(), []);
    });
  }

  test("that is put back before the control is there is put back when it is", async () => {
    await open();
    await choose("mnu_optimaliseren");
    await page.keyboard.press("Enter");
    const { saved } = await tableau();
    await page.evaluate(async (saved) => {
      const late = document.createElement("tabulon-lpctrl");
      late.restore(saved);
      document.body.append(late);
      await late.ready;
    }, saved);
    assert.equal((await tableau()).current.rowF.right.value, 36);
  });
});
