// While the control works through a problem of many steps, the page lives on: its scripts run and it scrolls.
//
// The page's clock says that a yield is always due, and the control's messages to itself wait until the test lets
// them through, so that the run stands still in the middle for as long as the test looks.
import assert from "node:assert/strict";
import { after, before, describe, test } from "node:test";
import { control, heldMessages, launch, problem, idle, text } from "./browser.mjs";

const variables = 8;
const numbers = Array.from({ length: variables }, (_, at) => at + 1);
const list = (items) => items.map((item) => ` ${BigInt(item)}`).join(",");

// Klee and Minty's problem, on which the rule of the largest coefficient visits all 256 corners.
const parameters = {
  prmNrBeslisVar: variables,
  prmNrKleinerGelijkVglen: variables,
  prmSTR_DLfunctie: list(numbers.map((j) => -(10 ** (variables - j)))),
  prmSTR_KleinerGelijkVglen: list(
    numbers.flatMap((i) => numbers.map((j) => (j < i ? 2 * 10 ** (i - j) : Number(i === j)))),
  ),
  prmSTR_RL: list(numbers.map((i) => 100 ** (i - 1))),
};

const slowMachine = `
  let reading = 0;
  performance.now = () => (reading += 1000);
  ${heldMessages}
  window.counted = 0;
  setInterval(() => ++counted, 1);
  addEventListener("DOMContentLoaded", () => (document.body.style.height = "5000px"));
`;

const page = `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>A long run</title>
<script src="slow-machine.js"></script>
<script src="tabulon.js"></script>
<body>
${problem(parameters)}
</body>
</html>
`;

describe("a long run in the browser", () => {
  let browser, opened;
  const isBusy = () => opened.$eval("tabulon-lpctrl", (element) => element.getAttribute("aria-busy"));
  const until = (condition) => opened.waitForFunction(condition, { polling: 20, timeout: 10_000 });

  before(async () => {
    browser = await launch();
    await browser.write("slow-machine.js", slowMachine);
    opened = await browser.open(page, { wait: false });
    await idle(opened);
    await opened.click(control("cmd_Bewerken"));
    await opened.waitForSelector(control("mnu_optimaliseren"));
    await opened.evaluate(() => window.hold());
    await opened.click(control("mnu_optimaliseren"));
    await until(() => window.held.length === 1);
  });
  after(() => browser?.close());

  test("the control is busy, and no form is open", async () => {
    assert.equal(await isBusy(), "true");
    assert.equal(await opened.$("tabulon-lpctrl >>> dialog[open]"), null);
  });

  test("the page's scripts run", async () => {
    const before = await opened.evaluate(() => window.counted);
    await opened.waitForFunction((count) => window.counted > count + 20, { polling: 20, timeout: 10_000 }, before);
    assert.equal(await isBusy(), "true");
  });

  test("the page scrolls under the wheel", async () => {
    assert.equal(await opened.evaluate(() => window.scrollY), 0);
    await opened.mouse.move(300, 450);
    await opened.mouse.wheel({ deltaY: 400 });
    await until(() => window.scrollY > 100);
    assert.equal(await isBusy(), "true");
    await opened.mouse.wheel({ deltaY: -400 });
    await until(() => window.scrollY === 0);
  });

  test("the control takes no click meanwhile", async () => {
    await opened.click(control("cmd_Help"));
    assert.equal(await opened.$('tabulon-lpctrl >>> [role="menu"]'), null);
  });

  test("the cursor says so, and what is pressed is still what lies there", async () => {
    const under = await opened.evaluate(() => {
      const { shadowRoot: root } = document.querySelector("tabulon-lpctrl");
      return ["txtTableau", "lblKLM", "lblNRTableau"].map((name) => {
        const node = root.querySelector(`[data-name="${name}"]`);
        const { left, top } = node.getBoundingClientRect();
        return [root.elementFromPoint(left + 5, top + 5) === node, getComputedStyle(node).cursor];
      });
    });
    assert.deepEqual(under, [
      [true, "default"], // its own, since it is locked
      [true, "progress"],
      [true, "progress"],
    ]);
  });

  test("every batch gives the page its turn again", async () => {
    await opened.evaluate(() => window.letThrough());
    await until(() => window.held.length === 1);
    assert.equal(await isBusy(), "true");
  });

  test("the run ends where it would have ended", async () => {
    await opened.evaluate(() => window.goOn());
    await opened.waitForSelector("tabulon-lpctrl >>> dialog[open]", { visible: true });
    assert.equal(await text(opened, "lblMelding"), "Optimale oplossing gevonden!");
    assert.equal(await text(opened, "lblNRTableau"), "256-e Simplex-tableau");
    assert.equal(await isBusy(), null);
  });
});
