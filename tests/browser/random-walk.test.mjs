// A walk at random through one page; ./soak takes longer ones, in every browser.
//
// TABULON_SEED in the environment takes another walk, TABULON_BROWSER_EVENTS makes it longer or shorter.
import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { launch } from "./browser.mjs";
import { startWalk } from "./walk.mjs";

const seed = Number(process.env.TABULON_SEED ?? 20250901);
const events = Number(process.env.TABULON_BROWSER_EVENTS ?? 2000);

let browser;
before(async () => (browser = await launch()));
after(() => browser?.close());

test(`${events} events at random leave the page in order; TABULON_SEED=${seed}`, {
  timeout: 120_000,
}, async () => {
  const walk = await startWalk(browser, { seed });
  const seen = { forms: new Set(), menus: new Set() };
  for (let event = 0; event < events; ++event) {
    const open = await walk.step();
    for (const kind of ["forms", "menus"]) for (const name of open[kind]) seen[kind].add(name);
  }
  console.log(
    `seed ${seed}: ${events} events, forms ${[...seen.forms].join(", ")}; menus ${[...seen.menus].join(", ")}`,
  );
  // A walk that never got anywhere would show nothing.
  if (events < 1000) return;
  assert.ok(seen.forms.size >= 4, `forms: ${[...seen.forms]}`);
  assert.ok(seen.menus.size >= 3, `menus: ${[...seen.menus]}`);
});
