// Which file may include which. Includes run one way: hosts -> LPctrl -> operations -> the shared model and
// numbers -> platform.
//
//   wrongIncludes([{ path: "numbers/display.cpp", includes: ["control/LPctrl.h"] }])
//     -> ["numbers/display.cpp includes control/LPctrl.h: numbers may not include control"]
//
// Paths are from the root of the project.

const operations = ["simplex", "files", "graph", "shell"];

// The layer that a file stands in. The handlers are the control's own members, each in the folder of its
// subject, so they may see the control and the operations beside them.
export function layerOf(path) {
  const [folder, second] = path.split("/");
  const name = path.split("/").at(-1);
  if (folder === "control") return name.startsWith("basSafeCtl") ? "model" : "control";
  if (folder === "hosts") return `hosts/${second}`;
  if (operations.includes(folder) && name.endsWith("_handlers.cpp")) return "handlers";
  return folder;
}

const below = { platform: [], numbers: ["platform"], model: ["numbers", "platform"] };
for (const operation of operations) below[operation] = ["model", "numbers", "platform"];
below.control = [...operations, "model", "numbers", "platform"];

const anything = ["tests", "fuzz", "benchmarks"];

function mayInclude(from, to) {
  const [source, target] = [layerOf(from), layerOf(to)];
  if (anything.includes(source)) return true;
  if (source === target) return true;
  if (source === "handlers") return to === "control/LPctrl.h" || below.control.includes(target);
  if (source.startsWith("hosts/")) return target === "control" || below.control.includes(target);
  return below[source]?.includes(target) ?? false;
}

export const wrongIncludes = (files) =>
  files.flatMap(({ path, includes }) =>
    includes
      .filter((target) => !mayInclude(path, target))
      .map((target) => `${path} includes ${target}: ${layerOf(path)} may not include ${layerOf(target)}`),
  );

// What a source includes in quotes.
export const quotedIncludes = (text) =>
  [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*"([^"]+)"/gm)].map((match) => match[1]);

// What a source includes in angle brackets.
export const bracketedIncludes = (text) =>
  [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*<([^>]+)>/gm)].map((match) => match[1]);
