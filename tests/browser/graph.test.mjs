// The graph panel as it is seen and as it is taken hold of: what each pixel shows at points worked out from the
// problem, where the cross and the panel go, what is read out, and what comes on the clipboard.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import { control, launch, noise, problem, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(() => page?.close());

// F = 3x + 5y with x <= 4, 2y <= 12, 3x + 2y <= 18: 36 at (2,6). Both axes end at 10.
const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};
const range = 10;

// The picture is 246 by 240 pixels; its drawing square is 200 by 200, 23 pixels from the left, 20 from the top.
const square = { left: 23, top: 20, side: 200, width: 246, height: 240 };
const pixelOf = (x1, x2) => [
  square.left + Math.round((square.side * x1) / range),
  square.top + square.side - Math.round((square.side * x2) / range),
];

const colours = {
  dot: [255, 255, 192],
  line: [0, 255, 0],
  level: [0, 0, 255],
  white: [255, 255, 255],
  grid: [192, 192, 192],
  ink: [0, 0, 0],
};
// A slanting line is mixed with what is beside it.
const near = (one, other) => one.every((part, at) => Math.abs(part - other[at]) <= 90);

async function toggleGraph() {
  await page.click(control("cmd_Opties"));
  await page.click(control("mnu_Grafiek"));
}

async function open(parameters = twoProducts, options = {}) {
  page = await browser.open(problem(parameters), options);
  return page;
}

async function openSolved(parameters = twoProducts, options = {}) {
  await open(parameters, options);
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("dialog[open]"));
  await page.keyboard.press("Enter");
  await toggleGraph();
}

const boxOf = async (name) => (await page.$(control(name))).boundingBox();
const middleOf = async (name) => {
  const { x, y, width, height } = await boxOf(name);
  return [x + width / 2, y + height / 2];
};
const values = () => Promise.all(["lblValX1", "lblValX2", "lblDoelfunctie"].map((name) => text(page, name)));
const focused = () => page.evaluate(() => LPctrl1.shadowRoot.activeElement?.dataset.name);

// An image's pixels, read by the page: at(x, y) is the device pixel's red, green, blue.
async function readImage(base64) {
  const { width, height, bytes } = await page.evaluate(async (source) => {
    const bitmap = await createImageBitmap(await (await fetch(`data:image/png;base64,${source}`)).blob());
    const canvas = new OffscreenCanvas(bitmap.width, bitmap.height);
    const context = canvas.getContext("2d");
    context.drawImage(bitmap, 0, 0);
    const { data } = context.getImageData(0, 0, bitmap.width, bitmap.height);
    let text = "";
    for (let at = 0; at < data.length; at += 4096) text += String.fromCharCode(...data.subarray(at, at + 4096));
    return { width: bitmap.width, height: bitmap.height, bytes: btoa(text) };
  }, base64);
  const data = Buffer.from(bytes, "base64");
  const at = (x, y) => [...data.subarray(4 * (y * width + x), 4 * (y * width + x) + 3)];
  return { width, height, at };
}

// The colour is there within a pixel of the point: a slanting line passes between pixels.
function hasNear(image, [x, y], scale, colour) {
  for (let dy = -scale; dy <= 2 * scale; ++dy)
    for (let dx = -scale; dx <= 2 * scale; ++dx)
      if (near(image.at(Math.round(x * scale) + dx, Math.round(y * scale) + dy), colour)) return true;
  return false;
}

const pictureSeen = async (scale) => {
  const { x, y } = await boxOf("PictureLN");
  return readImage(
    await page.screenshot({
      encoding: "base64",
      clip: { x, y, width: square.width, height: square.height },
      captureBeyondViewport: false,
    }),
  ).then((image) => {
    assert.equal(image.width, square.width * scale);
    return image;
  });
};

describe("what is seen", () => {
  for (const scale of [1, 2, 3]) {
    test(`at ${scale} pixels to a pixel stands where the problem says`, async () => {
      await openSolved(twoProducts, { scale });
      await page.mouse.move(1, 1);
      const image = await pictureSeen(scale);
      const exactly = (x1, x2, colour) => {
        const [x, y] = pixelOf(x1, x2);
        for (let dx = 0; dx < scale; ++dx)
          for (let dy = 0; dy < scale; ++dy)
            assert.deepEqual(image.at(x * scale + dx, y * scale + dy), colour, `(${x1}, ${x2}) at +${dx},+${dy}`);
      };
      exactly(0.5, 0.5, colours.dot);
      exactly(1.5, 5.5, colours.dot);
      exactly(3.75, 3.2, colours.dot);
      exactly(3.75, 3.6, colours.white); // 3 x 3.75 + 2 x 3.6 > 18
      exactly(8.5, 8.5, colours.white);
      exactly(7, 2.5, colours.grid);
      exactly(4, 8.5, colours.line); // x1 = 4
      exactly(6.5, 6, colours.line); // x2 = 6
      exactly(0, 2.5, colours.ink);
      exactly(2.5, 0, colours.ink);
      // A pixel beside an upright line is not of it: the line is one pixel wide and sharp.
      const [x, y] = pixelOf(4, 8.5);
      assert.deepEqual(image.at(x * scale - 1, y * scale), colours.white);
      assert.deepEqual(image.at((x + 1) * scale, y * scale), colours.white);
      assert.ok(hasNear(image, pixelOf(1, 7.5), scale, colours.line), "3 x1 + 2 x2 = 18");
      assert.ok(hasNear(image, pixelOf(5.5, 0.75), scale, colours.line), "3 x1 + 2 x2 = 18");
      assert.ok(!hasNear(image, pixelOf(7.5, 7.5), scale, colours.line));
      // The level line through (2,6): from (0, 7.2) to (10, 1.2).
      for (const x1 of [0.5, 5.5, 9.5])
        assert.ok(hasNear(image, pixelOf(x1, 7.2 - 0.6 * x1), scale, colours.level), `level line at ${x1}`);
      assert.ok(!hasNear(image, pixelOf(5.5, 4.5), scale, colours.level));
      assert.ok(hasNear(image, pixelOf(2, 6), scale, [192, 0, 0]), "the cross");
      assert.deepEqual(noise(page), []);
    });
  }

  // Half way between two grid lines the only thing on the way across an axis is the axis.
  async function acrossTheAxes() {
    const { x, y } = await boxOf("PictureLN");
    const density = await page.evaluate(() => devicePixelRatio);
    const image = await readImage(await page.screenshot({ encoding: "base64" }));
    const device = (at) => Math.round(at * density);
    const [axisX, axisY] = [device(x + square.left), device(y + square.top + square.side)];
    const [besideX, besideY] = [device(x + square.left + 190), device(y + square.top + 10)];
    const steps = [-3, -2, -1, 0, 1, 2, 3];
    return [
      steps.map((step) => image.at(axisX + step, besideY).join()),
      steps.map((step) => image.at(besideX, axisY + step).join()),
    ];
  }

  for (const scale of [0.9, 1.1, 1.25, 1.5])
    test(`at ${scale} pixels to a pixel has axes of one black pixel, wherever the panel stands`, async () => {
      await open(twoProducts, { scale });
      await toggleGraph();
      for (const [right, down] of [
        [0, 0],
        [-31, 7],
        [-45.5, 12.3],
        [18.7, 5],
      ]) {
        const [x, y] = await middleOf("cmdFrame");
        await page.mouse.move(x, y);
        await page.mouse.down();
        await page.mouse.move(x + right, y + down);
        await page.mouse.up();
        for (const across of await acrossTheAxes()) {
          assert.equal(across.filter((colour) => colour === colours.ink.join()).length, 1, across.join(" "));
          assert.equal(across.filter((colour) => colour === colours.white.join()).length, 6, across.join(" "));
        }
      }
    });

  test("becomes sharp when the page comes on a sharper screen", async () => {
    await openSolved();
    await page.setViewport({ width: 880, height: 680, deviceScaleFactor: 2 });
    await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("canvas").width === 492, { timeout: 5000 });
    const image = await pictureSeen(2);
    const [x, y] = pixelOf(4, 8.5);
    assert.deepEqual(image.at(2 * x - 1, 2 * y), colours.white);
    assert.deepEqual([image.at(2 * x, 2 * y), image.at(2 * x + 1, 2 * y)], [colours.line, colours.line]);
    assert.deepEqual(image.at(2 * x + 2, 2 * y), colours.white);
  });

  test("of an equation is a line of dots", async () => {
    // x1 - x2 = 0 of which both axes end at 6: x1 + x2 <= 5.
    await open({
      prmNrKleinerGelijkVglen: 1,
      prmNrGelijkVglen: 1,
      prmSTR_KleinerGelijkVglen: " 1, 1",
      prmSTR_GelijkVglen: " 0, 0",
      prmSTR_RL: " 5, 0",
    });
    await toggleGraph();
    const image = await pictureSeen(1);
    assert.deepEqual(image.at(square.left + 70, square.top + square.side - 70), colours.dot);
    assert.deepEqual(image.at(square.left + 110, square.top + square.side - 110), colours.white);
  });

  test("lies above the cells, also above the one that has the focus", async () => {
    await open(twoProducts);
    await toggleGraph();
    await page.evaluate(() => LPctrl1.shadowRoot.querySelector('[data-name="txtTableau"][data-index="3"]').focus());
    assert.equal(await focused(), "txtTableau");
    const [x, y] = await middleOf("PictureLN");
    assert.equal(
      await page.evaluate(
        (left, top) => LPctrl1.shadowRoot.elementFromPoint(left, top).closest("[data-name]").dataset.name,
        x,
        y,
      ),
      "PictureLN",
    );
    const cell = await (await page.$(control("txtTableau", 3))).boundingBox();
    const over = await page.evaluate(
      (left, top) => LPctrl1.shadowRoot.elementFromPoint(left, top).closest('[data-name="frmGrafiek"]') !== null,
      cell.x + cell.width / 2,
      cell.y + cell.height / 2,
    );
    assert.ok(over);
  });

  test("shows its Dutch words whole", async () => {
    await openSolved();
    const cut = await page.evaluate(() =>
      [...LPctrl1.shadowRoot.querySelectorAll('[data-name="frmGrafiek"] .label, [data-name="frmGrafiek"] .button')]
        .filter((node) => {
          const words = document.createRange();
          words.selectNodeContents(node);
          const [inner, outer] = [words.getBoundingClientRect(), node.getBoundingClientRect()];
          const wraps = node.classList.contains("wraps");
          return wraps ? inner.bottom > outer.bottom : inner.width > outer.width + 0.5;
        })
        .map((node) => node.dataset.name),
    );
    assert.deepEqual(cut, []);
  });
});

describe("the cross", () => {
  test("follows the mouse, and the values and the level line follow it", async () => {
    await openSolved();
    const [x, y] = await middleOf("imgCross");
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 20, y + 30, { steps: 4 });
    await page.mouse.move(x + 40, y + 60, { steps: 4 });
    assert.deepEqual(await values(), [" 4", " 3", " 27"]);
    const [nowX, nowY] = await middleOf("imgCross");
    assert.ok(Math.abs(nowX - x - 40) <= 0.1 && Math.abs(nowY - y - 60) <= 0.1, `${nowX - x} ${nowY - y}`);
    await page.mouse.up();
    await page.mouse.move(x, y);
    assert.deepEqual(await values(), [" 4", " 3", " 27"]);
    assert.equal(await focused(), "PictureLN");
    const image = await pictureSeen(1);
    // 3 x1 + 5 x2 = 27: from (0, 5.4) to (9, 0).
    assert.ok(hasNear(image, pixelOf(7.5, 0.9), 1, colours.level));
    assert.ok(!hasNear(image, pixelOf(9.5, 1.5), 1, colours.level), "where it was");
  });

  test("is let go when the other button is pressed too", async () => {
    await openSolved();
    const [x, y] = await middleOf("imgCross");
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 20, y);
    await page.mouse.down({ button: "right" });
    await page.mouse.move(x + 80, y);
    assert.deepEqual(await values(), [" 3", " 6", " 39"]);
    await page.mouse.up({ button: "right" });
    await page.mouse.up();
  });

  test("stays where it is under the other button", async () => {
    await openSolved();
    const [x, y] = await middleOf("imgCross");
    await page.mouse.move(x, y);
    await page.mouse.down({ button: "right" });
    await page.mouse.move(x + 40, y);
    await page.mouse.up({ button: "right" });
    assert.deepEqual(await values(), [" 2", " 6", " 36"]);
  });

  test("follows a finger", async () => {
    await openSolved();
    const [x, y] = await middleOf("imgCross");
    const touch = await page.touchscreen.touchStart(x, y);
    await touch.move(x + 20, y + 20);
    await touch.move(x + 40, y + 60);
    await page.waitForFunction(
      () => LPctrl1.shadowRoot.querySelector('[data-name="lblDoelfunctie"]').textContent === " 27",
      { timeout: 5000 },
    );
    assert.deepEqual(await values(), [" 4", " 3", " 27"]);
    await touch.end();
    assert.equal(await page.$eval(control("imgCross"), (node) => getComputedStyle(node).touchAction), "none");
  });

  test("may be let go outside the element", async () => {
    await openSolved();
    const [x, y] = await middleOf("imgCross");
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(860, 650, { steps: 3 });
    await page.mouse.up();
    assert.deepEqual(await values(), [" 10", " 0", " 30"]);
    await page.mouse.move(x, y);
    assert.deepEqual(await values(), [" 10", " 0", " 30"]);
  });
});

describe("the panel", () => {
  test("is moved by its handle, under a cursor that says so", async () => {
    await openSolved();
    const before = await boxOf("frmGrafiek");
    const [x, y] = await middleOf("cmdFrame");
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x - 60, y + 40, { steps: 4 });
    await page.mouse.up();
    const { x: left, y: top } = await boxOf("frmGrafiek");
    assert.ok(Math.abs(left - before.x + 60) < 0.1 && Math.abs(top - before.y - 40) < 0.1);
    assert.equal(await focused(), "txtFocus");
    assert.equal(await page.$eval(control("cmdFrame"), (node) => getComputedStyle(node).cursor), "move");
  });

  test("keeps a button unpressed that the mouse leaves before it is released", async () => {
    await openSolved();
    const [x, y] = await middleOf("cmdSluiten");
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x - 200, y - 100, { steps: 2 });
    await page.mouse.up();
    assert.notEqual(await text(page, "cmdSluiten"), null);
    await page.mouse.click(x, y);
    assert.equal(await text(page, "cmdSluiten"), null);
  });
});

describe("someone who does not see it", () => {
  test("is told what the picture is, and what the arrow keys change", async () => {
    await openSolved();
    await page.keyboard.press("Escape");
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "PictureLN");
    const said = () =>
      page.$eval(control("PictureLN"), (node) => [
        node.role,
        node.ariaLabel,
        node.querySelector("[aria-live]").textContent,
      ]);
    const [role, name] = await said();
    assert.deepEqual([role, name], ["application", "Grafiek, x 1 = 2, x 2 = 6, F = 36"]);
    await page.keyboard.press("ArrowRight");
    const now = "Grafiek, x 1 = 2.1, x 2 = 6, F = 36.3";
    assert.deepEqual(await said(), ["application", now, now]);
    const ring = await page.$eval(control("PictureLN"), (node) => getComputedStyle(node).outline);
    assert.match(ring, /rgb\(21, 87, 192\) solid 2px/);
  });
});

describe("the clipboard", () => {
  const copied = () =>
    page.evaluate(async () => {
      const [item] = await navigator.clipboard.read();
      const bytes = new Uint8Array(await (await item.getType("image/png")).arrayBuffer());
      let said = "";
      for (const byte of bytes) said += String.fromCharCode(byte);
      return btoa(said);
    });
  const form = () => page.evaluate(() => LPctrl1.shadowRoot.querySelector("dialog[open]")?.dataset.name);

  test("takes the drawing, the level line and the cross, and none of the panel", async () => {
    await browser.browser
      .defaultBrowserContext()
      .overridePermissions(browser.origin, ["clipboard-read", "clipboard-write", "clipboard-sanitized-write"]);
    await openSolved();
    await page.bringToFront();
    await page.click(control("cmdKopieren"));
    await page.waitForFunction(() => !LPctrl1.hasAttribute("aria-busy"));
    assert.equal(await form(), undefined);
    assert.equal(await focused(), "txtFocus");
    const image = await readImage(await copied());
    const scale = image.width / square.width;
    assert.ok(scale >= 1 && image.height === square.height * scale, `${image.width} by ${image.height}`);
    const at = (x1, x2) => image.at(...pixelOf(x1, x2).map((pixel) => pixel * scale));
    assert.deepEqual(at(0.5, 0.5), colours.dot);
    assert.deepEqual(at(8.5, 8.5), colours.white);
    assert.deepEqual(at(4, 8.5), colours.line);
    assert.ok(hasNear(image, pixelOf(5.5, 3.9), scale, colours.level));
    // The cross darkens what is below it: on the white its red, in the yellow no blue, on the green line nothing.
    assert.ok(hasNear(image, pixelOf(2.15, 6.15), scale, [192, 0, 0]));
    assert.ok(hasNear(image, pixelOf(2, 6), scale, [0, 0, 0]));
    assert.deepEqual(at(1.75, 5.5), colours.dot, "its white corners hide nothing");
    await browser.browser.defaultBrowserContext().clearPermissionOverrides();
  });

  test("that refuses is told of", async () => {
    await openSolved();
    await page.evaluate(() => {
      Clipboard.prototype.write = () => Promise.reject(new DOMException("refused", "NotAllowedError"));
    });
    await page.click(control("cmdKopieren"));
    await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("dialog[open]"), { timeout: 5000 });
    assert.equal(await form(), "frmFoutmelding");
    await page.keyboard.press("Enter");
    assert.equal(await form(), undefined);
    assert.equal(await focused(), "txtFocus");
  });

  test("of a page without a secure connection is not asked: the picture is downloaded, and the pupil told why", async () => {
    page = await browser.openInsecure(problem(twoProducts));
    assert.equal(await page.evaluate(() => isSecureContext), false);
    await page.evaluate(() => {
      globalThis.downloads = [];
      HTMLAnchorElement.prototype.click = function () {
        fetch(this.href)
          .then((answer) => answer.blob())
          .then((blob) => globalThis.downloads.push([this.download, blob.type, blob.size]));
      };
    });
    await page.click(control("cmd_Opties"));
    await page.click(control("mnu_Grafiek"));
    await page.click(control("cmdKopieren"));
    await page.waitForFunction(() => globalThis.downloads.length, { timeout: 5000 });
    const [[name, type, size]] = await page.evaluate(() => globalThis.downloads);
    assert.deepEqual([name, type], ["grafiek.png", "image/png"]);
    assert.ok(size > 1000, `${size} bytes`);
    assert.equal(await form(), "frmFoutmelding");
    assert.match(await text(page, "lblMelding"), /niet beveiligd \(https\).*gedownload/);
  });

  test("that is not there is told of as one that refuses", async () => {
    await openSolved();
    await page.evaluate(() => Object.defineProperty(navigator, "clipboard", { value: undefined }));
    await page.click(control("cmdKopieren"));
    await page.waitForFunction(() => LPctrl1.shadowRoot.querySelector("dialog[open]"), { timeout: 5000 });
    assert.equal(await form(), "frmFoutmelding");
  });
});
