// The custom element around the control: a log of what is done, ways back and forward, and answers to who asks.
import type { TabulonLPctrl } from "../element.js";
import { whenGiven } from "../parameters.js";
import type { Tableau, TableauChange } from "../tableau.js";
import { History, type Step } from "./history.js";
import { Keeping } from "./keeping.js";
import { LogView } from "./log_view.js";
import { css } from "./styles.js";
import { type Thinking, thinking } from "./thinking.js";

const helps = ["geen", "achteraf", "altijd"];

// Where a page is only written, on a server, there are no elements to be one of.
const PageElement: typeof HTMLElement = globalThis.HTMLElement ?? class {};

/**
 * `<tabulon-les>` around a `<tabulon-lpctrl>`: each change of the tableau in a sentence, the tableaus before it, a way
 * back and forward, and what may be asked about them. It needs `tabulon.js` and `tabulon-les.js` on its page. The events
 * of its control pass through it; it has no methods of its own.
 *
 * @example
 * ```html
 * <tabulon-les hulp="achteraf" bewaar="meubelmaker">
 *   <tabulon-lpctrl prmNrBeslisVar="2" prmNrKleinerGelijkVglen="3"></tabulon-lpctrl>
 * </tabulon-les>
 * ```
 *
 * @attr {"geen"|"achteraf"|"altijd"} [hulp="altijd"] - Whether a pupil may ask nothing, about steps that were made, or
 * about the tableau that stands too. What is none of these is "geen".
 * @attr {string} bewaar - A name under which the log is kept over a reload, as long as the browser's tab is open.
 *
 * @tag tabulon-les
 *
 * @fires {CustomEvent<TableauChange>} tabulon-change - Of the control within, on its way up: the tableau has changed.
 */
export class TabulonLes extends PageElement {
  static readonly observedAttributes = ["hulp"];

  readonly #root: ShadowRoot;
  #started = false;
  #control!: TabulonLPctrl;
  #thinking!: Thinking;
  #history!: History;
  #keeping: Keeping | undefined;
  #view: LogView | undefined;
  #restoring = false;

  constructor() {
    super();
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(css);
    this.#root = this.attachShadow({ mode: "open" });
    this.#root.adoptedStyleSheets = [sheet];
    const control = document.createElement("div");
    control.className = "control";
    control.append(document.createElement("slot"));
    this.#root.append(control);
    this.addEventListener("tabulon-change", (event) => this.#notice(event as CustomEvent<TableauChange>));
  }

  connectedCallback(): void {
    if (this.#started) return;
    this.#started = true;
    whenGiven(this, () => this.#start().catch(console.error));
  }

  attributeChangedCallback(): void {
    const help = this.getAttribute("hulp") ?? "altijd";
    if (this.#view) this.#view.element.dataset.hulp = helps.includes(help) ? help : "geen";
  }

  async #start(): Promise<void> {
    const control = this.querySelector<TabulonLPctrl>("tabulon-lpctrl");
    if (!control) return;
    this.#control = control;
    this.#thinking = await thinking();
    await customElements.whenDefined("tabulon-lpctrl");
    await control.ready.catch(() => {});
    const tableau = this.#tableau();
    if (tableau) this.#begin({ tableau, sentences: [] });
  }

  // Undefined where the control is not there, or its counts make no tableau.
  #tableau(): Tableau | undefined {
    try {
      return this.#control.tableau;
    } catch {
      return undefined;
    }
  }

  #begin(first: Step): void {
    this.#history = new History(first);
    this.#view = new LogView(this.#thinking, {
      goBack: () => this.#goBack(),
      goForward: () => this.#goForward(),
    });
    this.attributeChangedCallback();
    this.#bringBack(first);
    this.#view.show(this.#history);
    this.#root.append(this.#view.element);
  }

  #bringBack(first: Step): void {
    const name = this.getAttribute("bewaar");
    if (name === null) return;
    this.#keeping = new Keeping(name);
    const { steps, at } = this.#keeping.kept(first);
    this.#history = new History(first, ...steps);
    while (this.#history.at < at && this.#history.forward()) this.#view!.push(this.#history);
    if (at) this.#restore();
    if (!steps.length) this.#keeping.keep(0, first);
  }

  #notice({ target, detail }: CustomEvent<TableauChange>): void {
    const after = this.#view && target === this.#control && !this.#restoring && this.#tableau();
    if (!after) return;
    const { tableau: before, change } = this.#history.current;
    const { cause, column, row } = detail;
    // Optimising tells of the basic solution that it began with when it is further already: it is one step.
    const isOnTheWay = cause === "basic-solution" && after.NrTableau !== before.NrTableau;
    if (isOnTheWay || after.saved === before.saved) return;
    const step: Step = {
      tableau: after,
      change: { cause, column, row },
      sentences: this.#thinking.tell(before, after, detail),
    };
    this.#add(step, cause === "parameters" && (!this.#history.previous || change?.cause === cause));
  }

  // A script that sets up a problem makes many changes, which are one.
  #add(step: Step, isOfTheSame: boolean): void {
    if (!isOfTheSame) this.#history.add(step);
    else if (this.#history.previous) this.#history.replace(step);
    else this.#history.replace({ tableau: step.tableau, sentences: [] });
    if (!isOfTheSame) this.#view!.push(this.#history);
    this.#view!.show(this.#history, step.sentences[0]);
    this.#keeping?.keep(this.#history.at, this.#history.current);
  }

  // While the control works through many steps, nothing is put back under its hands.
  get #isBusy(): boolean {
    return this.#control.hasAttribute("aria-busy");
  }

  #goBack(): void {
    if (this.#isBusy || !this.#history.back()) return;
    this.#view!.pop();
    this.#standAgain("Stap terug.");
  }
  #goForward(): void {
    if (this.#isBusy || !this.#history.forward()) return;
    this.#view!.push(this.#history);
    this.#standAgain("Stap vooruit.");
  }

  #standAgain(words: string): void {
    this.#restore();
    this.#view!.show(this.#history, words);
    this.#keeping?.keep(this.#history.at);
  }

  // What the control then tells is no step.
  #restore(): void {
    this.#restoring = true;
    try {
      this.#control.restore(this.#history.current.tableau.saved);
    } finally {
      this.#restoring = false;
    }
  }
}
