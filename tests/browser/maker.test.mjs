// The maker: what a teacher types becomes a problem, and goes to class as a link, a file, HTML, a line for a frame or a
// worksheet. What a teacher types is text, wherever it comes out.
import assert from "node:assert/strict";
import { mkdtempSync, readFileSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { pathToFileURL } from "node:url";
import { deflateSync, inflateSync } from "node:zlib";
import { idle, launch, noise, text } from "./browser.mjs";
import { textbook } from "./textbook.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const folder = mkdtempSync(join(tmpdir(), "maker-"));
after(() => rmSync(folder, { recursive: true, force: true }));

// One for all tests but those of other engines.
let browser;
before(async () => (browser = await launch()));
after(() => browser?.close());

// Until `look` gives what is wanted.
async function eventually(look, wanted, what) {
  for (let turn = 0; turn < 400 && (await look()) !== wanted; ++turn)
    await new Promise((resume) => setTimeout(resume, 15));
  assert.equal(await look(), wanted, what);
}

const shown = (page, selector) => page.$eval(selector, (node) => node.textContent);
// Of a field, or of a way once it has been written.
async function valueIn(page, id) {
  const look = () => page.$eval(`#${id}`, (node) => node.value ?? node.href);
  await eventually(async () => (await look()) !== "", true);
  return look();
}
const until = (page, seen, ...given) => page.waitForFunction(seen, { timeout: 10_000, polling: "raf" }, ...given);

// ---- At the maker

async function openMaker() {
  const page = await browser.open("maker.html");
  await until(page, () => document.querySelector("#oordeel").textContent !== "");
  return page;
}

async function press(page, keys) {
  const parts = keys.split("+");
  for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
  await page.keyboard.press(parts.at(-1));
  for (const held of parts.slice(0, -1)) await page.keyboard.up(held);
}

async function type(page, id, words) {
  await page.focus(`#${id}`);
  await press(page, "Control+a");
  await press(page, "Delete");
  await page.keyboard.type(words);
}

const choose = (page, name) =>
  page.$$eval(
    "#keuzes button",
    (buttons, wanted) => buttons.find(({ textContent }) => textContent === wanted).click(),
    name,
  );

const judgement = (page) => page.$eval("#oordeel", (node) => node.innerText.replace(/\s+/g, " ").trim());

// What a link holds, read by another hand.
function exerciseIn(link) {
  const [, packed = ""] = link.split("#1");
  return packed ? JSON.parse(inflateSync(Buffer.from(packed, "base64url"))) : undefined;
}

const linkTo = (exercise) => `#1${deflateSync(JSON.stringify(exercise)).toString("base64url")}`;

async function obstacles(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => axe.run(document));
  return violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 120)}`));
}

// Types an exercise, and waits until it can be taken.
async function typeExercise(page, { titel, probleem }) {
  await type(page, "titel", titel);
  await type(page, "probleem", probleem);
  await eventually(async () => {
    const taken = exerciseIn(await valueIn(page, "link"));
    return `${taken.titel}: ${taken.probleem}`;
  }, `${titel}: ${probleem}`);
}

// ---- In the page that came out

// What the control of a page, or of a frame, shows: F, and the values of the basic variables.
const solution = (page) =>
  page.$eval("tabulon-lpctrl", ({ shadowRoot }) => {
    const all = (name) =>
      [...shadowRoot.querySelectorAll(`[data-name="${name}"]`)].filter((node) => node.checkVisibility());
    const values = all("txtRL").map(({ value }) => Number(value));
    const names = all("lblBasis").map(({ textContent }) => textContent.replace(/ +/, " "));
    const F = Number(all("lblFRL")[0].textContent);
    return { F, ...Object.fromEntries(names.map((name, at) => [name, values[at]])) };
  });

const says = (page, name, words) =>
  until(
    page,
    (part, wanted) => {
      const { shadowRoot } = document.querySelector("tabulon-lpctrl");
      return shadowRoot.querySelector(`[data-name="${part}"]`)?.textContent === wanted;
    },
    name,
    words,
  );

// `page` may be a frame, which has no keyboard of its own.
async function solveByKeyboard(page, { keyboard }, { F, values }) {
  await press({ keyboard }, "Alt+w");
  await says(page, "mnu_optimaliseren", "Optimaliseren");
  await press({ keyboard }, "o");
  await says(page, "lblMelding", "Optimale oplossing gevonden!");
  await press({ keyboard }, "Enter");
  await idle(page);
  const found = await solution(page);
  assert.deepEqual({ ...found, F, ...values }, found);
}

// What a single file must not name.
const outside = /(?:src|href)="(?!data:|#)[^"]*"/g;

const wholePage = (body) =>
  `<!doctype html><html lang="nl"><meta charset="utf-8"><link rel="icon" href="data:,"><title>Les</title><body>${body}</html>`;

// The next file that the page saves.
async function downloading(page) {
  const session = await page.createCDPSession();
  await session.send("Browser.setDownloadBehavior", { behavior: "allow", downloadPath: folder, eventsEnabled: true });
  let name;
  session.on("Browser.downloadWillBegin", ({ suggestedFilename }) => (name = suggestedFilename));
  return () =>
    new Promise((resolve) => {
      const heard = ({ state }) => {
        if (state !== "completed") return;
        session.off("Browser.downloadProgress", heard);
        resolve(join(folder, name));
      };
      session.on("Browser.downloadProgress", heard);
    });
}

describe("ten textbook problems, typed as a teacher would,", () => {
  let maker;
  let pupil;
  let saved;

  before(async () => {
    maker = await openMaker();
    saved = await downloading(maker);
    pupil = await browser.open("oefening.html", { wait: false });
  });
  after(async () => {
    await maker.close();
    await pupil.close();
  });

  // Comes to an address by another one, so that a link is opened and not only changed. A page that nobody sees is given
  // no frames.
  async function visit(address) {
    await pupil.bringToFront();
    await pupil.goto("about:blank");
    await pupil.goto(address);
  }

  const onAPage = async (body) => {
    await browser.write("les-van-de-docent.html", wholePage(body));
    await visit(`${browser.origin}/les-van-de-docent.html`);
  };

  async function solvedHere(problem) {
    await pupil.waitForSelector("tabulon-lpctrl");
    await idle(pupil);
    await solveByKeyboard(pupil, pupil, problem);
  }

  async function solvedInFrame(problem) {
    const frame = await (await pupil.waitForSelector("iframe")).contentFrame();
    await frame.waitForSelector("tabulon-lpctrl");
    await idle(frame);
    await press(pupil, "Tab");
    await solveByKeyboard(frame, pupil, problem);
  }

  for (const problem of textbook)
    test(`${problem.titel}: all four ways lead to the optimum`, async () => {
      await maker.bringToFront();
      await typeExercise(maker, problem);
      assert.match(await judgement(maker), /^De methode komt in \d stap(pen)? bij het optimum/);

      await visit(await valueIn(maker, "link"));
      await solvedHere(problem);
      await onAPage(await valueIn(maker, "html"));
      await solvedHere(problem);
      await onAPage(await valueIn(maker, "iframe"));
      await solvedInFrame(problem);
      await maker.bringToFront();
      const saving = saved();
      await maker.click("#bewaar");
      const file = await saving;
      assert.equal(readFileSync(file, "utf8").match(outside), null);
      await visit(pathToFileURL(file).href);
      assert.equal(await shown(pupil, "h1"), problem.titel);
      await solvedHere(problem);
      assert.deepEqual([...noise(maker), ...noise(pupil)], []);
    });
});

// ---- At the maker itself

describe("the maker", () => {
  let page;
  before(async () => {
    page = await openMaker();
    await page.evaluate(() => localStorage.clear());
    await page.reload();
    await until(page, () => document.querySelector("#oordeel").textContent !== "");
  });
  after(() => page?.close());

  const mistaken = () => page.$eval("#oordeel", (node) => node.querySelector(".fouten")?.innerText ?? "");
  const caret = () => page.$eval("#probleem", ({ selectionStart }) => selectionStart);

  test("begins with an example, its tableau and its verdict", async () => {
    assert.match(await judgement(page), /^De methode komt in 2 stappen bij het optimum: W = 130/);
    assert.deepEqual(await solution(page), { F: 0, "x 3": 40, "x 4": 30 });
    assert.equal(await shown(page, "#opgave h3"), "Het naaiatelier");
    assert.match(await shown(page, "#opgave"), /heet schooltas “x 1” en rugzak “x 2”/);
  });

  test("says nothing of a line that is being typed, and then where the mistake is", async () => {
    await type(page, "probleem", "max F = 2x + 3y\nx + y <= ");
    assert.equal(await mistaken(), "");
    await until(page, () => document.querySelector("#oordeel .fouten"));
    assert.match(await mistaken(), /^Regel 2, plaats 10/);
    assert.equal(await page.$eval("#nummers .fout", (item) => [...item.parentNode.children].indexOf(item)), 1);
    assert.equal(await page.$eval("#probleem", ({ ariaInvalid }) => ariaInvalid), "true");
    await eventually(() => shown(page, "#gezegd").then((told) => told.startsWith("Regel 2, plaats 10: ")), true);
  });

  test("leads to the place of a mistake, by keyboard too, and keeps what was taken for a whole problem", async () => {
    await type(page, "probleem", "max F = 2x + 3y\n😀 x + y <= 8");
    await until(page, () => document.querySelector("#oordeel .fouten")?.innerText.startsWith("Regel 2, plaats 1 "));
    assert.equal(await page.$eval("#wegen", ({ hidden }) => hidden), true);
    await page.focus(".vindplaats");
    await press(page, "Enter");
    assert.equal(await page.evaluate(() => document.activeElement.id), "probleem");
    assert.equal(await caret(), "max F = 2x + 3y\n".length);
    await press(page, "Delete");
    await until(page, () => !document.querySelector("#oordeel .fouten"));
    assert.equal(await page.$eval("#wegen", ({ hidden }) => hidden), false);
    assert.equal(await page.$eval("#probleem", ({ ariaInvalid }) => ariaInvalid), "false");
  });

  test("keeps the keyboard in the field while the tableau follows, step by step", async () => {
    await type(page, "probleem", "max F = 2x + 3y\nx + y <= 8");
    await eventually(async () => (await solution(page))["x 3"], 8);
    await page.keyboard.type("0");
    await eventually(async () => (await solution(page))["x 3"], 80);
    assert.equal(await page.evaluate(() => document.activeElement.id), "probleem");
  });

  test("leaves the steps that were made in the tableau when something else is typed", async () => {
    await typeExercise(page, { titel: "Stappen", probleem: "max F = 2x + 3y\nx + y <= 80" });
    await page.click('tabulon-lpctrl >>> [data-name="FrameHead"]');
    await solveByKeyboard(page, page, { F: 240, values: { "x 2": 80 } });
    await type(page, "titel", "Een andere titel");
    await eventually(() => shown(page, "#opgave h3"), "Een andere titel");
    assert.equal((await solution(page)).F, 240);
  });

  test("warns of a problem that the method gets wrong", async () => {
    await choose(page, "een valkuil");
    await until(page, () => document.querySelector("#oordeel .let-op"));
    assert.match(await judgement(page), /^Let op: de methode eindigt na 2 stappen bij F = 24, maar het maximum is 18/);
  });

  test("gives back the exercise that an example took the place of", async () => {
    await type(page, "titel", "Mijn eigen opgave");
    await choose(page, "een minimum");
    assert.equal(await valueIn(page, "titel"), "Het ontbijt");
    await page.click("#terug");
    assert.equal(await valueIn(page, "titel"), "Mijn eigen opgave");
  });

  test("shows nothing of the problem before when the field is emptied", async () => {
    await choose(page, "een minimum");
    await type(page, "probleem", "");
    assert.equal(await judgement(page), "Typ een probleem, of begin met een van de voorbeelden.");
    assert.equal(await page.$eval("#blad", (node) => node.checkVisibility()), false);
    assert.equal(await page.$eval("#wegen", ({ hidden }) => hidden), true);
    await page.keyboard.type("min 2x\nx >= 3");
    await eventually(() => page.$eval("#blad", (node) => node.checkVisibility()), true);
    assert.deepEqual(await solution(page), { F: 0, "q 1": 3 });
  });

  test("takes questions, and takes them away again, without the mouse", async () => {
    await choose(page, "leeg blad");
    await page.focus("#erbij");
    await press(page, "Enter");
    await page.keyboard.type("Hoe groot is F?");
    await press(page, "Tab");
    await page.keyboard.type("Heel groot.");
    await type(page, "probleem", "max F = x\nx <= 3");
    await until(page, () => document.querySelector("#vragen .lijst li"));
    assert.match(await shown(page, "#vragen"), /Hoe groot is F\?Antwoord\s*Heel groot\./);
    await page.focus("#vraagvelden button");
    await press(page, "Enter");
    assert.equal(await page.evaluate(() => document.activeElement.id), "erbij");
    assert.equal(await page.$("#vragen .lijst"), null);
  });

  test("puts a log around the tableau, which keeps its steps, and takes it along", async () => {
    await typeExercise(page, { titel: "Met logboek", probleem: "max F = 2x + 3y\nx + y <= 8" });
    await page.click('tabulon-lpctrl >>> [data-name="FrameHead"]');
    await solveByKeyboard(page, page, { F: 24, values: { "x 2": 8 } });
    await page.select("#hulp", "achteraf");
    await page.waitForSelector("tabulon-les tabulon-lpctrl");
    assert.equal((await solution(page)).F, 24);
    await eventually(async () => exerciseIn(await valueIn(page, "link")).hulp, "achteraf");
    assert.match(await valueIn(page, "html"), /tabulon-les\.js.*<tabulon-les hulp="achteraf">\s*<tabulon-lpctrl>/s);
    await page.select("#hulp", "");
    await page.waitForFunction(() => !document.querySelector("tabulon-les"));
    assert.equal((await solution(page)).F, 24);
  });

  test("has its draft again after a reload", async () => {
    await typeExercise(page, { titel: "Wél bewaard", probleem: "max F = x\nx <= 3" });
    await page.reload();
    await until(page, () => document.querySelector("#oordeel").textContent !== "");
    assert.equal(await valueIn(page, "titel"), "Wél bewaard");
    assert.equal(await valueIn(page, "probleem"), "max F = x\nx <= 3");
  });

  test("has its draft again after a reload that comes with the last key", async () => {
    await type(page, "titel", "Net op tij");
    await page.keyboard.press("d");
    await page.reload();
    await until(page, () => document.querySelector("#oordeel").textContent !== "");
    assert.equal(await valueIn(page, "titel"), "Net op tijd");
    await typeExercise(page, { titel: "Wél bewaard", probleem: "max F = x\nx <= 3" });
  });

  test("writes the ways when the teacher rests, and not while a key is answered", async () => {
    const atOnce = await page.evaluate(() => {
      const html = document.getElementById("html");
      const title = document.getElementById("titel");
      title.value = "Tien tekens";
      title.dispatchEvent(new Event("input", { bubbles: true }));
      return html.value.includes("Tien tekens");
    });
    assert.equal(atOnce, false);
    await until(page, () => document.getElementById("html").value.includes("Tien tekens"));
    assert.equal(exerciseIn(await valueIn(page, "link")).titel, "Tien tekens");
    await type(page, "titel", "Wél bewaard");
  });

  // Types, and takes a way in the same turn, as no hand can; what is then taken.
  const takenAtOnce = (id, title) =>
    page.evaluate(
      (way, words) =>
        new Promise((resolve) => {
          document.getElementById("titel").value = words;
          document.getElementById("titel").dispatchEvent(new Event("input", { bubbles: true }));
          const link = document.getElementById(way);
          link.addEventListener(
            "click",
            (event) => {
              event.preventDefault();
              resolve(link.href);
            },
            { once: true },
          );
          link.click();
        }),
      id,
      title,
    );

  for (const way of ["open", "werkblad"])
    test(`has the newest exercise behind "${way}", however soon after a key it is taken`, async () => {
      assert.equal(exerciseIn(await takenAtOnce(way, `Snel naar ${way}`)).titel, `Snel naar ${way}`);
      assert.equal(exerciseIn(await takenAtOnce(way, "Wél bewaard")).titel, "Wél bewaard");
    });

  test("copies the newest exercise, however soon after a key", async () => {
    await browser.browser.defaultBrowserContext().overridePermissions(browser.origin, ["clipboard-read"]);
    for (const titel of ["Vlug gekopieerd", "Wél bewaard"]) {
      await type(page, "titel", titel);
      await page.$eval('[data-kopieer="link"]', (button) => button.click());
      const copied = async () => exerciseIn(await page.evaluate(() => navigator.clipboard.readText()))?.titel;
      await eventually(copied, titel);
    }
  });

  test("copies, where a page has a clipboard and where it has none", async () => {
    await browser.browser.defaultBrowserContext().overridePermissions(browser.origin, ["clipboard-read"]);
    for (const id of ["link", "iframe", "html"]) {
      await page.click(`[data-kopieer="${id}"]`);
      await eventually(() => shown(page, "#gekopieerd"), "Gekopieerd.");
      assert.equal(await page.evaluate(() => navigator.clipboard.readText()), await valueIn(page, id));
      await page.$eval("#gekopieerd", (node) => (node.textContent = ""));
    }
    await page.evaluate(() => Object.defineProperty(navigator, "clipboard", { value: undefined }));
    await page.click('[data-kopieer="link"]');
    await eventually(() => shown(page, "#gekopieerd"), "Gekopieerd.");
  });

  test("has an exercise of a link to change", async () => {
    const link = (await valueIn(page, "link")).replace("oefening.html", "maker.html");
    await choose(page, "een minimum");
    await page.goto("about:blank");
    await page.goto(link);
    await until(page, () => document.getElementById("titel").value === "Wél bewaard");
    assert.equal(new URL(page.url()).hash, "");
  });

  test("says that a link was broken, and keeps the draft", async () => {
    const broken = (await valueIn(page, "link")).replace("oefening.html", "maker.html").slice(0, -4);
    await page.goto("about:blank");
    await page.goto(broken);
    await until(page, () => document.getElementById("stuk").checkVisibility());
    assert.equal(await valueIn(page, "titel"), "Wél bewaard");
  });

  test("takes no more questions than a link does", async () => {
    await page.$eval("#erbij", (button) => {
      for (let at = 0; at < 60; ++at) button.click();
    });
    assert.equal(await page.$$eval("#vraagvelden fieldset", (fields) => fields.length), 50);
    await eventually(async () => exerciseIn(await valueIn(page, "link")).vragen.length, 50);
    await page.$$eval("#vraagvelden button", (buttons) => buttons.forEach((button) => button.click()));
    assert.equal(await page.$eval("#erbij", ({ disabled }) => disabled), false);
  });

  test("has no obstacle that axe-core knows, with a mistake neither", async () => {
    for (const name of ["een minimum", "een valkuil", "leeg blad"]) {
      await choose(page, name);
      await until(page, () => document.querySelector("#oordeel").textContent !== "");
      assert.deepEqual(await obstacles(page), []);
    }
    await type(page, "probleem", "max F = 2x +");
    await until(page, () => document.querySelector("#oordeel .fouten"));
    assert.deepEqual(await obstacles(page), []);
  });

  test("is not scrolled sideways on a phone", async () => {
    await page.setViewport({ width: 360, height: 740 });
    await choose(page, "≤, ≥ en =");
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 360);
    assert.deepEqual(noise(page), []);
  });
});

test("where nothing may be kept, the maker works all the same", async () => {
  const page = await browser.browser.newPage();
  await page.evaluateOnNewDocument(() => {
    const refused = () => {
      throw new DOMException("", "SecurityError");
    };
    Object.defineProperty(globalThis, "localStorage", { get: refused });
  });
  await page.goto(`${browser.origin}/maker.html`);
  await until(page, () => document.querySelector("#oordeel").textContent !== "");
  await typeExercise(page, { titel: "Zonder geheugen", probleem: "max F = x\nx <= 3" });
  await page.close();
});

// ---- What a teacher types is text

const evil = '</textarea><img src=x onerror="window.hit = 1"><script>window.hit = 1</script>';
const evilExercise = {
  titel: `${evil}"><b>`,
  tekst: `<!-- alleen hier -->${evil}<!-- /alleen hier --><link rel="stylesheet" href="voorbeelden.css">`,
  probleem: `max F = 2x + 3y\n<img onerror="window.hit = 1">${"x".repeat(3)}: x + y <= 8\nx + 2y <= 12`,
  vragen: [{ vraag: `${evil}?`, antwoord: `${evil}!` }],
};

describe("what a teacher types is shown as it was typed", () => {
  let maker;
  before(async () => {
    maker = await browser.open(`maker.html${linkTo(evilExercise)}`);
    await until(maker, () => document.querySelector("#titel").value.includes("<img"));
  });
  after(() => maker?.close());

  async function isHarmless(page, { heading }) {
    await idle(page);
    assert.equal(await shown(page, heading), evilExercise.titel);
    const told = await page.$eval("body", (body) => body.innerText);
    for (const words of [evilExercise.tekst, evilExercise.vragen[0].vraag, '<img onerror="window.hit = 1">xxx'])
      assert.ok(told.includes(words), words);
    assert.ok((await page.$eval("li details p", (answer) => answer.textContent)) === evilExercise.vragen[0].antwoord);
    assert.equal(await page.$("img"), null);
    assert.equal(await page.evaluate(() => globalThis.hit), undefined);
  }

  test("in the maker", async () => isHarmless(maker, { heading: "#opgave h3" }));

  test("behind the link", async () => {
    const page = await browser.open((await valueIn(maker, "link")).replace(`${browser.origin}/`, ""), { wait: false });
    await page.waitForSelector("tabulon-lpctrl");
    await isHarmless(page, { heading: "h1" });
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  test("in the single file, which has all of it", async () => {
    const saved = await downloading(maker);
    await maker.bringToFront();
    const file = saved();
    await maker.click("#bewaar");
    const page = await browser.browser.newPage();
    await page.goto(pathToFileURL(await file).href);
    await isHarmless(page, { heading: "h1" });
    await page.close();
  });

  test("in the HTML for a page, and in the line for a frame", async () => {
    const page = await browser.open((await valueIn(maker, "html")) + (await valueIn(maker, "iframe")));
    await isHarmless(page, { heading: "h2" });
    assert.equal(await page.$eval("iframe", ({ title }) => title), evilExercise.titel);
    await page.close();
  });

  test("on the worksheet", async () => {
    const page = await browser.open(`werkblad.html${linkTo(evilExercise)}`, { wait: false });
    await page.waitForSelector(".papier");
    assert.equal(await shown(page, "h1"), evilExercise.titel);
    assert.equal(await page.$("img"), null);
    assert.equal(await page.evaluate(() => globalThis.hit), undefined);
    assert.deepEqual(noise(page), []);
    await page.close();
  });
});

// ---- The link

describe("a link", () => {
  let page;
  before(async () => {
    page = await browser.open("oefening.html", { wait: false });
  });
  after(() => page?.close());

  const small = { titel: "Klein", tekst: "", probleem: "max F = x\nx <= 3", vragen: [] };
  async function opened(hash) {
    await page.goto("about:blank");
    await page.goto(`${browser.origin}/oefening.html${hash}`);
    await page.waitForSelector("h1");
    return shown(page, "h1");
  }

  test("keeps umlauts, ends of lines and long texts", async () => {
    const tekst = `Größe, „naïef” en 😀.\r\nTweede regel.\n\n${"Een heel lang verhaal. ".repeat(800)}`;
    assert.equal(await opened(linkTo({ ...small, titel: "Ä €", tekst })), "Ä €");
    const parts = await page.$$eval(".opgave p", (nodes) => nodes.map((node) => node.innerText));
    assert.equal(parts[0], "Größe, „naïef” en 😀.\nTweede regel.");
    assert.equal(parts[1], "Een heel lang verhaal. ".repeat(800).trim());
  });

  test("that a mail program has broken into lines, or given a full stop, is whole", async () => {
    const hash = linkTo(small);
    assert.equal(await opened(`${hash.slice(0, 20)}%0A%20${hash.slice(20)}).`), "Klein");
  });

  const broken = {
    "is cut off": (hash) => hash.slice(0, -5),
    "has a wrong letter": (hash) => hash.replace(/.(?=.{12}$)/, (sign) => (sign === "A" ? "B" : "A")),
    "is of another kind": () => "#vraag-3",
    "holds something else": () => linkTo({ titel: "Alleen een titel" }),
    "holds a problem that nobody can read": () => linkTo({ ...small, probleem: "max F =" }),
    "holds far too much": () => linkTo({ ...small, tekst: "a".repeat(3_000_000) }),
  };
  for (const [how, spoil] of Object.entries(broken))
    test(`that ${how} is told kindly`, async () => {
      assert.equal(await opened(spoil(linkTo(small))), "Deze link is beschadigd");
      assert.deepEqual(await obstacles(page), []);
      assert.deepEqual(noise(page), []);
    });

  test("without an exercise says what it lacks", async () => {
    assert.equal(await opened(""), "Hier hoort een opgave te staan");
  });

  test("that takes the place of another in the same page shows its own exercise", async () => {
    await opened(linkTo(small));
    await page.evaluate(
      (hash) => (location.hash = hash),
      linkTo({ ...small, titel: "Twee", probleem: "max 2x\nx <= 7" }),
    );
    await until(page, () => document.querySelector("h1").textContent === "Twee");
    await idle(page);
    assert.deepEqual(await solution(page), { F: 0, "x 2": 7 });
  });

  test("opens a page without an obstacle that axe-core knows", async () => {
    await opened(linkTo(evilExercise));
    assert.deepEqual(await obstacles(page), []);
  });
});

// ---- The worksheet

describe("the worksheet", () => {
  let page;
  const exercise = {
    titel: "Minder",
    tekst: "",
    probleem: "min K = 2x + 3y\nx + y >= 4",
    vragen: [{ vraag: "Hoeveel?", antwoord: "Acht." }],
  };
  before(async () => {
    page = await browser.open(`werkblad.html${linkTo(exercise)}`, { wait: false });
    await page.waitForSelector(".papier");
  });
  after(() => page?.close());

  const tables = (kind) =>
    page.$$eval(`${kind} table`, (found) =>
      found.map((table) => [
        table.caption.textContent,
        ...[...table.rows].map((row) => [...row.cells].map((cell) => cell.textContent).join("|")),
      ]),
    );
  const numbers = (name) => page.evaluate((given) => tabulonLes.thinking().then(({ read }) => read(given)), name);

  test("has an empty tableau for each one that the method makes, of its size", async () => {
    const empty = ["|basis|x 1|x 2|s 1|q 1|RL", "|F|||||", "1||||||"];
    assert.deepEqual(await tables(".papier:not(.antwoorden)"), [
      ["Tableau 1", ...empty],
      ["Tableau 2", ...empty],
    ]);
  });

  test("has on a page of its own the numbers that the control shows, with each pivot", async () => {
    assert.deepEqual(await tables(".antwoorden"), [
      ["Tableau 1", "|basis|x 1|x 2|s 1|q 1|RL", "|F|2|3|0|100|0", "1|q 1|1|1|-1|1|4"],
      [
        "Tableau 1, met de kunstmatige kolommen geveegd: de pivot staat in kolom x 1, rij 1",
        ...["|basis|x 1|x 2|s 1|q 1|RL", "|F|-98|-97|100|0|-400", "1|q 1|1|1|-1|1|4"],
      ],
      ["Tableau 2", "|basis|x 1|x 2|s 1|q 1|RL", "|F|0|1|2|98|-8", "1|x 1|1|1|-1|1|4"],
    ]);
    const sheet = await shown(page, ".antwoorden");
    assert.ok(sheet.includes((await numbers(exercise.probleem)).problem.verdict.sentences[0]));
    assert.ok(sheet.includes("Acht."));
    assert.ok(!(await shown(page, ".papier")).includes("Acht."));
  });

  test("has as many tableaus as are asked for, the first filled in, and no answers where none are wanted", async () => {
    await type(page, "aantal", "3");
    await page.click("#ingevuld");
    await page.click("#antwoorden");
    const found = await tables(".papier");
    assert.equal(found.length, 3);
    assert.deepEqual(found[0].slice(2), ["|F|2|3|0|100|0", "1|q 1|1|1|-1|1|4"]);
    assert.equal(await page.$(".antwoorden"), null);
    await type(page, "aantal", "999");
    assert.equal((await tables(".papier")).length, 12);
  });

  test("prints two sheets, without what is for the screen", async () => {
    await page.goto("about:blank");
    await page.goto(`${browser.origin}/werkblad.html${linkTo(exercise)}`);
    await page.waitForSelector(".papier");
    const pdf = Buffer.from(await page.pdf({ preferCSSPageSize: true })).toString("latin1");
    assert.equal(pdf.match(/\/Type\s*\/Page\b/g).length, 2);
    await page.emulateMediaType("print");
    assert.equal(await page.$eval("#keuze", (node) => node.checkVisibility()), false);
    await page.emulateMediaType("screen");
  });

  test("has no obstacle that axe-core knows, and fits a phone", async () => {
    assert.deepEqual(await obstacles(page), []);
    await page.setViewport({ width: 360, height: 740 });
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 360);
    assert.deepEqual(noise(page), []);
  });

  test("of a link that is broken says so", async () => {
    await page.goto("about:blank");
    await page.goto(`${browser.origin}/werkblad.html#1abc`);
    await page.waitForSelector("h1");
    assert.equal(await shown(page, "h1"), "Deze link is beschadigd");
  });
});

// ---- Elsewhere

for (const [engine, from] of [
  ["chromium", "file"],
  ["firefox", "server"],
  ["webkit", "server"],
])
  test(`in ${engine}, from ${from}, a problem is typed, and what comes of it is solved by keyboard`, async (t) => {
    const other = engine === "chromium" ? browser : await launch({ engine });
    t.after(() => engine !== "chromium" && other.close());
    const page = await other.open("maker.html", { from });
    await eventually(() => shown(page, "#oordeel").then((words) => words !== ""), true);
    await page.evaluate(() => document.getElementById("probleem").focus());
    await press(page, "Control+a");
    for (const [at, line] of textbook[3].probleem.split("\n").entries()) {
      if (at) await press(page, "Enter");
      await page.keyboard.type(line);
    }
    await eventually(async () => exerciseIn(await valueIn(page, "link"))?.probleem, textbook[3].probleem);
    assert.match(await shown(page, "#oordeel"), /K = 1\.7/);
    const link = await valueIn(page, "link");
    assert.deepEqual(noise(page), []);
    const pupil = await other.open("oefening.html", { from, wait: false });
    await pupil.evaluate((hash) => (location.hash = hash), new URL(link).hash);
    await eventually(() => pupil.evaluate(() => document.querySelectorAll("tabulon-lpctrl").length), 1);
    await idle(pupil);
    await pupil.click('tabulon-lpctrl >>> [data-name="FrameHead"]');
    await press(pupil, "Alt+w");
    await eventually(() => text(pupil, "mnu_optimaliseren"), "Optimaliseren");
    await press(pupil, "o");
    await eventually(() => text(pupil, "lblMelding"), "Optimale oplossing gevonden!");
    await press(pupil, "Enter");
    await eventually(() => text(pupil, "lblFRL"), "-1.7");
    assert.deepEqual(noise(pupil), []);
  });
