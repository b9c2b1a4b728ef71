// The arithmetic in WebAssembly, in node.
import { readFile } from "node:fs/promises";
import { load, time } from "./web/work.mjs";

const work = await load(await readFile(new URL("../build/web/benchmarks.wasm", import.meta.url)));
for (const result of time(work)) console.log(JSON.stringify({ ...result, name: `node: ${result.name}` }));
