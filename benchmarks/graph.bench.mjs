// What a pupil feels of the graph panel in Chromium: how long it takes to open, and what each move of the cross
// costs, as script and as a frame that has been laid out.
import { control, launch, problem } from "../tests/browser/browser.mjs";

const say = (name, value, unit) => console.log(JSON.stringify({ name, value, unit }));
const sorted = (numbers) => [...numbers].sort((a, b) => a - b);
const quantile = (numbers, part) => sorted(numbers)[Math.min(numbers.length - 1, Math.floor(numbers.length * part))];
const median = (numbers) => quantile(numbers, 0.5);

const lists = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

// From the choice of the menu item to a panel that is drawn and laid out.
const opening = (page) =>
  page.evaluate(async () => {
    const find = (name) => LPctrl1.shadowRoot.querySelector(`[data-name="${name}"]`);
    const pause = () => new Promise((resume) => setTimeout(resume, 20));
    const times = [];
    for (let round = 0; round < 20; ++round) {
      find("cmd_Opties").click();
      await pause();
      const start = performance.now();
      find("mnu_Grafiek").click();
      find("PictureLN").getBoundingClientRect();
      times.push(performance.now() - start);
      await pause();
      find("cmdSluiten").click();
      await pause();
    }
    return times;
  });

// Rounds through the square, one move a frame. Each number is what the script of one move takes.
const dragging = (page) =>
  page.evaluate(async () => {
    const find = (name) => LPctrl1.shadowRoot.querySelector(`[data-name="${name}"]`);
    const cross = find("imgCross");
    const picture = find("PictureLN").getBoundingClientRect();
    cross.setPointerCapture = () => {};
    const point = (type, x, y, more) =>
      cross.dispatchEvent(
        new PointerEvent(type, {
          bubbles: true,
          composed: true,
          isPrimary: true,
          pointerId: 1,
          clientX: x,
          clientY: y,
          ...more,
        }),
      );
    const nextFrame = () => new Promise((resume) => requestAnimationFrame(resume));
    const { left, top, width, height } = cross.getBoundingClientRect();
    point("pointerdown", left + width / 2, top + height / 2, { button: 0, buttons: 1 });
    const scripts = [];
    for (let move = 0; move < 600; ++move) {
      const turn = (2 * Math.PI * move) / 149;
      await nextFrame();
      const start = performance.now();
      point("pointermove", picture.left + 123 + 80 * Math.cos(turn), picture.top + 120 + 80 * Math.sin(turn), {
        button: -1,
        buttons: 1,
      });
      scripts.push(performance.now() - start);
    }
    point("pointerup", picture.left + 123, picture.top + 120, { button: 0, buttons: 0 });
    if (find("lblValX1").textContent === " 2") throw new Error("the cross did not move");
    return scripts;
  });

const browser = await launch({ whole: true });
try {
  const page = await browser.open(problem(lists));
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("dialog[open]"));
  await page.keyboard.press("Enter");
  say("graph: open the panel", median(await opening(page)), "ms");
  await page.click(control("cmd_Opties"));
  await page.click(control("mnu_Grafiek"));
  await dragging(page); // warm
  // The frame is all that the page's thread does for a move: script, style, layout, painting.
  const before = await page.metrics();
  const scripts = await dragging(page);
  const after = await page.metrics();
  say("graph: script of a drag event, median", median(scripts), "ms");
  say("graph: script of a drag event, 99th percentile", quantile(scripts, 0.99), "ms");
  say("graph: frame of a drag event", (1000 * (after.TaskDuration - before.TaskDuration)) / scripts.length, "ms");
} finally {
  await browser.close();
}
