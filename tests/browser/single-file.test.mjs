// An exercise as one file: made by the button of a page or by the command, it works where nothing else can be had.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { pathToFileURL } from "node:url";
import { singleFile } from "../../pages/single-file.mjs";
import { root } from "../../tools/sources.mjs";
import { control, idle, launch, noise, text } from "./browser.mjs";

const folder = mkdtempSync(join(tmpdir(), "single-file-"));
after(() => rmSync(folder, { recursive: true, force: true }));

const outside = /(?:src|href)="(?!data:|#)[^"]*"/g;

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

// Waits for what a person would wait for; a frame is asked as a page is.
async function eventually(look, wanted) {
  for (let turn = 0; turn < 200 && (await look()) !== wanted; ++turn) await sleep(20);
  assert.equal(await look(), wanted);
}

async function optimise(place) {
  await place.click(control("cmd_Bewerken"));
  await eventually(() => text(place, "mnu_optimaliseren"), "Optimaliseren");
  await place.click(control("mnu_optimaliseren"));
  await eventually(() => text(place, "lblMelding"), "Optimale oplossing gevonden!");
  await place.click(control("cmdOK"));
  await idle(place);
  await eventually(() => text(place, "lblFRL"), " 36");
}

const frameIn = async (page) => page.enterFrame?.("iframe") ?? (await page.waitForSelector("iframe")).contentFrame();

for (const engine of ["chromium", "firefox", "webkit"])
  describe(`in ${engine} the file`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());

    async function openFile(path) {
      const page = await browser.browser.newPage();
      await page.goto(pathToFileURL(path).href);
      return page;
    }

    test("solves its exercise, from file:", async () => {
      const page = await openFile(made);
      await idle(page);
      const [heading, links] = await page.evaluate(() => [
        document.querySelector("h2").textContent,
        document.querySelectorAll("nav, a, button[data-los]").length,
      ]);
      assert.deepEqual([heading, links], ["De meubelmaker", 0]);
      await optimise(page);
      await page.close();
    });

    test("solves it in a frame that may run scripts and nothing else", async () => {
      const around = join(folder, `around-${engine}.html`);
      const frame = '<iframe sandbox="allow-scripts" src="meubelmaker.html" width="800" height="900"></iframe>';
      writeFileSync(around, `<!doctype html><title>Les</title>${frame}`);
      const page = await openFile(around);
      const inside = await frameIn(page);
      await idle(inside);
      await inside.$eval("tabulon-lpctrl", (element) => element.scrollIntoView({ block: "start" }));
      await optimise(inside);
      await page.close();
    });

    test("with a script of its own gives exercises", async () => {
      const own = join(folder, `script-${engine}.html`);
      execFileSync(process.execPath, [join(root, "tools/single-file.mjs"), join(root, "examples/script.html"), own]);
      const page = await openFile(own);
      await idle(page);
      await eventually(() => page.evaluate(() => document.querySelectorAll("#opgave b").length), 4);
      assert.notEqual((await text(page, "txtRL", 1)).trim(), "0");
      await page.close();
    });
  });
