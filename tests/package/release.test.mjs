// What ./release hands on: one archive for a teacher, one for npm, and their sums.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { createHash } from "node:crypto";
import { mkdirSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { pathToFileURL } from "node:url";
import { version } from "../../tools/package-web.mjs";
import { dayOf, release } from "../../tools/release.mjs";
import { root } from "../../tools/sources.mjs";
import { control, idle, launch, text } from "../browser/browser.mjs";

const folder = mkdtempSync(join(tmpdir(), "release-"));
after(() => rmSync(folder, { recursive: true, force: true }));

// The controls for Windows are built by another part of the tests; here stand two files that say their version.
function controls(name, told) {
  const activex = join(folder, name);
  for (const bits of ["x64", "x86"]) {
    mkdirSync(join(activex, bits), { recursive: true });
    writeFileSync(join(activex, bits, "Tabulon.ocx"), Buffer.from(`MZ${bits}FileVersion\0${told}\0`, "utf16le"));
  }
  return activex;
}

const sumsOf = (out) => readFileSync(join(out, "SHA256SUMS"), "utf8");

describe("a release", () => {
  const [first, second] = ["first", "second"].map((name) => join(folder, name));
  before(async () => {
    const activex = controls("activex", version);
    const web = process.env.TABULON_WEB;
    for (const out of [first, second]) await release({ out, web, activex, say: () => {} });
  });

  test("is two archives and their sums", () => {
    assert.deepEqual(readdirSync(first).sort(), ["SHA256SUMS", `tabulon-${version}.tgz`, `tabulon-${version}.zip`]);
    for (const line of sumsOf(first).trim().split("\n")) {
      const [sum, name] = line.split("  ");
      assert.equal(
        createHash("sha256")
          .update(readFileSync(join(first, name)))
          .digest("hex"),
        sum,
        name,
      );
    }
    assert.equal(sumsOf(first).trim().split("\n").length, 2);
  });

  test("has the same bytes the second time", () => assert.equal(sumsOf(first), sumsOf(second)));

  const unpacked = join(folder, `tabulon-${version}`);
  before(() => execFileSync("unzip", ["-q", join(first, `tabulon-${version}.zip`), "-d", folder]));

  test("unpacks to what a teacher needs, in one folder", () => {
    const names = readdirSync(unpacked);
    const pages = ["index.html", "handboek.html", "maker.html", "les.html", "oefening.html"];
    const wanted = ["tabulon.js", "tabulon.mjs", "types", "activex", "LICENSE"];
    for (const name of [...pages, ...wanted, "CHANGELOG.md", "LEESMIJ.txt"]) assert.ok(names.includes(name), name);
    assert.deepEqual(readdirSync(join(unpacked, "activex")).sort(), ["LEESMIJ.txt", "x64", "x86"]);
    assert.match(readFileSync(join(unpacked, "LEESMIJ.txt"), "utf8"), new RegExp(`^Tabulon ${version}: .*\r\n`));
    assert.match(
      readFileSync(join(unpacked, "activex/LEESMIJ.txt"), "utf8"),
      /regsvr32 \/n \/i:user x64\\Tabulon\.ocx\r\n/,
    );
  });

  test("is enough for the first chapter of its handbook, followed to the letter", async (t) => {
    const browser = await launch();
    t.after(() => browser.close());
    const page = await browser.browser.newPage();
    const heard = [];
    page.on("console", (message) => ["error", "warn"].includes(message.type()) && heard.push(message.text()));
    page.on("pageerror", (error) => heard.push(String(error)));

    await page.goto(pathToFileURL(join(unpacked, "handboek.html")).href);
    const chapter = await page.$eval("#begin", (node) => node.textContent.replaceAll("\u00a0", " "));
    assert.match(chapter, /bij F staat 20, met x 1 = 4 en x 2 = 4\./);
    writeFileSync(join(unpacked, "kaarsen.html"), await page.$eval("#eerste-pagina", (node) => node.textContent));

    await page.goto(pathToFileURL(join(unpacked, "kaarsen.html")).href);
    await idle(page);
    await page.click(control("cmd_Bewerken"));
    await page.click(control("mnu_optimaliseren"));
    await page.waitForSelector(control("cmdOK"));
    await page.click(control("cmdOK"));
    await idle(page);
    assert.equal(await text(page, "lblFRL"), " 20");
    const rows = [1, 2].map(async (row) => [await text(page, "lblBasis", row), await text(page, "txtRL", row)].join());
    assert.deepEqual((await Promise.all(rows)).sort(), ["x  1, 4", "x  2, 4"]);
    assert.deepEqual(heard, []);
  });
});

test("a control of another version is not handed on", async () => {
  const activex = controls("older", "0.9.0");
  await assert.rejects(release({ out: join(folder, "none"), activex, say: () => {} }), /is not of version/);
});

test("a version that CHANGELOG.md does not tell of is not handed on", () => {
  assert.throws(() => dayOf("# Changelog\n\n## [0.9.0] - 2026-01-02\n"), /begins with 0\.9\.0/);
  assert.throws(() => dayOf("# Changelog\n\n## [Unreleased]\n"), /begins with undefined/);
  assert.equal(dayOf(`## [Unreleased]\n\n## [${version}] - 2026-01-02\n`).toISOString().slice(0, 10), "2026-01-02");
});

test("the version stands in package.json, and its lock file follows", () => {
  const lock = JSON.parse(readFileSync(join(root, "package-lock.json"), "utf8"));
  assert.deepEqual([lock.version, lock.packages[""].version], [version, version]);
});
