// What the maker says of a problem: how it will end in class, how it has been read, or what is wrong with it and where.
import { make } from "./make.mjs";
import { goTo } from "./problem-field.mjs";

// What nobody needs to be warned of.
export const endsWell = ({ verdict }) => verdict.endsRight && verdict.outcome === "optimal";

const capital = (text) => text.replace(/^./u, (letter) => letter.toUpperCase());

export const spoken = ({ line, column, text }) => `Regel ${line}, plaats ${column}: ${text}`;

function place({ line, column }) {
  const button = make("button", { class: "vindplaats", type: "button" }, `Regel ${line}, plaats ${column}`);
  button.addEventListener("click", () => goTo({ line, column }));
  return button;
}

const found = (finding) => make("li", {}, place(finding), " ", make("span", {}, capital(finding.text)));
const list = (name, findings) => (findings.length ? make("ul", { class: name }, ...findings.map(found)) : null);

const counted = (count, one, more) => `${count} ${count === 1 ? one : more}`;
const sizes = ({ verdict, rows, columns }) =>
  [
    counted(verdict.steps, "stap", "stappen"),
    counted(rows.length, "rij", "rijen"),
    counted(columns, "kolom", "kolommen"),
  ].join(" · ");

function good({ problem, notes }) {
  const [first, ...others] = problem.verdict.sentences;
  return make(
    "div",
    { class: endsWell(problem) ? "uitspraak goed" : "uitspraak let-op" },
    make("p", {}, make("b", {}, first)),
    ...others.map((sentence) => make("p", {}, sentence)),
    make("p", { class: "klein" }, sizes(problem)),
    list("opmerkingen", notes),
  );
}

const bad = ({ mistakes }, stands) =>
  make(
    "div",
    { class: "uitspraak fout" },
    list("fouten", mistakes),
    stands ? make("p", { class: "klein" }, "Het tableau is nog dat van vóór deze fout.") : null,
  );

const nothing = () =>
  make("div", { class: "uitspraak" }, make("p", {}, "Typ een probleem, of begin met een van de voorbeelden."));

// `stands`: an earlier problem is still shown.
export function judgement(text, reading, stands) {
  if (!text.trim()) return nothing();
  return reading.problem ? good(reading) : bad(reading, stands);
}
