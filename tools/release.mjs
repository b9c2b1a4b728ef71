// Makes dist/release/ of what has been built:
//
//   tabulon-<version>.zip   for a teacher: the pages, the scripts, the controls for Windows
//   tabulon-<version>.tgz   the npm package
//   SHA256SUMS              of both
//
// The same sources make the same bytes: files have the day of the version in CHANGELOG.md, and an order.
import { execFile } from "node:child_process";
import { createHash } from "node:crypto";
import { chmod, cp, mkdir, readdir, readFile, rm, utimes, writeFile } from "node:fs/promises";
import { basename, join } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import { packNpm } from "./package-npm.mjs";
import { version } from "./package-web.mjs";

const root = fileURLToPath(new URL("..", import.meta.url));
const dist = (name) => join(root, "dist", name);
const print = (text) => process.stdout.write(text);
const run = promisify(execFile);

// What lies in the zip besides dist/web, which is its top, and the controls.
const texts = {
  "activex/LEESMIJ.txt": "hosts/activex/LEESMIJ.txt",
  "LEESMIJ.txt": "hosts/web/package/LEESMIJ.txt",
  LICENSE: "LICENSE",
  "CHANGELOG.md": "CHANGELOG.md",
  "SECURITY.md": "SECURITY.md",
};

// The day on which the version came out, from the heading of the newest one.
export function dayOf(changes) {
  const [, newest, day] = changes.match(/^## \[(\d[^\]]*)\] - (\d{4}-\d{2}-\d{2})$/m) ?? [];
  if (newest !== version) throw new Error(`CHANGELOG.md begins with ${newest}, package.json says ${version}.`);
  return new Date(`${day}T12:00:00Z`);
}

// Windows' own texts are in UTF-16.
async function checkControl(path) {
  const content = await readFile(path);
  const told = ["FileVersion", version].every((text) => content.includes(Buffer.from(`${text}\0`, "utf16le")));
  if (!told) throw new Error(`${path} is not of version ${version}.`);
}

// Text that a teacher opens on Windows.
async function copyText(from, to) {
  const text = await readFile(from, "utf8");
  await writeFile(to, text.replaceAll("{version}", version).replaceAll(/\r?\n/g, "\r\n"));
}

async function fill(folder, web, activex) {
  await cp(web, folder, { recursive: true });
  for (const bits of ["x64", "x86"]) {
    await checkControl(join(activex, bits, "Tabulon.ocx"));
    await cp(join(activex, bits), join(folder, "activex", bits), { recursive: true });
  }
  for (const [to, from] of Object.entries(texts))
    await (to.endsWith(".txt") ? copyText : cp)(join(root, from), join(folder, to));
}

async function filesIn(folder) {
  const entries = await readdir(folder, { recursive: true, withFileTypes: true });
  return entries
    .filter((entry) => entry.isFile())
    .map((entry) => join(entry.parentPath ?? entry.path, entry.name))
    .sort();
}

// zip writes times as the clock on the wall; everyone's is that of Greenwich.
async function zip(folder, day) {
  const files = await filesIn(folder);
  for (const file of files) {
    await chmod(file, 0o644);
    await utimes(file, day, day);
  }
  const out = `${folder}.zip`;
  const names = files.map((file) => file.slice(folder.length - basename(folder).length));
  await run("zip", ["-X", "-9", "-q", out, ...names], {
    cwd: join(folder, ".."),
    env: { ...process.env, TZ: "UTC", LC_ALL: "C" },
  });
  await rm(folder, { recursive: true });
  return out;
}

const sumOf = async (file) =>
  `${createHash("sha256")
    .update(await readFile(file))
    .digest("hex")}  ${basename(file)}\n`;

export async function release({
  out = dist("release"),
  web = dist("web"),
  activex = dist("activex"),
  say = print,
} = {}) {
  const day = dayOf(await readFile(join(root, "CHANGELOG.md"), "utf8"));
  await rm(out, { recursive: true, force: true });
  const folder = join(out, `tabulon-${version}`);
  await mkdir(folder, { recursive: true });
  await fill(folder, web, activex);
  const made = [await packNpm(out, web), await zip(folder, day)];
  const sums = (await Promise.all(made.map(sumOf))).join("");
  await writeFile(join(out, "SHA256SUMS"), sums);
  say(sums);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  await release().catch((error) => {
    console.error(`The release was not made. ${error.message}`);
    process.exit(1);
  });
}
