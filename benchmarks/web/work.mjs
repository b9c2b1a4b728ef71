// The work that is timed in WebAssembly (work.cpp) and a solver in JavaScript beside it, the same way in node and in a
// browser.
//
//   const all = pieces(await load(bytes), yalps);
//   inRounds(all, ({ name, unit, run }, times) => ...)
const problemCount = 64;
const rows = 10;

// The same problem as an object that yalps takes.
function modelOf(work, columns, at) {
  const number = (row, column) => work.number_of_problem(columns, at, row, column);
  const variables = columns - rows;
  const constraints = {};
  for (let row = 1; row <= rows; ++row) constraints[`row${row}`] = { max: number(row, variables) };
  const variable = (column) => {
    const entries = Array.from({ length: rows }, (_, row) => [`row${row + 1}`, number(row + 1, column)]);
    return { F: -number(0, column), ...Object.fromEntries(entries) };
  };
  const all = Array.from({ length: variables }, (_, column) => [`x${column}`, variable(column)]);
  return { direction: "maximize", objective: "F", constraints, variables: Object.fromEntries(all) };
}

// They solve the same: what is faster and wrong is no peer.
function solverOf({ solve }, work, columns) {
  const models = Array.from({ length: problemCount }, (_, at) => modelOf(work, columns, at));
  models.forEach((model, at) => {
    const [ours, theirs] = [work.optimum(columns, at), solve(model).result];
    if (Math.abs(ours - theirs) > 1e-6 * Math.abs(ours)) throw new Error(`problem ${at}: ${theirs} is not ${ours}`);
  });
  return (times) => {
    for (let at = 0; at < times; ++at) solve(models[at % problemCount]);
  };
}

export const pieces = (work, yalps) => [
  { name: "evaluate sqrt(2)*3/4", unit: "ns", run: (times) => work.evaluate_expression(0, times) },
  { name: "evaluate (1+1/2)pi", unit: "ns", run: (times) => work.evaluate_expression(1, times) },
  { name: "evaluate 2.5E-3", unit: "ns", run: (times) => work.evaluate_expression(2, times) },
  { name: "evaluate 12", unit: "ns", run: (times) => work.evaluate_expression(3, times) },
  { name: "display in decimals", unit: "ns", run: (times) => work.display(0, times) },
  { name: "display in fractions", unit: "ns", run: (times) => work.display(-1, times) },
  { name: "sweep 10x30", unit: "ns", run: (times) => work.sweep(0, times) },
  { name: "sweep 10x30 in fractions", unit: "us", run: (times) => work.sweep(1, times) },
  { name: "optimise 10x10", unit: "us", run: (times) => work.optimise(20, times) },
  { name: "yalps 10x10", unit: "us", run: solverOf(yalps, work, 20) },
  { name: "optimise 10x30", unit: "us", run: (times) => work.optimise(30, times) },
  { name: "yalps 10x30", unit: "us", run: solverOf(yalps, work, 30) },
];

export const perMillisecond = { ns: 1e6, us: 1e3 };
const rounds = 7;
const enough = 15; // milliseconds a run

// As many times as take long enough; the runs before warm the engine up.
function timesFor({ run }) {
  for (let times = 64; ; times *= 2) {
    const start = performance.now();
    run(times);
    if (performance.now() - start >= enough) return times;
  }
}

// `timed(piece, times)` runs a piece so often, and notes how long that took.
export function inRounds(all, timed) {
  const often = all.map((piece) => timesFor(piece));
  for (let round = 0; round < rounds; ++round) all.forEach((piece, at) => timed(piece, often[at]));
}

export async function load(bytes) {
  const { instance } = await WebAssembly.instantiate(bytes, {});
  instance.exports._initialize();
  return instance.exports;
}
