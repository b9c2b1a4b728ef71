// The drawing that a picture box shows, on a canvas at the screen's own density.
import type { DrawingValue, Scale } from "#wire";
import { make } from "./dom.js";
import { paint } from "./drawing.js";
import { letters } from "./look.js";

// Pictures are painted again, sharp, when the window has moved to another screen or is zoomed. The page listens
// once for all of them, and holds none that is gone.
const painted = new Set<WeakRef<PictureView>>();

function paintAgainAtNewDensity(): void {
  const now = matchMedia(`(resolution: ${devicePixelRatio}dppx)`);
  const repaint = () => {
    for (const view of painted) {
      const picture = view.deref();
      if (picture) picture.paint();
      else painted.delete(view);
    }
    if (painted.size) paintAgainAtNewDensity();
  };
  now.addEventListener("change", repaint, { once: true });
}

export class PictureView {
  readonly #node: HTMLElement;
  #drawing: DrawingValue | undefined;
  #canvas: HTMLCanvasElement | undefined;
  #isStale = false;
  // In pixels.
  size: [number, number] = [0, 0];

  constructor(node: HTMLElement) {
    this.#node = node;
  }

  get scale(): Scale | undefined {
    return this.#drawing?.scale;
  }

  setDrawing(drawing: DrawingValue): void {
    this.#drawing = drawing;
    this.#isStale = true;
  }

  // Something else that the drawing is painted with has changed.
  invalidate(): void {
    this.#isStale = true;
  }

  // Once for all that has changed.
  paintIfStale(): void {
    if (this.#isStale) this.paint();
  }

  paint(): void {
    this.#isStale = false;
    if (!this.#drawing || (!this.#canvas && this.#drawing.strokes.length === 0)) return;
    this.#canvas ??= this.#makeCanvas();
    paint(this.#canvas, this.#drawing, ...this.size, devicePixelRatio, `${this.#node.style.fontSize} ${letters}`);
  }

  #makeCanvas(): HTMLCanvasElement {
    const canvas = make("canvas", "");
    this.#node.prepend(canvas);
    painted.add(new WeakRef(this));
    if (painted.size === 1) paintAgainAtNewDensity();
    return canvas;
  }
}
