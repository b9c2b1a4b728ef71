// What a page does to the control that stands on it: rules that allow too little, styles, scales, frames, hiding and
// taking away. The control stays what it is, and the page stays usable.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, idle, launch, problem, text } from "./browser.mjs";

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
// In the page's own pixels, also of what stands in its frame `on`.
async function boxOf(selector, on = page) {
  const inFrame = await on.evaluate((path) => {
    const [element, inside] = path.split(" >>> ");
    const host = document.querySelector(element);
    return (inside ? host.shadowRoot.querySelector(inside) : host).getBoundingClientRect().toJSON();
  }, selector);
  const { x, y } =
    on === page ? { x: 0, y: 0 } : await page.$eval("iframe", (frame) => frame.getBoundingClientRect().toJSON());
  return { x: inFrame.x + x, y: inFrame.y + y, width: inFrame.width, height: inFrame.height };
}
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

  test("without popovers menus open in their place, and choose", async () => {
    await openWithout("delete HTMLElement.prototype.showPopover;");
    await page.click(control("cmd_Help"));
    await until(() => LPctrl1.shadowRoot.querySelector("[role=menu]"));
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
    await until(() => LPctrl1.shadowRoot.querySelector("[role=menu]"));
    const [button, menu] = [
      await boxOf(control("cmd_Help"), inFrame),
      await boxOf("tabulon-lpctrl >>> [role=menu]", inFrame),
    ];
    assert.ok(Math.abs(menu.x - button.x) < 8 && Math.abs(menu.y - button.y - button.height) < 4);
    await clickAt("tabulon-lpctrl >>> [role=menuitem]", inFrame);
    await formIsOpen();
    const form = () => LPctrl1.shadowRoot.querySelector("dialog").getBoundingClientRect().toJSON();
    const isInFrame = ({ left, top, right, bottom }) => left >= 0 && top >= 0 && right <= 500 && bottom <= 280;
    await page.evaluate(() => Object.assign(frame, { width: 500, height: 280 }));
    await page.waitForFunction(`(${isInFrame})((${form})())`);
    const { left, top } = await page.evaluate(form);
    const title = await middleOf("tabulon-lpctrl >>> dialog .title", inFrame);
    await page.mouse.move(...title);
    await page.mouse.down();
    await page.mouse.move(title[0] + 2000, title[1] + 2000);
    await page.mouse.up();
    const moved = await page.evaluate(form);
    assert.ok(moved.left > left && moved.left <= 500 - 48, "its title is beside the frame");
    assert.ok(moved.top > top && moved.top <= 280 - 32, "its title is below the frame");
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

  test("scrolls by keys that mean nothing to the control", async () => {
    await openStyled("body { height: 3000px }");
    assert.equal(await page.evaluate(() => LPctrl1.shadowRoot.activeElement.dataset.name), "txtFocus");
    await page.keyboard.press(" ");
    await until(() => scrollY > 100);
    await page.keyboard.press("Home");
    await until(() => scrollY === 0);
    await page.keyboard.press("PageDown");
    await until(() => scrollY > 100);
    await page.keyboard.press("PageUp");
    await until(() => scrollY === 0);
    await page.keyboard.press("End");
    await until(() => scrollY > 2000);
  });
});

describe("a page's style", () => {
  for (const [what, css, body] of [
    ["min-height", "tabulon-lpctrl { min-height: 500px; min-width: 900px }"],
    ["max-height", "tabulon-lpctrl { max-height: 50px; max-width: 90px }"],
    ["flex", "main { display: flex; width: 1200px } tabulon-lpctrl { flex: 1 }"],
    ["align-items: stretch", "main { display: flex; height: 500px; align-items: stretch }"],
    ["a narrow row", "main { display: flex; width: 200px }"],
    ["a grid", "main { display: grid; width: 300px; height: 500px } tabulon-lpctrl { place-self: stretch }"],
    ["display: flex", "tabulon-lpctrl { display: flex; align-items: center; justify-content: end }"],
    ["columns", "tabulon-lpctrl { columns: 3 }"],
    ["vertical writing", "* { writing-mode: vertical-rl }"],
    ["both sides fixed", "main { position: relative; height: 800px } tabulon-lpctrl { position: absolute; inset: 0 }"],
    ["a frame around all boxes", "* { box-sizing: border-box; padding: 12px; line-height: 3; max-width: 100% }"],
  ])
    test(`leaves 600 by 296: ${what}`, async () => {
      await openStyled(css, `<main>${body ?? problem()}</main>`);
      const [host, surface] = [await boxOf("tabulon-lpctrl"), await boxOf("tabulon-lpctrl >>> .surface")];
      assert.deepEqual([surface.width, surface.height], [600, 296]);
      assert.deepEqual([surface.x, surface.y], [host.x, host.y]);
      assert.deepEqual([host.width, host.height], [600, 296]);
    });

  describe("of an element that is part of a line", () => {
    const line = "tabulon-lpctrl { display: inline; font-size: 40px }";
    const size = () => page.$eval("tabulon-lpctrl", ({ offsetWidth, offsetHeight }) => [offsetWidth, offsetHeight]);
    const untilBox = () => page.waitForFunction(() => getComputedStyle(LPctrl1).display === "inline-block");
    const untilGone = () => page.waitForFunction(() => LPctrl1.getClientRects().length === 0);
    const openInLine = async (css = line) => {
      await browser.write("gone.css", "body tabulon-lpctrl { display: none }");
      await openStyled(css, `<p id="around">voor ${problem()} na</p>`);
      await untilBox();
    };

    test("leaves it 600 by 296, in its line", async () => {
      await openInLine();
      const [host, surface] = [await boxOf("tabulon-lpctrl"), await boxOf("tabulon-lpctrl >>> .surface")];
      assert.deepEqual([host.width, host.height], [600, 296]);
      assert.deepEqual(host, surface);
      assert.ok(host.x > (await boxOf("p")).x + 10, "it begins a line of its own");
    });

    for (const [what, hide, show] of [
      ["its own style", () => (LPctrl1.style.display = "none"), () => (LPctrl1.style.display = "")],
      ["a class", () => LPctrl1.classList.add("gone"), () => LPctrl1.classList.remove("gone")],
      ["a class further out", () => document.body.classList.add("away"), () => document.body.classList.remove("away")],
      [
        "a style sheet",
        () =>
          document.head.append(Object.assign(document.createElement("link"), { rel: "stylesheet", href: "gone.css" })),
        () => document.head.lastElementChild.remove(),
      ],
    ])
      test(`can hide it and show it again by ${what}`, async () => {
        await openInLine(`${line} tabulon-lpctrl.gone, .away tabulon-lpctrl { display: none }`);
        await page.evaluate(hide);
        await untilGone();
        await page.evaluate(show);
        await untilBox();
        assert.deepEqual(await size(), [600, 296]);
      });

    // In the frame that makes it a box, whose size is told with the next one.
    for (const [what, change, back] of [
      ["hide it and show it again", () => element.classList.add("gone"), () => element.classList.remove("gone")],
      ["turn the text around it", () => (around.className = "turned"), () => (around.className = "")],
      ["take it out and put it back", () => element.remove(), () => around.append(element)],
    ])
      test(`can ${what} within a frame`, async () => {
        await openStyled(
          ".in-line { display: inline } .gone { display: none } .turned { writing-mode: vertical-rl }",
          `<p id="around">voor ${problem()} na</p>`,
        );
        await page.evaluate(`(async () => {
          globalThis.element = LPctrl1;
          element.className = "in-line";
          await new Promise((resume) => requestAnimationFrame(() => setTimeout(resume)));
          (${change})();
          await null;
          (${back})();
        })()`);
        await untilBox();
        assert.deepEqual(await size(), [600, 296]);
      });

    test("can hide it in a narrow window, and on paper", async () => {
      await openInLine(`${line} @media print, (max-width: 700px) { tabulon-lpctrl { display: none } }`);
      await page.setViewport({ width: 650, height: 700 });
      await untilGone();
      await page.setViewport({ width: 900, height: 700 });
      await untilBox();
      await page.emulateMediaType("print");
      assert.equal(await page.$eval("tabulon-lpctrl", (element) => getComputedStyle(element).display), "none");
    });

    test("hears of no error when it makes it so", async () => {
      await openStyled("tabulon-lpctrl.in-line { display: inline }", `<p>voor ${problem()} na</p>`);
      await page.evaluate(() => {
        globalThis.errors = [];
        addEventListener("error", ({ message }) => errors.push(message));
        LPctrl1.className = "in-line";
      });
      await untilBox();
      await page.evaluate(() => new Promise((resume) => requestAnimationFrame(() => setTimeout(resume))));
      assert.deepEqual(await page.evaluate(() => errors), []);
    });

    test("may make another box of it", async () => {
      await openInLine();
      await page.evaluate(() => (LPctrl1.style.display = "block"));
      await page.waitForFunction(() => getComputedStyle(LPctrl1).display === "block");
      assert.deepEqual(await size(), [600, 296]);
    });

    test("leaves it a box when it is taken out and put back, and after it was another box", async () => {
      await openInLine();
      await page.evaluate(() => {
        LPctrl1.style.display = "flex";
        LPctrl1.style.display = "";
        around.before(LPctrl1);
      });
      await untilBox();
      await page.evaluate(async () => {
        const gone = LPctrl1;
        gone.remove();
        await new Promise((resume) => requestAnimationFrame(() => setTimeout(resume)));
        around.append(gone);
      });
      await untilBox();
      assert.deepEqual(await size(), [600, 296]);
    });
  });

  // What is seen of every control: its place in the control, and its letters' style.
  const look = () =>
    page.evaluate(() => {
      const { left, top } = LPctrl1.getBoundingClientRect();
      const properties = ["direction", "textTransform", "letterSpacing", "wordSpacing", "textIndent", "textAlign"];
      properties.push(
        "fontSize",
        "fontFamily",
        "fontWeight",
        "fontStyle",
        "fontVariant",
        "lineHeight",
        "textShadow",
        "color",
      );
      properties.push("writingMode", "quotes", "hyphens", "tabSize", "whiteSpace", "textDecorationLine");
      const shown = [...LPctrl1.shadowRoot.querySelectorAll("[data-name]")].filter((node) => node.checkVisibility());
      return shown.map((node) => {
        const style = getComputedStyle(node);
        const box = node.getBoundingClientRect();
        const place = [box.left - left, box.top - top, box.width, box.height].map((at) => Math.round(at * 100));
        return [node.dataset.name, ...place, ...properties.map((name) => style[name])].join(" ");
      });
    });

  for (const [what, css] of [
    ["from right to left", "* { direction: rtl; unicode-bidi: bidi-override }"],
    ["in capitals", "* { text-transform: uppercase; font-variant: small-caps }"],
    ["spaced", "* { letter-spacing: 4px; word-spacing: 9px; line-height: 3; text-indent: 20px; text-align: right }"],
    ["large and slanting", "* { font: italic bold 30px serif; color: red; text-shadow: 1px 1px blue; cursor: help }"],
    ["down", "* { writing-mode: vertical-rl; white-space: normal; hyphens: auto; tab-size: 1; quotes: none }"],
  ])
    test(`is its own: a page ${what} changes nothing of the control, its form and its menu`, async () => {
      const seen = async () => {
        await page.click(control("cmd_Help"));
        await idle(page);
        const withMenu = await look();
        await clickAt("tabulon-lpctrl >>> [role=menuitem]");
        await formIsOpen();
        return [...withMenu, ...(await look())];
      };
      const numbers = { prmSTR_RL: "-3, 4" };
      await open(`<main>${problem(numbers)}</main>`);
      const plain = await seen();
      await page.close();
      await openStyled(`body { margin: 8px } ${css}`, `<main>${problem(numbers)}</main>`);
      assert.deepEqual(await seen(), plain);
    });

  test("can hide it", async () => {
    await openStyled("tabulon-lpctrl { display: none } .unseen { visibility: hidden }", problem());
    assert.equal(await text(page, "lblNRTableau"), null);
    await page.evaluate(() => (LPctrl1.style.display = "inline-block"));
    assert.equal(await text(page, "lblNRTableau"), "1-e Simplex-tableau");
    await page.evaluate(() => LPctrl1.classList.add("unseen"));
    const visibility = await page.$eval(control("lblNRTableau"), (node) => getComputedStyle(node).visibility);
    assert.equal(visibility, "hidden");
  });
});

const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

describe("a page that is scaled", () => {
  const wide = { width: 1400, height: 1000 };
  const scales = [
    ["zoom: 1.5", "main { zoom: 1.5; margin: 40px 60px }"],
    ["zoom: 0.75", "main { zoom: 0.75; margin: 40px 60px }"],
    ["zoom on the control", "tabulon-lpctrl { zoom: 1.25; margin: 50px }"],
    ["transform: scale(1.5)", "main { transform: scale(1.5); transform-origin: 0 0; margin: 40px 60px }"],
    ["transform: scale(0.5)", "main { transform: scale(0.5); transform-origin: 0 0; margin: 40px 60px }"],
  ];
  const near = (found, wanted, most, what) =>
    assert.ok(Math.abs(found - wanted) <= most, `${what}: ${found} and not ${wanted}`);
  const isTop = (selector) =>
    page.evaluate((name) => {
      const { x, y, width, height } = LPctrl1.shadowRoot.querySelector(name).getBoundingClientRect();
      return x >= 0 && y >= 0 && x + width <= innerWidth && y + height <= innerHeight;
    }, selector);

  for (const [what, css] of scales) {
    test(`opens a menu at its button: ${what}`, async () => {
      await openStyled(css, `<main>${problem()}</main>`, wide);
      await clickAt(control("cmd_Opties"));
      await until(() => LPctrl1.shadowRoot.querySelector("[role=menu]"));
      const [host, button, menu] = [
        await boxOf("tabulon-lpctrl"),
        await boxOf(control("cmd_Opties")),
        await boxOf("tabulon-lpctrl >>> [role=menu]"),
      ];
      const unit = host.width / 600;
      near(menu.x, button.x, 6 * unit + 1, "left");
      near(menu.y, host.y + 19 * unit, 2 * unit + 1, "top");
    });

    test(`opens a form in the middle: ${what}`, async () => {
      await openStyled(css, `<main>${problem()}</main>`, wide);
      await page.evaluate(() => void LPctrl1.ShowAboutBox());
      await formIsOpen();
      const [host, form] = [await boxOf("tabulon-lpctrl"), await boxOf("tabulon-lpctrl >>> dialog")];
      near(form.x + form.width / 2, Math.max(host.x + host.width / 2, form.width / 2 + 8), 2, "middle");
      near(form.y + form.height / 2, Math.max(host.y + host.height / 2, form.height / 2 + 8), 2, "middle");
      assert.ok(await isTop("dialog"));
    });

    test(`the graph's cross and panel follow the pointer: ${what}`, async () => {
      await openStyled(css, `<main>${problem(twoProducts)}</main>`, wide);
      await clickAt(control("cmd_Bewerken"));
      await clickAt(control("mnu_optimaliseren"));
      await formIsOpen();
      await page.keyboard.press("Enter");
      await clickAt(control("cmd_Opties"));
      await clickAt(control("mnu_Grafiek"));
      await until(() => LPctrl1.shadowRoot.querySelector("[data-name=imgCross]")?.checkVisibility());
      const unit = (await boxOf("tabulon-lpctrl")).width / 600;
      for (const [name, byX, byY] of [
        ["imgCross", 20, 20],
        ["cmdFrame", -40, 15],
      ]) {
        const from = await middleOf(control(name));
        await page.mouse.move(...from);
        await page.mouse.down();
        await page.mouse.move(from[0] + (byX * unit) / 2, from[1] + (byY * unit) / 2);
        await page.mouse.move(from[0] + byX * unit, from[1] + byY * unit);
        await page.mouse.up();
        const to = await middleOf(control(name));
        near(to[0] - from[0], byX * unit, 3 * unit, `${name}, to the right`);
        near(to[1] - from[1], byY * unit, 3 * unit, `${name}, down`);
      }
    });

    test(`a scroll bar's thumb follows the pointer: ${what}`, async () => {
      await openStyled(css, `<main>${problem({ prmNrBeslisVar: 20, prmNrKleinerGelijkVglen: 10 })}</main>`, wide);
      const thumb = `${control("HScroll")} .thumb`;
      const [from, box] = [await middleOf(thumb), await boxOf(control("HScroll"))];
      await page.mouse.move(...from);
      await page.mouse.down();
      await page.mouse.move(from[0] + box.width / 3, from[1], { steps: 4 });
      await page.mouse.up();
      await idle(page);
      near((await middleOf(thumb))[0] - from[0], box.width / 3, box.width / 25, "the thumb");
    });
  }
});

describe("a finger", () => {
  const touched = { width: 700, height: 700, hasTouch: true, isMobile: true };
  const noTouch = process.env.TABULON_ENGINE === "firefox" && "it has no coarse pointer to try with";

  async function openTouched(parameters, viewport = touched) {
    page = await browser.open("<p>", { wait: false });
    const { width, height } = viewport;
    const url = await withoutOpening(parameters);
    await page.setViewport(viewport);
    await page.goto(url);
    await idle(page);
    return { width, height };
  }

  // The address of a page with the control.
  async function withoutOpening(parameters) {
    const name = `touched${++sheets}.html`;
    await browser.write(name, withHead('<meta name="viewport" content="width=device-width">', problem(parameters)));
    return `${browser.origin}/${name}`;
  }

  // The size of the field in which a press reaches `part` of a control, by trying every pixel around its middle.
  const reach = (name, part = "") =>
    page.evaluate(
      (control, inner) => {
        const root = LPctrl1.shadowRoot;
        const wanted = root.querySelector(`[data-name=${control}] ${inner}`.trim());
        const { left, top, width, height } = wanted.getBoundingClientRect();
        const [x, y] = [left + width / 2, top + height / 2];
        const hits = (dx, dy) => {
          const hit = root.elementFromPoint(x + dx, y + dy);
          return hit === wanted || wanted.contains(hit);
        };
        const run = (step) => {
          let far = 0;
          while (far < 60 && hits(...step(far))) ++far;
          return far;
        };
        const across = run((at) => [at, 0]) + run((at) => [-at, 0]) - 1;
        return [across, run((at) => [0, at]) + run((at) => [0, -at]) - 1];
      },
      name,
      part,
    );
  const expectReach = async (least, ...what) => {
    const [width, height] = await reach(...what);
    assert.ok(width >= least && height >= least, `${what.join(" ")}: ${width} by ${height}`);
  };
  const tap = async (selector) => {
    await page.waitForSelector(selector);
    await page.touchscreen.tap(...(await middleOf(selector)));
  };

  test("finds 24 pixels each way on the menus' buttons", { skip: noTouch }, async () => {
    await openTouched(twoProducts);
    for (const button of ["cmd_Bestand", "cmd_Bewerken", "cmd_Opties", "cmd_Help"]) await expectReach(24, button);
  });

  for (const [form, items, bars] of [
    ["a new problem", ["cmd_Bestand", "mnu_Nieuw", "mnu_Nieuw_Big_M"], ["VScroll_NrBeslisVarM", "VScroll_NrBigMM"]],
    ["sweeping", ["cmd_Bewerken", "mnu_Kolommen_vegen"], ["VScrollKolom", "VScrollRij"]],
  ])
    test(`finds 24 pixels each way on the arrows of ${form}, and each does what it shows`, {
      skip: noTouch,
    }, async () => {
      await openTouched(twoProducts);
      for (const item of items) await tap(control(item));
      await formIsOpen();
      for (const bar of bars) for (const arrow of [".back", ".forward"]) await expectReach(24, bar, arrow);
      const value = () => page.$eval(control(bars[0]), (bar) => Number(bar.ariaValueNow));
      const before = await value();
      await tap(`${control(bars[0])} .back`);
      assert.equal(await value(), before + 1);
      await tap(`${control(bars[0])} .forward`);
      assert.equal(await value(), before);
    });

  test("catches the graph's cross from further off than a mouse", { skip: noTouch }, async () => {
    await openTouched(twoProducts);
    await tap(control("cmd_Bewerken"));
    await tap(control("mnu_optimaliseren"));
    await formIsOpen();
    await page.keyboard.press("Enter");
    await tap(control("cmd_Opties"));
    await tap(control("mnu_Grafiek"));
    await until(() => LPctrl1.shadowRoot.querySelector("[data-name=imgCross]")?.checkVisibility());
    await expectReach(36, "imgCross");
  });

  test("meets no submenu under it in a narrow window", { skip: noTouch }, async () => {
    for (const height of [700, 200]) {
      await openTouched(twoProducts, { ...touched, width: 320, height });
      await tap(control("cmd_Bestand"));
      await page.waitForSelector(control("mnu_Nieuw"));
      const place = await middleOf(control("mnu_Nieuw"));
      await page.touchscreen.tap(...place);
      await page.waitForSelector(control("mnu_Nieuw_Big_M"));
      const under = await page.evaluate(
        (x, y) => {
          const hit = LPctrl1.shadowRoot.elementFromPoint(x, y);
          return hit?.closest("[data-name]")?.dataset.name;
        },
        ...place,
      );
      assert.equal(under, "mnu_Nieuw");
      const submenu = await boxOf("tabulon-lpctrl >>> [role=menu]:last-of-type");
      assert.ok(submenu.x >= 0 && submenu.y >= 0);
      await page.close();
    }
    page = undefined;
  });
});
