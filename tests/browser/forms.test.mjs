// Where forms stand over the control and in the window, and that the person can move them and reach their buttons.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, launch, noise, problem } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  if (page) assert.deepEqual(noise(page), []);
  await page?.close();
});

const open = async (place, options) => (page = await browser.open(place, options));
const boxOf = (selector) =>
  page.$eval(selector, (node) => {
    const { left, top, width, height, right, bottom } = node.getBoundingClientRect();
    return { left, top, width, height, right, bottom };
  });
const form = "tabulon-lpctrl >>> dialog[open]";
const title = `${form} .title`;
const middleOf = ({ left, top, width, height }) => [left + width / 2, top + height / 2];
const overlap = (one, other) =>
  one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom;

async function choose(button, ...items) {
  await page.click(control(button));
  for (const item of items) await (await page.waitForSelector(control(item))).click();
  await page.waitForSelector(form);
}
const showAbout = () => choose("cmd_Help", "mnu_About");

// The only column that makes F larger is the third, and the only row with a quotient is the fifth.
const pivotInTheMiddle = {
  prmNrBeslisVar: 5,
  prmNrKleinerGelijkVglen: 5,
  prmSTR_DLfunctie: " 0, 0, -1, 0, 0",
  prmSTR_KleinerGelijkVglen: [...Array(22).fill(" 0"), " 1"].join(),
  prmSTR_RL: " 1, 1, 1, 1, 1",
};

describe("a form", () => {
  test("follows the mouse by its title, and stays where it was put", async () => {
    await open(problem());
    await showAbout();
    const before = await boxOf(form);
    const [x, y] = middleOf(await boxOf(title));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 30, y + 20, { steps: 3 });
    await page.mouse.move(x + 120, y + 80, { steps: 3 });
    await page.mouse.up();
    await page.mouse.move(x, y);
    const after = await boxOf(form);
    assert.deepEqual([after.left - before.left, after.top - before.top], [120, 80]);
  });

  test("is not dragged by what it says", async () => {
    await open(problem());
    await showAbout();
    const before = await boxOf(form);
    const [x, y] = middleOf(await boxOf(control("lblDescription")));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 50, y + 50);
    await page.mouse.up();
    assert.deepEqual(await boxOf(form), before);
  });

  test("can always be taken hold of again, wherever it was dragged", async () => {
    await open(problem());
    await showAbout();
    for (const [x, y] of [
      [-5000, -5000],
      [5000, 5000],
      [-5000, 5000],
    ]) {
      const { left, top, width } = await boxOf(title);
      const from = [Math.max(left, 0) + 20, top + 10];
      assert.ok(from[0] < Math.min(left + width, 900), "there is a title to take hold of");
      await page.mouse.move(...from);
      await page.mouse.down();
      await page.mouse.move(from[0] + x, from[1] + y);
      await page.mouse.up();
      const now = await boxOf(title);
      assert.ok(now.right >= 46 && now.left <= 900 - 46, `across: ${now.left}`);
      assert.ok(now.top >= 0 && now.bottom <= 700 + 2, `down: ${now.top}`);
    }
  });

  test("follows a finger", async () => {
    await open(problem());
    await showAbout();
    const before = await boxOf(form);
    const [x, y] = middleOf(await boxOf(title));
    const finger = await page.touchscreen.touchStart(x, y);
    await finger.move(x + 20, y + 10);
    await finger.move(x + 60, y + 90);
    await finger.end();
    const after = await boxOf(form);
    assert.deepEqual([after.left - before.left, after.top - before.top], [60, 90]);
  });

  test("is moved by Ctrl and the arrow keys", async () => {
    await open(problem());
    await showAbout();
    const before = await boxOf(form);
    await page.keyboard.down("Control");
    for (const key of ["ArrowRight", "ArrowRight", "ArrowDown", "ArrowLeft"]) await page.keyboard.press(key);
    await page.keyboard.up("Control");
    const after = await boxOf(form);
    assert.deepEqual([after.left - before.left, after.top - before.top], [16, 16]);
    await page.keyboard.press("Enter");
    await page.waitForSelector(form, { hidden: true });
  });

  test("stands in the middle of the control", async () => {
    await open(problem());
    await showAbout();
    const [[x, y], [ofControlX, ofControlY]] = [middleOf(await boxOf(form)), middleOf(await boxOf("tabulon-lpctrl"))];
    assert.ok(Math.abs(x - ofControlX) <= 1 && Math.abs(y - ofControlY) <= 2, `${x}, ${y}`);
  });

  test("stands in the middle of a control that its page has scaled", async () => {
    for (const style of ["zoom: 1.5", "zoom: 0.75", "transform: scale(1.5); transform-origin: 0 0"]) {
      await open(`<div style="${style}">${problem()}</div>`, { width: 1200, height: 800 });
      await showAbout();
      const [[x, y], [ofControlX, ofControlY]] = [middleOf(await boxOf(form)), middleOf(await boxOf("tabulon-lpctrl"))];
      assert.ok(
        Math.abs(x - ofControlX) <= 2 && Math.abs(y - ofControlY) <= 3,
        `${style}: ${x - ofControlX}, ${y - ofControlY}`,
      );
      await page.close();
    }
    page = undefined;
  });

  test("opens beside the pivot element", async () => {
    await open(problem(pivotInTheMiddle));
    await choose("cmd_Bewerken", "mnu_Pivot_element");
    const cell = control("txtTableau", 23);
    assert.equal(await page.$eval(cell, (node) => getComputedStyle(node).backgroundColor), "rgb(255, 0, 0)");
    const [place, ofCell, ofControl] = [await boxOf(form), await boxOf(cell), await boxOf("tabulon-lpctrl")];
    assert.ok(!overlap(place, ofCell));
    assert.ok(place.left >= ofControl.left && place.right <= ofControl.right);
  });
});

// As at 400 % on a small screen.
describe("in a window of 320 by 200", () => {
  const small = { width: 320, height: 200 };
  const forms = {
    frmAboutLP: () => page.evaluate(() => void LPctrl1.ShowAboutBox()),
    frmMelding: () => page.evaluate(() => void LPctrl1.ShowfrmMelding()),
    frmFoutmelding: () => page.evaluate(() => void LPctrl1.ShowfrmFoutmelding()),
    frmPivot_element: () => page.evaluate(() => void LPctrl1.ShowfrmPivotelement()),
    frmNieuw_Simplex: () => keys("Alt+b", "n", "s"),
    frmNieuw_Big_M: () => keys("Alt+b", "n", "b"),
    frmKolommen_normeren: () => keys("Alt+w", "n"),
    frmKolommen_vegen: () => keys("Alt+w", "v"),
    frmBasis_Oplossing: () => keys("Alt+w", "b"),
  };
  async function keys(...strokes) {
    for (const stroke of strokes) {
      const [key, held] = stroke.split("+").reverse();
      if (held) await page.keyboard.down(held);
      await page.keyboard.press(key);
      if (held) await page.keyboard.up(held);
    }
  }

  for (const [name, show] of Object.entries(forms))
    test(`${name} fits, and each of its buttons can be reached`, async () => {
      await open(problem(), small);
      await show();
      await page.waitForSelector(form);
      const place = await boxOf(form);
      assert.ok(place.left >= 0 && place.top >= 0 && place.right <= 320 && place.bottom <= 200, JSON.stringify(place));
      const buttons = await page.$$(`${form} button`);
      assert.ok(buttons.length > 0);
      // With the wheel or a finger.
      for (const button of buttons) {
        const reached = await button.evaluate((node) => {
          const dialog = node.closest("dialog");
          const [ofButton, ofDialog] = [node.getBoundingClientRect(), dialog.getBoundingClientRect()];
          dialog.scrollBy(ofButton.right - ofDialog.right, ofButton.bottom - ofDialog.bottom);
          const { left, top, right, bottom } = node.getBoundingClientRect();
          const [x, y] = [(left + right) / 2, (top + bottom) / 2];
          const isSeen = left >= 0 && top >= 0 && right <= innerWidth && bottom <= innerHeight;
          return isSeen && node.getRootNode().elementFromPoint(x, y) === node;
        });
        assert.ok(reached, await button.evaluate((node) => node.textContent));
      }
      // By the keyboard: what has the focus is in sight, below the title.
      for (let tab = 0; tab < 12; ++tab) {
        await page.keyboard.press("Tab");
        const hidden = await page.evaluate(() => {
          const node = LPctrl1.shadowRoot.activeElement;
          if (node.classList.contains("aside")) return "";
          const { left, top, right, bottom } = node.getBoundingClientRect();
          const ofTitle = node.closest("dialog").querySelector(".title").getBoundingClientRect();
          const isSeen = left >= 0 && top >= ofTitle.bottom && right <= innerWidth && bottom <= innerHeight;
          return isSeen ? "" : `${node.dataset.name}: ${[left, top, right, bottom]}`;
        });
        assert.equal(hidden, "");
      }
    });

  const fits = () => {
    const { left, top, right, bottom } = LPctrl1.shadowRoot.querySelector("dialog").getBoundingClientRect();
    return left >= 0 && top >= 0 && right <= 320 && bottom <= 200;
  };

  const stands = ({ left, top }) => {
    const place = LPctrl1.shadowRoot.querySelector("dialog").getBoundingClientRect();
    return place.left === left && place.top === top;
  };

  async function makeSmallAndLargeAgain() {
    const before = await boxOf(form);
    await page.setViewport(small);
    await page.waitForFunction(fits);
    await page.setViewport({ width: 900, height: 700 });
    await page.waitForFunction(stands, {}, before);
  }

  test("a form that is open is wholly seen, and where it was when the window is large again", async () => {
    await open(problem());
    await showAbout();
    await makeSmallAndLargeAgain();
  });

  test("a form that was dragged is there again when the window is large again", async () => {
    await open(problem());
    await showAbout();
    const [x, y] = middleOf(await boxOf(title));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 120, y + 80, { steps: 3 });
    await page.mouse.up();
    await makeSmallAndLargeAgain();
  });
});

describe("where a form has closed, the focus is", () => {
  const focused = () =>
    page.evaluate(() => {
      const { activeElement } = document;
      return activeElement.shadowRoot?.activeElement?.dataset.name ?? activeElement.id;
    });
  const formsAre = (count) =>
    page.waitForFunction(
      (wanted) => document.querySelector("tabulon-lpctrl").shadowRoot.querySelectorAll("dialog").length === wanted,
      {},
      count,
    );

  test("in the form below it, and then in the cell, also in a dialog of the page itself", async () => {
    await open(`<dialog id="own">${problem()}</dialog>`);
    await page.evaluate(() => own.showModal());
    await page.click(control("txtTableau", 1));
    await page.evaluate(() => {
      void LPctrl1.ShowAboutBox();
      void LPctrl1.ShowAboutBox();
    });
    await formsAre(2);
    await page.keyboard.press("Enter");
    await formsAre(1);
    assert.equal(await focused(), "cmdOK");
    await page.keyboard.press("Enter");
    await formsAre(0);
    assert.equal(await focused(), "txtTableau");
  });

  test("where it was on the page, for a form that a script has opened", async () => {
    await open(`<input id="other" autofocus>${problem()}`);
    await page.focus("#other");
    await page.evaluate(() => void LPctrl1.ShowAboutBox());
    await formsAre(1);
    await page.keyboard.press("Enter");
    await formsAre(0);
    assert.equal(await focused(), "other");
  });
});
