// What the handbook says is so: its tables line by line, its examples as they stand there. Its first chapter is followed
// to the letter in tests/package/release.test.mjs.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { root } from "../../tools/sources.mjs";
import { singleFileOf } from "../../tools/single-file.mjs";
import { control, idle, launch, noise, problem, text } from "./browser.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

let browser;
let handbook;
before(async () => {
  browser = await launch();
  handbook = await browser.open("handboek.html", { wait: false });
});
after(() => browser?.close());

// ---- Reading the handbook

const listing = (id) => handbook.$eval(`#${id}`, (node) => node.textContent);
// The texts of a table's cells, row by row.
const rowsOf = (selector) =>
  handbook.$$eval(`${selector} tbody tr`, (rows) =>
    rows.map((row) => [...row.cells].map((cell) => cell.textContent.replace(/\s+/g, " "))),
  );

// ---- Using the control

const furniture = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

// Until `look` gives what is wanted.
async function eventually(look, wanted, what) {
  for (let turn = 0; turn < 200 && (await look()) !== wanted; ++turn)
    await new Promise((resume) => setTimeout(resume, 20));
  assert.equal(await look(), wanted, what);
}
const shows = (page, name, wanted, index) => eventually(() => text(page, name, index), wanted, name);

async function choose(page, menu, item) {
  await page.click(control(menu));
  await page.click(control(item));
  await idle(page);
}

async function press(page, keys) {
  const parts = keys.split("+");
  for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
  await page.keyboard.press(parts.at(-1));
  for (const held of parts.slice(0, -1)) await page.keyboard.up(held);
  await idle(page);
}

// The control that has the focus in the tableau, as in "txtTableau 3"; "" when it is elsewhere on the page.
const active = (page) =>
  page.evaluate(() => {
    const node = document.querySelector("tabulon-lpctrl").shadowRoot.activeElement;
    return node ? [node.dataset.name, node.dataset.index].filter(Boolean).join(" ") : "";
  });

async function optimum(page, F) {
  await choose(page, "cmd_Bewerken", "mnu_optimaliseren");
  await shows(page, "lblMelding", "Optimale oplossing gevonden!");
  await press(page, "Enter");
  await shows(page, "lblFRL", F);
}

// A page with this problem for each test, and nothing that it complains of.
async function withPage(place, use) {
  const page = await browser.open(place);
  await use(page);
  assert.deepEqual(noise(page), []);
  await page.close();
}

// ---- The page itself

describe("the handbook", () => {
  test("has no obstacle that axe-core knows", async () => {
    await handbook.evaluate(axe);
    const { violations } = await handbook.evaluate(() => axe.run(document));
    assert.deepEqual(
      violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 120)}`)),
      [],
    );
  });

  test("lists its chapters in their order, and its links lead somewhere", async () => {
    const [listed, chapters] = await handbook.evaluate(() => [
      [...document.querySelectorAll(".inhoud a")].map((link) => [link.hash.slice(1), link.textContent]),
      [...document.querySelectorAll(".hoofdstuk")].map((chapter) => [
        chapter.id,
        chapter.querySelector("h2").textContent,
      ]),
    ]);
    assert.deepEqual(listed, chapters);
    const links = await handbook.$$eval("a[href]", (nodes) => nodes.map((node) => node.href));
    for (const link of new Set(links)) {
      const { pathname, hash } = new URL(link);
      assert.equal((await fetch(link)).status, 200, link);
      if (pathname.endsWith("handboek.html") && hash) assert.ok(await handbook.$(hash), link);
    }
  });

  test("has its pictures, with a text for each", async () => {
    const images = await handbook.$$eval("img", (nodes) =>
      nodes.map(({ alt, naturalWidth, width, height, naturalHeight }) => ({
        told: alt.length > 10,
        sharp: naturalWidth >= 2 * 616,
        straight: Math.abs(naturalWidth / naturalHeight - width / height) < 0.02,
      })),
    );
    assert.ok(images.length > 9);
    for (const image of images) assert.deepEqual(image, { told: true, sharp: true, straight: true });
  });

  test("can be read on a phone without scrolling sideways", async () => {
    const page = await browser.open("handboek.html", { width: 360, wait: false });
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 360);
    await page.close();
  });
});

// ---- For pupils

describe("for pupils", () => {
  test("the colours and names are those of the tableau", async () => {
    const swatches = await handbook.$$eval("#kleuren tbody tr", (rows) =>
      rows.map((row) => [row.cells[2].textContent, getComputedStyle(row.querySelector(".kleur")).backgroundColor]),
    );
    await withPage("big-m.html", async (page) => {
      const colourOf = (name, index) =>
        page.$eval(control(name, index), (node) => getComputedStyle(node).backgroundColor);
      const headings = [];
      for (let index = 1; index <= 5; ++index)
        headings.push([await tipOf(page, "lblKolom", index), await colourOf("lblKolom", index)]);
      for (const row of [2, 3]) headings.push([await tipOf(page, "lblBasis", row), await colourOf("lblBasis", row)]);
      await choose(page, "cmd_Bewerken", "mnu_Pivot_element");
      await press(page, "Enter");
      headings.push([await tipOf(page, "txtTableau", 7), await colourOf("txtTableau", 7)]);
      for (const swatch of swatches)
        assert.ok(
          headings.some((heading) => String(heading) === String(swatch)),
          `${swatch}`,
        );
    });
  });

  const tipOf = (page, name, index) => page.$eval(control(name, index), (node) => node.title.trim());

  test("numbers are written as it says, in decimals and in fractions", async () => {
    const rows = await rowsOf("#getallen");
    assert.ok(rows.length > 5);
    await withPage(problem(furniture), async (page) => {
      for (const [number, decimal, fraction] of rows) {
        const value = number
          .split("/")
          .map((part) =>
            part.split("*").reduce((product, factor) => product * (factor === "pi" ? Math.PI : Number(factor)), 1),
          );
        const shown = await page.evaluate(
          (given) => [LPctrl1.strSoortGetal(false, given).trim(), LPctrl1.strSoortGetal(true, given).trim()],
          value.reduce((upper, lower) => upper / lower),
        );
        assert.deepEqual(shown, [decimal, fraction], number);
      }
    });
  });

  test("every sum that a cell takes has the value that it says", async () => {
    const rows = await rowsOf("#cellen");
    assert.ok(rows.length > 15);
    await withPage(problem(furniture), async (page) => {
      for (const [typed, value] of rows) {
        await page.click(control("txtRL", 1));
        await press(page, "Control+a");
        await page.keyboard.type(typed);
        await press(page, "Enter");
        await shows(page, "txtRL", typed, 1);
        // Fractions on and off: then it shows the number.
        for (let turn = 0; turn < 2; ++turn) await choose(page, "cmd_Opties", "mnu_Breuken");
        assert.equal((await text(page, "txtRL", 1)).trim(), value, typed);
      }
    });
  });

  test("everything that it says a cell refuses is refused", async () => {
    const rows = await rowsOf("#weigeren");
    assert.ok(rows.length > 8);
    await withPage(problem(furniture), async (page) => {
      for (const [typed] of rows) {
        await page.click(control("txtRL", 1));
        await press(page, "Control+a");
        await press(page, "Delete");
        if (typed !== "niets") await page.keyboard.type(typed);
        await press(page, "Enter");
        await shows(page, "lblMelding", "Invoerfout!");
        await press(page, "Enter");
        await eventually(() => active(page), "txtRL 1", typed);
        await press(page, "Escape");
        await shows(page, "txtRL", " 4", 1);
      }
    });
  });

  test("its commands are those of the menus, in their order", async () => {
    const told = await handbook.$$eval("#opdrachtentabel tbody", (bodies) =>
      bodies.map((body) => [...body.rows].map((row) => row.cells[0].textContent)),
    );
    await withPage(problem(furniture), async (page) => {
      const items = () =>
        page.evaluate(() => {
          const { shadowRoot } = document.querySelector("tabulon-lpctrl");
          return [...shadowRoot.querySelectorAll('[role^="menuitem"]')].map((item) => item.textContent.trim());
        });
      const found = [];
      for (const button of ["cmd_Bestand", "cmd_Bewerken", "cmd_Opties", "cmd_Help"]) {
        await page.click(control(button));
        await page.waitForSelector('tabulon-lpctrl >>> [role^="menuitem"]', { visible: true });
        found.push(await items());
        if (button === "cmd_Bestand") {
          await page.click(control("mnu_Nieuw"));
          await page.waitForSelector(control("mnu_Nieuw_Big_M"));
          const [first, ...others] = found[0];
          const inside = (await items()).filter((item) => !found[0].includes(item));
          found[0] = [first, ...inside, ...others];
          await press(page, "Escape");
        }
        await press(page, "Escape");
      }
      assert.deepEqual(told, found);
    });
  });

  test("filling in stops with the first step, and Reset allows it again", () =>
    withPage(problem(furniture), async (page) => {
      const locked = () => page.$eval(control("txtTableau", 1), (node) => node.readOnly);
      assert.equal(await locked(), false);
      await optimum(page, " 36");
      assert.equal(await locked(), true);
      await choose(page, "cmd_Bewerken", "mnu_Reset");
      assert.equal(await locked(), false);
    }));

  test("a graph is for two variables only", async () => {
    const offered = (page) => page.$eval(control("mnu_Grafiek"), (node) => node.ariaDisabled !== "true");
    for (const [path, wanted] of Object.entries({ "grafisch.html": true, "standaard.html": false }))
      await withPage(path, async (page) => {
        await page.click(control("cmd_Opties"));
        assert.equal(await offered(page), wanted, path);
      });
  });
});

// ---- The keys

// What each line of the table does, from the second cell of row 1 in the furniture maker's tableau.
const keys = {
  "Tab, Enter": async (page) => {
    for (const key of ["Tab", "Enter"]) {
      await page.click(control("txtTableau", 2));
      await press(page, key);
      assert.equal(await active(page), "txtRL 1");
    }
    await press(page, "Tab");
    assert.equal(await active(page), "txtTableau 6");
    await page.click(control("txtRL", 3));
    await press(page, "Tab");
    assert.equal(await active(page), "txtRij_F 1");
  },
  "Shift+Tab": async (page) => {
    await press(page, "Shift+Tab");
    assert.equal(await active(page), "txtTableau 1");
  },
  "↑, ↓": async (page) => {
    await press(page, "ArrowUp");
    assert.equal(await active(page), "txtRij_F 2");
    await press(page, "ArrowDown");
    await press(page, "ArrowDown");
    assert.equal(await active(page), "txtTableau 7");
  },
  "Ctrl+→, Ctrl+←": async (page) => {
    await press(page, "Control+ArrowRight");
    assert.equal(await active(page), "txtRL 1");
    await press(page, "Control+ArrowLeft");
    assert.equal(await active(page), "txtTableau 2");
  },
  "Ctrl+Enter": async (page) => {
    await page.keyboard.type("1/2");
    await press(page, "Control+Enter");
    assert.equal(await active(page), "txtTableau 2");
    await press(page, "Control+a");
    await page.keyboard.type("1,2");
    await press(page, "Control+Enter");
    await shows(page, "lblMelding", "Invoerfout!");
  },
  Escape: async (page) => {
    await page.keyboard.type("77");
    await press(page, "Escape");
    await shows(page, "txtTableau", " 0", 2);
  },
  "Escape, dan Tab": async (page) => {
    await press(page, "Escape");
    await page.keyboard.press("Tab");
    await eventually(() => page.evaluate(() => document.activeElement.id), "verder");
  },
  "Alt+B, Alt+W, Alt+O, Alt+H": async (page) => {
    for (const [key, menu] of Object.entries({ b: "Bestand", w: "Bewerken", o: "Opties", h: "Help" })) {
      await press(page, `Alt+${key}`);
      await page.waitForSelector(`tabulon-lpctrl >>> [role="menu"][aria-label="${menu}"]`, { visible: true });
      await press(page, "Escape");
    }
  },
  "de onderstreepte letter": async (page) => {
    await press(page, "Alt+o");
    await press(page, "b");
    await shows(page, "lblFRL", " 0");
    await press(page, "Alt+o");
    await page.waitForSelector('tabulon-lpctrl >>> [data-name="mnu_Breuken"][aria-checked="true"]', { visible: true });
  },
  "Enter in een venster": async (page) => {
    await press(page, "Alt+w");
    await press(page, "o");
    await shows(page, "lblMelding", "Optimale oplossing gevonden!");
    await press(page, "Enter");
    await shows(page, "lblFRL", " 36");
    await eventually(() => text(page, "lblMelding"), null);
  },
};

describe("the keys", () => {
  test("are all tried", async () => {
    assert.deepEqual(
      (await rowsOf("#toetsen")).map(([key]) => key),
      Object.keys(keys),
    );
  });

  for (const [key, tried] of Object.entries(keys))
    test(`${key} does what it says`, () =>
      withPage(`${problem(furniture)}<button id="verder">verder</button>`, async (page) => {
        await page.click(control("txtTableau", 2));
        await tried(page);
      }));
});

// ---- The messages

const unbounded = { ...furniture, prmSTR_KleinerGelijkVglen: " -1, 0, 0, -2, -3, -2" };
const messages = {
  "Invoerfout!": [
    furniture,
    async (page) => {
      await page.click(control("txtRL", 1));
      await page.keyboard.type("x");
      await press(page, "Tab");
    },
  ],
  "Optimale oplossing gevonden!": [furniture, (page) => choose(page, "cmd_Bewerken", "mnu_optimaliseren")],
  "Modelfout!": [unbounded, (page) => choose(page, "cmd_Bewerken", "mnu_optimaliseren")],
  "Basisoplossing opvragen": [furniture, (page) => choose(page, "cmd_Bewerken", "mnu_Automatisch_vegen")],
  "Kolom 2 vegen met rij 2": [
    furniture,
    async (page) => {
      await choose(page, "cmd_Bewerken", "mnu_Automatisch_vegen");
      await shows(page, "lblMelding", "Basisoplossing opvragen");
      await press(page, "Enter");
    },
  ],
};

describe("the messages", () => {
  test("are all tried", async () => {
    assert.deepEqual(
      (await rowsOf("#meldingen")).map(([message]) => message),
      Object.keys(messages),
    );
  });

  for (const [message, [given, provoke]] of Object.entries(messages))
    test(`“${message}” comes when it says`, () =>
      withPage(problem(given), async (page) => {
        await provoke(page);
        await shows(page, "lblMelding", message);
      }));
});

// ---- For teachers

describe("for teachers", () => {
  test("the parameters are those of the element, with what holds without them", async () => {
    const { modules } = JSON.parse(readFileSync(join(browser.folder, "custom-elements.json"), "utf8"));
    const { attributes } = modules[0].declarations.find(({ customElement }) => customElement);
    const told = (await rowsOf("#parameters")).map(([name, , , without]) => [name, without]);
    assert.deepEqual(
      told,
      attributes.filter(({ name }) => name !== "nofocus").map(({ name, default: usual }) => [name, usual ?? "nullen"]),
    );
  });

  test("each parameter's example is that of the page that it shows", async () => {
    const rows = await rowsOf("#parameters");
    const shown = await listing("veevoer");
    for (const [name, , example] of rows) assert.ok(shown.includes(`name="${name}" value="${example}"`), name);
    await withPage(shown.trim(), (page) => optimum(page, "-62"));
  });

  test("a problem in words is the one of its start page", () =>
    withPage(`<script src="tabulon-les.js"></script>${problem(furniture)}`, async (page) => {
      const words = await listing("in-woorden");
      const parameters = await page.evaluate(async (given) => {
        const { read } = await tabulonLes.thinking();
        return read(given).problem.parameters;
      }, words);
      const plain = (value) => String(value).replaceAll(" ", "");
      for (const [name, value] of Object.entries(furniture)) assert.equal(plain(parameters[name]), plain(value), name);
    }));

  test("attributes give the same, in capitals or not", () =>
    withPage(
      '<tabulon-lpctrl prmnrbeslisvar="3" PRMNRKLEINERGELIJKVGLEN="1" prmSTR_RL=" 7"></tabulon-lpctrl>',
      async (page) => {
        assert.equal(await text(page, "lblKolom", 4), "x  4");
        assert.equal(await text(page, "txtRL", 1), " 7");
      },
    ));

  test("the script gives another problem", () =>
    withPage(problem(furniture), async (page) => {
      const script = await listing("script-voorbeeld");
      await browser.write("voorbeeld.mjs", script);
      await page.evaluate(async () => {
        const policy = trustedTypes.createPolicy("toets", { createScriptURL: (name) => name });
        const node = document.createElement("script");
        node.type = "module";
        node.src = policy.createScriptURL("voorbeeld.mjs");
        document.head.append(node);
      });
      await shows(page, "txtRL", " 40", 1);
      await shows(page, "txtRL", " 25", 2);
      await optimum(page, " 120");
    }));

  test("ActiveX is registered as the file beside it says", async () => {
    const beside = readFileSync(join(root, "hosts/activex/LEESMIJ.txt"), "utf8");
    for (const id of ["registreren", "registreren-zelf"])
      for (const line of (await listing(id)).split("\n")) assert.ok(beside.includes(`  ${line}\n`), line);
  });
});

// What goes wrong, line by line: a page with the fault, and how it shows.
const complaints = (page) => noise(page).splice(0).join("\n");
const faults = {
  "een lijst die te kort is": [
    { ...furniture, prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2" },
    async (page) =>
      assert.deepEqual([await text(page, "txtTableau", 11), await text(page, "txtTableau", 12)], [" 0", " 0"]),
  ],
  "een lijst die te lang is": [
    { ...furniture, prmSTR_RL: " 4, 12, 18, 99" },
    async (page) => {
      assert.equal(await text(page, "txtRL", 3), " 18");
      await optimum(page, " 36");
    },
  ],
  "een decimale komma": [
    { ...furniture, prmSTR_RL: " 1,5, 12, 18" },
    async (page) =>
      assert.deepEqual(
        [await text(page, "txtRL", 1), await text(page, "txtRL", 2), await text(page, "txtRL", 3)],
        [" 1", "5", " 12"],
      ),
  ],
  "een breuk in een lijst": [
    { ...furniture, prmSTR_RL: " 1/2, 12, 18" },
    async (page) => {
      assert.equal(await text(page, "txtRL", 1), " 1/2");
      for (let turn = 0; turn < 2; ++turn) await choose(page, "cmd_Opties", "mnu_Breuken");
      assert.equal(await text(page, "txtRL", 1), " 1");
    },
  ],
  "de tekens van rij F": [{ ...furniture, prmSTR_DLfunctie: " 3, 5" }, (page) => optimum(page, " 0")],
  "een naam die niet bestaat": [
    { ...furniture, prmRL: " 4" },
    (page) => assert.match(complaints(page), /prmRL is geen parameter/),
  ],
  "een aantal dat geen getal is": [
    { ...furniture, prmNrBeslisVar: "twee" },
    async (page) => {
      assert.equal(await text(page, "txtRij_F", 1), " 0");
      assert.match(complaints(page), /fout 13/);
    },
  ],
  "meer dan 10 restricties of 30 kolommen": [
    { ...furniture, prmNrKleinerGelijkVglen: 11 },
    async (page) => {
      assert.equal(await text(page, "txtRij_F", 1), " 0");
      assert.match(complaints(page), /fout 9/);
    },
  ],
  "twee tableaus op een pagina": [
    furniture,
    async (page) => {
      await page.evaluate(() => document.body.append(document.createElement("tabulon-lpctrl")));
      await idle(page);
      const right = () =>
        page.$$eval("tabulon-lpctrl", (elements) =>
          elements.map(({ shadowRoot }) => shadowRoot.querySelector('[data-name="txtTableau"]').value).join(),
        );
      await page.evaluate(() => (document.querySelectorAll("tabulon-lpctrl")[1].prmKleinerGelijkVglen = " 8, 9"));
      await choose(page, "cmd_Bewerken", "mnu_Pivot_element");
      await eventually(right, " 8, 8");
    },
  ],
  "de plaats van tabulon.js": undefined, // below
};

// ---- The log

describe("the log", () => {
  const inLog = (selector) => `tabulon-les >>> ${selector}`;
  const seen = (page, selector) =>
    page.evaluate(
      (part) =>
        [...document.querySelector("tabulon-les").shadowRoot.querySelectorAll(part)]
          .filter((node) => node.checkVisibility())
          .map(({ textContent }) => textContent.replaceAll("\u00a0", " ")),
      selector,
    );
  const withLog = (attributes) => `<script src="tabulon-les.js"></script>
    <tabulon-les ${attributes}>${problem(furniture)}</tabulon-les>`;

  async function sweep(page) {
    await page.waitForSelector(inLog(".title"));
    await choose(page, "cmd_Bewerken", "mnu_Kolommen_vegen");
    await page.click(control("OKButton"));
    await page.waitForSelector(inLog("li"));
    await idle(page);
  }

  test("has the buttons of its table, and a picture of what they tell", () =>
    withPage(withLog(""), async (page) => {
      await sweep(page);
      await page.click(inLog("li summary"));
      await page.waitForSelector(inLog(".latex"));
      const told = (await rowsOf("#logboek-knoppen")).map(([name]) => name);
      assert.deepEqual([...new Set(await seen(page, "button"))].sort(), told.sort());
      assert.ok(await handbook.$('img[src="handboek/logboek.png"]'));
    }));

  test("of its example keeps its steps over a reload, and helps afterwards", async () => {
    const head = '<!doctype html><html lang="nl"><meta charset="utf-8"><link rel="icon" href="data:,">';
    await withPage(head + (await listing("logboek-voorbeeld")), async (page) => {
      await sweep(page);
      const steps = await seen(page, "li > p");
      await page.reload();
      await page.waitForSelector(inLog("li"));
      assert.deepEqual(await seen(page, "li > p"), steps);
      assert.deepEqual(await seen(page, ".why, .judge"), ["Klopt het?", "Waarom?"]);
    });
  });

  test("gives the help of its table", async () => {
    const rows = await rowsOf("#logboek-hulp");
    const words = (cell) => (cell === "niets" ? [] : cell.split(", "));
    for (const [help, before, behind] of [...rows, ["", ...rows[2].slice(1)]])
      await withPage(withLog(`hulp="${help}"`), async (page) => {
        await sweep(page);
        assert.deepEqual(await seen(page, ".bar .why"), words(before), help);
        assert.deepEqual(await seen(page, ".ask button"), words(behind), help);
      });
    await withPage(withLog(""), async (page) => {
      await sweep(page);
      assert.deepEqual(await seen(page, ".why, .judge"), ["Waarom?", "Klopt het?", "Waarom?"]);
    });
  });
});

describe("what goes wrong", () => {
  test("is all tried", async () => {
    assert.deepEqual(
      (await rowsOf("#fouten")).map(([fault]) => fault),
      Object.keys(faults),
    );
  });

  for (const [fault, tried] of Object.entries(faults).filter(([, tried]) => tried))
    test(`${fault} is seen as it says`, () => withPage(problem(tried[0]), tried[1]));
});

test("without tabulon.js beside it, a page shows nothing", async () => {
  const lost = `<!doctype html><title>Les</title><script src="elders/tabulon.js"></script>${problem(furniture)}`;
  const page = await browser.open(lost, { wait: false });
  assert.equal(
    await page.$eval("tabulon-lpctrl", ({ innerText, shadowRoot }) => shadowRoot?.innerHTML ?? innerText.trim()),
    "",
  );
  assert.match(complaints(page), /404/);
  await page.close();
});

describe("the limits of the method", () => {
  test("are those of the example: 24 for 18, with a negative right-hand side", () =>
    withPage(
      problem({
        prmSTR_DLfunctie: " -3, -9",
        prmSTR_KleinerGelijkVglen: " 1, 4, 1, 2",
        prmSTR_RL: " 8, 4",
      }),
      async (page) => {
        await optimum(page, ` ${await listing("verkeerd")}`);
        assert.equal(await text(page, "lblNRTableau"), "3-e Simplex-tableau");
        assert.equal(await text(page, "txtRL", 2), await listing("negatief"));
        // The corners of what is allowed are (0, 0), (4, 0) and (0, 2).
        assert.equal(Math.max(0, 3 * 4, 9 * 2), Number(await listing("echt")));
      },
    ));

  test("a problem without a solution ends as an optimum, with an artificial variable in the basis", () =>
    withPage(
      problem({
        ...{ prmNrKleinerGelijkVglen: 1, prmNrGroterGelijkVglen: 1, prmSTR_DLfunctie: " -1, -1" },
        ...{ prmSTR_KleinerGelijkVglen: " 1, 1", prmSTR_GroterGelijkVglen: " 1, 1", prmSTR_RL: " 4, 6" },
      }),
      async (page) => {
        await choose(page, "cmd_Bewerken", "mnu_optimaliseren");
        await shows(page, "lblMelding", "Optimale oplossing gevonden!");
        await press(page, "Enter");
        assert.equal(await text(page, "lblBasis", 2), "q  1");
        assert.equal(await text(page, "txtRL", 2), " 2");
      },
    ));
});

// ---- Learning environments

// Asks for the icons of pages too, and tells of a download that is refused.
let whole;

// A server that gives each path its own rules.
async function served(pages, use) {
  const server = createServer((request, response) => {
    const { policy, content } = pages[request.url] ?? { content: "" };
    response.setHeader("Content-Type", request.url.endsWith(".js") ? "text/javascript" : "text/html; charset=utf-8");
    if (policy) response.setHeader("Content-Security-Policy", policy);
    response.end(content);
  });
  await new Promise((resume) => server.listen(0, "127.0.0.1", resume));
  const page = await whole.browser.newPage();
  const refused = [];
  await page.exposeFunction("noteRefusal", (what) => refused.push(what));
  await page.evaluateOnNewDocument(() =>
    document.addEventListener("securitypolicyviolation", ({ violatedDirective, blockedURI }) =>
      globalThis.noteRefusal(`${violatedDirective} ${blockedURI}`),
    ),
  );
  try {
    await use(page, `http://127.0.0.1:${server.address().port}`, refused);
  } finally {
    await page.close();
    server.closeAllConnections();
    server.close();
  }
}

const script = () => readFileSync(join(browser.folder, "tabulon.js"));
const plain = (body) => `<!doctype html><link rel="icon" href="data:,"><script src="/tabulon.js"></script>${body}`;

describe("a learning environment", () => {
  before(async () => (whole = await launch({ whole: true })));
  after(() => whole?.close());

  test("needs no more than the rules that it says", async () => {
    const pages = {
      "/": { policy: await listing("csp"), content: plain(problem(furniture)) },
      "/los": { policy: await listing("csp-los"), content: singleFileOf(join(root, "examples/index.html")) },
      "/tabulon.js": { content: script() },
    };
    await served(pages, async (page, origin, refused) => {
      await page.goto(`${origin}/`);
      await idle(page);
      await optimum(page, " 36");
      await page.goto(`${origin}/los`);
      await idle(page);
      await optimum(page, " 36");
      assert.deepEqual(refused, []);
    });
  });

  test("needs each of them", async () => {
    const pages = {
      "/": { policy: (await listing("csp")).replace("'wasm-unsafe-eval'", ""), content: plain(problem(furniture)) },
      "/tabulon.js": { content: script() },
    };
    await served(pages, async (page, origin, refused) => {
      await page.goto(`${origin}/`);
      await eventually(() => refused[0], "script-src wasm-eval");
    });
  });

  test("is asked for nothing, and nothing is kept or sent", async () => {
    const page = await whole.browser.newPage();
    const asked = [];
    page.on("request", (request) => asked.push(`${request.method()} ${request.url().replace(whole.origin, "")}`));
    await page.goto(`${whole.origin}/index.html`);
    await idle(page);
    await optimum(page, " 36");
    await eventually(() => asked.includes("GET /voorbeelden.svg"), true, "the page's icon");
    assert.deepEqual(asked.sort(), [
      "GET /index.html",
      "GET /pagina.js",
      "GET /tabulon.js",
      "GET /voorbeelden.css",
      "GET /voorbeelden.svg",
    ]);
    const kept = await page.evaluate(async () => [
      document.cookie,
      localStorage.length,
      sessionStorage.length,
      (await indexedDB.databases()).length,
      (await caches.keys()).length,
    ]);
    assert.deepEqual(kept, ["", 0, 0, 0, 0]);
    await page.close();
  });

  test("on a phone can scroll sideways in a box", async () => {
    const box = (await handbook.$$eval("#docenten code", (nodes) => nodes.map((node) => node.textContent))).find(
      (text) => text.startsWith("<div"),
    );
    assert.equal(box, '<div style="overflow-x: auto">');
    const pages = {
      "/": { content: plain(`<meta name="viewport" content="width=device-width">${box}${problem(furniture)}</div>`) },
      "/tabulon.js": { content: script() },
    };
    await served(pages, async (page, origin) => {
      await page.setViewport({ width: 360, height: 640 });
      await page.goto(`${origin}/`);
      await idle(page);
      assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 360);
      assert.ok(await page.$eval("div", (node) => node.scrollWidth >= 600));
    });
  });

  const saves = async (sandbox) => {
    const frame = (await listing("iframe")).replace("allow-scripts allow-downloads", sandbox);
    const pages = {
      "/": { content: `<!doctype html><title>Les</title><link rel="icon" href="data:,">${frame}` },
      "/oefening.html": { content: plain(problem(furniture)) },
      "/tabulon.js": { content: script() },
    };
    let said;
    await served(pages, async (page, origin) => {
      await page.goto(`${origin}/`);
      const session = await page.createCDPSession();
      await session.send("Browser.setDownloadBehavior", { behavior: "deny", eventsEnabled: true });
      said = new Promise((resolve) => {
        session.on("Browser.downloadWillBegin", ({ suggestedFilename }) => resolve(suggestedFilename));
        page.on("console", (message) => /[Dd]ownload is disallowed/.test(message.text()) && resolve("refused"));
      });
      const inside = await (await page.waitForSelector("iframe")).contentFrame();
      await inside.waitForSelector("tabulon-lpctrl:not([aria-busy])");
      await idle(inside);
      await (await inside.waitForSelector(control("cmd_Bestand"))).click();
      await (await inside.waitForSelector(control("mnu_Tableau_Opslaan_Als"))).click();
      said = await said;
    });
    return said;
  };

  test("shows it in the frame that it says, and saving works there", async () => {
    assert.equal(await saves("allow-scripts allow-downloads"), "tableau.tbl");
  });

  test("refuses saving without allow-downloads", async () => {
    assert.equal(await saves("allow-scripts"), "refused");
  });
});
