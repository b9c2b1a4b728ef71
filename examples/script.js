// A page that makes its own exercises: it chooses the optimum first and builds the problem around it.
const tableau = document.getElementById("LPctrl1");
const text = (id, words) => (document.getElementById(id).textContent = words);
const between = (least, most) => least + Math.floor(Math.random() * (most - least + 1));
const list = (numbers) => numbers.map((number) => ` ${number}`).join(",");

let optimum = 0;

function makeProblem() {
  const [x1, x2] = [between(2, 9), between(2, 9)];
  const [steep, flat] = [between(4, 6), between(1, 2)]; // slopes of the two constraints through the optimum
  const gains = [flat + 1, 1]; // a slope between them makes that corner the best one
  return {
    gains,
    rows: [steep, 1, flat, 1],
    limits: [steep * x1 + x2, flat * x1 + x2],
    best: gains[0] * x1 + gains[1] * x2,
  };
}

async function giveProblem() {
  await tableau.ready;
  const { gains, rows, limits, best } = makeProblem();
  optimum = best;
  tableau.prmNrBeslisVar = 2;
  tableau.prmNrKleinerGelijkVglen = 2;
  tableau.prmShow = true;
  tableau.prmDLfunctie = list(gains.map((gain) => -gain));
  tableau.prmKleinerGelijkVglen = list(rows);
  tableau.prmRL = list(limits);
  text("opgave", `Maak F = ${gains[0]} x 1 + x 2 zo groot mogelijk.`);
  text("uitslag", "");
}

document.getElementById("nieuw").addEventListener("click", giveProblem);
document.getElementById("antwoord").addEventListener("submit", (event) => {
  event.preventDefault();
  const given = Number(document.getElementById("waarde").value.trim().replace(",", "."));
  text("uitslag", given === optimum ? "Goed!" : "Nog niet. Vraag de basisoplossing eens op.");
});

giveProblem();
