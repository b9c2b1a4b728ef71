// Time, for what the module waits for. Each wait has a ticket, with which the page is woken.

// As long as a handler may hold the page before a person would notice, in milliseconds.
const longestRun = 10;
// A page that is not seen paints nothing; then this many milliseconds stand for a repaint.
const longestRepaint = 100;

export function secondsSinceMidnight(): number {
  const now = new Date();
  return now.getHours() * 3600 + now.getMinutes() * 60 + now.getSeconds() + now.getMilliseconds() / 1000;
}

export class Clock {
  readonly #wake: (ticket: number) => void;
  readonly #macrotask = new MessageChannel();
  #started = 0;

  constructor(wake: (ticket: number) => void) {
    this.#wake = wake;
    this.#macrotask.port1.onmessage = ({ data }) => wake(data as number);
  }

  // The module is called; from now on it holds the page.
  start(): void {
    this.#started = performance.now();
  }

  get yieldDue(): boolean {
    return performance.now() - this.#started > longestRun;
  }

  after(milliseconds: number, ticket: number): void {
    setTimeout(() => this.#wake(ticket), milliseconds);
  }

  afterEvents(ticket: number): void {
    this.#macrotask.port2.postMessage(ticket);
  }

  afterRepaint(ticket: number): void {
    const frame = requestAnimationFrame(() => {
      clearTimeout(otherwise);
      this.afterEvents(ticket);
    });
    const otherwise = setTimeout(() => {
      cancelAnimationFrame(frame);
      this.afterEvents(ticket);
    }, longestRepaint);
  }
}
