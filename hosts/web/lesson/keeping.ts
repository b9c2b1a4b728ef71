// A lesson's steps, kept while the browser's tab is open: a reload brings them back, and the next pupil at the machine
// does not see them. Each step is written once, when it is made.
import type { Step } from "./history.js";

export class Keeping {
  readonly #place: string;

  constructor(name: string) {
    this.#place = `tabulon-les ${location.pathname} ${name} `;
  }

  // The step with this number stands; `made`, where it is new and ends what was kept.
  keep(at: number, made?: Step): void {
    try {
      if (made) {
        sessionStorage.setItem(this.#place + at, JSON.stringify(slim(made)));
        sessionStorage.removeItem(this.#place + (at + 1));
      }
      sessionStorage.setItem(`${this.#place}at`, String(at));
    } catch {
      // It is full, or the page may not keep anything: the lesson goes on without.
    }
  }

  // The steps behind the first one of a page, and which of them stood; nothing where the page began with another one.
  kept(first: Step): { readonly steps: readonly Step[]; readonly at: number } {
    const steps: Step[] = [];
    try {
      const read = (at: number | "at") => JSON.parse(sessionStorage.getItem(this.#place + at) ?? "null");
      if ((read(0) as Step | null)?.tableau.saved !== first.tableau.saved) return { steps, at: 0 };
      for (let step = read(1); step; step = read(steps.length + 1)) steps.push(step as Step);
      return { steps, at: Math.min(read("at"), steps.length) };
    } catch {
      return { steps, at: 0 };
    }
  }
}

// What makes a tableau the first of its problem is in its saved text.
const slim = ({ tableau: { first: _, ...tableau }, ...step }: Step) => ({ ...step, tableau });
