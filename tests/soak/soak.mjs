// A soak: one host after the other is given events at random for its share of the time, round after round, each with
// a seed of its own. It stops at the first fault, with the seed that replays it.
//
//   const fault = await soak([headless()], { minutes: 10, seed: 1, write: console.log });
//
// A host has a name and opens a session; a session plays rounds:
//
//   { name: "chromium", open: async () => ({ round: async (seed, seen) => { seen.events += 200; }, close() {} }) }
//
// A round throws where it finds a fault, and counts in `seen` what it does: `events`, and the `nodes` of the page or
// the windows that there are now.
import { memoryOfChildren } from "./memory.mjs";

const minute = 60_000;

// What is known of a host after some time, as a line.
export function lineOf(name, milliseconds, { rounds, events, memory, nodes }) {
  const time = `${(milliseconds / minute).toFixed(1)} min`;
  const columns = [`${rounds} rounds`, `${events} events`, `${memory ?? "-"} MB`, `${nodes ?? "-"} nodes`];
  return `${name.padEnd(9)} ${time.padStart(9)}${columns.map((column) => column.padStart(17)).join("")}`;
}

export const replayOf = (name, seed) => `TABULON_SEED=${seed} ./soak 0 ${name}`;

// Rounds until the time is over, one at least; the first fault, or nothing.
async function stay(host, { milliseconds, seed, write, every }) {
  const seen = { rounds: 0, events: 0 };
  const begin = Date.now();
  const tell = () => write(lineOf(host.name, Date.now() - begin, seen));
  // Looked at more often than it is told: between two rounds there may be no program.
  const weigh = () => (seen.memory = memoryOfChildren() || seen.memory);
  const session = await host.open();
  const timers = [setInterval(tell, every), setInterval(weigh, 500)];
  let at = seed;
  try {
    do {
      await session.round(at, seen);
      ++seen.rounds;
      ++at;
    } while (Date.now() - begin < milliseconds);
  } catch (error) {
    return { host: host.name, seed: at, error };
  } finally {
    timers.forEach(clearInterval);
    tell();
    await session.close();
  }
  return undefined;
}

// The fault that was found, { host, seed, error }; nothing where all went well.
export async function soak(hosts, { minutes, seed, write, every = minute }) {
  for (const host of hosts) {
    const fault = await stay(host, { milliseconds: (minutes * minute) / hosts.length, seed, write, every });
    if (!fault) continue;
    write(`${host.name}: ${fault.error.message}\nSeed ${fault.seed}; again: ${replayOf(host.name, fault.seed)}`);
    return fault;
  }
  return undefined;
}
