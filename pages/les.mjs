// les.js: a first lesson. In each step the pupil does one thing in the control and is told what it meant; the graph
// shows the corner in which the tableau stands. The words are those of les.html.
import { make } from "./make.mjs";

const byId = (id) => document.getElementById(id);
const control = byId("tableau");

// ---- The steps: when each is done, and what may be said of what it is not yet

const cellF = ({ current }) => current.rowF.cells[0]?.value;
const rightOf = ({ current }, row) => current.rows[row - 1]?.right.value;
const message = () => control.shadowRoot.querySelector('[data-name="lblMelding"]')?.textContent.trim();
const isPivot = ({ pivot }, column, row) => pivot?.column === column && pivot.row === row;
const standsIn = ({ current, NrTableau }, number, row, column) =>
  NrTableau === number && current.basis[row - 1] === column;

const steps = [
  { isDone: (tableau) => cellF(tableau) === -2, instead: (tableau) => (cellF(tableau) === 2 ? "plus" : "anders") },
  { isDone: (tableau) => rightOf(tableau, 2) === 8, instead: () => "anders" },
  { isDone: (_, cause) => cause === "basic-solution" },
  { isDone: (tableau) => isPivot(tableau, 2, 1) },
  { isDone: (tableau) => standsIn(tableau, 2, 1, 2) },
  { isDone: (tableau) => isPivot(tableau, 1, 2) },
  { isDone: (tableau) => standsIn(tableau, 3, 2, 1) },
  { isDone: () => message() === "Optimale oplossing gevonden!" },
  { isDone: (_, cause) => cause === "basic-solution" },
  { isDone: (tableau) => tableau.current.rowF.right.value === 24, prepare: () => (control.prmRL = " 6, 9, 14") },
];

const lastStep = steps.length - 1;
const wholeProblem = 2; // the step that begins with it

// ---- Where the pupil is, kept for a reload where the browser allows it

const key = "tabulon-les";
// `starts` has the tableau with which each step begins, as text; a step that has one may be gone to.
let state = { step: 0, done: 0, starts: [] };
let before; // the tableau as it was last seen

function remember() {
  try {
    sessionStorage.setItem(key, JSON.stringify(state));
  } catch {}
}

function remembered() {
  try {
    const { step, done, starts } = JSON.parse(sessionStorage.getItem(key));
    const fits = [step, done].every(Number.isInteger) && starts.every((start) => typeof start === "string");
    return fits && steps[step] && starts[step] ? { step, done, starts } : null;
  } catch {
    return null;
  }
}

// ---- What is shown

const ofStep = (place) => document.querySelectorAll(`${place} [data-stap]`);

function showOutcome(name, sentences = []) {
  for (const part of ofStep(".uitkomst"))
    for (const words of part.querySelectorAll("[data-gevolg]")) words.hidden = words.dataset.gevolg !== name;
  byId("uitkomst").dataset.gevolg = name;
  byId("beoordeling").replaceChildren(...sentences.map((sentence) => make("p", {}, sentence)));
}

function showProgress() {
  const reached = (at) => at < state.starts.length;
  byId("voortgang").replaceChildren(
    ...steps.map((_, at) => {
      const button = make("button", { type: "button", "aria-label": `Stap ${at + 1}` }, String(at + 1));
      button.disabled = !reached(at);
      if (at < state.done) button.classList.add("gedaan");
      if (at === state.step) button.setAttribute("aria-current", "step");
      button.addEventListener("click", () => goTo(at));
      return make("li", {}, button);
    }),
  );
  byId("volgende").disabled = state.step >= state.done;
  byId("volgende").hidden = state.step === lastStep;
}

function showStep() {
  for (const part of document.querySelectorAll("[data-stap]"))
    part.hidden = Number(part.dataset.stap) !== state.step + 1;
  byId("grafiek").classList.toggle("met-negen", state.step === lastStep);
  showOutcome("");
  showProgress();
}

// ---- The graph

const unit = 32;

// The value of a variable: the right-hand side of its row, or 0.
function valueIn(column, { current }) {
  const row = current.basis.indexOf(column);
  return row < 0 ? 0 : current.rows[row].right.value;
}

function showCorner(tableau) {
  const [x, y] = [valueIn(1, tableau), valueIn(2, tableau)];
  const F = tableau.current.rowF.right;
  byId("stip").style.transform = `translate(${x * unit}px, ${-y * unit}px)`;
  byId("niveau").style.transform = `translateY(${(-F.value / 3) * unit}px)`;
  byId("grafiek").querySelector(`[data-hoek="${x},${y}"]`)?.classList.add("geweest");
  byId("punt").textContent = `Hoekpunt (${x}, ${y}): F = ${F.text.trim()}`;
}

// ---- What the pupil does

// What changes no problem and is no step; nobody needs to be told that it was not asked.
const harmless = ["fractions", "basic-solution", "restore", "parameters"];

async function tellOther(tableau, change) {
  const { instead } = steps[state.step];
  if (instead && change.cause === "cell") return showOutcome(instead(tableau));
  const { judge } = await tabulonLes.thinking();
  const { sentences } = judge(before, tableau, change);
  showOutcome("anders", [...sentences, "Deze stap vraagt iets anders: begin hem opnieuw."]);
}

// What the pupil tries afterwards is not what the next step begins with. The last one begins with the whole problem.
function finish() {
  const { step, starts } = state;
  state.done = Math.max(state.done, step + 1);
  if (step < lastStep) starts[step + 1] ??= step + 1 === lastStep ? starts[wholeProblem] : control.tableau.saved;
  remember();
  showOutcome("goed");
  showProgress();
}

const isFinished = () => byId("uitkomst").dataset.gevolg === "goed";

async function changed({ detail }) {
  const { tableau } = control;
  showCorner(tableau);
  if (detail.cause === "restore" || isFinished()) return;
  if (steps[state.step].isDone(tableau, detail.cause)) finish();
  else if (!harmless.includes(detail.cause)) await tellOther(tableau, detail);
  before = tableau;
}

// A pivot element that was searched and a message that was shown are no changes of the tableau.
function looked() {
  if (!isFinished() && steps[state.step].isDone(control.tableau)) finish();
}

// ---- From step to step

function begin(step) {
  const start = state.starts[step];
  if (start && start !== control.tableau.saved) control.restore(start);
  steps[step].prepare?.();
  state.step = step;
  state.starts[step] ??= control.tableau.saved;
  before = control.tableau;
  remember();
  showStep();
  showCorner(before);
}

function goTo(step) {
  begin(step);
  document.querySelector(".stap:not([hidden]) h2").focus();
}

async function start() {
  await control.ready;
  state = remembered() ?? state;
  begin(state.step);
  control.addEventListener("tabulon-change", changed);
  new MutationObserver(looked).observe(control.shadowRoot, { subtree: true, childList: true, characterData: true });
  byId("volgende").addEventListener("click", () => goTo(state.step + 1));
  byId("opnieuw").addEventListener("click", () => begin(state.step));
}

start();
