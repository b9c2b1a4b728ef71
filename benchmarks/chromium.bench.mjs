// The arithmetic in WebAssembly, in Chromium, and a solver in JavaScript.
import { readFile } from "node:fs/promises";
import { fileURLToPath } from "node:url";
import * as esbuild from "esbuild";
import { launchTimed, traced, wholePage } from "./web/pages.mjs";
import { say } from "./web/say.mjs";
import { perMillisecond } from "./web/work.mjs";

const file = (path) => readFile(new URL(path, import.meta.url));

// A package of npm as one file that a page can import.
async function bundled(name) {
  const folder = fileURLToPath(new URL("..", import.meta.url));
  const stdin = { contents: `export * from "${name}"`, resolveDir: folder };
  const { outputFiles } = await esbuild.build({ stdin, bundle: true, format: "esm", minify: true, write: false });
  return outputFiles[0].text;
}

const browser = await launchTimed();
try {
  await browser.write("benchmarks.wasm", await file("../build/web/benchmarks.wasm"));
  await browser.write("work.mjs", await file("web/work.mjs"));
  await browser.write("yalps.mjs", await bundled("yalps"));
  const page = await browser.openPage(wholePage("<p>Metingen</p>"));
  const runs = await traced(page, () =>
    page.evaluate(async () => {
      const { load, pieces, inRounds } = await import("./work.mjs");
      const work = await load(await (await fetch("benchmarks.wasm")).arrayBuffer());
      inRounds(pieces(work, await import("./yalps.mjs")), ({ name, unit, run }, times) =>
        timed(`${times} ${unit} ${name}`, () => run(times)),
      );
    }),
  );
  for (const { name: mark, milliseconds } of runs) {
    const [, times, unit, name] = /^(\d+) (\w+) (.*)$/.exec(mark);
    say(`chromium: ${name}`, (milliseconds * perMillisecond[unit]) / times, unit);
  }
} finally {
  await browser.close();
}
