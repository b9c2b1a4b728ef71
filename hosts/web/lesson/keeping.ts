// A lesson's steps, kept while the browser's tab is open: a reload brings them back, and the next pupil at the machine
// does not see them.
import { History, type Step } from "./history.js";

const place = (name: string) => `tabulon-les ${location.pathname} ${name}`;

export function keep(name: string, history: History): void {
  try {
    sessionStorage.setItem(place(name), JSON.stringify(history));
  } catch {
    // It is full, or the page may not keep anything: the lesson goes on without.
  }
}

// What was kept of a page that began with this step; another problem begins anew.
export function kept(name: string, first: Step): { history: History; at: number } | undefined {
  try {
    const { at, steps } = JSON.parse(sessionStorage.getItem(place(name)) ?? "") as { at: number; steps: Step[] };
    if (steps[0]?.tableau.saved !== first.tableau.saved || !steps[at]) return undefined;
    return { history: new History(first, ...steps.slice(1)), at };
  } catch {
    return undefined;
  }
}
