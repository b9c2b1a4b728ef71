// What the person does while the control waits for a repaint is done when it has gone on, in the order in which it
// came: on a slow machine too, what is typed quickly lands where it would land on a fast one.
// `isLate`: its event is over, and nothing that the browser does with it can be kept from it or left to it.
export type InputAct = (isLate: boolean) => void;

export class TurnOfInput {
  readonly #acts: (() => void)[] = [];
  readonly #repaints = new Set<number>();

  // Does it at once, or when it is its turn.
  take(act: InputAct): void {
    if (this.#repaints.size) this.#acts.push(() => act(true));
    else act(false);
  }

  // Until `answered` with the same ticket, what comes has to wait.
  waitFor(ticket: number): void {
    this.#repaints.add(ticket);
  }

  // The control has gone on, perhaps to its next repaint.
  answered(ticket: number): void {
    this.#repaints.delete(ticket);
    while (this.#acts.length && !this.#repaints.size) this.#acts.shift()!();
  }
}
