// What meets the eye: what has the focus and what Enter presses can be told apart, things stand in line, and colours
// that tell something are there in forced colours and on paper.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { inflateSync } from "node:zlib";
import { control, launch, noise, problem } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  assert.deepEqual(noise(page), []);
  await page.close();
});

const twoProducts = {
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};
const threeKinds = {
  prmNrKleinerGelijkVglen: 1,
  prmNrGroterGelijkVglen: 1,
  prmNrGelijkVglen: 1,
  prmSTR_RL: " 1, 2, 3",
};

async function open(parameters = twoProducts, options = {}) {
  page = await browser.open(problem(parameters), options);
}

async function press(keys) {
  for (const name of keys.split(" ")) {
    const parts = name.split("+");
    for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
    await page.keyboard.press(parts.at(-1));
    for (const held of parts.slice(0, -1)) await page.keyboard.up(held);
  }
}

async function openForm(keys) {
  await press(keys);
  await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("dialog[open]"), { timeout: 5000 });
}

async function openSolvedGraph() {
  await page.click(control("FrameHead"));
  await openForm("Alt+w o");
  await press("Enter Alt+o g");
  await page.mouse.move(1, 1);
}

const style = (name, property, index) =>
  page.$eval(control(name, index), (node, wanted) => getComputedStyle(node)[wanted], property);
const expanded = () =>
  page.evaluate(() =>
    [...LPctrl1.shadowRoot.querySelectorAll('button[aria-expanded="true"]')].map((node) => node.dataset.name),
  );

// The rows of pixels of a picture, each pixel as "red,green,blue".
const rowsOf = (base64) =>
  page.evaluate(async (source) => {
    const bitmap = await createImageBitmap(await (await fetch(`data:image/png;base64,${source}`)).blob());
    const { width, height } = bitmap;
    const context = new OffscreenCanvas(width, height).getContext("2d");
    context.drawImage(bitmap, 0, 0);
    const { data } = context.getImageData(0, 0, width, height);
    const pixel = (at) => data.subarray(4 * at, 4 * at + 3).join();
    return Array.from({ length: height }, (_, y) => Array.from({ length: width }, (_, x) => pixel(y * width + x)));
  }, base64);

// A control as it is seen: how many pixels there are of each colour.
async function coloursIn(name, index) {
  const node = await page.$(control(name, index));
  const counts = new Map();
  for (const colour of (await rowsOf(await node.screenshot({ encoding: "base64" }))).flat())
    counts.set(colour, (counts.get(colour) ?? 0) + 1);
  return counts;
}

function luminance(colour) {
  const [red, green, blue] = colour.match(/\d+/g).map((part) => {
    const share = part / 255;
    return share <= 0.03928 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
  });
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}
const contrast = (one, other) => {
  const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
  return (light + 0.05) / (dark + 0.05);
};

describe("a dialog", () => {
  test("shows by 3 to 1 which number the keys turn, beside its yellow", async () => {
    await open();
    await page.click(control("FrameHead"));
    await openForm("Alt+b n s");
    const ring = async (name) => {
      const [colour, width] = [await style(name, "outlineColor"), await style(name, "outlineWidth")];
      return { contrast: contrast(colour, await style("frmNieuw_Simplex", "backgroundColor")), width };
    };
    assert.equal(await style("lblNrBeslisVarM", "backgroundColor"), "rgb(255, 245, 204)");
    const current = await ring("lblNrBeslisVarM");
    assert.ok(current.contrast >= 3, `${current.contrast}`);
    assert.equal(current.width, "2px");
    assert.equal((await ring("lblNrKleinerGelijkVglenM")).width, "1px");
    await press("Tab");
    assert.equal((await ring("lblNrBeslisVarM")).width, "1px");
    assert.equal((await ring("lblNrKleinerGelijkVglenM")).width, "2px");
  });

  test("has the same border around its numbers as every other", async () => {
    await open();
    await page.click(control("FrameHead"));
    const border = async (name) => [
      await style(name, "outlineColor"),
      await style(name, "outlineStyle"),
      await style(name, "outlineWidth"),
    ];
    await openForm("Alt+b n b");
    const inBigM = await border("lblNrBigMM");
    await press("Escape");
    await openForm("Alt+w v");
    assert.deepEqual(await border("txtRij"), inBigM);
  });

  test("shows that Enter presses OK, until another button has the focus", async () => {
    await open();
    await page.click(control("FrameHead"));
    await openForm("Alt+w v");
    const edges = async () => [await style("OKButton", "borderColor"), await style("CancelButton", "borderColor")];
    const [ok, cancel] = await edges();
    assert.notEqual(ok, cancel);
    await press("Shift+Tab");
    assert.equal(await page.evaluate(() => LPctrl1.shadowRoot.activeElement.dataset.name), "CancelButton");
    assert.equal((await edges())[0], cancel);
    await press("Shift+Tab");
    assert.deepEqual(await edges(), [ok, cancel]);
  });
});

describe("an opened menu marks its button", () => {
  test("by the mouse", async () => {
    await open();
    const closed = await style("cmd_Bewerken", "backgroundImage");
    await page.click(control("cmd_Bewerken"));
    await page.mouse.move(5, 5);
    assert.deepEqual(await expanded(), ["cmd_Bewerken"]);
    assert.notEqual(await style("cmd_Bewerken", "backgroundImage"), closed);
    await press("Escape");
    assert.deepEqual(await expanded(), []);
    assert.equal(await style("cmd_Bewerken", "backgroundImage"), closed);
  });

  test("by the keyboard, and not while its command runs", async () => {
    await open();
    await page.click(control("FrameHead"));
    await press("Alt+h");
    assert.deepEqual(await expanded(), ["cmd_Help"]);
    await openForm("i");
    assert.deepEqual(await expanded(), []);
  });
});

describe("in line", () => {
  // The first and the last row of pixels that have ink in them.
  async function inkOf(name, index) {
    const node = await page.$(control(name, index));
    const { x, y, width, height } = await node.boundingBox();
    const clip = { x: x + 3, y: y + 3, width: width - 6, height: height - 6 };
    const rows = await rowsOf(await page.screenshot({ encoding: "base64", clip }));
    const isInked = (row) => row.some((colour) => colour.split(",")[1] < 110);
    return [rows.findIndex(isInked), rows.findLastIndex(isInked)];
  }

  for (const scale of [1, 2])
    test(`stand a row's label and the texts of its cells, at ${scale} pixels to a pixel`, async () => {
      await open({ ...twoProducts, prmSTR_DLfunctie: " 1, 1" }, { scale });
      assert.deepEqual(await inkOf("lblRij_F", 1), await inkOf("txtTableau", 2), "0");
      assert.deepEqual(await inkOf("lblEenF"), await inkOf("txtRij_F", 1), "1");
    });

  test("stands F's value with the values above it", async () => {
    await open();
    await page.click(control("FrameHead"));
    await openForm("Alt+w b");
    const [value, other] = await page.evaluate(() => {
      const find = (name) => LPctrl1.shadowRoot.querySelector(`dialog [data-name="${name}"]`);
      const box = find("txtRL");
      const { paddingLeft, borderLeftWidth } = getComputedStyle(box);
      const inside = Number.parseFloat(paddingLeft) + Number.parseFloat(borderLeftWidth);
      return [find("lblFRL").getBoundingClientRect().left, box.getBoundingClientRect().left + inside];
    });
    assert.equal(value, other);
  });

  const middleOfWords = (name) =>
    page.$eval(control(name), (node) => {
      const words = document.createRange();
      words.selectNodeContents(node);
      const { top, bottom } = words.getBoundingClientRect();
      return (top + bottom) / 2;
    });
  const middleOf = (name) =>
    page.$eval(control(name), (node) => {
      const { top, bottom } = node.getBoundingClientRect();
      return (top + bottom) / 2;
    });

  test("stands a warning beside the middle of its sign", async () => {
    await open();
    await page.click(control("txtTableau", 1), { count: 3 });
    await page.keyboard.type("hallo");
    await openForm("Tab");
    assert.ok(Math.abs((await middleOfWords("lblMelding")) - (await middleOf("imgWarning"))) <= 1);
  });

  test("stand the words of a count a blank apart", async () => {
    await open();
    await page.click(control("FrameHead"));
    await openForm("Alt+b n b");
    for (const name of ["lblKleinerGelijk", "lblGroterGelijk"]) {
      const [first, sign, last] = await page.evaluate(
        (array) =>
          [1, 2, 3].map((index) => {
            const words = document.createRange();
            words.selectNodeContents(
              LPctrl1.shadowRoot.querySelector(`dialog [data-name="${array}"][data-index="${index}"]`),
            );
            const { left, right } = words.getBoundingClientRect();
            return { left, right };
          }),
        name,
      );
      const [before, behind] = [sign.left - first.right, last.left - sign.right];
      assert.ok(before >= 2 && behind >= 2 && before <= 6, `${name}: ${before} and ${behind}`);
      assert.ok(Math.abs(before - behind) <= 1.5, `${name}: ${before} and ${behind}`);
    }
  });
});

describe("in forced colours", () => {
  async function force(theme) {
    const session = await page.createCDPSession();
    await session.send("Emulation.setEmulatedMedia", {
      features: [
        { name: "forced-colors", value: "active" },
        { name: "prefers-color-scheme", value: theme },
      ],
    });
    assert.ok(await page.evaluate(() => matchMedia("(forced-colors: active)").matches));
  }

  for (const theme of ["light", "dark"]) {
    test(`the kinds of rows and columns are told apart, in a ${theme} theme`, async () => {
      await open(threeKinds);
      await force(theme);
      const grounds = [];
      for (const index of [1, 2, 3])
        for (const name of ["lblBasis", "txtRL"]) {
          const [[ground]] = [...(await coloursIn(name, index))].sort(([, one], [, other]) => other - one);
          grounds.push(ground);
          assert.ok(contrast(ground, await style(name, "color", index)) >= 4.5, `${name} ${index} can be read`);
        }
      assert.equal(new Set(grounds).size, 3);
    });

    test(`the pivot element is marked, in a ${theme} theme`, async () => {
      await open();
      await force(theme);
      await page.click(control("FrameHead"));
      await openForm("Alt+w p");
      await press("Enter");
      const marked = await page.evaluate(() =>
        [...LPctrl1.shadowRoot.querySelectorAll('[data-name="txtTableau"]')].findIndex(
          (cell) => cell.title === " Pivotelement ",
        ),
      );
      assert.ok((await coloursIn("txtTableau", marked + 1)).get("255,0,0") > 200);
    });

    test(`a cell that has the focus looks different, and none other does, in a ${theme} theme`, async () => {
      await open(twoProducts);
      await force(theme);
      const look = async (index) => [
        await style("txtTableau", "outlineWidth", index),
        await style("txtTableau", "borderColor", index),
      ];
      const [width, edge] = await look(1);
      assert.equal(width, "0px");
      await page.click(control("txtTableau", 1));
      const [wide, marked] = await look(1);
      assert.equal(wide, "2px");
      assert.notEqual(marked, edge);
      assert.deepEqual(await look(2), [width, edge]);
      const [letters, ground] = await page.$eval(control("txtTableau", 1), (node) => {
        const selection = getComputedStyle(node, "::selection");
        return [selection.color, selection.backgroundColor];
      });
      assert.ok(contrast(letters, ground) >= 4.5, "what is selected can be read");
      assert.equal(await style("txtRij_F", "borderTopWidth", 1), "1px");
      assert.ok(contrast(edge, await style("txtRij_F", "backgroundColor", 1)) >= 3, "a cell has an edge");
    });

    test(`the graph has its axes, its lines and its legend, in a ${theme} theme`, async () => {
      await open(twoProducts);
      await force(theme);
      await openSolvedGraph();
      const picture = await coloursIn("PictureLN");
      for (const [what, colour, least] of [
        ["axes", "0,0,0", 300],
        ["region", "255,255,192", 3000],
        ["constraints", "0,255,0", 300],
        ["level line", "0,0,255", 50],
        ["paper", "255,255,255", 10000],
      ])
        assert.ok(picture.get(colour) >= least, `${what}: ${picture.get(colour)}`);
      const panel = await coloursIn("frmGrafiek");
      assert.ok(panel.get("0,0,255") - picture.get("0,0,255") >= 15, "the sample of the level line");
      assert.ok(panel.get("0,255,0") - picture.get("0,255,0") >= 15, "the sample of the constraints");
      assert.ok(panel.get("255,255,192") - picture.get("255,255,192") >= 100, "the sample of the region");
    });
  }
});

describe("on paper, where the browser leaves grounds away", () => {
  // What a page of a PDF says of its colours.
  async function printed() {
    const bytes = Buffer.from(await page.pdf({ printBackground: false }));
    let said = "";
    for (let at = bytes.indexOf("stream"); at >= 0; at = bytes.indexOf("stream", at + 1)) {
      if (bytes.subarray(at - 3, at).toString() === "end") continue;
      try {
        said += inflateSync(bytes.subarray(bytes.indexOf("\n", at) + 1)).toString("latin1");
      } catch {
        // A part that is not packed, such as a font's.
      }
    }
    return said;
  }

  test("the pivot element and the kinds of variables have their colours", async () => {
    await open();
    await page.click(control("FrameHead"));
    await openForm("Alt+w p");
    await press("Enter");
    const said = await printed();
    assert.match(said, /\b1 0 0 rg\b/);
    assert.match(said, /\.854\d* \.862\d* \.996\d* rg\b/);
  });

  test("the level line and the legend have theirs", async () => {
    await open();
    await openSolvedGraph();
    const said = await printed();
    assert.ok(said.match(/\b0 0 1 (rg|RG)\b/g).length >= 2, "the level line and its sample");
    assert.match(said, /\b0 1 0 (rg|RG)\b/);
    assert.match(said, /\b1 1 \.752\d* rg\b/);
  });
});
