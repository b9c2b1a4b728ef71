// The steps of a lesson: what stands, how it came to that, and the way back and forward again.
//
//   const history = new History({ tableau, sentences: [] });
//   history.add({ tableau: next, change, sentences });
//   history.back();       // the step before it, or undefined at the beginning
import type { Tableau, TableauChange } from "../tableau.js";

// A tableau, and the change that made it; the first one of a lesson has none.
export interface Step {
  readonly tableau: Tableau;
  readonly change?: TableauChange;
  readonly sentences: readonly string[];
}

export class History {
  readonly #steps: Step[];
  #at = 0;

  // The first stands.
  constructor(...steps: [Step, ...Step[]]) {
    this.#steps = steps;
  }

  // The number of the step that stands, from 0 on.
  get at(): number {
    return this.#at;
  }
  get current(): Step {
    return this.#steps[this.#at]!;
  }
  // What came before what stands; undefined at the beginning.
  get previous(): Step | undefined {
    return this.#steps[this.#at - 1];
  }
  get next(): Step | undefined {
    return this.#steps[this.#at + 1];
  }

  // Steps that were taken back are gone with the first new one.
  add(step: Step): void {
    this.#steps.splice(++this.#at, Infinity, step);
  }

  // In the place of the one that stands.
  replace(step: Step): void {
    this.#steps.splice(this.#at, Infinity, step);
  }

  back(): Step | undefined {
    return this.previous && this.#steps[--this.#at];
  }
  forward(): Step | undefined {
    return this.next && this.#steps[++this.#at];
  }
}
