// What a person does while the control waits for a repaint is done when it has gone on, in its order. The control's
// messages to itself wait until the test lets them through, so that a repaint takes as long as the test wants.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, heldMessages, launch, noise, problem, text } from "./browser.mjs";

const large = { prmNrBeslisVar: 20, prmNrKleinerGelijkVglen: 4 };
const pageWith = (parameters) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>Type ahead</title>
<link rel="icon" href="data:,">
<script src="slow-machine.js"></script>
<script src="tabulon.js"></script>
<body>
${problem(parameters)}
</body>
</html>
`;

for (const engine of ["chromium", "firefox"])
  describe(`while the control waits for a repaint, in ${engine}`, () => {
    let browser, page;
    before(async () => {
      browser = await launch({ engine });
      await browser.write("slow-machine.js", heldMessages);
    });
    after(() => browser?.close());
    afterEach(async () => {
      assert.deepEqual(noise(page), []);
      await page.close();
    });

    const open = async (parameters) => (page = await browser.open(pageWith(parameters)));
    const until = (condition) => page.waitForFunction(condition, { polling: 20, timeout: 10_000 });
    const inside = (expression) => page.evaluate(`(root => ${expression})(LPctrl1.shadowRoot)`);
    const untilInside = (expression) => until(`(root => ${expression})(LPctrl1.shadowRoot)`);
    const openForm = () => inside('root.querySelector("dialog[open]")?.dataset.name');
    const hold = () => page.evaluate(() => window.hold());
    const goOn = () => page.evaluate(() => window.goOn());
    const untilItWaits = () => until("window.held.length === 1");
    const untilIdle = () => until('!LPctrl1.hasAttribute("aria-busy") && !window.held.length');
    // None waits for another.
    const press = (keys) => Promise.all(keys.map((key) => page.keyboard.press(key)));
    const choose = async (button, ...items) => {
      await page.click(control(button));
      for (const item of items) {
        await page.waitForSelector(control(item));
        await page.click(control(item));
      }
    };
    // While its thumb is dragged, the control repaints after each step.
    const drag = async (first = () => {}) => {
      const { x, y, width, height } = await (await page.$(`${control("HScroll")} .thumb`)).boundingBox();
      await page.mouse.move(x + width / 2, y + height / 2);
      await page.mouse.down();
      await first();
      await page.mouse.move(x + width / 2 + 40, y + height / 2);
    };
    const tableau = () => page.evaluate(() => LPctrl1.tableau.current);

    test("forty keys in one go all land, behind the click that came before them", async () => {
      const row = (sign) => Array.from({ length: 5 }, (_, at) => [sign, "/", String(at + 2), "Tab"]).flat();
      const keys = [...row("7"), ...row("5")];
      await open(large);
      await drag();
      await page.mouse.up();
      await page.click(control("txtTableau", 2));
      for (const key of keys) {
        await page.keyboard.press(key);
        await untilIdle();
      }
      const slowly = await tableau();
      assert.equal(slowly.rows.flatMap(({ cells }) => cells).filter(({ text }) => /[75][/]/.test(text)).length, 10);
      await page.close();

      await open(large);
      await drag(hold);
      await untilItWaits();
      await page.mouse.up();
      await page.click(control("txtTableau", 2));
      await press(keys);
      assert.equal(await text(page, "txtTableau", 2), " 0");
      await goOn();
      await untilIdle();
      assert.deepEqual(await tableau(), slowly);
    });

    test("keys work in a text as they do at any other time", async () => {
      await open(large);
      await drag(hold);
      await untilItWaits();
      await page.mouse.up();
      await page.click(control("txtTableau", 2));
      await press(["1", "2", "3", "Backspace", "Home", "4", "ArrowRight", "Delete", "End", "5", "ArrowLeft", "6", "x"]);
      await press(["Delete", "Backspace"]);
      await goOn();
      await untilIdle();
      assert.equal(await text(page, "txtTableau", 2), "416");
      assert.deepEqual(await inside("[root.activeElement.selectionStart, root.activeElement.selectionEnd]"), [3, 3]);
    });

    test("what is typed before a form has come is for the form", async () => {
      await open();
      await choose("cmd_Bestand", "mnu_Nieuw");
      await hold();
      await page.click(control("mnu_Nieuw_Simplex"));
      await untilItWaits();
      await press(["ArrowUp", "ArrowUp", "Tab", "ArrowUp"]);
      assert.equal(await openForm(), undefined);
      await goOn();
      await untilInside('root.querySelector("dialog[open]")');
      assert.equal(await text(page, "lblNrBeslisVarM"), "4");
      assert.equal(await text(page, "lblNrKleinerGelijkVglenM"), "3");
    });

    test("a message that was not there yet is not answered", async () => {
      await open();
      await choose("cmd_Help");
      await hold();
      await page.keyboard.press("i");
      await untilItWaits();
      await press(["Enter", "Escape", " "]);
      await goOn();
      await untilInside('root.querySelector("dialog[open]")');
      assert.equal(await openForm(), "frmAboutLP");
      await page.keyboard.press("Enter");
      await untilInside('!root.querySelector("dialog")');
    });

    test("keys find the menu that was on its way", async () => {
      await open();
      await hold();
      await page.click(control("cmd_Help"));
      await untilItWaits();
      await press(["i"]);
      await goOn();
      await untilInside('root.querySelector("dialog[open]")');
      assert.equal(await openForm(), "frmAboutLP");
    });

    test("a press goes no further than the form that has come over what was pressed", async () => {
      await open();
      await choose("cmd_Bestand", "mnu_Nieuw");
      await hold();
      await page.click(control("mnu_Nieuw_Simplex"));
      await untilItWaits();
      await page.click(control("cmd_Opties"));
      await goOn();
      await untilInside('root.querySelector("dialog[open]")');
      assert.equal(await inside('root.querySelector("[role=menu]")'), null);
    });

    test("the second between two steps takes no keys", async () => {
      await open({ prmSTR_DLfunctie: " -3, -5", prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2", prmSTR_RL: " 4, 12" });
      await choose("cmd_Bewerken", "mnu_Automatisch_vegen");
      await untilInside('root.querySelector("dialog[open]")');
      await hold();
      await page.keyboard.press("Enter");
      await untilItWaits();
      await press(["Enter", "Enter", "9"]);
      await goOn();
      await untilInside('root.querySelector("dialog[open]")');
      assert.equal(await text(page, "lblMelding"), "Kolom 2 vegen met rij 2");
    });

    test("an element that has gone from the page takes nothing more", async () => {
      await open(large);
      await drag(hold);
      await untilItWaits();
      await page.mouse.up();
      await page.click(control("cmd_Opties"));
      await page.evaluate(() => {
        window.gone = LPctrl1;
        window.gone.remove();
      });
      await goOn();
      await until("!window.held.length");
      await page.evaluate(() => document.body.append(window.gone));
      await untilIdle();
      assert.equal(await inside('root.querySelector("[role=menu]")'), null);
    });
  });
