// In a page, for commands.bench.mjs: the commands of the control, and the same on a static copy of what it shows.
//
//   await playControl()      plays each command once
//   await becomeCopy()       puts the copy in the control's place
//   await playCopy()         plays the same on that
//
// A command is timed from the choice to finished layout, and with the frames that follow.

const sequence = [
  { name: "Optimaliseren", menu: "cmd_Bewerken", item: "mnu_optimaliseren" },
  { name: "OK", button: "cmdOK" },
  { name: "Breuken", menu: "cmd_Opties", item: "mnu_Breuken" },
  { name: "Breuken off", menu: "cmd_Opties", item: "mnu_Breuken" },
  { name: "Reset", menu: "cmd_Bewerken", item: "mnu_Reset" },
];

let root;
addEventListener("DOMContentLoaded", () => (root = document.querySelector("tabulon-lpctrl").shadowRoot));
const named = (name) =>
  root.querySelector(`dialog [data-name="${name}"]`) ?? root.querySelector(`[data-name="${name}"]`);

async function timeCommand(name, run) {
  await settled();
  begin(`commands: ${name}, with its frames`);
  begin(`commands: ${name}`);
  run();
  named("txtTableau").getBoundingClientRect();
  root.querySelector("dialog")?.getBoundingClientRect();
  end(`commands: ${name}`);
  await settled();
  end(`commands: ${name}, with its frames`);
}

// `before` and `after` are called around each command.
async function playControl({ before = () => {}, after = () => {} } = {}) {
  for (const { name, menu, item, button } of sequence) {
    if (menu) named(menu).click();
    await settled();
    before(name);
    await timeCommand(name, () => named(item ?? button).click());
    after(name);
  }
}

// ---- What it shows, without what makes it

const nodesOf = (part) => [part, ...part.querySelectorAll("*")];

// Everything of a node that a command may change.
const stateOf = (node) => ({
  value: node.value,
  text: node.childElementCount ? undefined : node.textContent,
  attributes: Object.fromEntries([...node.attributes].map(({ name, value }) => [name, value])),
});

function changeOf(before, after) {
  const names = [...new Set([...Object.keys(before.attributes), ...Object.keys(after.attributes)])];
  const changed = names.filter((name) => before.attributes[name] !== after.attributes[name]);
  return {
    value: before.value === after.value ? undefined : after.value,
    text: before.text === after.text ? undefined : after.text,
    attributes: changed.map((name) => [name, after.attributes[name]]),
  };
}

function applyTo(node, { value, text, attributes }) {
  if (value !== undefined) node.value = value;
  if (text !== undefined) node.textContent = text;
  for (const [name, written] of attributes) {
    if (written === undefined) node.removeAttribute(name);
    else node.setAttribute(name, written);
  }
}

function changesOf(before, after) {
  if (before.length !== after.length) throw new Error("the surface has other nodes than it had");
  return before
    .map((state, at) => ({ at, ...changeOf(state, after[at]) }))
    .filter(({ value, text, attributes }) => value !== undefined || text !== undefined || attributes.length);
}

// The surface as it is, what is open over it, and where the focus is.
function look() {
  const surface = root.querySelector(".surface");
  const over = [...root.querySelectorAll("dialog, .menu")].at(-1);
  const inside = nodesOf(over ?? surface);
  return {
    states: nodesOf(surface).map(stateOf),
    over: over?.cloneNode(true),
    focus: inside.indexOf(root.activeElement),
  };
}

const steps = [];
let surfaceNodes;
let over;

async function becomeCopy() {
  const start = { ...look(), surface: root.querySelector(".surface").cloneNode(true) };
  await playControl({
    before: (name) => steps.push({ name, before: look() }),
    after: () => (steps.at(-1).after = look()),
  });
  let last = start;
  for (const step of steps) {
    step.opening = changesOf(last.states, step.before.states);
    step.changes = changesOf(step.before.states, step.after.states);
    last = step.after;
  }
  const copy = document.createElement("div");
  const sheets = root.adoptedStyleSheets;
  root.host.replaceWith(copy);
  root = copy.attachShadow({ mode: "open" });
  root.adoptedStyleSheets = sheets;
  root.append(start.surface);
  surfaceNodes = nodesOf(start.surface);
  surfaceNodes.forEach((node, at) => applyTo(node, { ...start.states[at], attributes: [] }));
}

// What the step found or left open, and the focus there.
function show({ over: seen, focus }) {
  if (over && !seen) over.remove();
  const isNew = seen && over?.className !== seen.className;
  if (isNew) {
    over?.remove();
    seen.removeAttribute("open");
    root.append(seen);
    if (seen.showModal) seen.showModal();
    else seen.showPopover();
  }
  over = isNew ? seen : seen && over;
  nodesOf(over ?? surfaceNodes[0])[focus]?.focus({ preventScroll: true });
}

const change = (changes) => {
  for (const { at, ...rest } of changes) applyTo(surfaceNodes[at], rest);
};

async function playCopy() {
  for (const { name, before, after, opening, changes } of steps) {
    change(opening);
    show(before);
    await timeCommand(name, () => {
      change(changes);
      show(after);
    });
  }
}

Object.assign(window, { playControl, becomeCopy, playCopy });
