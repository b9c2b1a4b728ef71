// Files as the browser gives them: downloads, places that the person picks, and files that the person opens.
import assert from "node:assert/strict";
import { mkdtemp, readFile, readdir, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, afterEach, before, beforeEach, describe, test } from "node:test";
import { fileURLToPath } from "node:url";
import { control, launch, noise, problem, text } from "./browser.mjs";

const skip = process.env.TABULON_ENGINE === "firefox" && "downloads are watched by Chromium's own means";

const goldenPath = (name) => fileURLToPath(new URL(`../files/golden/${name}.tbl`, import.meta.url));
const golden = (name) => readFile(goldenPath(name), "latin1");

let browser, devtools, page, downloads;

before(async () => {
  if (skip) return;
  browser = await launch();
  devtools = await browser.browser.target().createCDPSession();
});
after(() => browser?.close());
beforeEach(async () => {
  if (skip) return;
  downloads = await mkdtemp(join(tmpdir(), "tabulon-downloads-"));
  await devtools.send("Browser.setDownloadBehavior", {
    behavior: "allow",
    downloadPath: downloads,
    eventsEnabled: true,
  });
});
afterEach(async () => {
  await page?.close();
  page = undefined;
  if (downloads) await rm(downloads, { recursive: true, force: true });
});

const open = async (parameters) => (page = await browser.open(problem(parameters)));
const until = (expression, ...given) => page.waitForFunction(expression, { timeout: 5000 }, ...given);

// Until what `action` leads to is downloaded: its name and its bytes.
async function downloaded(action) {
  const completed = new Promise((resolve, reject) => {
    devtools.on("Browser.downloadProgress", function heard({ state }) {
      if (state === "inProgress") return;
      devtools.off("Browser.downloadProgress", heard);
      if (state === "completed") resolve();
      else reject(new Error(`the download is ${state}`));
    });
  });
  await action();
  await completed;
  const names = await readdir(downloads);
  assert.equal(names.length, 1, names.join(", "));
  return { name: names[0], bytes: await readFile(join(downloads, names[0]), "latin1") };
}

async function choose(item) {
  await page.click(control("cmd_Bestand"));
  await until((name) => LPctrl1.shadowRoot.querySelector(`[data-name="${name}"]`), item);
  await page.click(control(item));
}
const save = () => choose("mnu_Tableau_Opslaan_Als");

// All that is shown, and where the focus is.
const shown = () =>
  page.evaluate(() => {
    const nodes = [...LPctrl1.shadowRoot.querySelectorAll("[data-name]")];
    const lines = nodes
      .filter((node) => node.checkVisibility())
      .map((node) => `${node.dataset.name} ${node.dataset.index} ${node.value ?? node.textContent}`);
    return [...lines, LPctrl1.shadowRoot.activeElement?.dataset.name].join("\n");
  });
const waitsForThePerson = () =>
  until(
    () =>
      !LPctrl1.hasAttribute("aria-busy") &&
      !LPctrl1.shadowRoot.querySelector('[role="menu"]') &&
      LPctrl1.shadowRoot.activeElement?.dataset.name === "txtFocus",
  );
const saysNothing = async () => {
  assert.equal(await page.evaluate(() => LPctrl1.shadowRoot.querySelector("dialog[open]")), null);
  assert.deepEqual(noise(page), []);
};
// The error that a method's promise rejects with.
const rejection = (method, name) =>
  page.evaluate(
    (call, file) =>
      LPctrl1[call](file).then(
        () => null,
        (error) => [error.name, error.number],
      ),
    method,
    name,
  );

// In place of the browser's window, which a test cannot answer. `answer` is the body of a function that gets the
// options and returns a handle or throws.
const picker = (answer) =>
  page.evaluate(`window.showSaveFilePicker = async (options) => { window.asked = options; ${answer} }`);
const place = (write) => `return {
  name: "les.tbl",
  createWritable: async () => ({
    write: async (blob) => { ${write} },
    close: async () => void (window.isSaved = true),
  }),
};`;
const keep = "window.written = [...new Uint8Array(await blob.arrayBuffer())];";

describe("saving", { skip }, () => {
  test("downloads where the browser has no picker", async () => {
    await open();
    await page.evaluate(() => (window.showSaveFilePicker = undefined));
    const { name, bytes } = await downloaded(save);
    assert.equal(name, "tableau.tbl");
    assert.equal(bytes, await golden("default-problem"));
    await waitsForThePerson();
    await saysNothing();
  });

  test("downloads where the picker may not be shown", async () => {
    await open();
    await picker('throw new DOMException("not in a frame of another origin", "SecurityError");');
    assert.equal((await downloaded(save)).bytes, await golden("default-problem"));
    await saysNothing();
  });

  test("writes where the person has picked, and downloads nothing", async () => {
    await open();
    await picker(place(keep));
    await save();
    await until(() => window.isSaved);
    assert.equal(await page.evaluate(() => String.fromCharCode(...window.written)), await golden("default-problem"));
    assert.deepEqual(await page.evaluate(() => window.asked), {
      suggestedName: "tableau.tbl",
      types: [{ description: "Simplex tableau", accept: { "text/plain": [".tbl"] } }],
    });
    assert.deepEqual(await readdir(downloads), []);
    await waitsForThePerson();
    await saysNothing();
  });

  test("downloads when the picked place refuses, so that nothing is lost", async () => {
    await open();
    await picker(place('throw new DOMException("the disk is full", "QuotaExceededError");'));
    const { name, bytes } = await downloaded(save);
    assert.equal(name, "les.tbl");
    assert.equal(bytes, await golden("default-problem"));
    await saysNothing();
  });

  test("a script that uses the picked name again writes no second time into that place", async () => {
    await open();
    await picker(place(`window.writes = (window.writes ?? 0) + 1; ${keep}`));
    await save();
    await until(() => window.isSaved);
    const { name } = await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("les.tbl")));
    assert.equal(name, "les.tbl");
    assert.equal(await page.evaluate(() => window.writes), 1);
  });

  test("that fails after the person has picked a place leaves that place to no script", async () => {
    await open();
    await picker(place("window.writes = (window.writes ?? 0) + 1;"));
    await page.evaluate(() => (LPctrl1.prmNrBeslisVar = 40)); // more than a file can hold
    await save();
    await until(() => window.asked);
    await waitsForThePerson();
    await page.evaluate(() => (LPctrl1.prmNrBeslisVar = 2));
    const { name } = await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("les.tbl")));
    assert.equal(name, "les.tbl");
    assert.equal(await page.evaluate(() => window.writes), undefined);
  });

  test("is given up without a word by who cancels", async () => {
    await open();
    await waitsForThePerson();
    const before = await shown();
    await picker('throw new DOMException("The person has cancelled", "AbortError");');
    await save();
    await until(() => window.asked);
    await waitsForThePerson();
    assert.equal(await shown(), before);
    assert.deepEqual(await readdir(downloads), []);
    await saysNothing();
  });
});

describe("a script", { skip }, () => {
  test("downloads under the name that it gives", async () => {
    await open({ prmNrBeslisVar: 1, prmNrKleinerGelijkVglen: 1 });
    const { name, bytes } = await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("oefening 1.tbl")));
    assert.equal(name, "oefening 1.tbl");
    assert.equal(bytes, await golden("one-variable"));
    await saysNothing();
  });

  test("downloads nothing but tableaux", async () => {
    await open();
    for (const [given, got] of [
      ["x.exe", "x.exe.tbl"],
      ["oefening", "oefening.tbl"],
      ["LES.TBL", "LES.TBL"],
      ["a.tbl.bat", "a.tbl.bat.tbl"],
    ]) {
      assert.equal((await downloaded(() => page.evaluate((name) => LPctrl1.SchrijfTableau(name), given))).name, got);
      await rm(join(downloads, got));
    }
  });

  test("saves letters as Latin ones, and others as question marks", async () => {
    await open({ prmSTR_RL: " 3 caf\u00e9, 4 \u2264 5" });
    const { bytes } = await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("a.tbl")));
    assert.ok(bytes.includes("\r\n 3 caf\xe9\r\n 3 caf\xe9\r\n 3\r\n 3\r\n"), bytes);
    assert.ok(bytes.endsWith("\r\n 4 ? 5\r\n 4 ? 5\r\n 4\r\n 4\r\n"), bytes);
  });

  test("cannot save under a name that no file can have", async () => {
    await open();
    for (const name of ["*.tbl", "a?.tbl", ""])
      assert.deepEqual(await rejection("SchrijfTableau", name), ["TabulonError", 52], name);
    assert.deepEqual(await readdir(downloads), []);
    await saysNothing();
  });

  test("cannot open: error 54 for what it wrote, 53 for what is not there, 52 for what is no name", async () => {
    await open();
    await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("a.tbl")));
    const before = await shown();
    assert.deepEqual(await rejection("LeesTableau", "a.tbl"), ["TabulonError", 54]);
    assert.deepEqual(await rejection("LeesTableau", "b.tbl"), ["TabulonError", 53]);
    assert.deepEqual(await rejection("LeesTableau", "*.tbl"), ["TabulonError", 52]);
    assert.deepEqual(await rejection("LeesTableau", "a?.tbl"), ["TabulonError", 52]);
    assert.equal(await shown(), before);
    await saysNothing();
  });
});

describe("opening", { skip }, () => {
  const openFile = async () => {
    const [chooser] = await Promise.all([page.waitForFileChooser(), choose("mnu_Openen")]);
    return chooser;
  };

  for (const file of ["big-m-in-fractions", "default-problem"]) {
    test(`${file} changes nothing and says nothing`, async () => {
      await open({ prmSTR_RL: " 5, 6" });
      await waitsForThePerson();
      const before = await shown();
      const chooser = await openFile();
      assert.equal(chooser.isMultiple(), false);
      await chooser.accept([goldenPath(file)]);
      await waitsForThePerson();
      // The page has the file by then: a script that asks for it gets no error 53.
      await until((name) => LPctrl1.LeesTableau(name).catch((error) => error.number === 54), `${file}.tbl`);
      assert.equal(await shown(), before);
      await saysNothing();
    });
  }

  test("that fails after the person has picked a place leaves that place to no script", async () => {
    await open();
    await picker(place("window.writes = (window.writes ?? 0) + 1;"));
    await page.evaluate(() => (LPctrl1.prmNrBeslisVar = 40)); // more than a file can hold
    await save();
    await until(() => window.asked);
    await waitsForThePerson();
    await page.evaluate(() => (LPctrl1.prmNrBeslisVar = 2));
    const { name } = await downloaded(() => page.evaluate(() => LPctrl1.SchrijfTableau("les.tbl")));
    assert.equal(name, "les.tbl");
    assert.equal(await page.evaluate(() => window.writes), undefined);
  });

  test("is given up without a word by who cancels", async () => {
    await open({ prmSTR_RL: " 5, 6" });
    await waitsForThePerson();
    const before = await shown();
    await (await openFile()).cancel();
    await waitsForThePerson();
    assert.equal(await shown(), before);
    assert.equal(await text(page, "txtRL", 2), " 6");
    await saysNothing();
  });
});
