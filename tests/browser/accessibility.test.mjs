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
  const told = { runOnly: rules, resultTypes: ["violations"], reporter: "no-passes" };
  const { violations } = await page.evaluate((options) => axe.run(document, options), told);
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

  for (const example of ["standaard", "breuken", "grafisch", "big-m", "groot", "script", "object"])
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

  test("is named by its row's basic variable and by its column, and no two alike", async () => {
    await open(problem(large));
    const cells = await inside(`[...root.querySelectorAll("[data-name^=txt][data-index]")]
      .filter((cell) => cell.checkVisibility())
      .map(({ dataset, ariaLabel }) => [dataset.name, Number(dataset.index), ariaLabel])`);
    assert.equal(cells.length, 5 + 4 * 5 + 4);
    assert.equal(new Set(cells.map(([, , name]) => name)).size, cells.length);
    const texts = async (name, indexes) =>
      Promise.all(
        indexes.map((index) =>
          page.$eval(control(name, index), (label) => label.textContent.trim().replace(/ +/, " +")),
        ),
      );
    const columns = await texts("lblKolom", [1, 2, 3, 4, 5]);
    const basis = await texts("lblBasis", [1, 2, 3, 4]);
    for (const [array, index, name] of cells) {
      const row = array === "txtTableau" ? Math.ceil(index / 5) : index;
      const ofRow = array === "txtRij_F" ? "doelfunctie F" : `rij ${row} \\(${basis[row - 1]}\\)`;
      const ofColumn = array === "txtRL" ? "rechterlid" : `kolom ${columns[(index - 1) % 5]}`;
      assert.match(name, new RegExp(`^${ofRow}, ${ofColumn}$`), `${array} ${index}`);
    }
  });

  test("keeps its name in step with the scroll bars", async () => {
    await open(problem({ prmNrBeslisVar: 8, prmNrKleinerGelijkVglen: 9 }));
    const name = async () => (await heard(control("txtTableau", 1))).name;
    const first = await name();
    assert.match(first, /^rij 1 \(x +9\), kolom x +1$/);
    await page.click(`${control("HScroll")} .forward`);
    await page.click(`${control("VScroll")} .forward`);
    assert.match(await name(), /^rij 2 \(x +10\), kolom x +2$/);
  });

  test("says whether it can be filled in", async () => {
    await open(problem(large));
    const slack = await heard(control("txtTableau", 5));
    assert.equal(slack.role, "textbox");
    assert.equal(slack.readonly, true);
    assert.ok(!(await heard(control("txtTableau", 1))).readonly);
  });
});

// What a screen reader finds on the page: each node with its role, name, description and children.
async function tree() {
  const session = await page.createCDPSession();
  const { nodes } = await session.send("Accessibility.getFullAXTree");
  await session.detach();
  const byId = new Map(nodes.map((node) => [node.nodeId, node]));
  const seen = (node) => {
    const children = (node.childIds ?? [])
      .map((id) => byId.get(id))
      .filter(Boolean)
      .flatMap(seen);
    if (node.ignored) return children;
    const properties = Object.fromEntries((node.properties ?? []).map(({ name, value }) => [name, value.value]));
    return [
      {
        role: node.role?.value,
        name: node.name?.value?.trim().replace(/ +/g, " "),
        description: node.description?.value,
        properties,
        children,
      },
    ];
  };
  return seen(nodes[0]);
}
const all = (nodes, role) =>
  nodes.flatMap((node) => [...(node.role === role ? [node] : []), ...all(node.children, role)]);

describe("the tableau is a grid", () => {
  const twoProducts = {
    prmNrKleinerGelijkVglen: 3,
    prmSTR_DLfunctie: " -3, -5",
    prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
    prmSTR_RL: " 4, 12, 18",
  };
  const roleOf = { columnheader: "|", rowheader: "-", gridcell: "" };
  // Each row's cells: headers by their words, cells by the name of the box that they hold, or its text.
  const rowsOf = (grid) =>
    all([grid], "row").map((row) =>
      row.children
        .filter(({ role }) => role in roleOf)
        .map((cell) => roleOf[cell.role] + (all([cell], "textbox")[0]?.name ?? all([cell], "StaticText")[0]?.name)),
    );

  test("with headers for its rows and columns, and no more than is shown", async () => {
    await open(problem(twoProducts));
    const [grid, ...others] = all(await tree(), "grid");
    assert.equal(others.length, 0);
    assert.equal(grid.name, "Simplex-tableau");
    const [numbers, names, objective, ...rows] = rowsOf(grid);
    assert.deepEqual(numbers, ["|1", "|2", "|3", "|4", "|5"]);
    assert.deepEqual(names, ["|basis", "|F", "|x 1", "|x 2", "|x 3", "|x 4", "|x 5", "|RL"]);
    assert.deepEqual(objective.slice(0, 3), ["-F", "1", "doelfunctie F, kolom x 1"]);
    assert.equal(objective.length, 8);
    assert.equal(rows.length, 3);
    rows.forEach((cells, at) => {
      assert.equal(cells.length, 9);
      assert.deepEqual(cells.slice(0, 3), [`-${at + 1}`, `-x ${at + 3}`, "0"]);
      assert.equal(cells[3], `rij ${at + 1} (x ${at + 3}), kolom x 1`);
      assert.equal(cells[8], `rij ${at + 1} (x ${at + 3}), rechterlid`);
    });
  });

  test("that is larger when a larger problem is shown", async () => {
    await open(problem(twoProducts));
    await page.evaluate(() => {
      LPctrl1.prmNrKleinerGelijkVglen = 5;
      LPctrl1.prmShow = true;
    });
    const [grid] = all(await tree(), "grid");
    assert.equal(rowsOf(grid).length, 3 + 5);
  });

  test("that says how it is left and how its menus open, also where the focus rests", async () => {
    await open(problem(twoProducts));
    const found = await tree();
    const [grid] = all(found, "grid");
    const resting = all(found, "textbox").find(({ properties }) => properties.focused);
    for (const { description } of [grid, resting]) {
      assert.match(description, /Escape en daarna Tab/);
      assert.match(description, /Alt\+B, Alt\+W, Alt\+O en Alt\+H/);
    }
  });

  test("and after a step its new name is told politely", async () => {
    await open(problem(twoProducts));
    const told = async () =>
      all(await tree(), "status").map(({ name, properties, children }) => [
        all(children, "StaticText")
          .map((text) => text.name)
          .join("") || name,
        properties.live,
      ]);
    assert.deepEqual(await told(), [["1-e Simplex-tableau", "polite"]]);
    await intoTheControl();
    await press("Alt+w v");
    await until('root.querySelector("dialog[open]")');
    await press("Enter");
    await until('!root.querySelector("dialog[open]")');
    assert.deepEqual(await told(), [["2-e Simplex-tableau", "polite"]]);
  });

  test("and from where the focus rests the open menu is told, then each item that the keys come to", async () => {
    await open(problem(twoProducts));
    const told = () =>
      inside(`(() => {
        const named = (attribute) => root.activeElement.getAttribute(attribute)?.split(" ").map((id) => root.getElementById(id));
        const [item] = named("aria-activedescendant") ?? [];
        const isControlled = named("aria-controls")?.at(-1)?.contains(item);
        return item && isControlled ? item.dataset.name ?? item.role + " " + item.ariaLabel : null;
      })()`);
    await intoTheControl();
    await press("Alt+b");
    assert.equal(await told(), "menu Bestand");
    await press("ArrowDown");
    assert.equal(await told(), "mnu_Nieuw");
    await press("ArrowRight");
    assert.equal(await told(), "mnu_Nieuw_Simplex");
    await press("ArrowLeft");
    assert.equal(await told(), "mnu_Nieuw");
    await press("Escape");
    assert.equal(await told(), null);
    assert.deepEqual(
      await inside("root.activeElement.getAttributeNames().filter((name) => /controls|activedesc/.test(name))"),
      [],
    );
  });

  test("and a menu's button says that it has a menu, and whether that is open", async () => {
    await open(problem(twoProducts));
    const button = async () => all(await tree(), "button").find(({ name }) => name === "Bewerken").properties;
    assert.equal((await button()).hasPopup, "menu");
    assert.equal((await button()).expanded, false);
    await page.click(control("cmd_Bewerken"));
    assert.equal((await button()).expanded, true);
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

  test("as alert dialogs, and forms with fields are dialogs", async () => {
    await open();
    for (const [name, keys] of Object.entries(dialogs)) {
      await intoTheControl();
      await press(keys);
      await until('root.querySelector("dialog[open]")');
      const isMessage = ["frmPivot_element", "frmMelding", "frmAboutLP"].includes(name);
      assert.equal((await heard(control(name))).role, isMessage ? "alertdialog" : "dialog", name);
      await press("Escape");
      await until('!root.querySelector("dialog[open]")');
    }
  });

  test("as they are read: the basic solution line by line", async () => {
    await open(problem({ prmNrKleinerGelijkVglen: 2, prmSTR_DLfunctie: " -3, -5", prmSTR_RL: " 4, 12" }));
    await intoTheControl();
    await press("Alt+w b");
    await until('root.querySelector("dialog[open]")');
    const [form] = all(await tree(), "dialog");
    assert.equal(form.description.replace(/ +/g, " "), "x 3 = 4 x 4 = 12 Doelfunctie F = 0");
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
