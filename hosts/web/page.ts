// The page's side of the module: does what it asks, and brings it what happens.
//
//   const page = await loadPage();
//   const view = page.create(element, shadowRoot);
//   page.send((module) => module.click(view.surface.id, 3));
import {
  type Exports,
  type FileQuestion,
  type Imports,
  type Method,
  type OpenedSurface,
  readCopiedPicture,
  readFileQuestion,
  readMenuChange,
  readOpenedSurface,
  readSurfaceChange,
  readToldChange,
  readWrittenFile,
} from "#wire";
import { playBeep } from "./beep.js";
import { clearClipboard, copyPicture } from "./clipboard.js";
import { Clock, secondsSinceMidnight } from "./clock.js";
import { ElementView, type Surroundings } from "./element_view.js";
import { TabulonError } from "./errors.js";
import { Files } from "./files.js";
import { MenuView } from "./menu_view.js";
import { loadModule, type Module, type Send, type Texts } from "./module.js";
import { RecordReader } from "./record.js";
import type { Tableau, TableauChange } from "./tableau.js";
import { readTableau } from "./tableau_record.js";
import { type InputAct, TurnOfInput } from "./turn_of_input.js";
import { Turns } from "./turns.js";

interface Creating {
  readonly host: HTMLElement;
  readonly root: ShadowRoot;
  view?: ElementView;
}

interface Call {
  readonly element: number;
  readonly ended: () => void;
}

export class Page implements Surroundings {
  #module!: Module;
  menu: MenuView | undefined;
  // The element that the menu is opened on.
  #menuOwner: ElementView | undefined;
  // The element that has the focus, or had it when the window last had it.
  #focused: ElementView | undefined;
  #focusWaits = false;

  // The elements by the numbers of their surfaces. Held weakly: an element that its page has forgotten goes with
  // all that it shows.
  readonly #elements = new Map<number, WeakRef<ElementView>>();
  readonly #forgotten = new FinalizationRegistry<number>((id) => {
    this.#elements.delete(id);
    this.send((module) => module.destroy(id));
  });
  // The elements with an open form, once for each form, in the order in which they opened.
  readonly #withForms: ElementView[] = [];
  readonly #calls = new Map<number, Call>();
  readonly #turns = new Turns(() => this.#showFocus());
  readonly #input = new TurnOfInput();
  readonly #clock = new Clock((ticket) => this.#answer(ticket));
  readonly #files = new Files((name, content) =>
    this.send((module, texts) => {
      texts.giveFile(name, content);
      module.put_file();
    }),
  );
  #creating: Creating | undefined;

  static async load(): Promise<Page> {
    const page = new Page();
    page.#module = await loadModule<Exports>(page.#imports());
    return page;
  }

  private constructor() {}

  readonly send: Send = <Result>(call: (module: Exports, texts: Texts) => Result): Result => {
    if (this.#turns.isPages) this.#clock.start();
    return this.#turns.run(() => call(this.#module.exports, this.#module));
  };

  get applying(): boolean {
    return this.#turns.applying;
  }

  takeInput(act: InputAct): void {
    this.#input.take(act);
  }

  #answer(ticket: number, text = ""): void {
    this.send((module, texts) => {
      texts.give(text);
      module.answer(ticket);
    });
    this.#input.answered(ticket);
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
  call(element: ElementView, method: Method): Promise<void> {
    return new Promise((ended) => {
      const { id } = element.surface;
      this.send((module) => {
        const call = module.call(id, method);
        if (call) this.#calls.set(call, { element: id, ended });
        else ended();
      });
    });
  }

  // The element is not seen any more: what it was doing is given up.
  abandon(element: ElementView): void {
    element.forgetInput();
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
    this.#focused = element;
    this.send((module) => module.enter(element.surface.id));
  }

  // Also told of an element that is being taken out of the page, while it still stands there. What took the focus then
  // the browser would hold for good, and all that hangs on it: the focus goes to its place a moment later.
  left(element: ElementView): void {
    this.#loseFocus(element);
    this.#focusWaits = true;
    this.send((module) => {
      if (this.#menuOwner === element) module.menu_dismiss();
      module.leave(element.surface.id);
    });
    queueMicrotask(() => {
      this.#focusWaits = false;
      this.#showFocus();
    });
  }

  #loseFocus(element: ElementView): void {
    element.hasFocus = false;
    if (this.#focused === element) this.#focused = undefined;
  }

  // ---- Afterwards

  // What may move the page's focus, after what the module has asked for so far.
  afterwards(change: () => void): void {
    this.#turns.afterwards(() => this.#turns.apply(change));
  }

  // Puts the page's focus where the control on top has its own.
  #showFocus(): void {
    const element = this.#withForms.at(-1) ?? this.#focused;
    if (this.#focusWaits || !element?.host.isConnected) return;
    this.#turns.apply(() => {
      for (const form of element.forms) form.show();
      const menu = this.#menuOwner === element ? this.menu : undefined;
      const active = element.top.active;
      if (active) menu?.tellThrough(active.node);
      const target = active?.node ?? element.forms.at(-1)?.dialog;
      if (target && element.root.activeElement !== target && !element.isInFrameAside)
        target.focus({ preventScroll: true });
      if (!menu) active?.selectIfWanted();
    });
    if (element.hasFocus && !element.holdsFocus && element.document.hasFocus()) this.left(element);
  }

  // ---- What the module asks for

  // The record is lent for the call alone.
  #record(at: number, size: number): RecordReader {
    return new RecordReader(this.#module.copy(at, size));
  }

  #element(surface: number): ElementView | undefined {
    return this.#elements.get(surface)?.deref();
  }

  #open(opened: OpenedSurface): void {
    let element = this.#element(opened.owner);
    if (element) {
      element.openForm(opened);
      this.#withForms.push(element);
    } else if (this.#creating) {
      const { host, root } = this.#creating;
      element = this.#creating.view = new ElementView(this, host, root, opened);
    }
    if (element) this.#elements.set(opened.id, new WeakRef(element));
  }

  #close(id: number): void {
    const element = this.#element(id);
    this.#elements.delete(id);
    if (!element || id === element.surface.id) return;
    this.#withForms.splice(this.#withForms.lastIndexOf(element), 1);
    element.closeForm(id);
  }

  #mirror(record: RecordReader): void {
    const change = readSurfaceChange(record);
    this.#element(change.id)?.find(change.id)?.apply(change, record);
  }

  #showMenu(record: RecordReader): void {
    const change = readMenuChange(record);
    const element = this.#element(change.surface);
    if (!element) return;
    if (!this.menu) {
      this.menu = new MenuView(element, this.send);
      this.#menuOwner = element;
      element.menuOpened();
    }
    this.menu.apply(change, record);
  }

  #closeMenu(): void {
    this.menu?.close();
    this.menu = this.#menuOwner = undefined;
  }

  // Answers at once; the focus moves afterwards, with everything else.
  #takeFocus(id: number): boolean {
    const element = this.#element(id);
    if (!element?.mayTakeFocus) return false;
    if (id !== element.surface.id) return true;
    element.hasFocus = true;
    this.#focused = element;
    return true;
  }

  // With the answer the file is written, or, where that fails, is not.
  async #askForFile(question: FileQuestion, ticket: number): Promise<void> {
    this.#answer(ticket, await this.#files.ask(question));
    this.#files.forget();
  }

  // ---- Who stands around the elements

  // The error's number and subject, for counts that make no tableau.
  tableau(): Tableau {
    const [number, answer] = this.send((module, texts) => [module.tableau(), texts.answerBytes()] as const);
    if (number) throw new TabulonError(number, "tableau");
    return readTableau(new RecordReader(answer));
  }

  // The tableau is that of all elements, so each of them tells.
  #tellOf(change: TableauChange): void {
    const hosts = [...this.#elements.values()].map((element) => element.deref()?.host);
    for (const host of new Set(hosts))
      host?.dispatchEvent(new CustomEvent("tabulon-change", { detail: change, bubbles: true, composed: true }));
  }

  // An error that no script is there to catch.
  report(host: HTMLElement | undefined, error: TabulonError): void {
    console.error(error);
    host?.dispatchEvent(new CustomEvent("tabulon-error", { detail: error, bubbles: true, composed: true }));
  }

  #imports(): Imports {
    return {
      open_surface: (at, size) => {
        const opened = readOpenedSurface(this.#record(at, size));
        this.afterwards(() => this.#open(opened));
      },
      close_surface: (id) => this.afterwards(() => this.#close(id)),
      mirror: (at, size) => {
        const record = this.#record(at, size);
        this.afterwards(() => this.#mirror(record));
      },
      show_menu: (at, size) => {
        const record = this.#record(at, size);
        this.afterwards(() => this.#showMenu(record));
      },
      close_menu: () => this.afterwards(() => this.#closeMenu()),
      set_busy: (id, busy) => this.#turns.afterwards(() => this.#element(id)?.setBusy(id, busy !== 0)),
      take_focus: (id) => this.#takeFocus(id),
      seconds_since_midnight: secondsSinceMidnight,
      yield_due: () => this.#clock.yieldDue,
      wake_after: (milliseconds, ticket) => this.#clock.after(milliseconds, ticket),
      wake_after_repaint: (ticket) => {
        this.#input.waitFor(ticket);
        this.#clock.afterRepaint(ticket);
      },
      wake_after_events: (ticket) => this.#clock.afterEvents(ticket),
      beep: playBeep,
      show_file_dialog: (at, size, ticket) => {
        const question = readFileQuestion(this.#record(at, size));
        this.#turns.afterwards(() => this.#askForFile(question, ticket));
      },
      write_file: (at, size) => {
        const file = readWrittenFile(this.#record(at, size));
        this.#turns.afterwards(() => this.#files.write(file));
      },
      clear_clipboard: clearClipboard,
      copy_picture: (at, size, ticket) => {
        const picture = readCopiedPicture(this.#record(at, size));
        this.#turns.afterwards(() => copyPicture(picture).then((refusal) => this.#answer(ticket, refusal)));
      },
      report: (id, number, at, size) => {
        const error = new TabulonError(number, this.#module.text(at, size));
        this.#turns.afterwards(() => this.report(this.#element(id)?.host, error));
      },
      call_ended: (call) => {
        this.#turns.afterwards(() => {
          this.#calls.get(call)?.ended();
          this.#calls.delete(call);
        });
      },
      tableau_changed: (at, size) => {
        const { cause, column, row } = readToldChange(this.#record(at, size));
        const change = { cause, column, row } as TableauChange;
        // Behind all that the module asks for in this turn, so that what is told is seen.
        this.#turns.afterwards(() => this.#turns.afterwards(() => this.#tellOf(change)));
      },
    };
  }
}

let loading: Promise<Page> | undefined;

// One module serves all elements of a page.
export const loadPage = (): Promise<Page> => (loading ??= Page.load());
