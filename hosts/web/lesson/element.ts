// The custom element around the control: a log of what is done, ways back and forward, and answers to who asks.
import type { TabulonLPctrl } from "../element.js";
import { whenGiven } from "../parameters.js";
import type { Tableau, TableauChange } from "../tableau.js";
import { History, type Step } from "./history.js";
import { keep, kept } from "./keeping.js";
import { LogView } from "./log_view.js";
import { css } from "./styles.js";
import { type Thinking, thinking } from "./thinking.js";

const helps = ["geen", "achteraf", "altijd"];

/**
 * `<tabulon-les>` around a `<tabulon-lpctrl>`: a log of its steps beside it.
 *
 * @example
 * ```html
 * <tabulon-les hulp="achteraf" bewaar="meubelmaker">
 *   <tabulon-lpctrl prmNrBeslisVar="2" prmNrKleinerGelijkVglen="3"></tabulon-lpctrl>
 * </tabulon-les>
 * ```
 *
 * @attr {"geen"|"achteraf"|"altijd"} [hulp="altijd"] - Whether a pupil may ask nothing, about steps that were made, or
 * about the tableau that stands too.
 * @attr {string} bewaar - A name under which the log is kept over a reload.
 */
export class TabulonLes extends HTMLElement {
  static readonly observedAttributes = ["hulp"];

  readonly #root: ShadowRoot;
  #started = false;
  #control!: TabulonLPctrl;
  #thinking!: Thinking;
  #history!: History;
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
    whenGiven(this, () => void this.#start());
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
      goBack: () => this.#go(this.#history.back(), "Stap terug."),
      goForward: () => this.#go(this.#history.forward(), "Stap vooruit."),
    });
    this.attributeChangedCallback();
    this.#bringBack(first);
    this.#view.show(this.#history);
    this.#root.append(this.#view.element);
  }

  #bringBack(first: Step): void {
    const name = this.getAttribute("bewaar");
    const found = name === null ? undefined : kept(name, first);
    if (!found) return;
    this.#history = found.history;
    for (let at = 0; at < found.at; ++at) {
      this.#history.forward();
      this.#view!.push(this.#history);
    }
    if (found.at) this.#restore(this.#history.current);
  }

  #notice({ target, detail }: CustomEvent<TableauChange>): void {
    const after = this.#view && target === this.#control && !this.#restoring && this.#tableau();
    if (!after) return;
    const { tableau: before, change } = this.#history.current;
    if (after.saved === before.saved && detail.cause === "cell") return;
    const { cause, column, row } = detail;
    const step = {
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
    this.#keep();
  }

  #go(step: Step | undefined, words: string): void {
    if (!step) return;
    if (words === "Stap terug.") this.#view!.pop();
    else this.#view!.push(this.#history);
    this.#restore(step);
    this.#view!.show(this.#history, words);
    this.#keep();
  }

  #restore({ tableau }: Step): void {
    this.#restoring = true;
    this.#control.restore(tableau.saved);
    this.#restoring = false;
  }

  #keep(): void {
    const name = this.getAttribute("bewaar");
    if (name !== null) keep(name, this.#history);
  }
}
