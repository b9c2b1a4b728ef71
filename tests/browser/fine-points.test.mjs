// What is small and would not be missed at once: second buttons, edges of windows, first repeats, and that nothing
// is painted, told or moved that has not changed.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import * as esbuild from "esbuild";
import { root } from "../../tools/sources.mjs";
import { control, launch, noise, problem, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  await page?.close();
  page = undefined;
});

const open = async (place, options) => (page = await browser.open(place, options));
const inside = (expression) => page.evaluate(`(root => ${expression})(LPctrl1.shadowRoot)`);
const until = (expression) => page.waitForFunction(`(root => ${expression})(LPctrl1.shadowRoot)`, { timeout: 20000 });
const focused = () => inside("root.activeElement?.dataset.name");
const boxOf = async (selector) => (await page.$(selector)).boundingBox();
const middleOf = async (selector) => {
  const { x, y, width, height } = await boxOf(selector);
  return [x + width / 2, y + height / 2];
};

const large = { prmNrBeslisVar: 6, prmNrKleinerGelijkVglen: 10 };
const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

// What a script in the browser needs of a module of ours or of a library.
async function scriptOf(contents, globalName) {
  const built = await esbuild.build({
    stdin: { contents, resolveDir: root, loader: "ts" },
    bundle: true,
    write: false,
    format: "iife",
    globalName,
    external: ["util", "timers", "timers/promises"], // asked for in node alone
    logLevel: "error",
  });
  return built.outputFiles[0].text;
}

async function openGraph() {
  await open(problem(twoProducts));
  // A mouse has buttons with which it leaves the page.
  await page.evaluate(() => addEventListener("mouseup", (event) => event.preventDefault()));
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await until('root.querySelector("dialog[open]")');
  await page.keyboard.press("Enter");
  await page.click(control("cmd_Opties"));
  await page.click(control("mnu_Grafiek"));
  await until('root.querySelector("[data-name=imgCross]")?.checkVisibility()');
}

describe("while one button is held", () => {
  // A release on the handle sends the focus to the picture; a press does not.
  for (const [first, second] of [
    ["left", "right"],
    ["left", "middle"],
    ["left", "back"],
    ["left", "forward"],
  ]) {
    test(`a press of the ${second} one is no release`, async () => {
      await openGraph();
      await page.focus(control("cmdFrame"));
      await page.mouse.move(...(await middleOf(control("cmdFrame"))));
      await page.mouse.down({ button: first });
      await page.mouse.down({ button: second });
      assert.equal(await focused(), "cmdFrame");
      await page.mouse.up({ button: second });
      assert.equal(await focused(), "txtFocus");
      await page.mouse.up({ button: first });
    });
  }

  test("the left one can take hold", async () => {
    await openGraph();
    const [x, y] = await middleOf(control("cmdFrame"));
    const before = await boxOf(control("frmGrafiek"));
    await page.mouse.move(x, y);
    await page.mouse.down({ button: "middle" });
    await page.mouse.down({ button: "left" });
    await page.mouse.move(x - 20, y + 10);
    const now = await boxOf(control("frmGrafiek"));
    assert.deepEqual([now.x - before.x, now.y - before.y].map(Math.round), [-20, 10]);
    await page.mouse.up({ button: "left" });
    await page.mouse.up({ button: "middle" });
  });
});

test("a form of an element that is moved in the page is modal again, and stands over it", async () => {
  await open(`${problem()}<div id="elsewhere"></div>`);
  await page.evaluate(() => void LPctrl1.ShowAboutBox());
  await until('root.querySelector("dialog[open]")');
  const before = await boxOf("tabulon-lpctrl >>> dialog");
  await page.evaluate(() => {
    const elsewhere = document.querySelector("#elsewhere");
    elsewhere.style.marginTop = `${LPctrl1.getBoundingClientRect().top + 60}px`;
    elsewhere.append(LPctrl1);
  });
  assert.equal(await inside('root.querySelector("dialog").matches(":modal")'), true);
  const now = await boxOf("tabulon-lpctrl >>> dialog");
  assert.deepEqual([now.x - before.x, now.y - before.y], [0, 60]);
});

test("what is reported where no script is asking names its subject", async () => {
  await browser.write(
    "subject.js",
    `addEventListener("tabulon-error", ({ detail }) => (globalThis.told = [detail.subject, detail.message]));
     document.querySelector("tabulon-lpctrl").prmBigM = "x";`,
  );
  await open(
    `<!doctype html><link rel="icon" href="data:,">${problem()}<script src="subject.js"></script><script src="tabulon.js"></script>`,
  );
  assert.deepEqual(await page.evaluate(() => globalThis.told), ["prmBigM", 'prmBigM: "x" is geen getal (fout 13)']);
  assert.equal(noise(page).length, 1);
});

test("a NUL in a parameter ends neither it nor its name", async () => {
  await open("<div></div>", { wait: false });
  const told = await page.evaluate(async () => {
    const element = document.createElement("tabulon-lpctrl");
    const param = document.createElement("param");
    param.name = "prmNrBeslisVar";
    param.setAttribute("value", "3\0prmNrKleinerGelijkVglen\0" + "5");
    element.append(param);
    document.body.append(element);
    return element.ready.then(
      () => "accepted",
      ({ number, subject }) => [number, subject],
    );
  });
  assert.deepEqual(told, [13, "prmNrBeslisVar"]);
});

describe("a submenu", () => {
  const menus = () =>
    inside('[...root.querySelectorAll("[role=menu]")].map((menu) => menu.getBoundingClientRect().toJSON())');

  // With the element so far from the left edge of a window of that width.
  async function openSubmenu(left, width) {
    await open(problem(), { width, height: 400 });
    await page.evaluate((margin) => (LPctrl1.style.marginLeft = `${margin}px`), left);
    await page.click(control("cmd_Bestand"));
    await page.hover(control("mnu_Nieuw"));
    await until('root.querySelectorAll("[role=menu]").length === 2');
    return menus();
  }
  const beside = (one, other) => Math.abs(one - other) <= 0.5; // menus stand on whole pixels

  test("opens to the right, a little over its menu's edge, with its first item beside its own", async () => {
    const [menu, sub] = await openSubmenu(0, 900);
    assert.ok(beside(sub.left, menu.right - 3), `${sub.left} ${menu.right}`);
    const [item, first] = await Promise.all([boxOf(control("mnu_Nieuw")), boxOf(control("mnu_Nieuw_Simplex"))]);
    assert.ok(beside(item.y, first.y), `${item.y} ${first.y}`);
  });

  test("opens to the left where the window ends, and not before", async () => {
    const [menu, sub] = await openSubmenu(300, 900);
    const room = Math.ceil(sub.right) + 4;
    await page.close();
    const [, fitting] = await openSubmenu(300, room + 1);
    assert.equal(fitting.left, sub.left);
    await page.close();
    const [, flipped] = await openSubmenu(300, room - 2);
    assert.ok(beside(flipped.right, menu.left + 3), `${flipped.right} ${menu.left}`);
  });
});

test("a held arrow waits before it repeats, and then repeats quickly", async () => {
  await open(problem(large));
  await page.evaluate(await scriptOf('export { install } from "@sinonjs/fake-timers";', "FakeTimers"));
  await page.evaluate(
    () => (globalThis.clock = globalThis.FakeTimers.install({ toFake: ["setTimeout", "clearTimeout"] })),
  );
  const first = () => text(page, "lblKLM", 1);
  const tick = (milliseconds) => page.evaluate((time) => globalThis.clock.tick(time), milliseconds);
  await page.mouse.move(...(await middleOf(`${control("HScroll")} .forward`)));
  await page.mouse.down();
  const seen = [await first()];
  for (const milliseconds of [399, 1, 59, 1, 60]) {
    await tick(milliseconds);
    seen.push(await first());
  }
  await page.mouse.up();
  assert.deepEqual(seen, [" 2", " 2", " 3", " 3", " 4", " 5"]);
  await tick(1000);
  assert.equal(await first(), " 5");
});

test("a clock set back while a second is counted leaves a page that lives, and an element that can be removed", async () => {
  await open(`<button id="own">eigen</button>${problem(twoProducts)}${problem({}, 'id="other"')}`);
  await page.evaluate(await scriptOf('export { install } from "@sinonjs/fake-timers";', "FakeTimers"));
  await page.evaluate(() => {
    globalThis.clock = globalThis.FakeTimers.install({
      now: new Date(2026, 0, 5, 10).getTime(),
      toFake: ["setTimeout", "clearTimeout", "Date"],
    });
    own.addEventListener("click", () => own.classList.add("pressed"));
  });
  const seconds = (number) => page.evaluate((time) => globalThis.clock.tick(time * 1000), number);
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_Automatisch_vegen"));
  await until('root.querySelector("dialog[open]")');
  await page.keyboard.press("Enter");
  await page.waitForFunction(() => LPctrl1.hasAttribute("aria-busy") && globalThis.clock.countTimers() > 0);
  await page.evaluate(() => globalThis.clock.setSystemTime(Date.now() - 3_600_000));
  for (const number of [2, 60, 600]) await seconds(number);
  assert.ok(await page.evaluate(() => LPctrl1.hasAttribute("aria-busy")));
  await page.click("#own");
  assert.ok(await page.evaluate(() => own.classList.contains("pressed")));

  await page.evaluate(() => LPctrl1.remove());
  await page.click(control("cmd_Help", undefined, "#other"));
  await page.waitForSelector('#other >>> [role="menu"]', { visible: true });
  assert.deepEqual(noise(page), []);
});

test("Alt and a letter that it turns into a sign, as on a Mac, is that letter", async () => {
  await open(problem(twoProducts));
  await page.click(control("txtTableau", 1));
  await page.evaluate(() => {
    const pressed = { key: "\u222B", code: "KeyB", altKey: true, bubbles: true, composed: true, cancelable: true };
    LPctrl1.shadowRoot.activeElement.dispatchEvent(new KeyboardEvent("keydown", pressed));
  });
  await until('root.querySelector("[data-name=mnu_Openen]")');
});

test("of a caption the first letter behind a single & is its key, and no other & is lost or shown", async () => {
  const code = await scriptOf('export { parseCaption, plainCaption } from "./hosts/web/captions.ts";', "Captions");
  const { parseCaption, plainCaption } = new Function(`${code}; return Captions;`)();
  assert.deepEqual(parseCaption("Be&werken"), { before: "Be", key: "w", after: "erken" });
  assert.deepEqual(parseCaption("&Een&Twee"), { before: "", key: "E", after: "enTwee" });
  assert.deepEqual(parseCaption("Q&&A"), { before: "Q&A", key: "", after: "" });
  assert.deepEqual(parseCaption("Q&&A &in&&uit&"), { before: "Q&A ", key: "i", after: "n&uit&" });
  assert.equal(plainCaption("&&&Een&&"), "&Een&");
});

test("one line of text stands in the middle of its height", async () => {
  await open(problem(twoProducts));
  const [label, words] = await page.$eval(control("lblKolom", 1), (node) => {
    const inside = document.createRange();
    inside.selectNodeContents(node);
    const middle = ({ top, bottom }) => (top + bottom) / 2;
    return [middle(node.getBoundingClientRect()), middle(inside.getBoundingClientRect())];
  });
  assert.ok(Math.abs(label - words) <= 0.5, `${label} ${words}`);
});

// Counts how often a canvas is painted, and what changes in the control, from now on.
const watch = () =>
  page.evaluate(() => {
    const { shadowRoot } = LPctrl1;
    const seen = { painted: 0, changes: [], focused: 0 };
    globalThis.seen = seen;
    const { getContext } = HTMLCanvasElement.prototype;
    HTMLCanvasElement.prototype.getContext = function (...given) {
      seen.painted += 1;
      return getContext.apply(this, given);
    };
    const { focus } = HTMLElement.prototype;
    HTMLElement.prototype.focus = function (...given) {
      seen.focused += 1;
      focus.apply(this, given);
    };
    const value = Object.getOwnPropertyDescriptor(HTMLInputElement.prototype, "value");
    Object.defineProperty(HTMLInputElement.prototype, "value", {
      ...value,
      set(text) {
        seen.changes.push(`${this.dataset.name} value`);
        value.set.call(this, text);
      },
    });
    new MutationObserver((records) => {
      for (const { target, attributeName } of records) seen.changes.push(`${target.dataset.name} ${attributeName}`);
    }).observe(shadowRoot, { attributes: true, subtree: true });
  });
const seen = () => page.evaluate(() => new Promise((resume) => setTimeout(() => resume(globalThis.seen))));

describe("only what has changed is done", () => {
  test("dragging the cross moves the level line, and paints the picture under it never", async () => {
    await openGraph();
    const [x, y] = await middleOf(control("imgCross"));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await watch();
    for (const place of [1, 2, 3]) {
      const before = await text(page, "lblValX1");
      await page.mouse.move(x + 7 * place, y);
      assert.notEqual(await text(page, "lblValX1"), before);
    }
    assert.equal((await seen()).painted, 0);
    await page.mouse.up();
  });

  test("a panel that is dragged paints nothing again", async () => {
    await openGraph();
    const [x, y] = await middleOf(control("cmdFrame"));
    await page.mouse.move(x, y);
    await page.mouse.down();
    await watch();
    const before = await boxOf(control("frmGrafiek"));
    await page.mouse.move(x - 15, y);
    assert.equal(Math.round((await boxOf(control("frmGrafiek"))).x - before.x), -15);
    const { painted, changes } = await seen();
    assert.equal(painted, 0);
    assert.deepEqual([...new Set(changes)], ["frmGrafiek style"]);
    await page.mouse.up();
  });

  test("a letter that is typed is not written a second time", async () => {
    await open(problem(twoProducts));
    await page.click(control("txtTableau", 1));
    await page.keyboard.press("End");
    await watch();
    await page.keyboard.type("12");
    assert.equal(await text(page, "txtTableau", 1), " 112");
    assert.deepEqual((await seen()).changes, []);
  });

  test("a tool tip that changes is a tool tip that changes", async () => {
    await open(problem(twoProducts));
    await watch();
    await page.click(control("cmd_Bestand"));
    await page.click(control("mnu_Tableau_Invullen"));
    const { changes } = await seen();
    assert.ok(changes.includes("txtRL title"));
    assert.deepEqual([...new Set(changes.filter((change) => change.startsWith("txtRL ")))].sort(), [
      "txtRL readonly",
      "txtRL title",
    ]);
  });

  test("Tab moves the page's focus once", async () => {
    await open(problem(twoProducts));
    await page.click(control("txtTableau", 1));
    await watch();
    await page.keyboard.press("Tab");
    assert.equal(await inside("root.activeElement.dataset.index"), "2");
    assert.equal((await seen()).focused, 1);
  });
});
