// The types of the package, as a page's author uses them: they need nothing of ours beside them.
import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { cp, mkdtemp, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { root } from "../../tools/sources.mjs";

let folder;
before(async () => {
  folder = await mkdtemp(join(tmpdir(), "types-"));
  await cp(join(process.env.TABULON_WEB ?? join(root, "dist/web"), "types"), join(folder, "types"), {
    recursive: true,
  });
});
after(() => rm(folder, { recursive: true }));

const options = "--noEmit --strict --lib es2022,dom --module esnext --moduleResolution bundler --types".split(" ");

// What the compiler says of a script of the page's author.
async function complaints(script) {
  const file = join(folder, "page.ts");
  await writeFile(
    file,
    `import { TabulonError, type Count, type TableauCell } from "./types/tabulon.js";\n${script}\n`,
  );
  const compiler = join(root, "node_modules/typescript/bin/tsc");
  return new Promise((resolve) =>
    execFile(process.execPath, [compiler, ...options, "", file], { cwd: folder }, (error, said) =>
      resolve(error ? said : ""),
    ),
  );
}

test("an author's script compiles with the element, its error and its event", async () => {
  const script = `
    const tableau = document.querySelector("tabulon-lpctrl")!;
    const rows: Count = "3";
    tableau.prmNrKleinerGelijkVglen = rows;
    tableau.ready.catch((error: unknown) => error instanceof TabulonError && error.number);
    addEventListener("load", () => void tableau.ShowAboutBox().then(() => tableau.strSoortGetal(true, 0.5)));
    tableau.addEventListener("tabulon-error", ({ detail }) => detail.subject);
    tableau.addEventListener("tabulon-change", ({ detail }) => detail.cause === "sweep" && detail.row);
    const cell: TableauCell | undefined = tableau.tableau?.current.rows[0]?.cells[1];
    if (tableau.tableau) tableau.restore(tableau.tableau.saved);`;
  assert.equal(await complaints(script), "");
});

test("a value of another type does not", async () => {
  assert.match(await complaints('document.querySelector("tabulon-lpctrl")!.prmShow = "yes";'), /boolean/);
});
