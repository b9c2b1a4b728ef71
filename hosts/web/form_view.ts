// An open form: a modal dialog over the control, which the person can move by its title: with the mouse, a finger,
// or the arrow keys and Ctrl.
import { Key, Kind, Measure, PointerAction } from "#shared";
import type { OpenedSurface, SurfaceChange } from "#wire";
import type { ControlView } from "./control_view.js";
import { make } from "./dom.js";
import type { Send } from "./module.js";
import { moveTo, scaleOf } from "./place.js";
import { holdPointer } from "./pointer.js";
import type { RecordReader } from "./record.js";
import { Around } from "./look.js";
import { SurfaceView } from "./surface_view.js";

const leastMargin = 8;
const keyStep = 16; // pixels by which an arrow key moves a form
const leastGrip = 48; // pixels of the title that stay in the window, to take hold of

const directions: Record<string, readonly [number, number]> = {
  ArrowLeft: [-1, 0],
  ArrowRight: [1, 0],
  ArrowUp: [0, -1],
  ArrowDown: [0, 1],
};

const between = (low: number, at: number, high: number): number => Math.round(Math.max(low, Math.min(at, high)));

// The nearest place at which all of it is in the window, or its beginning where it is larger.
function within(at: number, size: number, room: number): number {
  const margin = between(0, (room - size) / 2, leastMargin);
  return between(margin, at, room - size - margin);
}

export class FormView extends SurfaceView {
  readonly dialog = make("dialog", "form");
  readonly #title = make("div", "title");
  readonly #told = make("span", "told");
  // What the form opens over.
  readonly #below: HTMLElement;
  // Its middle, on what it opens over.
  readonly #middle: readonly [number, number];
  // Where the person has put it.
  #put: { left: number; top: number } | undefined;
  #listenedTo: Window | undefined;
  readonly #unseen: () => void;
  readonly #root: ShadowRoot;
  // Whether the focus was in the element when the form opened.
  #cameFromInside = false;
  #hasClosed = false;

  // `unseen` is called when the page hides the form together with its element.
  constructor(
    opened: OpenedSurface,
    root: ShadowRoot,
    below: HTMLElement,
    send: Send,
    introduced: (control: ControlView) => void,
    unseen: () => void,
  ) {
    super(opened, send, introduced);
    this.#root = root;
    this.#below = below;
    this.#middle = [
      opened.left / Measure.twipsPerPixel + this.width / 2,
      opened.top / Measure.twipsPerPixel + (this.height + Around.formTitle) / 2,
    ];
    this.#unseen = unseen;
    this.#title.id = `title${opened.id}`;
    this.dialog.dataset.name = opened.name;
    this.dialog.tabIndex = -1;
    this.dialog.setAttribute("aria-labelledby", this.#title.id);
    this.#told.id = `told${opened.id}`;
    this.dialog.setAttribute("aria-describedby", this.#told.id);
    // The form decides when it closes.
    this.dialog.setAttribute("closedby", "none");
    this.dialog.addEventListener("cancel", (event) => event.preventDefault());
    this.dialog.addEventListener("close", () => this.#refuseToClose(send));
    this.dialog.addEventListener("keydown", (event) => this.#moveByKey(event));
    this.dialog.addEventListener("focusin", (event) => this.#bringIntoView(event.target));
    this.#title.addEventListener("pointerdown", (event) => this.#drag(event));
    this.dialog.append(this.#title, this.#told, this.ground);
    new ResizeObserver(() => this.#lookWhetherSeen()).observe(this.dialog);
    root.append(this.dialog);
  }

  override apply(change: SurfaceChange, record: RecordReader): void {
    super.apply(change, record);
    this.#title.textContent = change.caption;
    this.#told.textContent = this.#words();
    if (this.isMessage) this.dialog.role = "alertdialog";
  }

  // It asks nothing.
  get isMessage(): boolean {
    return !this.controls.some(({ bar, isField }) => bar || isField);
  }

  // What is read out when it opens: its texts as they are read, from left to right and from above.
  #words(): string {
    return this.controls
      .filter(({ node, kind, isField }) => !node.hidden && (isField || kind === Kind.Label))
      .sort((one, other) => one.middle - other.middle || one.left - other.left)
      .map(({ text }) => text.trim())
      .join(" ");
  }

  show(): void {
    if (this.dialog.open || !this.dialog.isConnected) return;
    this.#cameFromInside = this.#root.activeElement !== null;
    this.dialog.showModal();
    this.#listenTo(this.#window);
    this.#placeOverControl();
    this.#lookWhetherSeen();
  }

  // A modal dialog that is not rendered would keep the person from everything else.
  #lookWhetherSeen(): void {
    if (this.dialog.open && !this.#hasClosed && this.dialog.getClientRects().length === 0) this.#unseen();
  }

  // After its element has moved in the page the dialog stands no longer above it.
  showAgain(): void {
    if (this.dialog.open) this.dialog.close();
    this.show();
  }

  close(): void {
    this.#hasClosed = true;
    this.#listenTo(undefined);
    // Closing gives the focus back to what had it. Where that is the control, it is put there anyhow.
    if (!this.#cameFromInside) this.dialog.close();
    this.dialog.remove();
  }

  // ---- Where it stands. A page may scale the control, or all that is in it.

  // The window that it is in; an element may be moved into another page than its script's.
  get #window(): Window {
    return this.dialog.ownerDocument.defaultView ?? window;
  }

  #listenTo(window: Window | undefined): void {
    this.#listenedTo?.removeEventListener("resize", this.#stayInWindow);
    window?.addEventListener("resize", this.#stayInWindow);
    this.#listenedTo = window;
  }

  #placeOverControl(): void {
    const control = this.#below.getBoundingClientRect();
    const { width, height } = this.dialog.getBoundingClientRect();
    const { innerWidth, innerHeight } = this.#window;
    const scale = scaleOf(this.#below, this.#below.offsetWidth);
    const [x, y] = this.#middle;
    this.#moveTo(
      within(control.left + x * scale - width / 2, width, innerWidth),
      within(control.top + y * scale - height / 2, height, innerHeight),
    );
  }

  #moveTo(left: number, top: number): void {
    const { width } = this.dialog.getBoundingClientRect();
    const { innerWidth, innerHeight } = this.#window;
    const x = between(leastGrip - width, left, innerWidth - leastGrip);
    moveTo(this.dialog, x, between(0, top, innerHeight - Around.formTitle));
  }

  // A window that was small for a while, as under a keyboard on the screen, gets the form back where it was.
  readonly #stayInWindow = (): void => {
    if (!this.dialog.open) return;
    if (!this.#put) return this.#placeOverControl();
    const { width, height } = this.dialog.getBoundingClientRect();
    const { innerWidth, innerHeight } = this.#window;
    this.#moveTo(within(this.#put.left, width, innerWidth), within(this.#put.top, height, innerHeight));
  };

  #putAt(left: number, top: number): void {
    this.#moveTo(left, top);
    this.#put = this.dialog.getBoundingClientRect();
  }

  #drag(pressed: PointerEvent): void {
    if (!pressed.isPrimary || pressed.button !== 0) return;
    const { left, top } = this.dialog.getBoundingClientRect();
    holdPointer(this.#title, pressed, ({ clientX, clientY }, action) => {
      if (action === PointerAction.Move) this.#putAt(left + clientX - pressed.clientX, top + clientY - pressed.clientY);
    });
  }

  #moveByKey(event: KeyboardEvent): void {
    const direction = directions[event.key];
    if (!direction || !event.ctrlKey || event.altKey || event.shiftKey || event.metaKey) return;
    event.preventDefault();
    event.stopPropagation();
    const { left, top } = this.dialog.getBoundingClientRect();
    this.#putAt(left + direction[0] * keyStep, top + direction[1] * keyStep);
  }

  // In a small window a form scrolls: what has the focus is to be seen.
  #bringIntoView(target: EventTarget | null): void {
    if (target instanceof HTMLElement && target !== this.dialog)
      target.scrollIntoView({ block: "nearest", inline: "nearest" });
  }

  // A browser may close a dialog by a gesture of its own: that is the form's Escape.
  #refuseToClose(send: Send): void {
    if (this.dialog.open || this.#hasClosed) return;
    send((module) => module.key(this.id, Key.escape, 0));
    if (!this.#hasClosed) this.show();
  }
}
