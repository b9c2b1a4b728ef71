// Which file may include or import which: one table of arrows, and no circles.
//
//   wrongArrows([{ path: "numbers/display.cpp", targets: ["control/LPctrl.h"] }])
//     -> ["numbers/display.cpp -> control/LPctrl.h: numbers may not know control"]
//   circles([{ path: "a.ts", targets: ["b.ts"] }, { path: "b.ts", targets: ["a.ts"] }])
//     -> [["a", "b"]]
//
// Paths are from the root of the project. A header and the source that implements it are one: what either
// includes, both know.

// A layer, and the layers that it may know besides itself.
const lowest = ["platform"];
const arithmetic = [...lowest, "numbers"];
const tableau = [...arithmetic, "model"];
const operations = [...tableau, "operations"];
const subjects = [...operations, "simplex", "files", "graph", "shell"];
const arrows = {
  platform: [],
  numbers: lowest,
  model: arithmetic,
  operations: tableau,
  lesson: operations, // knows no control
  simplex: operations,
  files: tableau,
  graph: tableau,
  shell: [...operations, "simplex", "files", "graph"], // its menus start what stands there
  "control's parts": subjects,
  control: [...subjects, "control's parts"],
  "hosts/headless": [...subjects, "control's parts", "control"],
  "hosts/web": [...subjects, "control's parts", "control", "package.json"], // where the version stands
  "hosts/web/lesson": [...operations, "lesson", "hosts/web"], // around the control, which knows nothing of it
  "hosts/activex": [...subjects, "control's parts", "control"],
};

// Tests and benchmarks may know everything, and are known by nothing above.
const anything = ["tests", "fuzz", "benchmarks"];

// What is made while building, by what it is made of.
const made = [
  [/^build\/contract\/shared\./, "platform"],
  [/^build\/contract\/wire\./, "hosts/web"],
  [/^build\/contract\/lesson\./, "hosts/web/lesson"],
];

export function layerOf(path) {
  const [folder, second] = path.split("/");
  const name = path.split("/").at(-1);
  if (path.startsWith("hosts/web/lesson/")) return "hosts/web/lesson";
  if (folder === "hosts") return `hosts/${second}`;
  if (/^simplex\/(pivot|sweep)\./.test(path)) return "operations";
  if (folder !== "control") return made.find(([pattern]) => pattern.test(path))?.[1] ?? folder;
  if (name.startsWith("basSafeCtl")) return "model";
  return name.startsWith("LPctrl") ? "control" : "control's parts";
}

function mayKnow(from, to) {
  const [source, target] = [layerOf(from), layerOf(to)];
  return anything.includes(source) || source === target || (arrows[source]?.includes(target) ?? false);
}

export const wrongArrows = (files) =>
  files.flatMap(({ path, targets }) =>
    targets
      .filter((target) => !mayKnow(path, target))
      .map((target) => `${path} -> ${target}: ${layerOf(path)} may not know ${layerOf(target)}`),
  );

// ---- Circles

// A table (.def) is a file of its own: it knows nothing, and more than one header may be made of it.
const withoutExtension = (path) => (path.endsWith(".def") ? path : path.replace(/\.\w+$/, ""));

function graphOf(files) {
  const graph = new Map();
  for (const { path, targets } of files) {
    const from = withoutExtension(path);
    const known = graph.get(from) ?? new Set();
    for (const target of targets) if (withoutExtension(target) !== from) known.add(withoutExtension(target));
    graph.set(from, known);
  }
  return graph;
}

function reachable(graph, start) {
  const seen = new Set();
  const waiting = [start];
  while (waiting.length) {
    for (const next of graph.get(waiting.pop()) ?? []) {
      if (!seen.has(next)) waiting.push(next);
      seen.add(next);
    }
  }
  return seen;
}

// The files that know themselves through others, each circle as a list in order.
export function circles(files) {
  const graph = graphOf(files);
  const reach = new Map([...graph.keys()].map((file) => [file, reachable(graph, file)]));
  const circleOf = (file) => [...reach.get(file)].filter((other) => reach.get(other)?.has(file)).sort();
  const found = [...graph.keys()].filter((file) => reach.get(file).has(file)).map(circleOf);
  return [...new Map(found.map((circle) => [circle.join(), circle])).values()].sort();
}

// ---- Reading sources

// What a source includes in quotes.
export const quotedIncludes = (text) =>
  [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*"([^"]+)"/gm)].map((match) => match[1]);

// What a source includes in angle brackets.
export const bracketedIncludes = (text) =>
  [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*<([^>]+)>/gm)].map((match) => match[1]);

// What a script imports or exports from elsewhere, types too.
export const imports = (text) =>
  [...text.matchAll(/^[ \t]*(?:import|export)\b(?:[^"';]*?\bfrom)?\s*"([^"]+)"|\bimport\(\s*"([^"]+)"/gm)].map(
    (match) => match[1] ?? match[2],
  );
