// The arithmetic in WebAssembly, in node, and a solver in JavaScript.
import { readFile } from "node:fs/promises";
import * as yalps from "yalps";
import { say } from "./web/say.mjs";
import { inRounds, load, perMillisecond, pieces } from "./web/work.mjs";

const work = await load(await readFile(new URL("../build/web/benchmarks.wasm", import.meta.url)));
inRounds(pieces(work, yalps), ({ name, unit, run }, times) => {
  const before = process.cpuUsage();
  run(times);
  const { user, system } = process.cpuUsage(before);
  say(`node: ${name}`, (((user + system) / 1000) * perMillisecond[unit]) / times, unit);
});
