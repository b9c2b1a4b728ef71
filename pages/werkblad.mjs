// werkblad.js: the exercise of the page's address on paper, with tableaus to fill in and a sheet of answers.
import { apology } from "./apology.mjs";
import { titleOf } from "./exercise.mjs";
import { asked, paragraphs, statement } from "./exercise-view.mjs";
import { fromHash } from "./link.mjs";
import { make } from "./make.mjs";

const byId = (id) => document.getElementById(id);

// More columns than this do not fit on a sheet that stands upright, and more than that only in small print.
const upright = 10;
const usualPrint = 18;

// ---- Tableaus

const head = (names) =>
  make(
    "thead",
    {},
    make(
      "tr",
      {},
      make("td", { class: "rij" }),
      make("th", { scope: "col", class: "basis" }, "basis"),
      ...[...names, "RL"].map((name) => make("th", { scope: "col" }, name)),
    ),
  );

function line(number, { basis, cells }, pivot) {
  const isPivot = (at) => pivot?.row === number && pivot.column === at + 1;
  return make(
    "tr",
    {},
    make("td", { class: "rij" }, number ? String(number) : ""),
    basis ? make("th", { scope: "row" }, basis) : make("td"),
    ...cells.map((cell, at) => make("td", isPivot(at) ? { class: "pivot" } : {}, cell)),
  );
}

const tableau = (caption, names, { rows, pivot }) =>
  make(
    "div",
    { class: "rooster" },
    make(
      "table",
      {},
      make("caption", {}, caption),
      head(names),
      make("tbody", {}, ...rows.map((row, number) => line(number, row, pivot))),
    ),
  );

const emptyRow = (row, number) => ({ basis: number ? "" : "F", cells: row.cells.map(() => "") });
const emptied = ({ rows }) => ({ rows: rows.map(emptyRow), pivot: null });

// As it is set up, its pivot still to be found.
const unmarked = ({ rows }) => ({ rows, pivot: null });

function blankTableaus({ names, tableaus: [first] }, count, filled) {
  return Array.from({ length: count }, (_, at) =>
    tableau(`Tableau ${at + 1}`, names, at === 0 && filled ? unmarked(first) : emptied(first)),
  );
}

function captionOf({ number, pivot }, at, { names, tableaus }) {
  const swept = tableaus[at - 1]?.number === number ? ", met de kunstmatige kolommen geveegd" : "";
  const next = pivot ? `: de pivot staat in kolom ${names[pivot.column - 1]}, rij ${pivot.row}` : "";
  return `Tableau ${number}${swept}${next}`;
}

// ---- The sheets

const sheet = ({ names }, kind, ...parts) =>
  make(
    "section",
    {
      class: ["papier", kind, names.length > upright ? "breed" : "", names.length > usualPrint ? "zeer-breed" : ""]
        .filter(Boolean)
        .join(" "),
    },
    ...parts,
  );

const heading = () =>
  make("p", { class: "naam" }, make("span", {}, "Naam:"), make("span", {}, "Klas:"), make("span", {}, "Datum:"));

const toAnswer = (exercise) =>
  asked(exercise).length
    ? make(
        "ol",
        { class: "lijst" },
        ...asked(exercise).map(({ vraag }) =>
          make("li", {}, ...paragraphs(vraag), make("div", { class: "schrijf" }), make("div", { class: "schrijf" })),
        ),
      )
    : null;

const pupilsSheet = (exercise, problem, worked, { count, filled }) =>
  sheet(
    worked,
    "",
    heading(),
    statement(exercise, problem),
    ...blankTableaus(worked, count, filled),
    toAnswer(exercise),
  );

const answers = (exercise) =>
  asked(exercise).some(({ antwoord }) => antwoord.trim())
    ? make("ol", { class: "lijst" }, ...asked(exercise).map(({ antwoord }) => make("li", {}, ...paragraphs(antwoord))))
    : null;

const teachersSheet = (exercise, problem, worked) =>
  sheet(
    worked,
    "antwoorden",
    make("h1", {}, `Antwoorden: ${titleOf(exercise)}`),
    ...problem.verdict.sentences.map((sentence) => make("p", {}, sentence)),
    ...worked.tableaus.map((each, at) => tableau(captionOf(each, at, worked), worked.names, each)),
    answers(exercise),
  );

// ---- The page

let given = null;

const wanted = () => ({
  count: Math.min(12, Math.max(0, Math.round(Number(byId("aantal").value)) || 0)),
  filled: byId("ingevuld").checked,
  withAnswers: byId("antwoorden").checked,
});

function show() {
  const { exercise, problem, worked } = given;
  const choice = wanted();
  byId("bladen").replaceChildren(pupilsSheet(exercise, problem, worked, choice));
  if (choice.withAnswers) byId("bladen").append(teachersSheet(exercise, problem, worked));
}

async function read(hash) {
  const exercise = await fromHash(hash);
  const thinker = await tabulonLes.thinking();
  const problem = exercise && thinker.read(exercise.probleem).problem;
  return problem ? { exercise, problem, worked: thinker.workOut(problem.text) } : null;
}

async function start() {
  const { hash } = location;
  given = await read(hash);
  if (hash !== location.hash) return;
  byId("keuze").hidden = !given;
  if (!given) return byId("bladen").replaceChildren(apology(hash));
  document.title = `${titleOf(given.exercise)} (werkblad)`;
  byId("aantal").value = new Set(given.worked.tableaus.map(({ number }) => number)).size;
  show();
}

byId("keuze").addEventListener("input", () => given && show());
byId("keuze").addEventListener("submit", (event) => {
  event.preventDefault();
  print();
});
addEventListener("hashchange", start);
start();
