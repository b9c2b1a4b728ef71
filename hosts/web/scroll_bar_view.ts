// A scroll bar, or where there is no room for a thumb a pair of arrows.
import type { RangeValue } from "#wire";
import { make, setAttribute } from "./dom.js";

const firstRepeat = 400;
const nextRepeats = 60;
const shortestThumb = 14;
// A bar whose track is shorter than this many times its width has arrows alone.
const shortestTrack = 1.5;

// What a bar asks of the control that it stands for.
export interface Scrolling {
  scroll(value: number): void;
  // One arrow or one page towards the bar's end (1) or its beginning (-1).
  step(direction: number, pageWise: boolean): void;
}

export class ScrollBarView {
  readonly #node: HTMLElement;
  readonly #vertical: boolean;
  readonly #scrolling: Scrolling;
  readonly #back = make("div", "arrow back");
  readonly #forward = make("div", "arrow forward");
  readonly #track = make("div", "track");
  readonly #thumb = make("div", "thumb");
  #min = 0;
  #max = 0;
  #value = 0;
  #page = 1;
  #length = 0; // of the track, in pixels
  #timer: ReturnType<typeof setTimeout> | undefined;
  #wanted: number | undefined; // where the thumb is being dragged to, until the control has followed

  constructor(node: HTMLElement, vertical: boolean, scrolling: Scrolling) {
    this.#node = node;
    this.#vertical = vertical;
    this.#scrolling = scrolling;
    node.classList.add(this.#vertical ? "vertical" : "horizontal");
    this.#track.append(this.#thumb);
    node.append(this.#back, this.#track, this.#forward);
    node.addEventListener("pointerdown", (event) => this.#press(event));
    for (const end of ["pointerup", "pointercancel", "pointerleave"]) node.addEventListener(end, () => this.stop());
    this.#thumb.addEventListener("pointerdown", (event) => this.#drag(event));
  }

  setRange({ min, max, value, largeChange }: RangeValue): void {
    [this.#min, this.#max, this.#value, this.#page] = [min, max, value, largeChange];
    const node = this.#node;
    node.ariaValueMin = String(Math.min(min, max));
    node.ariaValueMax = String(Math.max(min, max));
    node.ariaValueNow = String(value);
    this.#placeThumb();
  }

  resize(width: number, height: number): void {
    const [length, thickness] = this.#vertical ? [height, width] : [width, height];
    this.#length = length - 2 * thickness;
    const arrowsAlone = this.#length < shortestTrack * thickness;
    const node = this.#node;
    node.classList.toggle("spin", arrowsAlone);
    setAttribute(node, "role", arrowsAlone ? "spinbutton" : "scrollbar");
    // A pair of arrows has no orientation for who does not see it.
    setAttribute(node, "aria-orientation", arrowsAlone ? undefined : this.#vertical ? "vertical" : "horizontal");
    node.style.setProperty("--thickness", `${thickness}px`);
    this.#placeThumb();
  }

  // Ends what a held arrow does.
  stop(): void {
    clearTimeout(this.#timer);
    this.#timer = undefined;
  }

  // The control can follow again: on to where the thumb was dragged in the meantime.
  follow(): void {
    if (this.#wanted === undefined || this.#wanted === this.#value) return;
    this.#scrolling.scroll(this.#wanted);
  }

  get #steps(): number {
    return Math.abs(this.#max - this.#min);
  }

  get #thumbLength(): number {
    return Math.max(shortestThumb, (this.#length * this.#page) / (this.#steps + this.#page));
  }

  #placeThumb(): void {
    const { style } = this.#thumb;
    const part = this.#steps ? Math.abs(this.#value - this.#min) / this.#steps : 0;
    const at = `${part * (this.#length - this.#thumbLength)}px`;
    const length = `${this.#thumbLength}px`;
    if (this.#vertical) [style.top, style.height] = [at, length];
    else [style.left, style.width] = [at, length];
  }

  #press(event: PointerEvent): void {
    if (event.button !== 0 || event.target === this.#thumb) return;
    const onTrack = event.target === this.#track;
    const forward = onTrack ? this.#isBeyondThumb(event) : event.target === this.#forward;
    const again = (delay: number) => {
      this.#timer = setTimeout(() => {
        again(nextRepeats);
        if (!onTrack || this.#isBeyondThumb(event) === forward) this.#scrolling.step(forward ? 1 : -1, onTrack);
      }, delay);
    };
    this.stop();
    again(firstRepeat);
    this.#scrolling.step(forward ? 1 : -1, onTrack);
  }

  #isBeyondThumb(event: PointerEvent): boolean {
    const thumb = this.#thumb.getBoundingClientRect();
    return this.#vertical ? event.clientY > thumb.top + thumb.height / 2 : event.clientX > thumb.left + thumb.width / 2;
  }

  #drag(event: PointerEvent): void {
    if (event.button !== 0) return;
    const thumb = this.#thumb;
    const scale = this.#vertical
      ? thumb.getBoundingClientRect().height / thumb.offsetHeight
      : thumb.getBoundingClientRect().width / thumb.offsetWidth;
    const room = (this.#length - this.#thumbLength) * scale;
    const place = (at: PointerEvent) => (this.#vertical ? at.clientY : at.clientX);
    const [start, startValue] = [place(event), this.#value];
    const direction = this.#max < this.#min ? -1 : 1;
    const stop = new AbortController();
    const move = (moved: PointerEvent) => {
      const steps = Math.round(((place(moved) - start) / (room || 1)) * this.#steps) * direction;
      const [low, high] = [Math.min(this.#min, this.#max), Math.max(this.#min, this.#max)];
      this.#wanted = Math.min(high, Math.max(low, startValue + steps));
      this.follow();
    };
    const end = () => {
      stop.abort();
      this.follow();
      if (this.#wanted === this.#value) this.#wanted = undefined;
    };
    this.#wanted = undefined;
    thumb.setPointerCapture(event.pointerId);
    thumb.addEventListener("pointermove", move, stop);
    thumb.addEventListener("lostpointercapture", end, stop);
  }
}
