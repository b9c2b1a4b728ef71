// What the page loads: the script's bytes, in thousands, as it is and as servers send it.
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { brotliCompressSync, gzipSync } from "node:zlib";
import { beside } from "../tools/bench-table.mjs";
import { say } from "./web/say.mjs";

function sayOf(folder, suffix) {
  const script = readFileSync(join(folder, "tabulon.js"));
  say(`bytes: tabulon.js${suffix}`, script.length / 1000, "kB");
  say(`bytes: tabulon.js, gzip${suffix}`, gzipSync(script, { level: 9 }).length / 1000, "kB");
  say(`bytes: tabulon.js, brotli${suffix}`, brotliCompressSync(script).length / 1000, "kB");
}

sayOf(fileURLToPath(new URL("../dist/web", import.meta.url)), "");
const other = process.env.TABULON_BESIDE;
if (other) sayOf(other, beside);
