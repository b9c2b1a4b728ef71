// Times the work of work.cpp, the same way in node and in a browser: `time(exports)` gives [{name, value, unit}].
const pieces = [
  ["evaluate sqrt(2)*3/4", "ns", (work, times) => work.evaluate_expression(0, times)],
  ["evaluate (1+1/2)pi", "ns", (work, times) => work.evaluate_expression(1, times)],
  ["evaluate 2.5E-3", "ns", (work, times) => work.evaluate_expression(2, times)],
  ["evaluate 12", "ns", (work, times) => work.evaluate_expression(3, times)],
  ["display in decimals", "ns", (work, times) => work.display(0, times)],
  ["display in fractions", "ns", (work, times) => work.display(-1, times)],
  ["sweep 10x30", "ns", (work, times) => work.sweep(0, times)],
  ["sweep 10x30 in fractions", "us", (work, times) => work.sweep(1, times)],
  ["optimise 10x10", "us", (work, times) => work.optimise(20, times)],
  ["optimise 10x30", "us", (work, times) => work.optimise(30, times)],
];

const perMillisecond = { ns: 1e6, us: 1e3 };
const repetitions = 5;
const enough = 60; // milliseconds a repetition

function milliseconds(piece, work, times) {
  const start = performance.now();
  piece(work, times);
  return performance.now() - start;
}

// As many times as take long enough; the runs before warm the engine up.
function timesFor(piece, work) {
  let times = 64;
  while (milliseconds(piece, work, times) < enough) times *= 2;
  return times;
}

export function time(work) {
  return pieces.map(([name, unit, piece]) => {
    const times = timesFor(piece, work);
    const runs = Array.from({ length: repetitions }, () => milliseconds(piece, work, times));
    const median = runs.sort((a, b) => a - b)[Math.floor(repetitions / 2)];
    return { name, value: (median / times) * perMillisecond[unit], unit };
  });
}

export async function load(bytes) {
  const { instance } = await WebAssembly.instantiate(bytes, {});
  instance.exports._initialize();
  return instance.exports;
}
