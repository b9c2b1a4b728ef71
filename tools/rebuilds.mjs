// How many files are compiled again when a header is touched: node tools/rebuilds.mjs <header> [<preset>]
//
//   node tools/rebuilds.mjs control/LPctrl.h
//     25
//
// As the build of the preset (native) knows it, which must have been made.
import { spawnSync } from "node:child_process";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { root } from "./sources.mjs";

// The objects of `ninja -t deps` that were made of the header: a line for each object, its files indented below.
export function objectsOf(deps, header) {
  const blocks = deps.split(/\n(?=\S)/);
  return blocks
    .map((block) => block.trim().split(/\n\s+/))
    .filter(([, ...files]) => files.includes(header))
    .map(([object]) => object.replace(/:.*$/, ""));
}

function main([header, preset = "native"]) {
  if (!header) throw new Error("usage: node tools/rebuilds.mjs <header> [<preset>]");
  const { status, stdout, stderr } = spawnSync("ninja", ["-C", join(root, "build", preset), "-t", "deps"], {
    encoding: "utf8",
    maxBuffer: 1 << 28,
  });
  if (status !== 0) throw new Error(stderr || stdout);
  console.log(objectsOf(stdout.replace(/^ninja: .*\n/, ""), join(root, header)).length);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  try {
    main(process.argv.slice(2));
  } catch (error) {
    console.error(error.message);
    process.exitCode = 1;
  }
}
