// One control of a surface: its element, and the properties that the module hands over.
import { Align, Kind, Measure, Rendering, Role } from "#shared";
import {
  type BoundsValue,
  type ColoursValue,
  type DrawingValue,
  type EnabledValue,
  type EndsValue,
  type FontValue,
  type Introduction,
  type LockedValue,
  type PictureValue,
  type Point,
  type Properties,
  type RangeValue,
  readProperties,
  type RoleValue,
  type Reader,
  type SpokenNameValue,
  type TextValue,
  type ToolTipValue,
  type VisibleValue,
} from "#wire";
import { parseCaption, writeCaption } from "./captions.js";
import { cssColour, isTransparent } from "./colours.js";
import { make, setAttribute } from "./dom.js";
import { pixelsPerUnit } from "./drawing.js";
import type { Send } from "./module.js";
import { PictureView } from "./picture_view.js";
import { pictureElement } from "./pictures.js";
import { ScrollBarView } from "./scroll_bar_view.js";

const pixelsPerPoint = Measure.pixelsPerInch / Measure.pointsPerInch;

interface InnerScale {
  readonly unit: Point;
  readonly origin: Point;
}

const twips: InnerScale = {
  unit: { x: 1 / Measure.twipsPerPixel, y: 1 / Measure.twipsPerPixel },
  origin: { x: 0, y: 0 },
};

const alignments = { [Align.Left]: "left", [Align.Right]: "right", [Align.Centre]: "center" } satisfies Record<
  Align,
  string
>;

// By which style_sheet.ts knows a role.
const roles = {
  [Role.None]: undefined,
  [Role.Number]: "number",
  [Role.CurrentNumber]: "number current",
  [Role.Default]: "default",
  [Role.Status]: undefined,
  [Role.OpensMenu]: "opener",
  [Role.MenuOpen]: "opener open",
} satisfies Record<Role, string | undefined>;

const classes = {
  [Kind.Frame]: "frame",
  [Kind.Label]: "label",
  [Kind.TextBox]: "box",
  [Kind.CommandButton]: "button",
  [Kind.HScrollBar]: "bar",
  [Kind.VScrollBar]: "bar",
  [Kind.Line]: "line",
  [Kind.Image]: "image",
  [Kind.PictureBox]: "picture",
  [Kind.Menu]: "", // told with the whole menu (menu_view.ts)
} satisfies Record<Kind, string>;

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

export class ControlView implements Properties {
  readonly node: HTMLElement;
  readonly kind: Kind;
  readonly bar: ScrollBarView | undefined;
  text = "";
  #isActive = false;
  #bounds: BoundsValue = { left: 0, top: 0, width: 0, height: 0 };
  readonly #picture: PictureView | undefined;
  // What stands in this control.
  readonly #inside: ControlView[] = [];
  #ends: EndsValue | undefined;
  #wantsSelection = false;
  #told: HTMLElement | undefined;
  #width = -1;
  #height = -1;
  #align = Align.Left;
  #bold = false;

  // `surface` is the number of the surface that it is of.
  constructor(
    readonly surface: number,
    readonly id: number,
    { kind, name, index }: Introduction,
    readonly container: ControlView | undefined,
    send: Send,
  ) {
    this.kind = kind;
    this.node = makeNode(kind);
    this.node.setAttribute("data-name", name);
    if (index) this.node.setAttribute("data-index", String(index));
    if (kind === Kind.Line) this.node.setAttribute("role", "presentation");
    if (kind === Kind.PictureBox) this.#picture = this.#makePicture();
    if (isScrollBar(kind))
      this.bar = new ScrollBarView(this.node, kind === Kind.VScrollBar, {
        scroll: (value) => send((module) => module.scroll(surface, id, value, true)),
        step: (direction, pageWise) => send((module) => module.scroll_step(surface, id, direction, pageWise)),
      });
    if (container) container.#inside.push(this);
  }

  get isActive(): boolean {
    return this.#isActive;
  }

  // It has the focus where nothing else has, and is not seen.
  get isAside(): boolean {
    return this.node.classList.contains("aside");
  }

  // A box that shows something.
  get isField(): boolean {
    return this.kind === Kind.TextBox && !this.isAside;
  }

  // In the units of what surrounds it.
  get left(): number {
    return this.#bounds.left;
  }

  get middle(): number {
    return this.#bounds.top + this.#bounds.height / 2;
  }

  get canBeDragged(): boolean {
    return this.kind !== Kind.Label && this.canBeClicked;
  }

  get canBeClicked(): boolean {
    return this.kind !== Kind.TextBox && this.kind !== Kind.Line && !isScrollBar(this.kind);
  }

  apply(marked: number, record: Reader): void {
    readProperties(record, marked, this);
    this.#picture?.paintIfStale();
  }

  // One control of the surface, the active one, is where Tab from the page arrives.
  setActive(active: boolean): void {
    this.#isActive = active;
    this.node.tabIndex = active ? 0 : -1;
    if (this.isAside) setAttribute(this.node, "aria-hidden", active ? undefined : "true");
  }

  setVisible({ rendering }: VisibleValue): void {
    this.node.hidden = rendering === Rendering.None;
    if (rendering !== Rendering.Aside) return;
    this.node.classList.add("aside");
    this.node.setAttribute("inputmode", "none");
    this.setActive(this.#isActive);
  }

  setEnabled({ enabled }: EnabledValue): void {
    if (this.node instanceof HTMLInputElement || this.node instanceof HTMLButtonElement) this.node.disabled = !enabled;
    else setAttribute(this.node, "aria-disabled", enabled ? undefined : "true");
  }

  // Pixels per unit of what stands in this control, and where its units begin.
  get innerScale(): InnerScale {
    const scale = this.#picture?.scale;
    if (!this.#picture || !scale || scale.topLeft.x === scale.bottomRight.x) return twips;
    return { unit: pixelsPerUnit(scale, ...this.#picture.size), origin: scale.topLeft };
  }

  // Likewise of what surrounds this control.
  get outerScale(): InnerScale {
    return this.container?.innerScale ?? twips;
  }

  setBounds(bounds: BoundsValue): void {
    this.#bounds = bounds;
    if (this.#picture)
      this.#picture.size = [bounds.width / Measure.twipsPerPixel, bounds.height / Measure.twipsPerPixel];
    if (this.kind !== Kind.Line) this.#place();
  }

  #place(): void {
    const { unit, origin } = this.outerScale;
    if (this.kind === Kind.Line) return this.#placeLine(this.#ends, unit, origin);
    const { left, top, width, height } = this.#bounds;
    const [x, y] = [(left - origin.x) * unit.x, (top - origin.y) * unit.y];
    this.#setBox(x, y, Math.abs(width * unit.x), Math.abs(height * unit.y));
  }

  #setBox(left: number, top: number, width: number, height: number): void {
    const { style } = this.node;
    style.left = `${left}px`;
    style.top = `${top}px`;
    if (width === this.#width && height === this.#height) return;
    style.width = `${width}px`;
    style.height = `${height}px`;
    [this.#width, this.#height] = [width, height];
    this.bar?.resize(width, height);
    this.#picture?.invalidate();
  }

  setText({ text }: TextValue): void {
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

  setColours({ back, fore }: ColoursValue): void {
    const { style } = this.node;
    style.color = cssColour(fore);
    if (this.kind === Kind.Line) return;
    // A given colour tells something, and stays whatever colours the person wants otherwise.
    this.node.classList.toggle("tinted", back >= 0 && back <= 0xffffff);
    // A button without a colour of its own looks like the page's other buttons.
    style.backgroundColor = this.kind === Kind.CommandButton && isTransparent(back) ? "" : cssColour(back);
  }

  setFont({ points, bold, align, wraps, middle }: FontValue): void {
    const { style } = this.node;
    style.fontSize = `${points * pixelsPerPoint}px`;
    if (bold !== this.#bold) style.fontWeight = bold ? "600" : "";
    if (align !== this.#align) style.textAlign = alignments[align];
    [this.#bold, this.#align] = [bold, align];
    this.#picture?.invalidate();
    this.node.classList.toggle("wraps", wraps);
    this.node.classList.toggle("middle", middle);
  }

  // The keys are the picture's own, and what they change in it is read out.
  #makePicture(): PictureView {
    this.node.setAttribute("role", "application");
    this.#told = make("span", "told");
    this.#told.setAttribute("aria-live", "polite");
    this.node.append(this.#told);
    return new PictureView(this.node);
  }

  setToolTip({ tip }: ToolTipValue): void {
    setAttribute(this.node, "title", tip || undefined);
  }

  setSpokenName({ name }: SpokenNameValue): void {
    if (this.#told && this.#isActive) this.#told.textContent = name;
    if (this.kind === Kind.Image) setAttribute(this.node, "role", name ? "img" : undefined);
    setAttribute(this.node, "aria-label", name || undefined);
  }

  setLocked({ locked }: LockedValue): void {
    if (this.node instanceof HTMLInputElement) this.node.readOnly = locked;
  }

  setRole({ role }: RoleValue): void {
    setAttribute(this.node, "data-role", roles[role]);
    if (role === Role.Status) setAttribute(this.node, "role", "status");
    if (role < Role.OpensMenu) return;
    this.node.ariaHasPopup = "menu";
    this.node.ariaExpanded = String(role === Role.MenuOpen);
  }

  setSelection(): void {
    this.#wantsSelection = true;
  }

  // Selects the whole text, once it has the focus.
  selectIfWanted(): void {
    if (this.#wantsSelection && this.node instanceof HTMLInputElement) this.node.select();
    this.#wantsSelection = false;
  }

  setRange(range: RangeValue): void {
    this.bar?.setRange(range);
  }

  setPicture({ picture }: PictureValue): void {
    this.node.replaceChildren(pictureElement(picture));
  }

  setEnds(ends: EndsValue): void {
    this.#ends = ends;
    this.#place();
  }

  // Along an axis a line is a box of no height or width, whose edge is the line: edges are always sharp. A slanting
  // one is turned about the middle of its left end.
  #placeLine(ends: EndsValue | undefined, unit: Point, origin: Point): void {
    if (!ends) return;
    const { from, to } = ends;
    const [x, y] = [(to.x - from.x) * unit.x, (to.y - from.y) * unit.y];
    const [left, top] = [(from.x - origin.x) * unit.x, (from.y - origin.y) * unit.y];
    const slants = Math.abs(x) >= 0.01 && Math.abs(y) >= 0.01;
    const { style, classList } = this.node;
    classList.toggle("slants", slants);
    style.left = `${slants ? left + 0.5 : Math.min(left, left + x)}px`;
    style.top = `${slants ? top + 0.5 : Math.min(top, top + y)}px`;
    style.width = `${slants ? Math.hypot(x, y) : Math.abs(x)}px`;
    style.height = slants ? "" : `${Math.abs(y)}px`;
    style.rotate = slants ? `${Math.atan2(y, x)}rad` : "";
  }

  setDrawing(drawing: DrawingValue): void {
    this.#picture?.setDrawing(drawing);
    for (const control of this.#inside) control.#place();
  }
}
