// An exercise as a pupil sees it: in the maker, behind a link, in a single file and on the teacher's own page.
//
//   document.body.append(exerciseBody(exercise, reading.problem));
import { titleOf } from "./exercise.mjs";
import { make, spread } from "./make.mjs";

const subscript = (digits) => digits.replace(/\d/g, (digit) => "₀₁₂₃₄₅₆₇₈₉"[digit]);

// "x1 - 2y >= 4" is "x₁ − 2y ≥ 4".
export const formula = (text) =>
  text
    .replaceAll("<=", "≤")
    .replaceAll(">=", "≥")
    .replaceAll("-", "−")
    .replace(/(?<![\p{L}\p{N}_])(\d*)(\p{L})(\d+)(?![\p{L}\p{N}_])/gu, (_, number, letter, digits) => {
      return number + letter + subscript(digits);
    });

// Empty lines part paragraphs; other ends of lines stay.
export function paragraphs(text) {
  const parts = text
    .trim()
    .split(/\r?\n[ \t]*(?:\r?\n[ \t]*)+/)
    .filter(Boolean);
  return parts.map((part) => {
    const lines = part.split(/\r?\n/).flatMap((line, at) => (at ? [make("br"), line] : [line]));
    return make("p", {}, ...lines);
  });
}

// ---- The problem

const goalOf = ({ minimise }) => (minimise ? "zo klein mogelijk" : "zo groot mogelijk");

const line = (sum, words) =>
  make("li", {}, make("b", {}, formula(sum)), ...(words ? [" ", make("span", {}, words)] : []));

const system = (problem) =>
  make(
    "ul",
    { class: "stelsel" },
    line(`${problem.goal} = ${problem.objective}`, goalOf(problem)),
    ...problem.rows.map(({ text, label }) => line(text, label)),
    line(problem.variables.map((name) => `${name} >= 0`).join(", ")),
  );

const isNumbered = (name, at) => [`x${at + 1}`, `x_${at + 1}`, `x${subscript(String(at + 1))}`].includes(name);

const listed = (words) => (words.length > 1 ? `${words.slice(0, -1).join(", ")} en ${words.at(-1)}` : words.join(""));

// What the problem's names are called in the tableau.
function legend({ variables, minimise, goal }) {
  const names = variables.every(isNumbered)
    ? ""
    : `In het tableau heet ${listed(variables.map((name, at) => `${formula(name)} “x ${at + 1}”`))}.`;
  const turned = minimise ? `In rij F staat −${formula(goal)}: dat wordt zo groot mogelijk.` : "";
  return [names, turned].filter(Boolean).join(" ");
}

const parametersOf = ({ parameters }) =>
  Object.entries(parameters)
    .filter(([, value]) => value !== "")
    .map(([name, value]) => make("param", { name, value }));

// With a log around it where the exercise wants one.
function control({ hulp }, problem) {
  const tableau = make("tabulon-lpctrl", {}, ...parametersOf(problem));
  return hulp ? make("tabulon-les", { hulp }, tableau) : tableau;
}

export const scripts = ({ hulp }) => (hulp ? ["tabulon.js", "tabulon-les.js"] : ["tabulon.js"]);
const scriptLines = (exercise) => scripts(exercise).map((name) => `<script src="${name}"></script>`);

// ---- The whole

const told = (problem) => (legend(problem) ? make("p", { class: "klein" }, legend(problem)) : null);

export const statement = (exercise, problem, heading = "h1") =>
  make(
    "section",
    { class: "opgave" },
    make(heading, {}, titleOf(exercise)),
    ...paragraphs(exercise.tekst),
    system(problem),
    told(problem),
  );

const answer = (text) => make("details", { class: "antwoord" }, make("summary", {}, "Antwoord"), ...paragraphs(text));

const question = ({ vraag, antwoord }) =>
  make("li", {}, ...paragraphs(vraag), antwoord.trim() ? answer(antwoord) : null);

export const asked = ({ vragen }) => vragen.filter(({ vraag, antwoord }) => vraag.trim() || antwoord.trim());

export function questions(exercise, heading = "h2") {
  const list = asked(exercise);
  if (!list.length) return null;
  const items = list.map(question);
  return make("section", { class: "vragen" }, make(heading, {}, "Vragen"), make("ol", { class: "lijst" }, ...items));
}

const typing = () =>
  make(
    "p",
    { class: "klein alleen-scherm" },
    ...["Een cel waarin je hebt getypt, sluit je af met ", make("kbd", {}, "Enter"), " of "],
    ...[make("kbd", {}, "Tab"), "."],
  );

const workplace = (exercise, problem) =>
  make(
    "section",
    { class: "werkblad", "aria-label": "Het tableau" },
    make("div", { class: "tableau" }, control(exercise, problem)),
    typing(),
  );

export const exerciseBody = (exercise, problem) =>
  make("main", { class: "oefening" }, statement(exercise, problem), workplace(exercise, problem), questions(exercise));

// The page of this exercise alone, which names its files as those of examples/ do.
export const exercisePage = (exercise, problem) => `<!doctype html>
<html lang="nl">
  <head>
    <meta charset="utf-8">
    <meta name="viewport" content="width=device-width, initial-scale=1">
    ${make("title", {}, titleOf(exercise)).outerHTML}
    <link rel="icon" href="voorbeelden.svg">
    <link rel="stylesheet" href="voorbeelden.css">
    ${scriptLines(exercise).join("\n    ")}
  </head>
  <body>
${spread(exerciseBody(exercise, problem)).outerHTML}
  </body>
</html>
`;

// ---- For the teacher's own page, in its own style

export function snippet(exercise, problem) {
  const parts = [
    ...statement(exercise, problem, "h2").children,
    control(exercise, problem),
    ...(questions(exercise)?.querySelectorAll("ol") ?? []),
  ];
  for (const part of parts)
    for (const node of [part, ...part.querySelectorAll("[class]")]) node.removeAttribute("class");
  return [...scriptLines(exercise), ...parts.map((part) => spread(part).outerHTML), ""].join("\n");
}
