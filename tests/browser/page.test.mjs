// What a page does to the control that stands on it: rules that allow too little, styles, scales, frames, hiding and
// taking away. The control stays what it is, and the page stays usable.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  await page?.close();
  page = undefined;
});

const open = async (place, options) => (page = await browser.open(place, options));
const until = (test, ...given) => page.waitForFunction(test, { timeout: 20000 }, ...given);
const formIsOpen = () => until(() => LPctrl1.shadowRoot.querySelector("dialog[open]"));
const boxOf = async (selector, on = page) => (await on.$(selector)).boundingBox();
const middleOf = async (selector, on = page) => {
  const { x, y, width, height } = await boxOf(selector, on);
  return [x + width / 2, y + height / 2];
};
const clickAt = async (selector, on = page) => page.mouse.click(...(await middleOf(selector, on)));

// A page whose head has `head`, and then the control's script.
const withHead = (head, body) =>
  `<!doctype html><html lang="nl"><meta charset="utf-8"><link rel="icon" href="data:,">${head}<script src="tabulon.js"></script>${body}`;
const withStyle = (
  css,
  body,
) => `<!doctype html><html lang="nl"><meta charset="utf-8"><title>Simplex</title><link rel="icon" href="data:,">
  <script src="tabulon.js"></script><script src="${styled(css)}"></script>${body}`;

// The pages may have no style of their own but through a script.
let sheets = 0;
const scripts = [];
function styled(css) {
  const name = `style${++sheets}.js`;
  scripts.push([
    name,
    `const sheet = new CSSStyleSheet(); sheet.replaceSync(${JSON.stringify(css)}); document.adoptedStyleSheets = [sheet];`,
  ]);
  return name;
}
async function openStyled(css, body = problem(), options = undefined) {
  const place = withStyle(css, body);
  for (const script of scripts.splice(0)) await browser.write(...script);
  return open(place, options);
}

// A page before whose scripts this one has run.
async function openWithout(expression) {
  const name = `without${++sheets}.js`;
  await browser.write(name, expression);
  await open(withHead(`<script src="${name}"></script>`, problem({ prmSTR_RL: " 5, 6" })));
}

describe("where a browser lacks something", () => {
  const said = () =>
    page.evaluate(async () => {
      const words = await LPctrl1.ready.then(
        () => "shown",
        ({ message }) => message,
      );
      return [words, LPctrl1.shadowRoot.querySelector("[role=alert]")?.textContent, LPctrl1.ariaBusy];
    });

  test("without WebAssembly the box says so, and so does ready", async () => {
    await openWithout("delete globalThis.WebAssembly;");
    const [rejected, shown, busy] = await said();
    assert.match(shown, /^Het Simplex-tableau kan hier niet worden getoond: [^.]*WebAssembly[^.]*\.$/);
    assert.equal(rejected, shown);
    assert.equal(busy, null);
    const { width, height } = await boxOf("tabulon-lpctrl");
    assert.deepEqual([width, height], [600, 296]);
  });

  test("a page whose rules forbid WebAssembly is told which word they lack", async () => {
    const rules = `<meta http-equiv="Content-Security-Policy" content="script-src 'self'">`;
    await open(withHead(rules, problem()));
    const [rejected, shown] = await said();
    assert.match(shown, /'wasm-unsafe-eval' ontbreekt\.$/);
    assert.equal(rejected, shown);
    const call = page.evaluate(() => LPctrl1.ShowAboutBox().catch(({ message }) => message));
    assert.equal(await call, shown, "what a script asks for ends too");
  });

  for (const [what, expression] of [
    ["DecompressionStream", "delete globalThis.DecompressionStream;"],
    [
      "this kind of DecompressionStream",
      "globalThis.DecompressionStream = class { constructor() { throw new TypeError(); } };",
    ],
  ])
    test(`without ${what} the control is shown all the same`, async () => {
      await openWithout(expression);
      assert.equal(await text(page, "txtRL", 2), " 6");
      assert.deepEqual(noise(page), []);
    });

  test("without popovers menus open in their place, and choose", async () => {
    await openWithout("delete HTMLElement.prototype.showPopover;");
    await page.click(control("cmd_Help"));
    const [button, menu] = [await boxOf(control("cmd_Help")), await boxOf("tabulon-lpctrl >>> [role=menu]")];
    assert.ok(Math.abs(menu.x - button.x) < 8, `${menu.x} beside ${button.x}`);
    assert.ok(Math.abs(menu.y - button.y - button.height) < 4, `${menu.y} below ${button.y}`);
    await clickAt("tabulon-lpctrl >>> [role=menuitem]");
    await formIsOpen();
  });
});

describe("an element that is not in the page", () => {
  test("shows its form when it is, and freezes nobody meanwhile", async () => {
    await open(problem() + problem({}, 'id="other"'));
    await page.evaluate(() => {
      globalThis.element = LPctrl1;
      element.remove();
      globalThis.about = element.ShowAboutBox().then(() => (document.title = "closed"));
      element.prmNrBeslisVar = 1;
      element.prmShow = true;
    });
    await page.click(control("cmd_Opties", undefined, "#other"));
    await until(() => other.shadowRoot.querySelector("[role=menu]"));
    await page.keyboard.press("Escape");
    assert.notEqual(await text(page, "txtRij_F", 4, "#other"), null, "prmShow has not been done yet");
    await page.evaluate(() => document.body.append(element));
    await formIsOpen();
    await page.keyboard.press("Escape");
    await until(() => document.title === "closed");
    assert.equal(await text(page, "txtRij_F", 4, "#LPctrl1"), null);
  });

  for (const [how, hide, show] of [
    ["display: none", "style.display = 'none'", "style.display = ''"],
    ["hidden", "hidden = true", "hidden = false"],
  ])
    test(`one that a page hides by ${how} takes its form along, and the page goes on`, async () => {
      await open(`${problem()}<button id="own">eigen</button>${problem({}, 'id="other"')}`);
      await page.evaluate(() => void LPctrl1.ShowAboutBox().then(() => (document.title = "closed")));
      await formIsOpen();
      await page.evaluate(`LPctrl1.${hide}`);
      await until(() => document.title === "closed");
      await page.evaluate(() => own.addEventListener("click", () => (document.title = "pressed")));
      await page.click("#own");
      assert.equal(await page.title(), "pressed");
      await page.click(control("cmd_Opties", undefined, "#other"));
      await until(() => other.shadowRoot.querySelector("[role=menu]"));
      await page.keyboard.press("Escape");
      await page.evaluate(`LPctrl1.${show}`);
      await page.click(control("cmd_Opties", undefined, "#LPctrl1"));
      await until(() => LPctrl1.shadowRoot.querySelector("[role=menu]"));
    });

  test("a form that opens where nobody can see it gives way at once", async () => {
    await open(problem({}, 'id="LPctrl1" hidden') + problem({}, 'id="other"'));
    await page.evaluate(() => LPctrl1.ShowAboutBox());
    await page.click(control("cmd_Opties", undefined, "#other"));
    await until(() => other.shadowRoot.querySelector("[role=menu]"));
  });

  test("one that is moved into a frame keeps its style, its forms and its menus", async () => {
    await open(`${problem()}<iframe id="frame" width="800" height="500" srcdoc="<!doctype html><p>elders"></iframe>`);
    await until(() => frame.contentDocument?.querySelector("p"));
    await page.evaluate(() => frame.contentDocument.body.append(LPctrl1));
    await page.evaluate(() => (globalThis.LPctrl1 = frame.contentDocument.querySelector("tabulon-lpctrl")));
    const inFrame = await (await page.$("#frame")).contentFrame();
    const { width, height } = await boxOf("tabulon-lpctrl", inFrame);
    assert.deepEqual([width, height], [600, 296]);
    await clickAt(control("cmd_Help"), inFrame);
    const [button, menu] = [
      await boxOf(control("cmd_Help"), inFrame),
      await boxOf("tabulon-lpctrl >>> [role=menu]", inFrame),
    ];
    assert.ok(Math.abs(menu.x - button.x) < 8 && Math.abs(menu.y - button.y - button.height) < 4);
    await clickAt("tabulon-lpctrl >>> [role=menuitem]", inFrame);
    await formIsOpen();
  });
});

describe("the page's focus", () => {
  const focused = () => page.evaluate(() => document.activeElement?.id);

  test("stays where the person is when a frame around the control loads or shows", async () => {
    await open(`<input id="own"><iframe id="frame" width="800" height="400"></iframe>`);
    await page.focus("#own");
    await browser.write("framed.html", withHead("", problem()));
    await page.evaluate(() => (frame.src = "framed.html"));
    await until(() => frame.contentDocument?.querySelector("tabulon-lpctrl")?.shadowRoot?.querySelector(".surface"));
    const inFrame = await (await page.$("#frame")).contentFrame();
    await idle(inFrame);
    assert.equal(await focused(), "own");
    await clickAt(control("txtTableau", 1), inFrame);
    assert.equal(await focused(), "frame");
    await page.focus("#own");
    await inFrame.evaluate(() => (LPctrl1.prmShow = true));
    await idle(inFrame);
    assert.equal(await focused(), "own");
    await page.keyboard.type("x");
    assert.equal(await page.$eval("#own", (own) => own.value), "x");
  });

  test("stays with the page where the element has nofocus, until the person comes", async () => {
    await open(problem({}, 'id="LPctrl1" nofocus'));
    assert.equal(await focused(), "");
    await page.click(control("txtTableau", 1));
    assert.equal(await focused(), "LPctrl1");
    await page.evaluate(() => (LPctrl1.prmShow = true));
    assert.equal(await focused(), "LPctrl1");
  });

  for (const [key, far] of [
    [" ", 100],
    ["PageDown", 100],
    ["End", 1000],
  ])
    test(`the key "${key}", which means nothing to the control, scrolls the page`, async () => {
      await openStyled("body { height: 3000px }");
      assert.equal(await page.evaluate(() => LPctrl1.shadowRoot.activeElement.dataset.name), "txtFocus");
      await page.keyboard.press(key);
      await until((least) => scrollY > least, far);
    });
});
