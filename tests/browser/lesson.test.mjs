// The lesson around the control: what is done is told, taken back and asked about, in the hands of a pupil.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, afterEach, before, describe, test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

const twoProducts = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

const lesson = (attributes = "", parameters = twoProducts) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Les</title>
<link rel="icon" href="data:,">
<link rel="stylesheet" href="voorbeelden.css">
<script src="tabulon.js"></script>
<script src="tabulon-les.js"></script>
<body>
<main>
<h1>De meubelmaker</h1>
<tabulon-les ${attributes}>${problem(parameters)}</tabulon-les>
<p><label>Antwoord <textarea id="answer"></textarea></label></p>
</main>
`;

const inLesson = (selector) => `tabulon-les >>> ${selector}`;
// Of the newest step, or of the one so many before it.
const inStep = (selector, before = 0) => inLesson(`li:nth-child(${before + 1}) ${selector}`);

let page;

// Waits for what a person would wait for.
async function eventually(look, wanted) {
  for (let turn = 0; turn < 200; ++turn) {
    if (JSON.stringify(await look()) === JSON.stringify(wanted)) return;
    await sleep(20);
  }
  assert.deepEqual(await look(), wanted);
}

// The texts of what is seen of these.
const seen = (selector) =>
  page.evaluate(
    (selector) =>
      [...(document.querySelector("tabulon-les").shadowRoot?.querySelectorAll(selector) ?? [])]
        .filter((each) => each.checkVisibility())
        .map((each) => each.textContent.replaceAll("\u00a0", " ")),
    selector,
  );
const steps = () => seen("li > p:first-child");
const title = () => text(page, "lblNRTableau");

async function open(browser, attributes, options = {}) {
  page = await browser.open(lesson(attributes, options.parameters), { width: 1200, ...options });
  await eventually(() => seen(".title"), ["Logboek"]);
}

// By the dialog, whose bars begin at 1.
async function sweep(column, row) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_Kolommen_vegen"));
  for (const [bar, box, wanted] of [
    ["VScrollKolom", "txtKolom", column],
    ["VScrollRij", "txtRij", row],
  ]) {
    await eventually(() => text(page, box), "1");
    for (let at = 2; at <= wanted; ++at) {
      await page.click(`${control(bar)} .arrow`);
      await eventually(() => text(page, box), String(at));
    }
  }
  await page.click(control("OKButton"));
  await idle(page);
}

async function choose(menu, item) {
  await page.click(control(menu));
  await page.click(control(item));
  await idle(page);
}

async function type(name, index, words) {
  await page.click(control(name, index));
  await page.keyboard.type(words);
  await page.keyboard.press("Tab");
  await idle(page);
}

const wrongStep = [
  "Het quotiënt van rij 2 was kleiner (6) dan dat van rij 3 (9).",
  "Nu staat rechts in rij 2 een negatief getal: -6.",
];
const firstPivot = [
  "Kolom x 2: daar staat in rij F het meest negatieve getal, -5; minder negatief is x 1 met -3.",
  "Rij 1: in kolom x 2 staat 0, dus deze rij telt niet mee.",
  "Rij 2: 12 : 2 = 6, het kleinste positieve quotiënt.",
  "Rij 3: 18 : 2 = 9, dat is groter.",
  "De pivot staat in kolom x 2, rij 2.",
];

for (const engine of ["chromium", "firefox", "webkit"])
  describe(`in ${engine}`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());
    afterEach(async () => {
      assert.deepEqual(noise(page), []);
      await page.close();
    });

    for (const from of ["server", "file"])
      test(`a step is told, and judged when somebody asks, from ${from}`, async () => {
        await open(browser, "", { from });
        assert.deepEqual(await seen(".empty"), ["Wat je in het tableau doet, komt hier te staan."]);
        await sweep(2, 3);
        await eventually(steps, ["x 2 komt in de basis, x 5 gaat eruit."]);
        assert.deepEqual(await seen(".operation"), [
          "rij F := rij F + 2.5 × rij 3",
          "rij 2 := rij 2 − 1 × rij 3",
          "rij 3 := rij 3 : 2",
        ]);
        assert.deepEqual(await seen(".empty, .answer p"), []);
        await page.click(inStep(".judge"));
        await eventually(() => seen("li .answer p"), wrongStep);
        await page.click(inStep(".why"));
        await eventually(() => seen("li .answer p"), firstPivot);
      });

    test("steps are taken back and done again, as many as there are", async () => {
      await open(browser);
      await type("txtRL", 1, "5/2");
      await sweep(2, 2);
      await choose("cmd_Opties", "mnu_Breuken");
      const all = await steps();
      assert.equal(all.length, 3);
      for (let left = 2; left >= 0; --left) {
        await page.click(inLesson(".back"));
        await eventually(steps, all.slice(3 - left));
      }
      assert.equal(await title(), "1-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 4");
      await page.click(inLesson(".back"));
      for (let done = 1; done <= 3; ++done) {
        await page.click(inLesson(".forward"));
        await eventually(steps, all.slice(3 - done));
      }
      assert.equal(await title(), "2-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 2+1/2");
    });

    test("the log is there again after a reload where the page says so", async () => {
      await open(browser, 'bewaar="meubels"');
      await type("txtRL", 1, "7");
      await sweep(2, 2);
      await sweep(1, 3);
      const all = await steps();
      assert.equal(all.length, 3);
      await page.click(inLesson(".back"));
      await eventually(steps, all.slice(1));
      await page.goto(await page.evaluate(() => location.href));
      await idle(page);
      await eventually(steps, all.slice(1));
      assert.equal(await title(), "2-e Simplex-tableau");
      assert.equal(await text(page, "txtRL", 1), " 7");
      await page.click(inLesson(".forward"));
      await eventually(steps, all);
      assert.equal(await title(), "3-e Simplex-tableau");
    });

    test("an earlier tableau unfolds with its pivot marked, and goes to the clipboard", async () => {
      await open(browser);
      await sweep(2, 2);
      await page.click(inStep("summary"));
      await eventually(() => seen("li caption"), ["1-e Simplex-tableau, pivot in rij 2, kolom x 2"]);
      assert.deepEqual(await seen("li .pivot"), ["2"]);
      assert.deepEqual(await seen("li tr:nth-child(2) > *"), ["F", "-3", "-5", "0", "0", "0", "0"]);
      await page.click(inStep(".latex"));
      await eventually(() => seen("li .copies button"), ["Kopieer als tabel", "Gekopieerd"]);
      await page.evaluate(() => document.querySelector("#answer").focus());
      await page.keyboard.down("Control");
      await page.keyboard.press("v");
      await page.keyboard.up("Control");
      await eventually(
        () => page.evaluate(() => document.querySelector("#answer").value),
        [
          "\\begin{array}{l|rrrrr|r}",
          "   & x_{1} & x_{2} & x_{3} & x_{4} & x_{5} & RL \\\\ \\hline",
          "  F & -3 & -5 & 0 & 0 & 0 & 0 \\\\ \\hline",
          "  x_{3} & 1 & 0 & 1 & 0 & 0 & 4 \\\\",
          "  x_{4} & 0 & \\boxed{2} & 0 & 1 & 0 & 12 \\\\",
          "  x_{5} & 3 & 2 & 0 & 0 & 1 & 18 \\\\",
          "\\end{array}",
          "",
        ].join("\n"),
      );
      assert.deepEqual(await seen("li .copies button"), ["Kopieer als tabel", "Kopieer als LaTeX"]);
    });
  });

describe("a pupil", () => {
  let browser;
  before(async () => (browser = await launch()));
  after(() => browser?.close());
  afterEach(async () => {
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  const pressed = (words) =>
    words.reduce((before, key) => before.then(() => page.keyboard.press(key)), Promise.resolve());

  test("sees the same of a right step and of a wrong one", async () => {
    const looks = [];
    for (const row of [2, 3]) {
      await open(browser);
      await sweep(2, row);
      await eventually(async () => (await steps()).length, 1);
      await eventually(() => page.$$eval("tabulon-les >>> li .figure", ({ length }) => length), 1);
      looks.push(
        await page.$eval("tabulon-les", ({ shadowRoot }) =>
          shadowRoot
            .querySelector("li")
            .outerHTML.replaceAll(/x&nbsp;\d|x \d|(rij|[-−+]) [^<]*/g, "")
            .replaceAll(/<div class="operation">[^<]*<\/div>/g, "")
            .replace(/<table.*<\/table>/s, ""),
        ),
      );
      if (row === 2) await page.close();
    }
    assert.equal(looks[0], looks[1]);
  });

  test("gets as much help as the page allows, and none where the page says what it does not know", async () => {
    const asked = { altijd: 3, achteraf: 2, geen: 0, "": 0, Altijd: 0 };
    for (const [help, count] of Object.entries(asked)) {
      await open(browser, `hulp="${help}"`);
      await sweep(2, 3);
      await eventually(steps, ["x 2 komt in de basis, x 5 gaat eruit."]);
      assert.equal((await seen(".judge, .why")).length, count, help);
      await page.close();
    }
    await open(browser);
    await sweep(2, 3);
    await page.click(inStep(".judge"));
    await eventually(() => seen("li .answer p"), wrongStep);
    assert.equal((await seen(".judge, .why")).length, 3);
    await page.evaluate(() => document.querySelector("tabulon-les").setAttribute("hulp", "geen"));
    assert.deepEqual(await seen(".judge, .why, .answer"), []);
    assert.deepEqual(await steps(), ["x 2 komt in de basis, x 5 gaat eruit."]);
  });

  test("asks why of the tableau that stands, and the answer goes with it", async () => {
    await open(browser);
    await page.click(inLesson(".why"));
    await eventually(() => seen(".answer p"), firstPivot);
    await sweep(2, 2);
    await eventually(() => seen(".answer p"), []);
  });

  test("who steps back with a number half typed loses that alone", async () => {
    await open(browser);
    await type("txtRL", 1, "9");
    await page.click(control("txtRL", 2));
    await page.keyboard.type("77");
    await page.click(inLesson(".back"));
    await idle(page);
    await eventually(async () => (await steps()).length, 1);
    assert.deepEqual([await text(page, "txtRL", 1), await text(page, "txtRL", 2)], ["9", " 12"]);
    await page.click(inLesson(".back"));
    await eventually(() => text(page, "txtRL", 1), " 4");
  });

  test("cannot step back behind an open form", async () => {
    await open(browser);
    await sweep(2, 2);
    await page.click(control("cmd_Bewerken"));
    await page.click(control("mnu_Basisoplossing"));
    await eventually(
      () => page.$eval("tabulon-lpctrl", ({ shadowRoot }) => Boolean(shadowRoot.querySelector("dialog[open]"))),
      true,
    );
    await page.click(inLesson(".back"));
    assert.equal((await steps()).length, 1);
    assert.equal(await title(), "2-e Simplex-tableau");
  });

  test("cannot step back while the control works through many steps", async () => {
    // A machine on which every yield is due, and which is held in the middle of a run.
    const slowMachine = `
      let reading = 0;
      performance.now = () => (reading += 1000);
      const post = MessagePort.prototype.postMessage;
      const held = [];
      MessagePort.prototype.postMessage = function (...message) {
        if (window.holding) held.push(() => post.apply(this, message));
        else post.apply(this, message);
      };
      window.letThrough = () => {
        window.holding = false;
        for (const message of held.splice(0)) message();
      };
    `;
    await browser.write("slow-machine.js", slowMachine);
    // Klee and Minty's problem, on which the method visits all corners.
    const numbers = [1, 2, 3, 4, 5, 6, 7, 8];
    const parameters = {
      prmNrBeslisVar: 8,
      prmNrKleinerGelijkVglen: 8,
      prmSTR_DLfunctie: numbers.map((j) => -(10 ** (8 - j))).join(),
      prmSTR_KleinerGelijkVglen: numbers
        .flatMap((i) => numbers.map((j) => (j < i ? 2 * 10 ** (i - j) : +(i === j))))
        .join(),
      prmSTR_RL: numbers.map((i) => 100 ** (i - 1)).join(),
    };
    page = await browser.open(lesson("", parameters).replace("<script", '<script src="slow-machine.js"></script>$&'), {
      width: 1200,
    });
    await eventually(() => seen(".title"), ["Logboek"]);
    await type("txtRL", 1, "9");
    await page.evaluate(() => (window.holding = true));
    await page.click(control("cmd_Bewerken"));
    await page.click(control("mnu_optimaliseren"));
    const isBusy = () => page.$eval("tabulon-lpctrl", (element) => element.hasAttribute("aria-busy"));
    await eventually(isBusy, true);
    await page.click(inLesson(".back"));
    assert.deepEqual(await steps(), ["Rechts in rij 1 is 9 ingevuld; er stond 1."]);
    await page.evaluate(() => letThrough());
    await eventually(() => text(page, "lblMelding"), "Optimale oplossing gevonden!");
    await page.keyboard.press("Enter");
    await idle(page);
    await eventually(async () => (await steps()).length, 2);
    assert.match((await steps())[0], /^Het control heeft zelf \d{3} stappen gedaan\.$/);
  });

  test("who has the control optimise has one step, and none where nothing changed", async () => {
    await open(browser);
    const optimise = async () => {
      await page.click(control("cmd_Bewerken"));
      await page.click(control("mnu_optimaliseren"));
      await eventually(() => text(page, "lblMelding"), "Optimale oplossing gevonden!");
      await page.keyboard.press("Enter");
      await idle(page);
    };
    await optimise();
    await eventually(steps, ["Het control heeft zelf 2 stappen gedaan."]);
    assert.deepEqual(await seen(".operation"), ["In rij F staat geen negatief getal meer: F = 36."]);
    await optimise();
    assert.equal((await steps()).length, 1);
    await page.click(inLesson(".back"));
    await eventually(title, "1-e Simplex-tableau");
  });

  test("who takes a step back and makes another has that one", async () => {
    await open(browser);
    await sweep(2, 3);
    await page.click(inLesson(".back"));
    await eventually(steps, []);
    await sweep(2, 2);
    await eventually(steps, ["x 2 komt in de basis, x 4 gaat eruit."]);
    await page.click(inLesson(".forward"));
    assert.deepEqual(await steps(), ["x 2 komt in de basis, x 4 gaat eruit."]);
    assert.equal(await title(), "2-e Simplex-tableau");
  });

  test("finds another problem's log nowhere", async () => {
    await open(browser, 'bewaar="les"');
    await sweep(2, 2);
    await eventually(async () => (await steps()).length, 1);
    await page.evaluate(() => {
      for (const name of Object.keys(sessionStorage))
        sessionStorage[name] = sessionStorage[name].replace(/("saved":"[^"]*)18/, "$119");
    });
    await page.reload();
    await idle(page);
    await eventually(() => seen(".title"), ["Logboek"]);
    assert.deepEqual(await steps(), []);
    assert.equal(await title(), "1-e Simplex-tableau");
  });

  test("without a word to keep it, has an empty log after a reload", async () => {
    await open(browser);
    await sweep(2, 2);
    await page.reload();
    await idle(page);
    await eventually(() => seen(".title"), ["Logboek"]);
    assert.deepEqual(await steps(), []);
  });

  test("is told of each step and each answer, by who reads the screen aloud", async () => {
    await open(browser);
    const told = () =>
      page.$eval(inLesson('[role="status"]'), (region) => region.textContent.replaceAll("\u00a0", " "));
    await sweep(2, 3);
    await eventually(told, "x 2 komt in de basis, x 5 gaat eruit.");
    await page.click(inStep(".judge"));
    await eventually(told, wrongStep.join(" "));
    await page.click(inLesson(".back"));
    await eventually(told, "Stap terug.");
  });

  test("does everything by keyboard, and keeps the focus", async () => {
    await open(browser);
    await sweep(2, 3);
    const focused = () => page.evaluate(() => document.activeElement.shadowRoot?.activeElement?.textContent);
    await page.focus(inLesson(".back"));
    const path = ["Stap terug", "Stap vooruit", "Waarom?", "Afdrukken", "Klopt het?", "Waarom?", "Het tableau ervoor"];
    for (const words of path) {
      assert.equal(await focused(), words);
      await page.keyboard.press("Tab");
    }
    await page.keyboard.down("Shift");
    await pressed(["Tab", "Tab", "Tab"]);
    await page.keyboard.up("Shift");
    await page.keyboard.press("Enter");
    await eventually(() => seen("li .answer p"), wrongStep);
    await pressed(["Tab", "Tab", "Enter", "Tab", "Tab", "Enter"]);
    await eventually(() => seen("li .copies button"), ["Gekopieerd", "Kopieer als LaTeX"]);
    assert.equal(await focused(), "Gekopieerd");
    await page.focus(inLesson(".back"));
    await page.keyboard.press("Enter");
    await eventually(steps, []);
    assert.equal(await focused(), "Stap terug");
    await pressed(["Enter", "Tab", "Space"]);
    await eventually(steps, ["x 2 komt in de basis, x 5 gaat eruit."]);
  });

  test("finds no obstacle that axe knows, in any state", async () => {
    await open(browser);
    await page.evaluate(readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8"));
    const rules = ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"];
    const findings = async () => {
      const { violations } = await page.evaluate((tags) => axe.run("tabulon-les", { runOnly: tags }), rules);
      return violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 160)}`));
    };
    assert.deepEqual(await findings(), []);
    await sweep(2, 3);
    await page.click(inStep(".judge"));
    await page.click(inStep("summary"));
    await page.click(inLesson(".now summary"));
    await eventually(async () => (await seen("table")).length, 2);
    assert.deepEqual(await findings(), []);
  });

  test("on a phone has all of it within the page, and buttons for a finger", async () => {
    await open(browser, "", { width: 360, height: 740 });
    const session = await page.createCDPSession();
    await session.send("Emulation.setEmulatedMedia", { features: [{ name: "pointer", value: "coarse" }] });
    await session.send("Emulation.setTouchEmulationEnabled", { enabled: true });
    await page.setViewport({ width: 360, height: 740, hasTouch: true, isMobile: true });
    await sweep(2, 3);
    await page.click(inStep(".judge"));
    await page.click(inStep("summary"));
    await eventually(async () => (await seen("li table")).length, 1);
    const [width, heights] = await page.evaluate(() => [
      document.documentElement.scrollWidth,
      [...document.querySelector("tabulon-les").shadowRoot.querySelectorAll("button, summary")]
        .filter((each) => each.checkVisibility())
        .map((each) => each.getBoundingClientRect().height),
    ]);
    assert.equal(width, 360);
    assert.ok(Math.min(...heights) >= 44, `${heights}`);
  });

  test("has on paper all tableaus, the first one first, and no buttons", async () => {
    await open(browser);
    await sweep(2, 3);
    await sweep(1, 1);
    await page.emulateMediaType("print");
    await page.evaluate(() => dispatchEvent(new Event("beforeprint")));
    assert.deepEqual(await seen("button, summary"), []);
    const skipping = (all) => all.map((each) => getComputedStyle(each).contentVisibility);
    assert.deepEqual(await page.$$eval(inLesson("li"), skipping), ["visible", "visible"]);
    assert.deepEqual(await steps(), ["x 2 komt in de basis, x 5 gaat eruit.", "x 1 komt in de basis, x 3 gaat eruit."]);
    assert.deepEqual(await seen("caption"), [
      "1-e Simplex-tableau, pivot in rij 3, kolom x 2",
      "2-e Simplex-tableau, pivot in rij 1, kolom x 1",
      "3-e Simplex-tableau",
    ]);
    await page.evaluate(() => dispatchEvent(new Event("afterprint")));
    await page.emulateMediaType("screen");
    assert.deepEqual(await seen("caption"), []);
    assert.equal((await steps())[0], "x 1 komt in de basis, x 3 gaat eruit.");
  });

  test("is told a step before the tableau that was there is made, which waits for nobody to unfold it", async () => {
    await open(browser);
    await page.evaluate(() => {
      const figures = () => document.querySelector("tabulon-les").shadowRoot.querySelectorAll("li .figure").length;
      document.addEventListener("tabulon-change", () => (globalThis.made = [figures()]));
      globalThis.figures = figures;
    });
    await sweep(2, 2);
    await eventually(() => page.evaluate(() => [...globalThis.made, globalThis.figures()]), [0, 1]);
    assert.deepEqual(await seen("caption"), []);
  });

  test("pastes a tableau into a word processor as a table", async () => {
    await open(browser, "", { parameters: { ...twoProducts, prmSTR_RL: " <b>4, 12, 18" } });
    await browser.browser
      .defaultBrowserContext()
      .overridePermissions(browser.origin, ["clipboard-read", "clipboard-write", "clipboard-sanitized-write"]);
    await sweep(2, 2);
    await page.click(inStep("summary"));
    await page.click(inStep(".table"));
    await eventually(() => seen("li .copies button"), ["Gekopieerd", "Kopieer als LaTeX"]);
    const [html, plain] = await page.evaluate(async () => {
      const [item] = await navigator.clipboard.read();
      return Promise.all(["text/html", "text/plain"].map(async (type) => (await item.getType(type)).text()));
    });
    assert.match(html, /<table[^>]* border="1"/);
    assert.match(html, /<td[^>]*bgcolor="#ffe69c"[^>]*><b[^>]*>2<\/b>/);
    assert.match(html, /&lt;b&gt;4/);
    assert.equal(plain.split("\n")[1], "F\t-3\t-5\t0\t0\t0\t0");
    assert.equal(plain.split("\n")[3], "x 4\t0\t2\t0\t1\t0\t12");
  });

  test("sees what a script and another problem do", async () => {
    await open(browser);
    await page.evaluate(() => {
      LPctrl1.prmRL = " 1, 2, 3";
      LPctrl1.prmDLfunctie = " -1, -2";
    });
    assert.deepEqual(await steps(), []);
    await sweep(2, 2);
    await eventually(async () => (await steps()).length, 1);
    await page.evaluate(() => {
      LPctrl1.prmRL = " 4, 5, 6";
      LPctrl1.prmDLfunctie = " -3, -4";
    });
    await eventually(steps, [
      "Er staat een nieuwe opgave, met 2 variabelen en 3 rijen.",
      "x 2 komt in de basis, x 4 gaat eruit.",
    ]);
    await page.click(inLesson(".back"));
    await eventually(() => text(page, "txtRL", 2), " 1");
  });
});
