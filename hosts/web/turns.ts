// The module's turn and the page's: what the module asks for while it runs is done when it has returned, in the
// order in which it was asked, and before that nothing of the page's own runs.
export class Turns {
  // While true, what happens to the page's focus is our own doing.
  applying = false;
  readonly #queue: (() => void)[] = [];
  readonly #finish: () => void;
  #depth = 0;
  #draining = false;

  // `finish` is called when all is done; it may ask for more.
  constructor(finish: () => void) {
    this.#finish = finish;
  }

  // The module is not running: it is called from outside.
  get isPages(): boolean {
    return this.#depth === 0;
  }

  run<Result>(call: () => Result): Result {
    ++this.#depth;
    try {
      return call();
    } finally {
      if (--this.#depth === 0) this.#drain();
    }
  }

  afterwards(action: () => void): void {
    this.#queue.push(action);
  }

  // Does what may move the page's focus without taking that for the person's doing.
  apply(change: () => void): void {
    const before = this.applying;
    this.applying = true;
    try {
      change();
    } finally {
      this.applying = before;
    }
  }

  #drain(): void {
    if (this.#draining) return;
    this.#draining = true;
    try {
      do {
        for (let next = this.#queue.shift(); next; next = this.#queue.shift()) next();
        this.#finish();
      } while (this.#queue.length);
    } finally {
      this.#draining = false;
    }
  }
}
