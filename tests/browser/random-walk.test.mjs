// A person and a script who do anything at any moment, in the page itself, with the mouse and the keyboard.
// After every event the page must still be in order.
//
// TABULON_SEED in the environment takes another walk, TABULON_BROWSER_EVENTS makes it longer or shorter.
import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { launch, noise, problem } from "./browser.mjs";

const seed = Number(process.env.TABULON_SEED ?? 20250901);
const events = Number(process.env.TABULON_BROWSER_EVENTS ?? 2000);
const patience = 5000; // milliseconds that the control may work at one thing, with the pauses of a second in it

// Marsaglia's xorshift of 32 bits.
let state = seed | 1;
function random(below) {
  state ^= state << 13;
  state ^= state >>> 17;
  state ^= state << 5;
  return (state >>> 0) % below;
}
const one = (list) => list[random(list.length)];

const keys = [
  "Tab",
  "Tab",
  "Tab",
  "Shift+Tab",
  "Enter",
  "Enter",
  "Escape",
  "ArrowUp",
  "ArrowDown",
  "ArrowLeft",
  "ArrowRight",
  "Control+Enter",
  "Control+ArrowLeft",
  "Control+ArrowRight",
  "Home",
  "End",
  "PageUp",
  "PageDown",
  "Space",
  "Backspace",
  "Delete",
  "Alt+b",
  "Alt+w",
  "Alt+o",
  "Alt+h",
  "Alt+a",
];
const entries = [
  "1",
  "-2",
  " 3",
  "2/3",
  "4pi",
  "sqrt(2)",
  "0",
  "-1.5",
  "(1+2)^2",
  "",
  "  ",
  "1/",
  "x",
  "1/0",
  ")",
  "hallo",
  "1E300",
];
const lists = ["", " 1, 2, 3, 4, 5, 6", "-3, -5", " 4, 12, 18", ",,", " 1,, 3", "1/2, hallo, -.5"];
const counts = [0, 1, 2, 3, "2", 40000, "drie"];

// Things that happen to the page's script: what it sets may be refused, with the number of a run-time error.
const properties = [
  ["prmNrBeslisVar", [1, 2, 3, 6, 10, 40000, "drie"]],
  ["prmNrKleinerGelijkVglen", counts],
  ["prmNrGroterGelijkVglen", counts],
  ["prmNrGelijkVglen", counts],
  ["prmBigM", [5, 100, 1000, "x"]],
  ["prmDLfunctie", lists],
  ["prmRL", lists],
  ["prmKleinerGelijkVglen", lists],
  ["prmGroterGelijkVglen", lists],
  ["prmGelijkVglen", lists],
  ["prmShow", [true]],
];
const methods = ["ShowAboutBox", "ShowfrmMelding", "ShowfrmFoutmelding", "ShowfrmPivotelement", "InitTableau"];

// In the page: what can be clicked now, on top, with its place.
function targets() {
  const root = document.querySelector("tabulon-lpctrl").shadowRoot;
  const menus = [...root.querySelectorAll("[role=menu]")];
  const form = [...root.querySelectorAll("dialog[open]")].at(-1);
  const nodes = menus.length
    ? menus.flatMap((menu) => [...menu.querySelectorAll("[role^=menuitem]")])
    : [...(form ?? root).querySelectorAll(".box:not(.aside), .button, .arrow, .thumb, .label, .picture")];
  return nodes
    .filter((node) => node.checkVisibility())
    .map((node) => node.getBoundingClientRect())
    .map(({ left, top, width, height }) => [left + width / 2, top + height / 2])
    .filter(([x, y]) => x > 0 && y > 0 && x < innerWidth && y < innerHeight);
}

// In the page: what is wrong with it. Nothing may be, ever.
function faults() {
  const element = document.querySelector("tabulon-lpctrl");
  const root = element.shadowRoot;
  const found = [];
  const expect = (holds, what) => holds || found.push(what);
  const all = (name) => [...root.querySelector(".surface").querySelectorAll(`[data-name="${name}"]`)];
  const shown = (name) => all(name).filter((node) => node.checkVisibility());
  const place = ({ dataset }) => Number(dataset.index);

  // The grid: as many boxes in a row as there are columns with a heading, and a row for each right-hand side.
  const columns = shown("lblKLM").map(place);
  const rows = shown("lblBasis").map(place);
  const expected = rows.flatMap((row) => columns.map((column) => (row - 1) * 5 + column));
  const same = (one, other) => String(one) === String(other);
  expect(
    same(
      columns,
      columns.map((_, at) => at + 1),
    ),
    `columns ${columns}`,
  );
  expect(
    same(
      rows,
      rows.map((_, at) => at + 1),
    ),
    `rows ${rows}`,
  );
  for (const name of ["lblKolom", "txtRij_F"])
    expect(same(shown(name).map(place), columns), `${name} ${shown(name).map(place)}, not ${columns}`);
  for (const name of ["lblRij", "txtRL"])
    expect(same(shown(name).map(place), rows), `${name} ${shown(name).map(place)}, not ${rows}`);
  expect(
    same(shown("txtTableau").map(place), expected),
    `txtTableau ${shown("txtTableau").map(place)}, not ${expected}`,
  );

  // Headings that follow each other, from where the scroll bars stand; without a bar from the first.
  const [first, top] = ["HScroll", "VScroll"].map((name) =>
    shown(name).length ? Number(all(name)[0].ariaValueNow) : 1,
  );
  for (const [at, label] of shown("lblKLM").entries())
    expect(Number(label.textContent) === first + at, `column ${label.textContent} at ${at}, from ${first}`);
  for (const [at, label] of shown("lblRij").entries())
    expect(Number(label.textContent) === top + at, `row ${label.textContent} at ${at}, from ${top}`);
  expect(/^-?\d+-e Simplex-tableau$/.test(all("lblNRTableau")[0].textContent), all("lblNRTableau")[0].textContent);

  // Cells are boxes with a text and a name; only the one that is being typed in may be empty.
  for (const name of ["txtRij_F", "txtTableau", "txtRL"])
    for (const cell of shown(name)) {
      expect(cell instanceof HTMLInputElement, `${name} ${place(cell)} is no input`);
      expect(
        cell.value.trim() !== "" || cell === root.activeElement || root.querySelector("dialog[open]"),
        `${name} ${place(cell)} is empty`,
      );
      expect(!/NaN|Infinity|undefined/.test(cell.value), `${name} ${place(cell)} shows ${cell.value}`);
      expect(cell.ariaLabel, `${name} ${place(cell)} has no name`);
    }

  // The focus is in the page, and inside it on what is on top.
  const active = root.activeElement;
  const menu = root.querySelector("[role=menu]");
  const form = [...root.querySelectorAll("dialog[open]")].at(-1);
  expect(document.activeElement, "nothing has the focus");
  if (active) {
    expect(active.checkVisibility(), `the focus is on ${active.dataset.name}, which is not shown`);
    // A script may show a form while a menu is open.
    if (menu && !form)
      expect(active.getAttribute("role") === "menu", `a menu is open and the focus is on ${active.dataset.name}`);
    else if (form)
      expect(form.contains(active), `${form.dataset.name} is open and the focus is on ${active.dataset.name}`);
  }
  expect(!(menu && element.hasAttribute("aria-busy")), "busy while a menu waits");
  return { found, form: form?.dataset.name, menu: menu?.ariaLabel };
}

// In the page, before the rest: resolves when the control waits for the person; false when it works on and on.
const waiting = `globalThis.waitsForThePerson = (limit) => new Promise((resolve) => {
  const element = document.querySelector("tabulon-lpctrl");
  const end = performance.now() + limit;
  const look = () => {
    if (!element.hasAttribute("aria-busy")) resolve(true);
    else if (performance.now() > end) resolve(false);
    else setTimeout(look, 100);
  };
  look();
});
globalThis.faults = ${faults};
globalThis.afterwards = async (limit) => ((await waitsForThePerson(limit)) ? faults() : { found: ["the control works on and on"] });`;

let browser, page;
before(async () => (browser = await launch()));
after(() => browser?.close());

async function press(name) {
  const parts = name.split("+");
  // Sent in their order, without waiting for each other's end.
  const sent = parts.map((part) => page.keyboard.down(part));
  for (const part of [...parts].reverse()) sent.push(page.keyboard.up(part));
  await Promise.all(sent);
}

async function clickSomething() {
  const places = await page.evaluate(targets);
  if (!places.length) return "nothing to click";
  const [x, y] = one(places);
  await page.mouse.click(x, y);
  return `click ${Math.round(x)},${Math.round(y)}`;
}

async function pressSomething() {
  const key = one(keys);
  await press(key);
  return `press ${key}`;
}

async function typeSomething() {
  const entry = one(entries);
  await page.keyboard.type(entry);
  return `type ${JSON.stringify(entry)}`;
}

// A command of a menu, or as much of the way to it as can be gone now.
async function chooseSomething() {
  const [menu, letters] = one([
    ["b", "nsb"],
    ["w", "pbnvaor"],
    ["w", "vvvn"],
    ["o", "bg"],
    ["b", "if"],
  ]);
  const letter = one([...letters]);
  await press(`Alt+${menu}`);
  if (menu === "b" && "nsb".includes(letter)) await page.keyboard.press("n");
  await page.keyboard.press(letter);
  return `Alt+${menu}, ${letter}`;
}

async function answerSomething() {
  for (let turn = random(4); turn > 0; --turn) await press(one(["ArrowUp", "ArrowUp", "ArrowDown", "Tab", "Home"]));
  const answer = one(["Enter", "Enter", "Enter", "Escape"]);
  await press(answer);
  return `answer ${answer}`;
}

async function scriptSomething() {
  const [name, values] = one(properties);
  const value = one(values);
  const method = random(4) === 0 ? one(methods) : undefined;
  const number = await page.evaluate(
    (name, value, method) => {
      const element = document.querySelector("tabulon-lpctrl");
      try {
        if (method) void Promise.resolve(element[method]()).catch(() => {});
        else element[name] = value;
        // A tableau of another size is laid out before it is used.
        if (!method && name.startsWith("prmNr")) element.prmShow = true;
      } catch (error) {
        return error.number ?? String(error);
      }
      return 0;
    },
    name,
    value,
    method,
  );
  assert.ok([0, 6, 9, 13].includes(number), `${method ?? `${name} = ${value}`}: ${number}`);
  if (number === 9) await page.evaluate(smallProblem);
  return method ? `call ${method}` : `${name} = ${JSON.stringify(value)}`;
}

// In the page: counts that were set stay, also those that are too large together, until others are set.
function smallProblem() {
  const counts = { prmNrBeslisVar: 2, prmNrKleinerGelijkVglen: 3, prmNrGroterGelijkVglen: 0, prmNrGelijkVglen: 0 };
  Object.assign(document.querySelector("tabulon-lpctrl"), counts, { prmShow: true });
}

const doings = [
  clickSomething,
  clickSomething,
  clickSomething,
  pressSomething,
  pressSomething,
  pressSomething,
  pressSomething,
  typeSomething,
  typeSomething,
  chooseSomething,
  answerSomething,
  answerSomething,
  scriptSomething,
];

test(`${events} events at random leave the page in order; TABULON_SEED=${seed}`, {
  timeout: 120_000,
}, async () => {
  // A second of the control's is a hundredth of the test's. Its day begins at ten, so that no walk goes past midnight.
  const hurry = `{
    const wait = setTimeout, Real = Date, begin = Real.now(), ten = new Real(2026, 0, 5, 10).getTime();
    window.setTimeout = (done, time, ...given) => wait(done, time / 100, ...given);
    window.Date = class extends Real {
      constructor(...given) { given.length ? super(...given) : super(window.Date.now()); }
      static now() { return ten + (Real.now() - begin) * 100; }
    };
  }`;
  await browser.write("hurry.js", `${hurry}\n${waiting}`);
  page = await browser.open(`<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>A walk</title>
<link rel="icon" href="data:,">
<script src="hurry.js"></script>
<script src="tabulon.js"></script>
<body>
<button id="before">een</button>
${problem({ prmNrBeslisVar: 2, prmNrKleinerGelijkVglen: 3, prmSTR_DLfunctie: " -3, -5", prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2", prmSTR_RL: " 4, 12, 18" })}
<button id="behind">twee</button>
</body>
</html>`);
  const done = [];
  const seen = { forms: new Set(), menus: new Set() };
  for (let at = 0; at < events; ++at) {
    const doing = one(doings);
    try {
      done.push(await doing());
      const { found, form, menu } = await page.evaluate(`afterwards(${patience})`);
      assert.deepEqual(found, []);
      assert.deepEqual(noise(page), []);
      if (form) seen.forms.add(form);
      if (menu) seen.menus.add(menu);
    } catch (error) {
      const way = done.slice(-12).join("\n  ");
      throw new Error(`seed ${seed}, event ${at} (${doing.name}): ${error.message}\nafter\n  ${way}`, { cause: error });
    }
  }
  console.log(
    `seed ${seed}: ${events} events, forms ${[...seen.forms].join(", ")}; menus ${[...seen.menus].join(", ")}`,
  );
  // A walk that never got anywhere would show nothing.
  if (events < 1000) return;
  assert.ok(seen.forms.size >= 4, `forms: ${[...seen.forms]}`);
  assert.ok(seen.menus.size >= 3, `menus: ${[...seen.menus]}`);
});
