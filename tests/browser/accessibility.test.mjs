// Everyone can use it: the start page with every menu and every dialog open has none of the obstacles that
// axe-core knows, every cell says what it is, and messages are told.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, afterEach, before, describe, test } from "node:test";
import { control, launch, noise, problem } from "./browser.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
// Besides what the standards ask, what experience advises.
const rules = ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"];

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  assert.deepEqual(noise(page), []);
  await page.close();
});

async function open(place = "index.html") {
  page = await browser.open(place);
  await page.evaluate(axe);
}

const inside = (expression) =>
  page.evaluate(`(root => ${expression})(document.querySelector("tabulon-lpctrl").shadowRoot)`);
const until = (expression) =>
  page.waitForFunction(`(root => ${expression})(document.querySelector("tabulon-lpctrl").shadowRoot)`, {
    timeout: 5000,
  });
const openForm = () => inside('root.querySelector("dialog[open]")?.dataset.name');

// One line for each finding: the rule, and the element that breaks it.
async function findings() {
  const { violations } = await page.evaluate((tags) => axe.run(document, { runOnly: tags }), rules);
  return violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 160)}`));
}

async function press(keys) {
  for (const name of keys.split(" ")) {
    const parts = name.split("+");
    for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
    await page.keyboard.press(parts.at(-1));
    for (const held of parts.slice(0, -1)) await page.keyboard.up(held);
  }
}

// What a screen reader hears of a control: its role, name, value and states.
async function heard(selector) {
  const node = await page.$(selector);
  return page.accessibility.snapshot({ root: node, interestingOnly: false });
}

// The keys that open each menu and each dialog, from the control's focus.
const menus = {
  mnu_Bestand: "Alt+b",
  "mnu_Bestand and mnu_Nieuw": "Alt+b n",
  mnu_Bewerken: "Alt+w",
  mnu_Opties: "Alt+o",
  mnu_Help: "Alt+h",
};

const dialogs = {
  frmNieuw_Simplex: "Alt+b n s",
  frmNieuw_Big_M: "Alt+b n b",
  frmKolommen_normeren: "Alt+w n",
  frmKolommen_vegen: "Alt+w v",
  frmPivot_element: "Alt+w p",
  frmBasis_Oplossing: "Alt+w b",
  frmMelding: "Alt+w o",
  frmAboutLP: "Alt+h ArrowUp Enter",
};

const intoTheControl = () => page.click(control("FrameHead"));

describe("no obstacle", () => {
  test("in what axe-core is shown to find: an image without a name", async () => {
    await open();
    await page.evaluate(() => document.querySelector("main").append(document.createElement("img")));
    assert.match((await findings()).join(), /image-alt: <img>/);
  });

  test("in the start page", async () => {
    await open();
    assert.deepEqual(await findings(), []);
  });

  for (const example of ["standaard", "breuken", "big-m", "groot", "script"])
    test(`in the example ${example}`, async () => {
      await open(`${example}.html`);
      assert.deepEqual(await findings(), []);
    });

  for (const [name, keys] of Object.entries(menus))
    test(`in ${name}`, async () => {
      await open();
      await intoTheControl();
      await press(keys);
      const opened = await inside(
        '[...root.querySelectorAll("[role=menu]")].map((menu) => `mnu_${menu.ariaLabel}`).join(" and ")',
      );
      assert.equal(opened, name);
      assert.deepEqual(await findings(), []);
    });

  for (const [name, keys] of Object.entries(dialogs))
    test(`in ${name}`, async () => {
      await open();
      await intoTheControl();
      await press(keys);
      await until('root.querySelector("dialog[open]")');
      assert.equal(await openForm(), name);
      assert.deepEqual(await findings(), []);
    });

  test("in frmFoutmelding", async () => {
    await open();
    await page.evaluate(() => void document.querySelector("tabulon-lpctrl").ShowfrmFoutmelding());
    await until('root.querySelector("dialog[open]")');
    assert.equal(await openForm(), "frmFoutmelding");
    assert.deepEqual(await findings(), []);
  });

  test("in a tableau that is worked on, with its pivot element marked", async () => {
    await open();
    await intoTheControl();
    await press("Alt+w p");
    await until('root.querySelector("dialog[open]")');
    await press("Enter");
    await until('!root.querySelector("dialog[open]")');
    assert.deepEqual(await findings(), []);
  });

  test("in a Big-M tableau in fractions", async () => {
    await open("big-m.html");
    await intoTheControl();
    await press("Alt+o b Alt+w b");
    await until('root.querySelector("dialog[open]")');
    assert.deepEqual(await findings(), []);
  });
});

describe("every cell", () => {
  const large = {
    prmNrBeslisVar: 4,
    prmNrKleinerGelijkVglen: 2,
    prmNrGroterGelijkVglen: 1,
    prmNrGelijkVglen: 1,
    prmSTR_KleinerGelijkVglen: " 1, 2, 3, 4, 5, 6, 7, 8",
  };

  test("has a name with its variable and its row, and no two have the same", async () => {
    await open(problem(large));
    const cells = await inside(`[...root.querySelectorAll("[data-name^=txt][data-index]")]
      .filter((cell) => cell.checkVisibility())
      .map(({ dataset, ariaLabel }) => [dataset.name, Number(dataset.index), ariaLabel])`);
    assert.equal(cells.length, 5 + 4 * 5 + 4);
    assert.equal(new Set(cells.map(([, , name]) => name)).size, cells.length);
    const columns = await Promise.all(
      [1, 2, 3, 4, 5].map((index) => page.$eval(control("lblKolom", index), (label) => label.textContent)),
    );
    for (const [array, index, name] of cells) {
      const row = array === "txtTableau" ? Math.ceil(index / 5) : index;
      if (array === "txtRL") assert.match(name, new RegExp(`rij ${row}$`));
      else assert.ok(name.startsWith(columns[(index - 1) % 5].trim()), `${array} ${index}: ${name}`);
      if (array === "txtTableau") assert.match(name, new RegExp(`rij ${row}$`));
      if (array === "txtRij_F") assert.match(name, /doelfunctie F/);
    }
  });

  test("keeps its name in step with the scroll bars", async () => {
    await open(problem({ prmNrBeslisVar: 8, prmNrKleinerGelijkVglen: 9 }));
    const name = async () => (await heard(control("txtTableau", 1))).name;
    const first = await name();
    assert.match(first, /^x +1, rij 1$/);
    await page.click(`${control("HScroll")} .forward`);
    await page.click(`${control("VScroll")} .forward`);
    assert.match(await name(), /^x +2, rij 2$/);
  });

  test("says whether it can be filled in", async () => {
    await open(problem(large));
    const slack = await heard(control("txtTableau", 5));
    assert.equal(slack.role, "textbox");
    assert.equal(slack.readonly, true);
    assert.ok(!(await heard(control("txtTableau", 1))).readonly);
  });
});

describe("messages are told", () => {
  const described = () =>
    inside('root.getElementById(root.querySelector("dialog[open]").getAttribute("aria-describedby")).textContent');

  test("when an entry is refused", async () => {
    await open(problem());
    await page.click(control("txtTableau", 1), { count: 3 });
    await page.keyboard.type("hallo");
    await press("Tab");
    await until('root.querySelector("dialog[open]")');
    const form = await heard(control("frmMelding"));
    assert.equal(form.role, "alertdialog");
    assert.equal(form.name.trim(), "Tabloria");
    assert.match(await described(), /Invoerfout!/);
    const focused = await inside("root.activeElement.dataset.name");
    assert.equal(focused, "cmdOK");
  });

  test("when the optimum is found", async () => {
    await open();
    await intoTheControl();
    await press("Alt+w o");
    await until('root.querySelector("dialog[open]")');
    assert.equal((await heard(control("frmMelding"))).role, "alertdialog");
    assert.match(await described(), /Optimale oplossing gevonden!/);
  });

  test("and what a dialog's arrow keys choose", async () => {
    await open();
    await intoTheControl();
    await press("Alt+w v");
    await until('root.querySelector("dialog[open]")');
    const focused = () => inside("root.activeElement.ariaLabel");
    assert.equal((await heard(control("frmKolommen_vegen"))).role, "dialog");
    assert.equal(await focused(), "Kolom 1");
    await press("ArrowUp");
    assert.equal(await focused(), "Kolom 2");
    await press("Tab");
    assert.equal(await focused(), "Rij 1");
  });
});

describe("the keyboard", () => {
  const names = () => page.evaluate(() => document.activeElement.id || document.activeElement.localName);

  test("is never caught: Escape, then Tab, leaves the control, forward and backward", async () => {
    await open(`<button id="before">een</button>${problem()}<button id="behind">twee</button>`);
    for (const [key, place] of [
      ["Tab", "behind"],
      ["Shift+Tab", "before"],
    ]) {
      await page.click(control("txtTableau", 1));
      await press("Tab Escape");
      for (let turn = 0; turn < 8 && (await names()) === "LPctrl1"; ++turn) await press(key);
      assert.equal(await names(), place);
    }
  });

  test("shows where it is: what has the focus looks different from what has not", async () => {
    await open(problem());
    const look = (name, index) =>
      page.$eval(control(name, index), (node) => {
        const { outlineColor, outlineWidth, outlineStyle, borderColor } = getComputedStyle(node);
        return [outlineColor, outlineWidth, outlineStyle, borderColor].join(" ");
      });
    const without = await look("txtTableau", 1);
    await page.click(control("txtTableau", 1));
    assert.notEqual(await look("txtTableau", 1), without);
    await press("Alt+w n");
    await until('root.querySelector("dialog[open]")');
    await press("Tab");
    assert.equal(await inside("root.activeElement.dataset.name"), "OKButton");
    assert.notEqual(await look("OKButton"), await look("CancelButton"));
  });
});
