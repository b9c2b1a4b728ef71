// A person and a script who do anything at any moment, in the page itself, with the mouse and the keyboard.
// After every event the page must still be in order.
//
//   const walk = await startWalk(browser, { seed: 42 });
//   const { forms, menus } = await walk.step();  // throws where the page is not in order, and tells the way there
//   await walk.nodes();                          // of the page, those of its shadow trees too
//   await walk.end();
//
// With `comeAndGo` there are more elements than one, and they are made, moved and removed too, and their page's style
// changes.
import assert from "node:assert/strict";
import { noise, problem } from "./browser.mjs";

const patience = 5000; // milliseconds that the control may work at one thing, with the pauses of a second in it

// Marsaglia's xorshift of 32 bits.
function randomNumbers(seed) {
  let state = seed | 1;
  return (below) => {
    state ^= state << 13;
    state ^= state >>> 17;
    state ^= state << 5;
    return (state >>> 0) % below;
  };
}

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
  " ",
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

const mostElements = 3;

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
  const roots = [...document.querySelectorAll("tabulon-lpctrl")].map((element) => element.shadowRoot);
  const all = (selector) => roots.flatMap((root) => [...root.querySelectorAll(selector)]);
  const menus = all("[role=menu]");
  const form = all("dialog[open]").at(-1);
  const parts = ".box:not(.aside), .button, .arrow, .thumb, .label, .picture";
  const nodes = menus.length
    ? menus.flatMap((menu) => [...menu.querySelectorAll("[role^=menuitem]")])
    : form
      ? [...form.querySelectorAll(parts)]
      : all(parts);
  return nodes
    .filter((node) => node.checkVisibility())
    .map((node) => node.getBoundingClientRect())
    .map(({ left, top, width, height }) => [left + width / 2, top + height / 2])
    .filter(([x, y]) => x > 0 && y > 0 && x < innerWidth && y < innerHeight);
}

// In the page: what is wrong with an element. Nothing may be, ever. `isAlone`: it always was the only one.
function faultsOf(element, isAlone) {
  const root = element.shadowRoot;
  const found = [];
  const anyForm = [...document.querySelectorAll("tabulon-lpctrl")].some(({ shadowRoot }) =>
    shadowRoot.querySelector("dialog[open]"),
  );
  const expect = (holds, what) => holds || found.push(what);
  expect(isBox(element), `${element.offsetWidth} by ${element.offsetHeight}`);
  const nodes = {};
  for (const node of root.querySelector(".surface").querySelectorAll("[data-name]"))
    (nodes[node.dataset.name] ??= []).push(node);
  const all = (name) => nodes[name] ?? [];
  const visible = {};
  const shown = (name) => (visible[name] ??= all(name).filter((node) => node.checkVisibility()));
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

  // Headings that follow each other, from where the scroll bars stand; without a bar from the first. Where another
  // element has scrolled, the tableau that they share has, and not the bars of this one.
  const start = (bar, heading) => {
    if (!isAlone) return Number(shown(heading)[0]?.textContent);
    return shown(bar).length ? Number(all(bar)[0].ariaValueNow) : 1;
  };
  const first = start("HScroll", "lblKLM");
  const top = start("VScroll", "lblRij");
  for (const [at, label] of shown("lblKLM").entries())
    expect(Number(label.textContent) === first + at, `column ${label.textContent} at ${at}, from ${first}`);
  for (const [at, label] of shown("lblRij").entries())
    expect(Number(label.textContent) === top + at, `row ${label.textContent} at ${at}, from ${top}`);
  expect(/^-?\d+-e Simplex-tableau$/.test(all("lblNRTableau")[0].textContent), all("lblNRTableau")[0].textContent);

  // Cells are boxes with a text and a name; only the one that is being typed in may be empty, also when the focus has
  // gone to another element and what was typed could not be read.
  const left = root.activeElement ? 0 : 1;
  let blank = 0;
  for (const name of ["txtRij_F", "txtTableau", "txtRL"])
    for (const cell of shown(name)) {
      expect(cell instanceof HTMLInputElement, `${name} ${place(cell)} is no input`);
      if (cell.value.trim() === "" && cell !== root.activeElement) ++blank;
      expect(blank <= left || anyForm, `${name} ${place(cell)} is empty`);
      expect(!/NaN|Infinity|undefined/.test(cell.value), `${name} ${place(cell)} shows ${cell.value}`);
      expect(cell.ariaLabel, `${name} ${place(cell)} has no name`);
    }

  // The focus is in the page, and inside it on what is on top.
  const active = root.activeElement;
  const menu = root.querySelector("[role=menu]");
  const form = [...root.querySelectorAll("dialog[open]")].at(-1);
  expect(document.activeElement, "nothing has the focus");
  // A driver presses keys also in a page that the focus has left, as no person can.
  if (active && document.hasFocus()) {
    expect(active.checkVisibility(), `the focus is on ${active.dataset.name}, which is not shown`);
    // A script may show a form while a menu is open.
    if (menu && !anyForm)
      expect(active.dataset.name === "txtFocus", `a menu is open and the focus is on ${active.dataset.name}`);
    else if (form)
      expect(form.contains(active), `${form.dataset.name} is open and the focus is on ${active.dataset.name}`);
  }
  expect(!(menu && element.hasAttribute("aria-busy")), "busy while a menu waits");
  return { found, forms: form ? [form.dataset.name] : [], menus: menu ? [menu.ariaLabel] : [] };
}

// In the page, before the rest. `afterwards` waits until the elements wait for the person, or tells that one works on
// and on; a second of the control's is a hundredth of the walk's, and its day begins at ten, so that no walk goes past
// midnight. A wait of ten seconds or more is no control's: a driver counts the patience that it has with a script here.
const inPage = `{
  const wait = setTimeout, Real = Date, begin = Real.now(), ten = new Real(2026, 0, 5, 10).getTime();
  window.setTimeout = (done, time, ...given) => wait(done, time < 10000 ? time / 100 : time, ...given);
  window.Date = class extends Real {
    constructor(...given) { given.length ? super(...given) : super(window.Date.now()); }
    static now() { return ten + (Real.now() - begin) * 100; }
  };
}
document.adoptedStyleSheets = [new CSSStyleSheet()];
document.adoptedStyleSheets[0].replaceSync(\`
  .in-line { display: inline }
  .flexible { display: flex }
  .gone { display: none }
  .turned { writing-mode: vertical-rl }
\`);
globalThis.elements = () => [...document.querySelectorAll("tabulon-lpctrl")];
globalThis.isBox = (element) => {
  const { offsetWidth, offsetHeight } = element;
  return !element.checkVisibility() || (offsetWidth === 600 && offsetHeight === 296);
};
globalThis.waitForThePerson = (limit) => new Promise((resolve) => {
  const end = performance.now() + limit;
  const look = () => {
    if (!elements().some((element) => element.hasAttribute("aria-busy") || !isBox(element))) resolve(true);
    else if (performance.now() > end) resolve(false);
    else setTimeout(look, 100);
  };
  look();
});
globalThis.afterwards = async (limit, isAlone) => {
  if (!(await waitForThePerson(limit))) return { found: ["a control works on and on"], forms: [], menus: [] };
  const all = elements().map((element) => (${faultsOf})(element, isAlone));
  return Object.fromEntries(["found", "forms", "menus"].map((name) => [name, all.flatMap((each) => each[name])]));
};`;

// In the page: counts that were set stay, also those that are too large together, until others are set.
function smallProblem(at) {
  const counts = { prmNrBeslisVar: 2, prmNrKleinerGelijkVglen: 3, prmNrGroterGelijkVglen: 0, prmNrGelijkVglen: 0 };
  const all = document.querySelectorAll("tabulon-lpctrl");
  Object.assign(all[at % all.length], counts, { prmShow: true });
}

// In the page: what a script does to one of the elements; the number of the error that it gets, or 0.
function tellElement(at, name, value, method) {
  const all = document.querySelectorAll("tabulon-lpctrl");
  const element = all[at % all.length];
  try {
    if (method) void Promise.resolve(element[method]()).catch(() => {});
    else element[name] = value;
    // A tableau of another size is laid out before it is used.
    if (!method && name.startsWith("prmNr")) element.prmShow = true;
  } catch (error) {
    return error.number ?? String(error);
  }
  return 0;
}

// In the page: the elements that are there are one more, one fewer, or stand in another order.
function changeElements(what, at, most) {
  const all = document.querySelectorAll("tabulon-lpctrl");
  const element = all[at % all.length];
  const places = document.querySelectorAll(".place");
  const place = places[at % places.length];
  if (what === "make" && all.length < most) place.append(document.createElement("tabulon-lpctrl"));
  else if (what === "remove" && all.length > 1) element.remove();
  else place.prepend(element);
  return `${what} ${at}`;
}

// In the page: styles of one of the elements, and of what is around it, come and go; some in the same frame.
async function restyle(at, changes) {
  const all = document.querySelectorAll("tabulon-lpctrl");
  const element = all[at % all.length];
  const frame = () => new Promise((resume) => requestAnimationFrame(() => setTimeout(resume)));
  for (const [style, wait] of changes) {
    (style === "turned" ? element.parentNode : element).classList.toggle(style);
    await (wait ? frame() : null);
  }
  element.classList.remove("gone");
  return `${at}: ${changes.map(([style, wait]) => style + wait)}`;
}

// In the page.
function countNodes() {
  const within = (root) =>
    [...root.querySelectorAll("*")].reduce((sum, node) => sum + 1 + (node.shadowRoot ? within(node.shadowRoot) : 0), 0);
  return within(document);
}

const exercise = {
  prmNrBeslisVar: 2,
  prmNrKleinerGelijkVglen: 3,
  prmSTR_DLfunctie: " -3, -5",
  prmSTR_KleinerGelijkVglen: " 1, 0, 0, 2, 3, 2",
  prmSTR_RL: " 4, 12, 18",
};

const pageOfAWalk = `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>A walk</title>
<link rel="icon" href="data:,">
<script src="walk.js"></script>
<script src="tabulon.js"></script>
<body>
<button>een</button>
<div class="place">${problem(exercise)}</div>
<div class="place"></div>
<button>twee</button>
</body>
</html>`;

class Walk {
  #random;
  #done = [];
  #begun; // the event that is not done, as far as it is known
  #doings;

  constructor(page, seed, comeAndGo) {
    this.page = page;
    this.seed = seed;
    this.isAlone = !comeAndGo;
    this.#random = randomNumbers(seed);
    const often = (times, doing) => Array(times).fill(doing);
    this.#doings = [
      ...often(3, this.clickSomething),
      ...often(4, this.pressSomething),
      ...often(2, this.typeSomething),
      this.chooseSomething,
      ...often(2, this.answerSomething),
      this.scriptSomething,
      ...(comeAndGo ? [this.comeOrGo, this.changeStyle] : []),
    ];
  }

  // One event and what must be right after it: the names of the forms and menus that are open then.
  async step() {
    const doing = this.#one(this.#doings);
    this.#begun = doing.name;
    try {
      this.#done.push(await doing.call(this));
      const { found, ...open } = await this.page.evaluate(`afterwards(${patience}, ${this.isAlone})`);
      assert.deepEqual(found, []);
      assert.deepEqual(noise(this.page), []);
      return open;
    } catch (error) {
      const way = this.#done.slice(-12).join("\n  ");
      const where = `seed ${this.seed}, event ${this.#done.length} (${this.#begun})`;
      throw new Error(`${where}: ${error.message}\nafter\n  ${way}`, { cause: error });
    }
  }

  nodes = () => this.page.evaluate(countNodes);
  end = () => this.page.close();

  #one = (list) => list[this.#random(list.length)];

  async #press(name) {
    const parts = name.split("+");
    for (const part of parts) await this.page.keyboard.down(part);
    for (const part of parts.reverse()) await this.page.keyboard.up(part);
  }

  async clickSomething() {
    const places = await this.page.evaluate(targets);
    if (!places.length) return "nothing to click";
    const [x, y] = this.#one(places);
    await this.page.mouse.click(x, y);
    return `click ${Math.round(x)},${Math.round(y)}`;
  }

  async pressSomething() {
    const key = this.#one(keys);
    await this.#press(key);
    return `press ${key}`;
  }

  async typeSomething() {
    const entry = this.#one(entries);
    if (entry) await this.page.keyboard.type(entry);
    return `type ${JSON.stringify(entry)}`;
  }

  // A command of a menu, or as much of the way to it as can be gone now.
  async chooseSomething() {
    const [menu, letters] = this.#one([
      ["b", "nsb"],
      ["w", "pbnvaor"],
      ["w", "vvvn"],
      ["o", "bg"],
      ["b", "if"],
    ]);
    const letter = this.#one([...letters]);
    await this.#press(`Alt+${menu}`);
    if (menu === "b" && "nsb".includes(letter)) await this.#press("n");
    await this.#press(letter);
    return `Alt+${menu}, ${letter}`;
  }

  async answerSomething() {
    for (let turn = this.#random(4); turn > 0; --turn)
      await this.#press(this.#one(["ArrowUp", "ArrowUp", "ArrowDown", "Tab", "Home"]));
    const answer = this.#one(["Enter", "Enter", "Enter", "Escape"]);
    await this.#press(answer);
    return `answer ${answer}`;
  }

  async scriptSomething() {
    const [name, values] = this.#one(properties);
    const value = this.#one(values);
    const method = this.#random(4) === 0 ? this.#one(methods) : null;
    const at = this.#random(mostElements);
    const told = `${at}: ${method ?? `${name} = ${JSON.stringify(value)}`}`;
    this.#begun = told;
    const number = await this.page.evaluate(tellElement, at, name, value, method);
    assert.ok([0, 6, 9, 13].includes(number), `${told}: ${number}`);
    if (number === 9) await this.page.evaluate(smallProblem, at);
    return told;
  }

  comeOrGo = () =>
    this.page.evaluate(
      changeElements,
      this.#one(["make", "move", "move", "remove"]),
      this.#random(mostElements),
      mostElements,
    );

  changeStyle() {
    const change = () => [this.#one(["in-line", "in-line", "flexible", "gone", "turned"]), this.#random(2)];
    const changes = Array.from({ length: 1 + this.#random(5) }, change);
    return this.page.evaluate(restyle, this.#random(mostElements), changes);
  }
}

export async function startWalk(browser, { seed, comeAndGo = false }) {
  await browser.write("walk.js", inPage);
  return new Walk(await browser.open(pageOfAWalk), seed, comeAndGo);
}
