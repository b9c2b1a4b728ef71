// A page that makes its own exercises: it chooses the optimum first and builds the problem around it.
const tableau = document.getElementById("LPctrl1");
const text = (id, words) => (document.getElementById(id).textContent = words);
const between = (least, most) => least + Math.floor(Math.random() * (most - least + 1));
const list = (numbers) => numbers.map((number) => ` ${number}`).join(",");

let optimum = 0;

// "x" with a small number, "3x" with its coefficient; 1 is not written.
const term = (coefficient, variable) => `${coefficient === 1 ? "" : coefficient}${variable}`;
const sum = ([first, second]) => `${term(first, "x₁")} + ${term(second, "x₂")}`;

function line(formula, words) {
  const item = document.createElement("li");
  const bold = document.createElement("b");
  bold.textContent = formula;
  const note = document.createElement("span");
  note.textContent = words;
  item.append(bold, " ", note);
  return item;
}

// The problem as a pupil would write it down.
const stated = ({ gains, rows, limits }) => [
  line(`F = ${sum(gains)}`, "zo groot mogelijk"),
  ...limits.map((limit, at) => line(`${sum(rows.slice(2 * at, 2 * at + 2))} ≤ ${limit}`, `rij ${at + 1}`)),
  line("x₁ ≥ 0, x₂ ≥ 0", ""),
];

function makeProblem() {
  const [x1, x2] = [between(2, 9), between(2, 9)];
  const [steep, flat] = [between(4, 6), between(1, 2)]; // slopes of the two constraints through the optimum
  const gains = [flat + 1, 1]; // a slope between them makes that corner the best one
  return {
    corner: [x1, x2],
    gains,
    rows: [steep, 1, flat, 1],
    limits: [steep * x1 + x2, flat * x1 + x2],
    best: gains[0] * x1 + gains[1] * x2,
  };
}

async function giveProblem() {
  await tableau.ready;
  const problem = makeProblem();
  const { corner, gains, rows, limits, best } = problem;
  optimum = best;
  tableau.prmNrBeslisVar = 2;
  tableau.prmNrKleinerGelijkVglen = 2;
  tableau.prmShow = true;
  tableau.prmDLfunctie = list(gains.map((gain) => -gain));
  tableau.prmKleinerGelijkVglen = list(rows);
  tableau.prmRL = list(limits);
  document.getElementById("opgave").replaceChildren(...stated(problem));
  text("uitslag", "");
  text(
    "uitwerking",
    `Beide restricties zijn precies vol bij x₁ = ${corner[0]} en x₂ = ${corner[1]}. ` +
      `Daar is F = ${gains[0]} · ${corner[0]} + ${corner[1]} = ${best}.`,
  );
}

document.getElementById("nieuw").addEventListener("click", giveProblem);
document.getElementById("antwoord").addEventListener("submit", (event) => {
  event.preventDefault();
  const given = Number(document.getElementById("waarde").value.trim().replace(",", "."));
  text("uitslag", given === optimum ? "Goed!" : "Nog niet. Vraag de basisoplossing eens op.");
});

giveProblem();
