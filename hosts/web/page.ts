// The page's side of the module: does what it asks, and brings it what happens.
//
//   const page = await loadPage();
//   const view = page.create(element, shadowRoot);
//   page.send((module) => module.click(view.surface.id, 3));
//
// What the module asks to be seen is done after it has returned, in the order in which it was asked, once.
// So nothing of the page's own (its listeners, its focus) runs while the module does.
import { playBeep } from "./beep.js";
import { clearClipboard, copyPicture } from "./clipboard.js";
import { ElementView } from "./element_view.js";
import { TabulonError } from "./errors.js";
import { Files } from "./files.js";
import { FormView } from "./form_view.js";
import { MenuView } from "./menu_view.js";
import { loadModule, type Exports, type Imports, type Module } from "./module.js";
import { RecordReader } from "./record.js";
import type { SurfaceView } from "./surface_view.js";

// As long as a handler may hold the page before a person would notice, in milliseconds.
const longestRun = 10;
// A page that is not seen paints nothing; then this many milliseconds stand for a repaint.
const longestRepaint = 100;

function secondsSinceMidnight(): number {
  const now = new Date();
  return now.getHours() * 3600 + now.getMinutes() * 60 + now.getSeconds() + now.getMilliseconds() / 1000;
}

interface Creating {
  readonly host: HTMLElement;
  readonly root: ShadowRoot;
  view?: ElementView;
}

interface Call {
  readonly element: number;
  readonly ended: () => void;
}

export class Page {
  module!: Module;
  menu: MenuView | undefined;
  // The element that has the focus, or had it when the window last had it.
  focused: ElementView | undefined;
  // While true, what happens to the page's focus is our own doing.
  applying = false;

  // Held weakly: an element that its page has forgotten goes with all that it shows.
  readonly #surfaces = new Map<number, WeakRef<SurfaceView>>();
  readonly #forgotten = new FinalizationRegistry<number>((id) => {
    this.#surfaces.delete(id);
    this.send((module) => module.destroy(id));
  });
  readonly #forms: FormView[] = [];
  readonly #calls = new Map<number, Call>();
  readonly #queue: (() => void)[] = [];
  readonly #macrotask = new MessageChannel();
  readonly #files = new Files(this);
  #creating: Creating | undefined;
  #depth = 0;
  #draining = false;
  #entered = 0;

  static async load(): Promise<Page> {
    const page = new Page();
    page.module = await loadModule(page.#imports());
    return page;
  }

  private constructor() {
    this.#macrotask.port1.onmessage = ({ data }) => this.answer(data as number);
  }

  // Calls the module, and does what it asked for when it has returned.
  send<Result>(call: (module: Exports) => Result): Result {
    if (this.#depth++ === 0) this.#entered = performance.now();
    try {
      return call(this.module.exports);
    } finally {
      if (--this.#depth === 0) this.#drain();
    }
  }

  answer(ticket: number, text = ""): void {
    this.send((module) => {
      this.module.give(text);
      module.answer(ticket);
    });
  }

  // ---- Elements

  create(host: HTMLElement, root: ShadowRoot): ElementView {
    const creating: Creating = { host, root };
    this.#creating = creating;
    const id = this.send((module) => module.create());
    this.#creating = undefined;
    this.#forgotten.register(host, id);
    return creating.view!;
  }

  // Starts a method; resolves when it has ended.
  call(element: ElementView, name: string, given: string): Promise<void> {
    return new Promise((ended) => {
      const { id } = element.surface;
      this.send((module) => {
        this.module.give(name, given);
        const call = module.call(id);
        if (call) this.#calls.set(call, { element: id, ended });
        else ended();
      });
    });
  }

  // The element has left the page: what it was doing is given up.
  abandon(element: ElementView): void {
    const { id } = element.surface;
    this.#loseFocus(element);
    element.stop();
    this.send((module) => module.abandon(id));
    for (const [call, { element: caller, ended }] of this.#calls) {
      if (caller !== id) continue;
      this.#calls.delete(call);
      ended();
    }
  }

  entered(element: ElementView): void {
    element.hasFocus = true;
    this.focused = element;
    this.send((module) => module.enter(element.surface.id));
  }

  left(element: ElementView): void {
    this.#loseFocus(element);
    this.send((module) => {
      if (this.menu?.element === element) module.menu_dismiss();
      module.leave(element.surface.id);
    });
  }

  dismissMenu(): void {
    this.send((module) => module.menu_dismiss());
  }

  #loseFocus(element: ElementView): void {
    element.hasFocus = false;
    if (this.focused === element) this.focused = undefined;
  }

  // ---- Afterwards

  #drain(): void {
    if (this.#draining) return;
    this.#draining = true;
    try {
      do {
        for (let next = this.#queue.shift(); next; next = this.#queue.shift()) next();
        this.#showFocus();
      } while (this.#queue.length);
    } finally {
      this.#draining = false;
    }
  }

  // Does what may move the page's focus without taking that for the person's doing.
  #apply(change: () => void): void {
    const before = this.applying;
    this.applying = true;
    try {
      change();
    } finally {
      this.applying = before;
    }
  }

  // After what the module has asked for so far.
  afterwards(change: () => void): void {
    this.#queue.push(() => this.#apply(change));
  }

  // Puts the page's focus where the control on top has its own.
  #showFocus(): void {
    const element = this.#forms.at(-1)?.element ?? this.focused;
    if (!element?.host.isConnected) return;
    this.#apply(() => {
      for (const form of element.forms) form.show();
      const menu = this.menu?.element === element ? this.menu.node : undefined;
      const active = element.top.active;
      const target = menu ?? active?.node ?? element.forms.at(-1)?.dialog;
      if (target && element.root.activeElement !== target) target.focus({ preventScroll: true });
      if (!menu) active?.selectIfWanted();
    });
    if (element.hasFocus && !element.holdsFocus && document.hasFocus()) this.left(element);
  }

  // ---- What the module asks for

  #record(at: number, size: number): RecordReader {
    return new RecordReader(this.module.copy(at, size));
  }

  #surface(id: number): SurfaceView | undefined {
    return this.#surfaces.get(id)?.deref();
  }

  #open(record: RecordReader): void {
    const [id, owner, width, height, name] = [record.i32(), record.i32(), record.f32(), record.f32(), record.text()];
    const element = this.#surface(owner)?.element;
    if (element) {
      const form = new FormView(element, id, name, width, height);
      element.forms.push(form);
      this.#forms.push(form);
      this.#surfaces.set(id, new WeakRef(form));
    } else if (this.#creating) {
      const { host, root } = this.#creating;
      const view = new ElementView(this, host, root, id, name, width, height);
      this.#creating.view = view;
      this.#surfaces.set(id, new WeakRef(view.surface));
    }
  }

  #close(id: number): void {
    const form = this.#surface(id);
    this.#surfaces.delete(id);
    if (!(form instanceof FormView)) return;
    form.element.forms.splice(form.element.forms.indexOf(form), 1);
    this.#forms.splice(this.#forms.indexOf(form), 1);
    form.element.setBusy(id, false);
    form.close();
  }

  #showMenu(record: RecordReader): void {
    const element = this.#surface(record.i32())?.element;
    if (!element) return;
    if (!this.menu) {
      this.menu = new MenuView(element);
      element.menuOpened();
    }
    this.menu.apply(record);
  }

  #closeMenu(): void {
    this.menu?.close();
    this.menu = undefined;
  }

  // Answers at once; the focus moves afterwards, with everything else.
  #takeFocus(id: number): boolean {
    const element = this.#surface(id)?.element;
    if (!element?.mayTakeFocus) return false;
    if (id !== element.surface.id) return true;
    element.hasFocus = true;
    this.focused = element;
    return true;
  }

  #wakeAfterRepaint(ticket: number): void {
    const wake = () => this.#macrotask.port2.postMessage(ticket);
    const frame = requestAnimationFrame(() => {
      clearTimeout(otherwise);
      wake();
    });
    const otherwise = setTimeout(() => {
      cancelAnimationFrame(frame);
      wake();
    }, longestRepaint);
  }

  // An error that no script is there to catch.
  report(host: HTMLElement | undefined, error: TabulonError): void {
    console.error(error);
    host?.dispatchEvent(new CustomEvent("tabulon-error", { detail: error, bubbles: true, composed: true }));
  }

  #imports(): Imports {
    return {
      open_surface: (at, size) => {
        const record = this.#record(at, size);
        this.afterwards(() => this.#open(record));
      },
      close_surface: (id) => this.afterwards(() => this.#close(id)),
      mirror: (at, size) => {
        const record = this.#record(at, size);
        this.afterwards(() => this.#surface(record.i32())?.apply(record));
      },
      show_menu: (at, size) => {
        const record = this.#record(at, size);
        this.afterwards(() => this.#showMenu(record));
      },
      close_menu: () => this.afterwards(() => this.#closeMenu()),
      set_busy: (id, busy) => this.#queue.push(() => this.#surface(id)?.element.setBusy(id, busy !== 0)),
      take_focus: (id) => Number(this.#takeFocus(id)),
      seconds_since_midnight: secondsSinceMidnight,
      yield_due: () => Number(performance.now() - this.#entered > longestRun),
      wake_after: (milliseconds, ticket) => setTimeout(() => this.answer(ticket), milliseconds),
      wake_after_repaint: (ticket) => this.#wakeAfterRepaint(ticket),
      wake_after_events: (ticket) => this.#macrotask.port2.postMessage(ticket),
      beep: playBeep,
      show_file_dialog: (at, size, ticket) => {
        const record = this.#record(at, size);
        this.#queue.push(() => this.#files.ask(record, ticket));
      },
      write_file: (at, size) => {
        const record = this.#record(at, size);
        this.#queue.push(() => this.#files.write(record));
      },
      clear_clipboard: clearClipboard,
      copy_picture: (at, size, ticket) => {
        const record = this.#record(at, size);
        this.#queue.push(() => copyPicture(record).then((refusal) => this.answer(ticket, refusal)));
      },
      report: (id, number, at, size) => {
        const error = new TabulonError(number, this.module.text(at, size));
        this.#queue.push(() => this.report(this.#surface(id)?.element.host, error));
      },
      call_ended: (call) => {
        this.#queue.push(() => {
          this.#calls.get(call)?.ended();
          this.#calls.delete(call);
        });
      },
    };
  }
}

let loading: Promise<Page> | undefined;

// One module serves all elements of a page.
export const loadPage = (): Promise<Page> => (loading ??= Page.load());
