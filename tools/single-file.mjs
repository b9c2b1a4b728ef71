// node tools/single-file.mjs <page.html> [<made.html>]: the page with the control and all else inside it. What does
// not lie beside the page is taken from dist/web. Without a second name it is written to the screen.
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import { basename, dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { singleFile } from "../pages/single-file.mjs";

const web = fileURLToPath(new URL("../dist/web", import.meta.url));

export function singleFileOf(page) {
  const beside = dirname(page);
  const read = (name) =>
    readFileSync([beside, web].map((folder) => join(folder, name)).find(existsSync) ?? name, "utf8");
  return singleFile(basename(page), read);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const [page, made] = process.argv.slice(2);
  if (!page) {
    console.error("usage: node tools/single-file.mjs <page.html> [<made.html>]");
    process.exit(2);
  }
  if (made) writeFileSync(made, singleFileOf(page));
  else process.stdout.write(singleFileOf(page));
}
