// ./soak: see there.
import { hosts } from "./hosts.mjs";
import { soak } from "./soak.mjs";

const [minutes, ...names] = process.argv.slice(2);
const chosen = (names.length ? names : Object.keys(hosts)).map((name) => hosts[name]());
const seed = Number(process.env.TABULON_SEED ?? 1 + Math.floor(Math.random() * 1e9));

console.log(`TABULON_SEED=${seed}`);
const fault = await soak(chosen, { minutes: Number(minutes), seed, write: console.log });
if (!fault) console.log("no fault");
process.exit(fault ? 1 : 0);
