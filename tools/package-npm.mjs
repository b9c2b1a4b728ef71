// The npm package `tabulon`, of what tools/package-web.mjs has made:
//
//   const file = await packNpm("dist/release");   // dist/release/tabulon-1.0.0.tgz
//
// What it offers stands in the table below; name, version and licence are the project's own.
import { execFile } from "node:child_process";
import { cp, mkdir, mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";

const root = fileURLToPath(new URL("..", import.meta.url));
const run = promisify(execFile);

const ofTheWebPackage = ["tabulon.js", "tabulon.mjs", "tabulon-les.js", "custom-elements.json", "types"];
const ofTheProject = ["LICENSE", "CHANGELOG.md"];
const readme = "hosts/web/package/README.md";

const offers = {
  type: "module",
  exports: {
    ".": { types: "./types/tabulon.d.ts", default: "./tabulon.mjs" },
    "./tabulon.js": { types: "./types/script.d.ts", default: "./tabulon.js" },
    "./tabulon-les.js": { types: "./types/les.d.ts", default: "./tabulon-les.js" },
    "./react": { types: "./types/react.d.ts" },
    "./vue": { types: "./types/vue.d.ts" },
    "./custom-elements.json": "./custom-elements.json",
    "./package.json": "./package.json",
  },
  types: "./types/tabulon.d.ts",
  unpkg: "./tabulon.js",
  jsdelivr: "./tabulon.js",
  customElements: "custom-elements.json",
  sideEffects: ["./tabulon.js", "./tabulon.mjs", "./tabulon-les.js"],
  repository: { type: "git", directory: "hosts/web" },
  keywords: ["simplex", "linear-programming", "education", "custom-element", "web-component"],
};

// The project's own package.json is for those who build it.
async function packageFile() {
  const { name, version, description, license, author } = JSON.parse(
    await readFile(join(root, "package.json"), "utf8"),
  );
  return `${JSON.stringify({ name, version, description, license, author, ...offers }, null, 2)}\n`;
}

async function fill(folder, web) {
  for (const name of ofTheWebPackage) await cp(join(web, name), join(folder, name), { recursive: true });
  for (const name of ofTheProject) await cp(join(root, name), join(folder, name));
  await cp(join(root, readme), join(folder, "README.md"));
  await writeFile(join(folder, "package.json"), await packageFile());
}

// Makes tabulon-<version>.tgz in `to` and resolves to its path. npm gives the files of an archive no times of their
// own, so that the same files make the same bytes.
export async function packNpm(to, web = join(root, "dist/web")) {
  const folder = await mkdtemp(join(tmpdir(), "tabulon-npm-"));
  try {
    await fill(folder, web);
    await mkdir(to, { recursive: true });
    const { stdout } = await run("npm", ["pack", "--silent", "--pack-destination", resolve(to)], { cwd: folder });
    return join(to, stdout.trim().split("\n").at(-1));
  } finally {
    await rm(folder, { recursive: true, force: true });
  }
}
