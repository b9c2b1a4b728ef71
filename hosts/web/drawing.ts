// A picture box's display list, painted on a canvas at the screen's own density.
import { Raster } from "#shared";
import { type DrawingValue, type Point, type Scale, type StampStroke, type Stroke, StrokeKind } from "#wire";
import { cssColour } from "./colours.js";
import { paintPicture } from "./pictures.js";

// How many pixels a user unit is, per axis; negative where an axis grows the other way.
export function pixelsPerUnit({ topLeft, bottomRight }: Scale, width: number, height: number): Point {
  return { x: width / (bottomRight.x - topLeft.x || 1), y: height / (bottomRight.y - topLeft.y || 1) };
}

// In the screen's own pixels. What is smoothed is paler than what is sharp, so it is a little thicker where a line
// is thin.
const leastSmoothWidth = 1.5;

// Paints strokes on a canvas's context, in pixels from its corner. What lies along an axis begins and ends on
// the screen's own pixels, so that it is sharp.
class Painter {
  readonly #context: CanvasRenderingContext2D;
  readonly #origin: Point;
  readonly #unit: Point;
  readonly #density: number;
  readonly #thickness: number;

  constructor(context: CanvasRenderingContext2D, scale: Scale, width: number, height: number, density: number) {
    this.#context = context;
    this.#origin = scale.topLeft;
    this.#unit = pixelsPerUnit(scale, width, height);
    this.#density = density;
    this.#thickness = Math.max(1, Math.floor(density)) / density;
    context.lineWidth = Math.max(this.#thickness, leastSmoothWidth / density);
  }

  paint(stroke: Stroke): void {
    if ("colour" in stroke) this.#context.fillStyle = this.#context.strokeStyle = cssColour(stroke.colour);
    switch (stroke.kind) {
      case StrokeKind.Dots:
        for (const point of stroke.points) this.#dots(point, 1, { x: 0, y: 0 });
        break;
      case StrokeKind.DotRuns:
        for (const { first, count } of stroke.runs) this.#dots(first, count, stroke.step);
        break;
      case StrokeKind.Segment:
        this.#segment(stroke.from, stroke.to);
        break;
      case StrokeKind.Text: {
        const [x, y] = this.#pixels(stroke.at);
        this.#context.fillText(stroke.text, this.#edge(x), this.#edge(y));
        break;
      }
      case StrokeKind.Stamp:
        this.#stamp(stroke);
        break;
      default:
        stroke satisfies never;
    }
  }

  #pixels(point: Point): [number, number] {
    return [(point.x - this.#origin.x) * this.#unit.x, (point.y - this.#origin.y) * this.#unit.y];
  }

  // The nearest edge between two of the screen's pixels.
  #edge(at: number): number {
    return Math.round(at * this.#density) / this.#density;
  }

  #fill(left: number, top: number, width: number, height: number): void {
    const [x, y] = [this.#edge(left), this.#edge(top)];
    this.#context.fillRect(x, y, this.#edge(left + width) - x, this.#edge(top + height) - y);
  }

  // A dot is a pixel. Dots that touch along an axis are one rectangle.
  #dots(first: Point, count: number, step: Point): void {
    const [x, y] = this.#pixels(first);
    const [stepX, stepY] = [step.x * this.#unit.x, step.y * this.#unit.y];
    const [lengthX, lengthY] = [stepX * (count - 1), stepY * (count - 1)];
    if (Math.max(Math.abs(stepX), Math.abs(stepY)) <= 1 && (stepX === 0 || stepY === 0)) {
      const [left, top] = [Math.min(x, x + lengthX), Math.min(y, y + lengthY)];
      this.#fill(left, top, Math.abs(lengthX) + 1, Math.abs(lengthY) + 1);
    } else {
      for (let at = 0; at < count; ++at) this.#fill(x + at * stepX, y + at * stepY, 1, 1);
    }
  }

  // A line covers the dots of its points.
  #segment(from: Point, to: Point): void {
    const [[x1, y1], [x2, y2]] = [this.#pixels(from), this.#pixels(to)];
    const [across, down] = [Math.abs(x1 - x2), Math.abs(y1 - y2)];
    const thickness = this.#thickness;
    if (across < 0.01 || down < 0.01)
      return this.#fill(Math.min(x1, x2), Math.min(y1, y2), across + thickness, down + thickness);
    this.#context.beginPath();
    this.#context.moveTo(x1 + thickness / 2, y1 + thickness / 2);
    this.#context.lineTo(x2 + thickness / 2, y2 + thickness / 2);
    this.#context.stroke();
  }

  #stamp({ at, size, picture, raster }: StampStroke): void {
    this.#context.globalCompositeOperation = raster === Raster.And ? "multiply" : "source-over";
    const [width, height] = [Math.abs(size.x * this.#unit.x), Math.abs(size.y * this.#unit.y)];
    paintPicture(this.#context, picture, ...this.#pixels(at), width, height);
    this.#context.globalCompositeOperation = "source-over";
  }
}

// Paints a drawing on a canvas of width by height pixels, with `density` device pixels to a pixel. Without a
// ground the canvas stays transparent where nothing is drawn.
export function paint(
  canvas: HTMLCanvasElement,
  { scale, strokes }: DrawingValue,
  width: number,
  height: number,
  density: number,
  font: string,
  ground?: string,
): void {
  canvas.width = Math.round(width * density);
  canvas.height = Math.round(height * density);
  // Pixel for pixel, also where the box is no whole number of the screen's.
  canvas.style.width = `${canvas.width / density}px`;
  canvas.style.height = `${canvas.height / density}px`;
  const context = canvas.getContext("2d");
  if (!context) return;
  if (ground) {
    context.fillStyle = ground;
    context.fillRect(0, 0, canvas.width, canvas.height);
  }
  context.scale(density, density);
  context.font = font;
  context.textBaseline = "top";
  const painter = new Painter(context, scale, width, height, density);
  for (const stroke of strokes) painter.paint(stroke);
}
