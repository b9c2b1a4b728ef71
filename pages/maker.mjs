// maker.js: a teacher types a problem in words, sees the tableau and what will come of it, and takes the exercise.
import { afterARest } from "./after-a-rest.mjs";
import { keepDraft, keptDraft } from "./draft.mjs";
import { emptyExercise } from "./exercise.mjs";
import { questions, statement } from "./exercise-view.mjs";
import { endsWell, judgement, spoken } from "./judgement-view.mjs";
import { fromHash } from "./link.mjs";
import { make } from "./make.mjs";
import { examples } from "./maker-examples.mjs";
import { number } from "./problem-field.mjs";
import { addQuestion, questionsTyped, showQuestions } from "./question-fields.mjs";
import { showProblem } from "./show-problem.mjs";
import { offer } from "./ways.mjs";

const byId = (id) => document.getElementById(id);
const tableau = byId("tableau");
const fields = { titel: byId("titel"), tekst: byId("tekst"), probleem: byId("probleem"), hulp: byId("hulp") };

// ---- What is shown

let thinker;
let stands = null; // the problem that a pupil would see

const say = afterARest((text) => {
  if (byId("gezegd").textContent !== text) byId("gezegd").textContent = text;
});

// The control stays what it is, in a log or out of it. It lives in this document, and so must what goes around it.
function showLog({ hulp }) {
  const log = tableau.closest("tabulon-les");
  if (hulp && log) return log.setAttribute("hulp", hulp);
  if (log) return log.replaceWith(tableau);
  if (!hulp) return;
  const place = tableau.parentElement;
  const around = document.createElement("tabulon-les");
  around.setAttribute("hulp", hulp);
  around.append(tableau);
  place.append(around);
}

function showPupilsPage(exercise) {
  byId("blad").hidden = !stands;
  byId("nog-leeg").hidden = Boolean(stands);
  if (!stands) return;
  byId("opgave").replaceChildren(statement(exercise, stands, "h3"));
  byId("vragen").replaceChildren(...[questions(exercise, "h4")].filter(Boolean));
  showLog(exercise);
  showProblem(tableau, stands);
}

// Who is in the middle of a line is not told that it is wrong, nor read aloud what stands there.
const judge = afterARest(({ probleem }, reading) => {
  number(reading.mistakes);
  fields.probleem.ariaInvalid = String(reading.mistakes.length > 0 && probleem.trim() !== "");
  byId("oordeel").replaceChildren(judgement(probleem, reading, stands));
  if (!reading.problem) offer(null);
});

const gist = ({ problem, mistakes }) => (problem ? problem.verdict.sentences[0] : spoken(mistakes[0]));

function show(exercise, { atOnce = false } = {}) {
  number();
  const isBlank = !exercise.probleem.trim();
  const reading = thinker.read(exercise.probleem);
  stands = isBlank ? null : (reading.problem ?? stands);
  showPupilsPage(exercise);
  if (reading.problem) offer({ exercise, problem: stands });
  const isGood = reading.problem && endsWell(reading.problem);
  judge[isGood || isBlank || atOnce ? "now" : "rest"](exercise, reading);
  say.rest(isBlank ? "" : gist(reading));
}

// ---- What is typed

const typed = () => ({
  titel: fields.titel.value,
  tekst: fields.tekst.value,
  probleem: fields.probleem.value,
  vragen: questionsTyped(),
  hulp: fields.hulp.value,
});

function changed() {
  const exercise = typed();
  keepDraft(exercise);
  show(exercise);
}

function write(exercise) {
  for (const [name, field] of Object.entries(fields)) field.value = exercise[name];
  showQuestions(exercise.vragen, changed);
  keepDraft(exercise);
  show(exercise, { atOnce: true });
}

// ---- Another exercise in its place, and back

const same = (one, other) => JSON.stringify(one) === JSON.stringify(other);
const isTeachersOwn = (exercise) => ![emptyExercise, ...Object.values(examples)].some((each) => same(each, exercise));

let replaced = null;

function replace(exercise) {
  const before = typed();
  if (isTeachersOwn(before)) replaced = before;
  write(exercise);
  byId("vervangen").hidden = !replaced || same(replaced, exercise);
}

function choice(name, exercise) {
  const button = make("button", { class: "knoopje", type: "button" }, name);
  button.addEventListener("click", () => replace(exercise));
  return button;
}

// ---- The start

async function fromAddress() {
  const exercise = await fromHash(location.hash);
  byId("stuk").hidden = Boolean(exercise) || location.hash.length < 2;
  if (!exercise) return;
  // A reload is to find the draft, with what was changed since.
  history.replaceState(null, "", location.pathname);
  replace(exercise);
}

async function start() {
  byId("keuzes").append(
    ...Object.entries(examples).map(([name, exercise]) => choice(name, exercise)),
    choice("leeg blad", emptyExercise),
  );
  thinker = await tabulonLes.thinking();
  write(keptDraft() ?? Object.values(examples)[0]);
  for (const field of [...Object.values(fields), byId("vraagvelden")]) field.addEventListener("input", changed);
  fields.probleem.addEventListener("blur", judge.hurry);
  byId("erbij").addEventListener("click", () => {
    addQuestion({ vraag: "", antwoord: "" }, changed).querySelector("textarea").focus();
    changed();
  });
  byId("terug").addEventListener("click", () => replace(replaced));
  await fromAddress();
  addEventListener("hashchange", fromAddress);
}

start();
