// One control of a surface: its element, and the properties that the module hands over.
import { parseCaption, writeCaption } from "./captions.js";
import { cssColour, isTransparent } from "./colours.js";
import { make, setAttribute } from "./dom.js";
import { paint, pixelsPerUnit, readDrawing, type Drawing, type Point } from "./drawing.js";
import { pictureElement } from "./pictures.js";
import type { RecordReader } from "./record.js";
import { ScrollBarView } from "./scroll_bar_view.js";
import { letters } from "./styles.js";
import type { SurfaceView } from "./surface_view.js";

// platform::Kind
export enum Kind {
  Frame,
  Label,
  TextBox,
  CommandButton,
  HScrollBar,
  VScrollBar,
  Line,
  Image,
  PictureBox,
}

export const twipsPerPixel = 15;
const pixelsPerPoint = 96 / 72;

const alignments = ["left", "right", "center"];

enum Rendering {
  None,
  Seen,
  Aside,
}

interface InnerScale {
  readonly unit: Point;
  readonly origin: Point;
}

const twips: InnerScale = { unit: { x: 1 / twipsPerPixel, y: 1 / twipsPerPixel }, origin: { x: 0, y: 0 } };

interface Bounds {
  left: number;
  top: number;
  width: number;
  height: number;
}

const classes: Record<Kind, string> = {
  [Kind.Frame]: "frame",
  [Kind.Label]: "label",
  [Kind.TextBox]: "box",
  [Kind.CommandButton]: "button",
  [Kind.HScrollBar]: "bar",
  [Kind.VScrollBar]: "bar",
  [Kind.Line]: "line",
  [Kind.Image]: "image",
  [Kind.PictureBox]: "picture",
};

const isScrollBar = (kind: Kind): boolean => kind === Kind.HScrollBar || kind === Kind.VScrollBar;
const takesFocus = (kind: Kind): boolean =>
  kind === Kind.TextBox || kind === Kind.CommandButton || kind === Kind.PictureBox || isScrollBar(kind);

function makeTemplate(kind: Kind): HTMLElement {
  const node = document.createElement(kind === Kind.TextBox ? "input" : kind === Kind.CommandButton ? "button" : "div");
  node.className = classes[kind];
  if (takesFocus(kind)) node.tabIndex = -1;
  if (node instanceof HTMLButtonElement) node.type = "button";
  if (node instanceof HTMLInputElement) {
    node.autocomplete = "off";
    node.spellcheck = false;
    node.setAttribute("autocapitalize", "off");
  }
  return node;
}

// A new control is a copy of the first of its kind.
const templates: Partial<Record<Kind, HTMLElement>> = {};

const makeNode = (kind: Kind): HTMLElement => (templates[kind] ??= makeTemplate(kind)).cloneNode() as HTMLElement;

// Pictures are painted again, sharp, when the window has moved to another screen or is zoomed. The page listens
// once for all of them, and holds none that is gone.
const painted = new Set<WeakRef<ControlView>>();

function paintAgainAtNewDensity(): void {
  const now = matchMedia(`(resolution: ${devicePixelRatio}dppx)`);
  const repaint = () => {
    for (const view of painted) {
      const control = view.deref();
      if (control) control.repaint();
      else painted.delete(view);
    }
    if (painted.size) paintAgainAtNewDensity();
  };
  now.addEventListener("change", repaint, { once: true });
}

export class ControlView {
  readonly node: HTMLElement;
  readonly bar: ScrollBarView | undefined;
  text = "";
  bounds: Bounds = { left: 0, top: 0, width: 0, height: 0 };
  drawing: Drawing | undefined;
  #ends: [Point, Point] | undefined;
  #wantsSelection = false;
  #canvas: HTMLCanvasElement | undefined;
  #told: HTMLElement | undefined;
  #width = -1;
  #height = -1;
  #align = 0;
  #bold = false;
  #wraps = false;

  constructor(
    readonly surface: SurfaceView,
    readonly id: number,
    readonly kind: Kind,
    name: string,
    index: number,
    readonly container: ControlView | undefined,
  ) {
    this.node = makeNode(kind);
    this.node.setAttribute("data-name", name);
    if (index) this.node.setAttribute("data-index", String(index));
    if (isScrollBar(kind)) this.bar = new ScrollBarView(this);
    if (kind === Kind.Line) this.node.setAttribute("role", "presentation");
    if (kind === Kind.PictureBox) this.#makePicture();
  }

  get canBeDragged(): boolean {
    return this.kind !== Kind.Label && this.canBeClicked;
  }

  get canBeClicked(): boolean {
    return this.kind !== Kind.TextBox && this.kind !== Kind.Line && !isScrollBar(this.kind);
  }

  // Reads the values of the marked properties, in the order of their bits.
  apply(marked: number, record: RecordReader): void {
    for (let bit = 0; bit < readers.length; ++bit) if (marked & (1 << bit)) readers[bit]!(this, record);
  }

  // One control of the surface, the active one, is where Tab from the page arrives.
  setActive(active: boolean): void {
    this.node.tabIndex = active ? 0 : -1;
    if (this.node.classList.contains("aside")) setAttribute(this.node, "aria-hidden", active ? undefined : "true");
  }

  setRendering(rendering: Rendering): void {
    this.node.hidden = rendering === Rendering.None;
    if (rendering !== Rendering.Aside) return;
    this.node.classList.add("aside");
    this.node.setAttribute("inputmode", "none");
    this.setActive(this.surface.active === this);
  }

  setEnabled(enabled: boolean): void {
    if (this.node instanceof HTMLInputElement || this.node instanceof HTMLButtonElement) this.node.disabled = !enabled;
    else setAttribute(this.node, "aria-disabled", enabled ? undefined : "true");
  }

  // Pixels per unit of what stands in this control, and where its units begin.
  get innerScale(): InnerScale {
    const scale = this.drawing?.scale;
    if (!scale || scale.topLeft.x === scale.bottomRight.x) return twips;
    return { unit: pixelsPerUnit(scale, ...this.size), origin: scale.topLeft };
  }

  // Likewise of what surrounds this control.
  get outerScale(): InnerScale {
    return this.container?.innerScale ?? twips;
  }

  place(): void {
    const { unit, origin } = this.outerScale;
    if (this.kind === Kind.Line) return this.#placeLine(this.#ends, unit, origin);
    const { left, top, width, height } = this.bounds;
    const [x, y] = [(left - origin.x) * unit.x, (top - origin.y) * unit.y];
    this.#setBox(x, y, Math.abs(width * unit.x), Math.abs(height * unit.y));
  }

  // In pixels.
  get size(): [number, number] {
    return [this.bounds.width / twipsPerPixel, this.bounds.height / twipsPerPixel];
  }

  #setBox(left: number, top: number, width: number, height: number): void {
    const { style } = this.node;
    style.left = `${left}px`;
    style.top = `${top}px`;
    if (width === this.#width && height === this.#height) return;
    style.width = `${width}px`;
    style.height = `${height}px`;
    [this.#width, this.#height] = [width, height];
    this.#alignLine();
    this.bar?.resize(width, height);
    this.repaint();
  }

  // One line of text stands in the middle of its height, in labels and boxes alike.
  #alignLine(): void {
    if (this.kind !== Kind.Label && this.kind !== Kind.TextBox) return;
    const edges = this.kind === Kind.TextBox ? 2 : 0;
    this.node.style.lineHeight = this.#wraps ? "" : `${this.#height - edges}px`;
  }

  setText(text: string): void {
    this.text = text;
    if (this.node instanceof HTMLInputElement) {
      if (this.node.value !== text) this.node.value = text;
    } else if (this.kind === Kind.CommandButton) {
      writeCaption(this.node, text);
      const { key } = parseCaption(text);
      setAttribute(this.node, "aria-keyshortcuts", key ? `Alt+${key.toUpperCase()}` : undefined);
    } else if (this.kind === Kind.Label) {
      this.node.textContent = text;
    } else if (this.kind === Kind.Frame && text) {
      this.node.classList.add("captioned");
      this.node.prepend(make("span", "caption", text));
    }
  }

  setColours(back: number, fore: number): void {
    const { style } = this.node;
    if (this.kind === Kind.Line) {
      style.backgroundColor = cssColour(fore);
      return;
    }
    // A button without a colour of its own looks like the page's other buttons.
    style.backgroundColor = this.kind === Kind.CommandButton && isTransparent(back) ? "" : cssColour(back);
    style.color = cssColour(fore);
  }

  setFont(points: number, bold: boolean, align: number, wraps: boolean): void {
    const { style } = this.node;
    style.fontSize = `${points * pixelsPerPoint}px`;
    if (bold !== this.#bold) style.fontWeight = bold ? "600" : "";
    if (align !== this.#align) style.textAlign = alignments[align]!;
    [this.#bold, this.#align] = [bold, align];
    if (wraps === this.#wraps) return;
    this.#wraps = wraps;
    this.node.classList.toggle("wraps", wraps);
    this.#alignLine();
  }

  // The keys are the picture's own, and what they change in it is read out.
  #makePicture(): void {
    this.node.setAttribute("role", "application");
    this.#told = make("span", "told");
    this.#told.setAttribute("aria-live", "polite");
    this.node.append(this.#told);
  }

  setSpokenName(name: string): void {
    if (this.#told && this.surface.active === this) this.#told.textContent = name;
    if (this.kind === Kind.Image) setAttribute(this.node, "role", name ? "img" : undefined);
    setAttribute(this.node, "aria-label", name || undefined);
  }

  wantSelection(): void {
    this.#wantsSelection = true;
  }

  // Selects the whole text, once it has the focus.
  selectIfWanted(): void {
    if (this.#wantsSelection) (this.node as HTMLInputElement).select();
    this.#wantsSelection = false;
  }

  setEnds(from: Point, to: Point): void {
    this.#ends = [from, to];
    this.place();
  }

  // A line is a pixel high and lies, turned about the middle of its left end, as a drawn one does.
  #placeLine(ends: [Point, Point] | undefined, unit: Point, origin: Point): void {
    if (!ends) return;
    const [from, to] = ends;
    const { style } = this.node;
    const [x, y] = [(to.x - from.x) * unit.x, (to.y - from.y) * unit.y];
    const [left, top] = [(from.x - origin.x) * unit.x, (from.y - origin.y) * unit.y];
    style.left = `${(x === 0 ? Math.round(left) : left) + 0.5}px`;
    style.top = `${y === 0 ? Math.round(top) : top}px`;
    style.width = `${Math.hypot(x, y)}px`;
    style.rotate = `${Math.atan2(y, x)}rad`;
  }

  setDrawing(drawing: Drawing): void {
    this.drawing = drawing;
    for (const control of this.surface.controls) if (control?.container === this) control.place();
    this.repaint();
  }

  repaint(): void {
    if (!this.drawing || (!this.#canvas && this.drawing.strokes.length === 0)) return;
    this.#canvas ??= this.#makeCanvas();
    paint(this.#canvas, this.drawing, ...this.size, devicePixelRatio, `${this.node.style.fontSize} ${letters}`);
  }

  #makeCanvas(): HTMLCanvasElement {
    const canvas = make("canvas", "");
    this.node.prepend(canvas);
    painted.add(new WeakRef(this));
    if (painted.size === 1) paintAgainAtNewDensity();
    return canvas;
  }
}

const readPoint = (record: RecordReader): Point => ({ x: record.f32(), y: record.f32() });

// In the order of platform::Property's bits.
const readers: ((control: ControlView, record: RecordReader) => void)[] = [
  (control, record) => control.setRendering(record.u8()),
  (control, record) => control.setEnabled(record.flag()),
  (control, record) => {
    control.bounds = { left: record.f32(), top: record.f32(), width: record.f32(), height: record.f32() };
    if (control.kind !== Kind.Line) control.place();
  },
  (control, record) => control.setText(record.text()),
  (control, record) => control.setColours(record.u32(), record.u32()),
  (control, record) => setAttribute(control.node, "title", record.text() || undefined),
  (control, record) => control.setSpokenName(record.text()),
  (control, record) => control.setFont(record.u8(), record.flag(), record.u8(), record.flag()),
  (control, record) => ((control.node as HTMLInputElement).readOnly = record.flag()),
  (control) => control.wantSelection(),
  (control, record) => control.bar?.setRange(record.i32(), record.i32(), record.i32(), record.i32()),
  (control, record) => control.node.replaceChildren(pictureElement(record.u8())),
  (control, record) => control.setEnds(readPoint(record), readPoint(record)),
  (control, record) => control.setDrawing(readDrawing(record)),
];
