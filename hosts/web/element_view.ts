// What one element of the page shows, and what the person does there.
import { ControlView, Kind } from "./control_view.js";
import type { FormView } from "./form_view.js";
import { modifiers, keyCode } from "./keys.js";
import type { Page } from "./page.js";
import { SurfaceView } from "./surface_view.js";

// platform::Pointer::Action
enum PointerAction {
  Down,
  Move,
  Up,
  Lost,
}

// While one button is held, a browser tells of the others as moves; then `button` is the one that changed, and
// `buttons` has a bit for each that is held now.
function actionOfMove({ button, buttons }: PointerEvent): PointerAction {
  if (button < 0) return PointerAction.Move;
  const bit = [1, 4, 2, 8, 16][button] ?? 32;
  return buttons & bit ? PointerAction.Down : PointerAction.Up;
}

// A control that holds the pointer is told of a click wherever the pointer is released; a button that is left
// before that is not pressed. A click that no pointer made has no place.
function isReleasedBeside({ kind, node }: ControlView, { detail, clientX, clientY }: MouseEvent): boolean {
  if (kind !== Kind.CommandButton || detail === 0) return false;
  const { left, top, right, bottom } = node.getBoundingClientRect();
  return clientX < Math.floor(left) || clientX > right || clientY < Math.floor(top) || clientY > bottom;
}

const isActivation = ({ key }: KeyboardEvent) => key === "Enter" || key === " ";

export class ElementView {
  readonly surface: SurfaceView;
  readonly forms: FormView[] = [];
  readonly controlOf = new WeakMap<Node, ControlView>();
  // As the module knows it: the focus is in here.
  hasFocus = false;
  readonly #busy = new Set<number>();
  // The form or menu that was on top when the key that is held was pressed.
  #keyPressedOn: unknown;
  // A press that closed a menu must not open the same menu again.
  #menuOpenedBy: ControlView | undefined;
  #ignoredClick: ControlView | undefined;

  constructor(
    readonly page: Page,
    readonly host: HTMLElement,
    readonly root: ShadowRoot,
    id: number,
    name: string,
    width: number,
    height: number,
  ) {
    this.surface = new SurfaceView(this, id, name, width, height);
    this.#listen();
  }

  get top(): SurfaceView {
    return this.forms.at(-1) ?? this.surface;
  }

  setBusy(surface: number, busy: boolean): void {
    if (busy) this.#busy.add(surface);
    else this.#busy.delete(surface);
    if (this.#busy.size) this.host.setAttribute("aria-busy", "true");
    else this.host.removeAttribute("aria-busy");
    if (!busy) for (const control of this.top.controls) control?.bar?.follow();
  }

  get isBusy(): boolean {
    return this.#busy.size > 0;
  }

  // Whether the page's focus is in here, or nowhere and not promised to something else.
  get mayTakeFocus(): boolean {
    const active = document.activeElement;
    if (active === this.host) return true;
    const isFree = !active || active === document.body;
    return isFree && this.host.isConnected && !document.querySelector("[autofocus]");
  }

  get holdsFocus(): boolean {
    return this.root.activeElement !== null;
  }

  menuOpened(): void {
    this.#menuOpenedBy = this.#clicked;
  }

  // The element has left the page: it does nothing any more.
  stop(): void {
    this.hasFocus = false;
    this.#busy.clear();
    this.host.removeAttribute("aria-busy");
    for (const control of this.surface.controls) control?.bar?.stop();
  }

  // All on the element itself: they go with it.
  #listen(): void {
    const { host, root } = this;
    host.addEventListener("focusin", (event) => this.#enter(event), true);
    host.addEventListener("focusout", (event) => this.#leave(event));
    root.addEventListener("focusin", (event) => this.#focus(event));
    root.addEventListener("keydown", (event) => this.#keyDown(event as KeyboardEvent));
    root.addEventListener("keyup", (event) => this.#keyUp(event as KeyboardEvent));
    root.addEventListener("input", (event) => this.#input(event));
    root.addEventListener("mousedown", (event) => this.#mouseDown(event as MouseEvent));
    root.addEventListener("click", (event) => this.#click(event));
    root.addEventListener("pointerdown", (event) => this.#pointerDown(event as PointerEvent));
  }

  // The control in which an event happened; none on a form's title or a menu.
  #controlAt(event: Event): ControlView | undefined {
    for (const node of event.composedPath()) {
      const control = this.controlOf.get(node as Node);
      if (control || node === this.root) return control;
    }
    return undefined;
  }

  // ---- Focus

  #enter(event: FocusEvent): void {
    if (this.page.applying) return;
    this.page.send(() => {
      this.page.entered(this);
      this.#moveFocus(this.#controlAt(event));
    });
  }

  #leave(event: FocusEvent): void {
    // A window that is put aside keeps its focus for when it comes back.
    if (this.page.applying || !this.hasFocus || !document.hasFocus()) return;
    const control = this.#controlAt(event);
    // A control that can no longer have the focus loses it to the page; the surface knows where it goes.
    if (!event.relatedTarget && control && (control.node.hidden || control.node.matches(":disabled"))) {
      this.page.send(() => {});
      return;
    }
    this.page.left(this);
  }

  #focus(event: Event): void {
    if (this.page.applying) return;
    this.page.send(() => this.#moveFocus(this.#controlAt(event)));
  }

  #moveFocus(control: ControlView | undefined): void {
    if (!control || control.surface.active === control) return;
    this.page.send((module) => module.focus(control.surface.id, control.id));
  }

  // ---- Keys

  #keyDown(event: KeyboardEvent): void {
    const code = keyCode(event);
    if (!code || event.isComposing || event.metaKey) return;
    const onTop = this.page.menu ?? this.top;
    if (!event.repeat) this.#keyPressedOn = onTop;
    const used =
      // A key that is still held after something opened or closed is not meant for what is there now.
      this.#keyPressedOn !== onTop ||
      this.page.send((module) => module.key(this.top.id, code, modifiers(event))) ||
      // A button is pressed by the module, never a second time by the browser.
      (isActivation(event) && this.#controlAt(event)?.kind === Kind.CommandButton);
    if (used) event.preventDefault();
  }

  #keyUp(event: KeyboardEvent): void {
    if (isActivation(event) && this.#controlAt(event)?.kind === Kind.CommandButton) event.preventDefault();
  }

  #input(event: Event): void {
    const control = this.#controlAt(event);
    if (!(control?.node instanceof HTMLInputElement)) return;
    const { node, surface, id } = control;
    this.page.send((module) => {
      this.page.module.give(node.value);
      module.type(surface.id, id);
    });
    if (node.value !== control.text) node.value = control.text;
  }

  // ---- Mouse, pen, finger

  // Where the focus goes is the surface's to decide. Only in the box that has it already does a press place
  // the caret; in another box that would undo the selection with which the box receives the focus.
  #mouseDown(event: MouseEvent): void {
    const control = this.#controlAt(event);
    const box = control?.kind === Kind.TextBox && !control.node.matches(":disabled") ? control : undefined;
    if (box && box.node === this.root.activeElement) return;
    event.preventDefault();
    if (event.button !== 0) return;
    this.page.send(() => {
      if (!this.hasFocus && !this.forms.length) this.page.entered(this);
      this.#moveFocus(box);
    });
  }

  #clicked: ControlView | undefined;

  #click(event: Event): void {
    const control = this.#controlAt(event);
    const ignored = control && control === this.#ignoredClick;
    this.#ignoredClick = undefined;
    if (ignored || (control && isReleasedBeside(control, event as MouseEvent))) return;
    const path = event.composedPath();
    const surface = control?.surface ?? [this.surface, ...this.forms].find(({ ground }) => path.includes(ground));
    if (!surface || (control && !control.canBeClicked)) return;
    this.#clicked = control;
    this.page.send((module) => module.click(surface.id, control?.id ?? -1));
    this.#clicked = undefined;
  }

  // Called before a press outside the menu closes it.
  pressedOutsideMenu(event: Event): void {
    this.#ignoredClick = undefined;
    if (this.#menuOpenedBy && event.composedPath().includes(this.#menuOpenedBy.node))
      this.#ignoredClick = this.#menuOpenedBy;
  }

  // From press to release the pointer is the control's, wherever it goes.
  #pointerDown(event: PointerEvent): void {
    const control = this.#controlAt(event);
    if (!event.isPrimary || !control?.canBeDragged) return;
    const { node } = control;
    const held = new AbortController();
    const pass = (type: string, actionOf: (passed: PointerEvent) => PointerAction) =>
      node.addEventListener(
        type,
        (passed) => {
          if ((passed as PointerEvent).pointerId !== event.pointerId) return;
          const action = actionOf(passed as PointerEvent);
          if (type !== "pointermove") held.abort();
          this.#point(control, passed as PointerEvent, action);
        },
        held,
      );
    pass("pointermove", actionOfMove);
    pass("pointerup", () => PointerAction.Up);
    pass("lostpointercapture", () => PointerAction.Lost);
    node.setPointerCapture(event.pointerId);
    this.#point(control, event, PointerAction.Down);
  }

  // The place is from the control's top left corner, in the units in which the control itself stands.
  #point(control: ControlView, event: PointerEvent, action: PointerAction): void {
    const { unit } = control.outerScale;
    const { left, top } = control.node.getBoundingClientRect();
    const [x, y] = [(event.clientX - left) / Math.abs(unit.x), (event.clientY - top) / Math.abs(unit.y)];
    const isLeft = action === PointerAction.Down ? event.button === 0 : (event.buttons & 1) !== 0;
    const leftButton = Number(isLeft);
    this.page.send((module) => module.pointer(control.surface.id, control.id, action, leftButton, x, y));
  }
}
