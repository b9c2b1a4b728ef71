// What one element of the page shows, and what the person does there.
import { Kind, type PointerAction } from "#shared";
import type { OpenedSurface } from "#wire";
import type { ControlView } from "./control_view.js";
import { FormView } from "./form_view.js";
import { keyCode, modifiers } from "./keys.js";
import type { Send } from "./module.js";
import { OwnBox } from "./own_box.js";
import { scrollPage } from "./page_scroll.js";
import { holdPointer, isBeside, isLeft } from "./pointer.js";
import { SurfaceView } from "./surface_view.js";
import type { InputAct } from "./turn_of_input.js";
import { isTyping, typeInto } from "./typing.js";

// What an element needs of its page.
export interface Surroundings {
  readonly send: Send;
  // While true, what happens to the page's focus is the page's own doing.
  readonly applying: boolean;
  // Does what the person has asked for, at once or when it is its turn.
  takeInput(act: InputAct): void;
  // The menu that is open, of whatever element.
  readonly menu: unknown;
  entered(element: ElementView): void;
  left(element: ElementView): void;
  // What the element was doing is given up.
  abandon(element: ElementView): void;
}

const isActivation = ({ key }: KeyboardEvent) => key === "Enter" || key === " ";

export class ElementView {
  readonly surface: SurfaceView;
  readonly forms: FormView[] = [];
  readonly box: OwnBox;
  readonly #controlOf = new WeakMap<Node, ControlView>();
  // As the module knows it: the focus is in here.
  hasFocus = false;
  readonly #busy = new Set<number>();
  // The form or menu that was on top when the key that is held was pressed.
  #keyPressedOn: unknown;
  // The press that holds the button has selected a cell's text.
  #selected = false;
  // A press that closed a menu must not open the same menu again.
  #menuOpenedBy: ControlView | undefined;
  #ignoredClick: ControlView | undefined;

  constructor(
    readonly page: Surroundings,
    readonly host: HTMLElement,
    readonly root: ShadowRoot,
    opened: OpenedSurface,
  ) {
    this.surface = new SurfaceView(opened, page.send, this.#introduced);
    this.box = new OwnBox(host, root, this.surface.ground);
    this.#listen();
  }

  // ---- Its surfaces

  readonly #introduced = (control: ControlView): void => {
    this.#controlOf.set(control.node, control);
  };

  find(id: number): SurfaceView | undefined {
    return [this.surface, ...this.forms].find((surface) => surface.id === id);
  }

  openForm(opened: OpenedSurface): void {
    const unseen = () => this.page.abandon(this);
    this.forms.push(new FormView(opened, this.root, this.surface.ground, this.page.send, this.#introduced, unseen));
  }

  closeForm(id: number): void {
    const at = this.forms.findIndex((form) => form.id === id);
    const [form] = this.forms.splice(at, at < 0 ? 0 : 1);
    this.setBusy(id, false);
    form?.close();
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

  get document(): Document {
    return this.host.ownerDocument;
  }

  // In a frame of a page in which the person is elsewhere: taking the focus would take it from there.
  get isInFrameAside(): boolean {
    return this.document.defaultView !== window.top && !this.document.hasFocus();
  }

  // Whether the page's focus is in here, or nowhere and not promised to something else.
  get mayTakeFocus(): boolean {
    if (this.isInFrameAside) return false;
    const { document, host } = this;
    const active = document.activeElement;
    if (active === host) return true;
    const isFree = !active || active === document.body;
    return isFree && host.isConnected && !host.hasAttribute("nofocus") && !document.querySelector("[autofocus]");
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
    root.addEventListener("mouseup", (event) => this.#mouseUp(event as MouseEvent));
    root.addEventListener("click", (event) => this.#click(event));
    root.addEventListener("pointerdown", (event) => this.#pointerDown(event as PointerEvent));
  }

  // The control in which an event happened; none on a form's title or a menu.
  #controlAt(event: Event): ControlView | undefined {
    for (const node of event.composedPath()) {
      const control = this.#controlOf.get(node as Node);
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
    if (this.page.applying || !this.hasFocus || !this.document.hasFocus()) return;
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
    if (!control || control.isActive) return;
    this.#takeInput(() => this.page.send((module) => module.focus(control.surface, control.id)));
  }

  // ---- Input. The event itself may be over when it is its turn.

  #visit = 0;

  // The element has gone from the page: what still waits for its turn was not meant for when it comes again.
  forgetInput(): void {
    ++this.#visit;
  }

  #takeInput(act: InputAct): void {
    const visit = this.#visit;
    this.page.takeInput((isLate) => {
      if (visit === this.#visit && this.host.isConnected) act(isLate);
    });
  }

  // ---- Keys

  get #onTop(): unknown {
    return this.page.menu ?? this.top;
  }

  get #focused(): ControlView | undefined {
    return this.root.activeElement ? this.#controlOf.get(this.root.activeElement) : undefined;
  }

  #keyDown(event: KeyboardEvent): void {
    const code = keyCode(event);
    if (event.isComposing || event.metaKey || (!code && !isTyping(event))) return;
    const pressedOn = this.#onTop;
    let used = true; // until it is its turn
    this.#takeInput((isLate) => {
      used = this.#press(event, code, pressedOn);
      if (isLate && !used) this.#typeLate(event);
    });
    if (used) event.preventDefault();
  }

  // Whether that is all that is to be done with the key.
  #press(event: KeyboardEvent, code: number, pressedOn: unknown): boolean {
    const onTop = this.#onTop;
    if (!event.repeat) this.#keyPressedOn = onTop;
    return (
      // A key that is still held after something opened or closed is not meant for what is there now.
      this.#keyPressedOn !== onTop ||
      // Nor is a key an answer to a message that was not there yet.
      (pressedOn !== onTop && onTop instanceof FormView && onTop.isMessage) ||
      (code !== 0 && this.page.send((module) => module.key(this.top.id, code, modifiers(event))) !== 0) ||
      // A button is pressed by the module, never a second time by the browser.
      (isActivation(event) && this.#focused?.kind === Kind.CommandButton) ||
      // Where nothing can be typed, what means nothing here is meant for the page.
      (onTop === this.surface && this.#focused?.isAside === true && scrollPage(this.host, event))
    );
  }

  #typeLate(event: KeyboardEvent): void {
    const node = this.#focused?.node;
    if (node instanceof HTMLInputElement && isTyping(event)) typeInto(node, event.key);
  }

  #keyUp(event: KeyboardEvent): void {
    if (isActivation(event) && this.#controlAt(event)?.kind === Kind.CommandButton) event.preventDefault();
  }

  #input(event: Event): void {
    const control = this.#controlAt(event);
    if (!(control?.node instanceof HTMLInputElement)) return;
    const { node, surface, id } = control;
    const text = node.value;
    this.#takeInput(() => {
      const isTaken = this.page.send((module, texts) => {
        texts.give(text);
        return module.type(surface, id);
      });
      if (isTaken) control.text = text;
      if (node.value !== control.text) node.value = control.text;
    });
  }

  // ---- Mouse, pen, finger

  // Where the focus goes is the surface's to decide. Only in the box that has it already does a press place
  // the caret; in another box that would undo the selection with which the box receives the focus.
  #mouseDown(event: MouseEvent): void {
    this.#selected = false;
    const control = this.#controlAt(event);
    const box = control?.kind === Kind.TextBox && !control.node.matches(":disabled") ? control : undefined;
    let goesOn = false; // until it is its turn
    this.#takeInput(() => {
      goesOn = box !== undefined && box.node === this.root.activeElement;
      if (!goesOn && event.button === 0) this.#pressOn(box);
    });
    if (!goesOn) event.preventDefault();
  }

  #pressOn(box: ControlView | undefined): void {
    // Not every browser lets the person into a frame by a press that goes no further.
    if (!this.document.hasFocus()) this.document.defaultView?.focus();
    this.page.send(() => {
      if (!this.hasFocus && !this.forms.length) this.page.entered(this);
      this.#moveFocus(box);
    });
    if (box && box.node === this.root.activeElement) this.#select(box);
  }

  // A cell that is clicked is there to be typed over, also where it was the last before the page had the focus.
  #select({ node }: ControlView): void {
    (node as HTMLInputElement).select();
    this.#selected = true;
  }

  // A browser may put the caret where the button goes up.
  #mouseUp(event: MouseEvent): void {
    if (this.#selected) event.preventDefault();
    this.#selected = false;
  }

  #clicked: ControlView | undefined;

  #click(event: Event): void {
    const control = this.#controlAt(event);
    const ignored = control && control === this.#ignoredClick;
    this.#ignoredClick = undefined;
    // A control that holds the pointer is told of a click wherever the pointer is released; a button that is left
    // before that is not pressed.
    const wasLeft = control?.kind === Kind.CommandButton && isBeside(control.node, event as MouseEvent);
    if (ignored || wasLeft) return;
    const path = event.composedPath();
    const surface = control?.surface ?? [this.surface, ...this.forms].find(({ ground }) => path.includes(ground))?.id;
    if (surface === undefined || (control && !control.canBeClicked)) return;
    this.#takeInput(() => {
      this.#clicked = control;
      this.page.send((module) => module.click(surface, control?.id ?? -1));
      this.#clicked = undefined;
    });
  }

  // Called before a press outside the menu closes it.
  pressedOutsideMenu(event: Event): void {
    this.#ignoredClick = undefined;
    if (this.#menuOpenedBy && event.composedPath().includes(this.#menuOpenedBy.node))
      this.#ignoredClick = this.#menuOpenedBy;
  }

  #pointerDown(event: PointerEvent): void {
    const control = this.#controlAt(event);
    if (!event.isPrimary || !control?.canBeDragged) return;
    holdPointer(control.node, event, (heard, action) => this.#point(control, heard, action));
  }

  // The place is from the control's top left corner, in the units in which the control itself stands.
  #point(control: ControlView, event: PointerEvent, action: PointerAction): void {
    const { unit } = control.outerScale;
    const box = control.node.getBoundingClientRect();
    const scale = this.find(control.surface)?.scale ?? 1;
    const [x, y] = [
      (event.clientX - box.left) / scale / Math.abs(unit.x),
      (event.clientY - box.top) / scale / Math.abs(unit.y),
    ];
    const left = isLeft(event, action);
    this.#takeInput(() => this.page.send((module) => module.pointer(control.surface, control.id, action, left, x, y)));
  }
}
