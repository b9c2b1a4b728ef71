// What the programs hold that this one has started, and those that they have started: MB that are in memory now.
// Nothing where the system has no /proc to tell it.
import { readdirSync, readFileSync } from "node:fs";

const page = 4096;

// "123 (a name) S 1 ..." -> the parent, and the pages in memory.
function readProcess(id) {
  try {
    const stat = readFileSync(`/proc/${id}/stat`, "utf8");
    const fields = stat.slice(stat.lastIndexOf(")") + 2).split(" ");
    return { id, parent: Number(fields[1]), pages: Number(fields[21]) };
  } catch {
    return undefined; // it has ended meanwhile
  }
}

function allProcesses() {
  try {
    const ids = readdirSync("/proc").filter((name) => /^\d+$/.test(name));
    return ids.map((id) => readProcess(Number(id))).filter(Boolean);
  } catch {
    return [];
  }
}

export function memoryOfChildren(of = process.pid) {
  const all = allProcesses();
  if (!all.length) return undefined;
  const pagesBelow = (parent) =>
    all.filter((each) => each.parent === parent).reduce((sum, { id, pages }) => sum + pages + pagesBelow(id), 0);
  return Math.round((pagesBelow(of) * page) / 1024 / 1024);
}
