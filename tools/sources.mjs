// The files of the project as they stand, without what is built or installed.
import { readdirSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

export const root = fileURLToPath(new URL("..", import.meta.url));

const made = [".git", "build", "dist", "node_modules"];

// Every file's path from the root, in order.
export function allFiles(folder = "") {
  return readdirSync(join(root, folder), { withFileTypes: true })
    .filter((entry) => !made.includes(folder ? "" : entry.name))
    .flatMap((entry) => {
      const path = folder ? `${folder}/${entry.name}` : entry.name;
      if (entry.isDirectory()) return allFiles(path);
      return entry.isFile() ? [path] : [];
    })
    .sort();
}

export const isCpp = (path) => /\.(h|cpp)$/.test(path);
