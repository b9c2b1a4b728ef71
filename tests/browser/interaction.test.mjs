// What a pupil does with keys and mouse, and what the browser does of itself, meet without getting in each
// other's way.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, afterEach, before, describe, test } from "node:test";
import { control, launch, noise, problem, idle, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(() => page?.close());

const open = async (place, options) => (page = await browser.open(place, options));
const large = { prmNrBeslisVar: 6, prmNrKleinerGelijkVglen: 10 };
const between = `<button id="first">een</button>${problem()}<button id="last">twee</button>`;

// The focused control, as "name index"; or the page's own focused element.
const focused = () =>
  page.evaluate(() => {
    const inside = document.activeElement.shadowRoot?.activeElement;
    if (!inside) return document.activeElement.id || document.activeElement.localName;
    return [inside.dataset.name ?? inside.role, inside.dataset.index].filter(Boolean).join(" ");
  });
const inside = (expression, ...given) => page.evaluate(`(root => ${expression})(LPctrl1.shadowRoot)`, ...given);
const until = (expression) => page.waitForFunction(`(root => ${expression})(LPctrl1.shadowRoot)`, { timeout: 5000 });
const openMenu = () => inside('root.querySelector("[role=menu]")?.ariaLabel');
const openForm = () => inside('root.querySelector("dialog[open]")?.dataset.name');
const color = (name, index) => page.$eval(control(name, index), (node) => getComputedStyle(node).backgroundColor);
const middleOf = async (selector) => {
  const { x, y, width, height } = await (await page.$(selector)).boundingBox();
  return [x + width / 2, y + height / 2];
};

describe("focus", () => {
  test("comes in by Tab, and leaves by Tab", async () => {
    await open(between);
    await page.focus("#first");
    assert.equal(await color("FrameHead"), "rgb(192, 192, 192)");
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "txtFocus");
    assert.equal(await color("FrameHead"), "rgb(0, 192, 192)");
    assert.equal(await inside('root.querySelectorAll("[tabindex=\\"0\\"]").length'), 1);
    await page.keyboard.down("Shift");
    await page.keyboard.press("Tab");
    await page.keyboard.up("Shift");
    assert.equal(await focused(), "first");
    assert.equal(await color("FrameHead"), "rgb(192, 192, 192)");
  });

  test("goes into a cell that is clicked, and the caret with it", async () => {
    await open(between);
    await page.click(control("txtTableau", 2));
    assert.equal(await focused(), "txtTableau 2");
    await page.keyboard.press("End");
    await page.keyboard.type("5");
    assert.equal(await text(page, "txtTableau", 2), " 05");
  });

  test("finds a clicked cell's text selected, also after the page has had it", async () => {
    await open(between);
    await page.click(control("txtTableau", 2));
    await page.keyboard.press("End");
    await page.click("#last");
    await page.click(control("txtTableau", 2));
    await page.keyboard.type("77");
    assert.equal(await text(page, "txtTableau", 2), "77");
  });

  test("finds a clicked cell's text selected, also after a second click and Escape", async () => {
    await open(between);
    const place = await middleOf(control("txtTableau", 2));
    await page.mouse.click(...place);
    await page.mouse.click(...place);
    await page.keyboard.press("Escape");
    await page.mouse.click(...place);
    await page.keyboard.type("77");
    assert.equal(await text(page, "txtTableau", 2), "77");
  });

  test("stays where it is when a heading is clicked", async () => {
    await open(between);
    await page.click(control("txtTableau", 2));
    await page.click(control("lblKolom", 1));
    assert.equal(await focused(), "txtTableau 2");
  });

  test("stays where it is when a cell is pressed by another button of the mouse", async () => {
    await open(between);
    await page.click(control("txtTableau", 2));
    for (const button of ["right", "middle"]) {
      await page.click(control("txtTableau", 3), { button });
      assert.equal(await focused(), "txtTableau 2", button);
    }
  });

  test("comes to the control when its empty ground is clicked", async () => {
    await open(between);
    await page.focus("#last");
    const { x, y } = await (await page.$("tabulon-lpctrl")).boundingBox();
    await page.mouse.click(x + 300, y + 270);
    assert.equal(await focused(), "txtFocus");
    assert.equal(await color("FrameHead"), "rgb(0, 192, 192)");
  });

  test("that leaves for the page is noticed", async () => {
    await open(between);
    await page.click(control("txtTableau", 2));
    await page.click("#last");
    assert.equal(await focused(), "last");
    assert.equal(await color("FrameHead"), "rgb(192, 192, 192)");
  });

  test("goes back where the page had it when a form that a script opened has closed", async () => {
    await open(between);
    await page.focus("#last");
    await page.evaluate(() => void LPctrl1.ShowAboutBox());
    await until('root.querySelector("dialog[open]")');
    assert.equal(await focused(), "cmdOK");
    await page.keyboard.press("Enter");
    await until('!root.querySelector("dialog")');
    assert.equal(await focused(), "last");
  });
});

describe("keys", () => {
  test("that mean nothing here stay the browser's", async () => {
    await open(problem());
    await page.click(control("txtTableau", 1), { count: 3 });
    await page.keyboard.type("12");
    await page.keyboard.press("ArrowLeft");
    await page.keyboard.type("/");
    assert.equal(await text(page, "txtTableau", 1), "1/2");
    await page.keyboard.down("Control");
    await page.keyboard.press("a");
    await page.keyboard.up("Control");
    await page.keyboard.press("Delete");
    assert.equal(await text(page, "txtTableau", 1), "");
  });

  test("press a button once", async () => {
    await open(problem());
    for (const key of ["Enter", " "]) {
      await page.evaluate(() => {
        globalThis.ended = 0;
        void LPctrl1.ShowAboutBox().then(() => ++ended);
        void LPctrl1.ShowAboutBox().then(() => ++ended);
      });
      await until('root.querySelectorAll("dialog[open]").length === 2');
      await page.keyboard.press(key);
      await until('root.querySelectorAll("dialog[open]").length === 1');
      assert.equal(await page.evaluate(() => ended), 1);
      await page.keyboard.press(key);
      await until('!root.querySelector("dialog")');
    }
  });

  test("that are held do not go on in what appears", async () => {
    await open(problem());
    await page.click(control("txtTableau", 1));
    await page.evaluate(() => void LPctrl1.ShowAboutBox());
    await until('root.querySelector("dialog[open]")');
    await page.keyboard.down("Enter");
    await page.keyboard.down("Enter");
    await page.keyboard.up("Enter");
    assert.equal(await openForm(), undefined);
    assert.equal(await focused(), "txtTableau 1");
  });

  test("Escape and Tab stay with an open form", async () => {
    await open(problem());
    await page.evaluate(() => void LPctrl1.ShowAboutBox());
    await until('root.querySelector("dialog[open]")');
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "cmdOK");
    await page.keyboard.press("Escape");
    assert.equal(await openForm(), undefined);
  });

  test("typing into a locked cell changes nothing", async () => {
    await open(problem());
    await page.click(control("txtTableau", 3));
    await page.keyboard.type("9");
    assert.equal(await text(page, "txtTableau", 3), " 1");
    assert.equal(await page.$eval(control("txtTableau", 3), (node) => node.readOnly), true);
  });
});

test("what a box may not take is taken back", async () => {
  await open(problem());
  const shown = await page.$eval(control("txtTableau", 3), (node) => {
    node.value = "9";
    node.dispatchEvent(new InputEvent("input", { bubbles: true, composed: true }));
    return node.value;
  });
  assert.equal(shown, " 1");
});

describe("menus", () => {
  test("open under their button, hold the keyboard, and give it back", async () => {
    await open(problem());
    await page.click(control("cmd_Opties"));
    assert.equal(await openMenu(), "Opties");
    assert.equal(await focused(), "txtFocus");
    const menu = await (await page.$('tabulon-lpctrl >>> [role="menu"]')).boundingBox();
    const element = await (await page.$("tabulon-lpctrl")).boundingBox();
    assert.deepEqual([menu.x - element.x, menu.y - element.y], [Math.round(2530 / 15), 19]);
    await page.keyboard.press("ArrowDown");
    assert.equal(
      await inside('root.getElementById(root.activeElement.getAttribute("aria-activedescendant")).dataset.name'),
      "mnu_Breuken",
    );
    await page.keyboard.press("Escape");
    assert.equal(await openMenu(), undefined);
    assert.equal(await focused(), "txtFocus");
  });

  test("take no letter into the box that holds the keyboard meanwhile", async () => {
    await open(problem());
    await page.click(control("cmd_Opties"));
    const written = () => inside('root.querySelector("[data-name=txtFocus]").value');
    const before = await written();
    await page.keyboard.type("z7.ë ");
    assert.equal(await written(), before);
    assert.equal(await openMenu(), "Opties");
  });

  test("show what is checked", async () => {
    await open(problem());
    const checked = async () => {
      await page.click(control("cmd_Opties"));
      const state = await inside('root.querySelector("[data-name=mnu_Breuken]").ariaChecked');
      await page.click(control("mnu_Breuken"));
      return state;
    };
    assert.deepEqual([await checked(), await checked(), await checked()], ["false", "true", "false"]);
  });

  test("open a submenu beside the item that the mouse is on", async () => {
    await open(problem());
    await page.click(control("cmd_Bestand"));
    await page.hover(control("mnu_Nieuw"));
    const [item, sub] = [await page.$(control("mnu_Nieuw")), await page.$(control("mnu_Nieuw_Simplex"))];
    assert.ok((await sub.boundingBox()).x > (await item.boundingBox()).x + 100);
    await page.hover(control("mnu_Tableau_Invullen"));
    assert.equal(await page.$(control("mnu_Nieuw_Simplex")), null);
  });

  test("close by a press elsewhere, which then does what it does", async () => {
    await open(between);
    await page.click(control("cmd_Opties"));
    await page.click(control("cmd_Bestand"));
    assert.equal(await openMenu(), "Bestand");
    await page.click(control("cmd_Bestand"));
    assert.equal(await openMenu(), undefined);
    await page.click(control("cmd_Bestand"));
    assert.equal(await openMenu(), "Bestand");
    await page.click("#last");
    assert.equal(await openMenu(), undefined);
    assert.equal(await focused(), "last");
  });

  test("stay within the window", async () => {
    await open(problem(), { width: 300, height: 330 });
    await page.evaluate(() => {
      LPctrl1.style.marginLeft = "-20px";
      LPctrl1.shadowRoot.querySelector("[data-name=cmd_Opties]").click();
    });
    const { x, width } = await (await page.$('tabulon-lpctrl >>> [role="menu"]')).boundingBox();
    assert.ok(x >= 0 && x + width <= 300, `${x} ${width}`);
  });
});

describe("scroll bars", () => {
  const first = () => text(page, "lblKLM", 1);

  test("step by an arrow, and on while it is held", async () => {
    await open(problem(large));
    const arrow = await middleOf(`${control("HScroll")} .forward`);
    await page.mouse.click(...arrow);
    assert.equal(await first(), " 2");
    await page.mouse.move(...arrow);
    await page.mouse.down();
    await until('Number(root.querySelector("[data-name=lblKLM]").textContent) >= 5');
    await page.mouse.up();
    const value = await first();
    await new Promise((resume) => setTimeout(resume, 200));
    assert.equal(await first(), value);
  });

  test("page by their track", async () => {
    await open(problem(large));
    const { x, y, width, height } = await (await page.$(control("HScroll"))).boundingBox();
    await page.mouse.click(x + width - height - 3, y + height / 2);
    assert.equal(await first(), " 6");
    assert.equal(await page.$eval(control("HScroll"), (node) => node.ariaValueNow), "6");
  });

  test("follow the thumb to its end", async () => {
    await open(problem(large));
    const [x, y] = await middleOf(`${control("HScroll")} .thumb`);
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 60, y, { steps: 4 });
    await page.mouse.move(x + 500, y + 80, { steps: 4 });
    await page.mouse.up();
    await idle(page);
    assert.equal(await first(), " 12");
    assert.equal(await focused(), "txtFocus");
  });

  test("say what they are", async () => {
    await open(problem(large));
    const { role, orientation, minimum, maximum } = await page.$eval(control("VScroll"), (node) => ({
      role: node.getAttribute("role"),
      orientation: node.ariaOrientation,
      minimum: node.ariaValueMin,
      maximum: node.ariaValueMax,
    }));
    assert.deepEqual([role, orientation, minimum, maximum], ["scrollbar", "vertical", "1", "4"]);
  });
});

describe("the graph", () => {
  test("is drawn in the colours of its problem, at the screen's own density", async () => {
    const lists = { prmSTR_DLfunctie: " -3, -5", prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2", prmSTR_RL: " 4, 12" };
    await open(problem(lists), { scale: 2 });
    await page.click(control("cmd_Opties"));
    await page.click(control("mnu_Grafiek"));
    const { width, colours } = await page.$eval(`${control("PictureLN")} canvas`, (canvas) => {
      const { data } = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
      const pixels = new Set();
      for (let at = 0; at < data.length; at += 4) if (data[at + 3] === 255) pixels.add(data.slice(at, at + 3).join());
      return { width: canvas.width, colours: ["255,255,192", "0,255,0", "0,0,0"].map((colour) => pixels.has(colour)) };
    });
    assert.equal(width, 2 * 246);
    assert.deepEqual(colours, [true, true, true]);
  });

  test("is dragged by its handle", async () => {
    await open(problem());
    await page.click(control("cmd_Opties"));
    await page.click(control("mnu_Grafiek"));
    const place = () =>
      page.$eval(control("frmGrafiek"), ({ style }) => [style.left, style.top].map((at) => Math.round(parseFloat(at))));
    const [left, top] = await place();
    const [x, y] = await middleOf(control("cmdFrame"));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x - 40, y + 30, { steps: 5 });
    await page.mouse.up();
    assert.deepEqual(await place(), [left - 40, top + 30]);
    await page.mouse.move(x + 90, y);
    assert.deepEqual(await place(), [left - 40, top + 30]);
  });
});

describe("a finger", () => {
  test("does what a mouse does", async () => {
    await open(problem());
    await page.touchscreen.tap(...(await middleOf(control("txtTableau", 2))));
    assert.equal(await focused(), "txtTableau 2");
    await page.touchscreen.tap(...(await middleOf(control("cmd_Opties"))));
    await page.touchscreen.tap(...(await middleOf(control("mnu_Breuken"))));
    await page.touchscreen.tap(...(await middleOf(control("cmd_Opties"))));
    assert.equal(await inside('root.querySelector("[data-name=mnu_Breuken]").ariaChecked'), "true");
  });
});

describe("someone who does not see it", () => {
  const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
  const violations = async () => {
    await page.evaluate(axe);
    const { violations: found } = await page.evaluate(() => axe.run(document.querySelector("tabulon-lpctrl")));
    return found.map(({ id, nodes }) => `${id}: ${nodes[0].html}`);
  };

  test("meets no known obstacle in the grid", async () => {
    await open(problem(large));
    assert.deepEqual(await violations(), []);
  });

  test("meets none in a menu", async () => {
    await open(problem());
    await page.click(control("cmd_Bestand"));
    await page.keyboard.press("ArrowDown");
    assert.deepEqual(await violations(), []);
  });

  test("meets none in a form, and hears what it says", async () => {
    await open(problem());
    await page.evaluate(() => void LPctrl1.ShowAboutBox());
    await until('root.querySelector("dialog[open]")');
    assert.deepEqual(await violations(), []);
    const told = (attribute) =>
      inside(`root.getElementById(root.querySelector("dialog").getAttribute("${attribute}")).textContent`);
    const [name, description] = [await told("aria-labelledby"), await told("aria-describedby")];
    assert.match(name, /^Over /);
    assert.match(description, /Simplex-methode/);
  });
});

test("nothing of this makes the browser complain", async () => {
  await open(between);
  await page.click(control("cmd_Bestand"));
  await page.keyboard.press("Escape");
  await page.click(control("txtTableau", 1));
  await page.keyboard.press("Tab");
  assert.deepEqual(noise(page), []);
});
