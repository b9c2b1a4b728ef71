// An exercise as one file: made by the button of a page or by the command, it works where nothing else can be had.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { pathToFileURL } from "node:url";
import { singleFile } from "../../pages/single-file.mjs";
import { root } from "../../tools/sources.mjs";
import { control, idle, launch, noise, text } from "./browser.mjs";

const folder = mkdtempSync(join(tmpdir(), "single-file-"));
after(() => rmSync(folder, { recursive: true, force: true }));

const outside = /(?:src|href)="(?!data:|#)[^"]*"/g;

async function optimise(page) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await page.waitForSelector(control("lblMelding"));
  await page.keyboard.press("Enter");
  await idle(page);
}

describe("what makes it", () => {
  const files = {
    "a.html":
      '<link rel="icon" href="a.svg"><link rel="stylesheet" href="a.css"><script src="a.js"></script>' +
      '<script src="b.js" defer></script>\n  <!-- alleen hier -->\n<nav>weg</nav>\n  <!-- /alleen hier -->\n<p>blijft</p>',
    "a.svg": '<svg viewBox="0 0 1 1"/>',
    "a.css": "p::after { content: '</style>'; }",
    "a.js": 'const end = "</script><!--$&";',
    "b.js": "late();",
  };

  test("puts every file in its place, and no text ends one", () => {
    assert.equal(
      singleFile("a.html", (name) => files[name]),
      '<link rel="icon" href="data:image/svg+xml,%3Csvg%20viewBox%3D%220%200%201%201%22%2F%3E">' +
        "<style>\np::after { content: '<\\/style>'; }</style>" +
        '<script>\nconst end = "<\\/script><\\!--$&";</script><script type="module">\nlate();</script>\n<p>blijft</p>',
    );
  });
});

// Made by the button of the start page, in Chromium; then opened everywhere.
const made = join(folder, "meubelmaker.html");

describe("the button of the start page", () => {
  let browser;
  before(async () => (browser = await launch()));
  after(() => browser?.close());

  for (const from of ["server", "file"])
    test(`saves the exercise, from ${from}`, async () => {
      rmSync(made, { force: true });
      const page = await browser.open("index.html", { from });
      const session = await page.createCDPSession();
      await session.send("Browser.setDownloadBehavior", {
        behavior: "allow",
        downloadPath: folder,
        eventsEnabled: true,
      });
      const saved = new Promise((resolve) =>
        session.on("Browser.downloadProgress", ({ state }) => state === "completed" && resolve()),
      );
      await page.click('button[data-los="index.html"]');
      await saved;
      assert.deepEqual(readdirSync(folder), ["meubelmaker.html"]);
      assert.deepEqual(readFileSync(made, "utf8").match(outside), null);
      assert.deepEqual(noise(page), []);
      await page.close();
    });

  test("is on every exercise page, for that page", async () => {
    for (const name of ["standaard", "breuken", "grafisch", "big-m", "groot", "script", "object"]) {
      const page = await browser.open(`${name}.html`);
      assert.equal(await page.$eval("button[data-los]", (button) => button.dataset.los), `${name}.html`);
      await page.close();
    }
  });
});

test("the command makes the same file", () => {
  const out = join(folder, "command.html");
  execFileSync(process.execPath, [join(root, "tools/single-file.mjs"), join(root, "examples/index.html"), out]);
  assert.equal(readFileSync(out, "utf8"), readFileSync(made, "utf8"));
});

for (const engine of ["chromium", "firefox"])
  describe(`in ${engine} the file`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());

    async function openFile(path) {
      const page = await browser.browser.newPage();
      const heard = [];
      page.on("pageerror", (error) => heard.push(String(error)));
      await page.goto(pathToFileURL(path).href);
      return { page, heard };
    }

    test("solves its exercise, from file:", async () => {
      const { page, heard } = await openFile(made);
      await idle(page);
      assert.equal(await page.$eval("h2", (node) => node.textContent), "De meubelmaker");
      assert.equal(await page.$("nav"), null);
      await optimise(page);
      assert.equal(await text(page, "lblFRL"), " 36");
      assert.deepEqual(heard, []);
      await page.close();
    });

    test("solves it in a frame that may run scripts and nothing else", async () => {
      const around = join(folder, `around-${engine}.html`);
      writeFileSync(
        around,
        '<!doctype html><title>Les</title><iframe sandbox="allow-scripts" src="meubelmaker.html" width="800" height="900"></iframe>',
      );
      const { page, heard } = await openFile(around);
      const frame = await (await page.waitForSelector("iframe")).contentFrame();
      await frame.waitForSelector("tabulon-lpctrl:not([aria-busy])");
      await idle(frame);
      await (await frame.$(control("cmd_Bewerken"))).click();
      await (await frame.waitForSelector(control("mnu_optimaliseren"))).click();
      await (await frame.waitForSelector(control("cmdOK"))).click();
      await idle(frame);
      assert.equal(await text(frame, "lblFRL"), " 36");
      assert.deepEqual(heard, []);
      await page.close();
    });

    test("with a script of its own gives exercises", async () => {
      const own = join(folder, `script-${engine}.html`);
      execFileSync(process.execPath, [join(root, "tools/single-file.mjs"), join(root, "examples/script.html"), own]);
      const { page, heard } = await openFile(own);
      await page.waitForSelector("#opgave b");
      await idle(page);
      assert.notEqual((await text(page, "txtRL", 1)).trim(), "0");
      assert.deepEqual(heard, []);
      await page.close();
    });
  });
