// What a pupil sees beside the control: the steps, newest first, the ways back and forward, and what may be asked.
import { make, setAttribute } from "../dom.js";
import type { Tableau } from "../tableau.js";
import { copy } from "./copying.js";
import type { History, Step } from "./history.js";
import { latex, type Place, plainText, smallTable, tableForPasting } from "./small_table.js";
import type { Thinking } from "./thinking.js";

export interface Wishes {
  goBack(): void;
  goForward(): void;
}

// Steps of which there is something to ask.
const judged = ["sweep", "automatic-sweep", "normalise"];

function button(name: string, words: string, press: () => void): HTMLButtonElement {
  const made = make("button", name, words);
  made.type = "button";
  made.addEventListener("click", press);
  return made;
}

const paragraphs = (sentences: readonly string[]) => sentences.map((each) => make("p", "", each));

// Unfolds; what is in it is made in a task of its own, or at once where it is wanted before.
function fold(words: string, contents: () => readonly Node[]): HTMLDetailsElement {
  const summary = make("summary", "", words);
  const made = make("details", "", summary);
  filling.set(made, contents);
  summary.addEventListener("click", () => fill(made));
  setTimeout(() => fill(made));
  return made;
}

const filling = new WeakMap<HTMLDetailsElement, () => readonly Node[]>();

function fill(details: HTMLDetailsElement): void {
  details.append(...(filling.get(details)?.() ?? []));
  filling.delete(details);
}

function unfold(details: HTMLDetailsElement): void {
  fill(details);
  details.open = true;
}

export class LogView {
  readonly element = make("section", "log");
  readonly #thinking: Thinking;
  readonly #back: HTMLButtonElement;
  readonly #forward: HTMLButtonElement;
  readonly #answer = make("div", "answer ahead");
  readonly #list = make("ol", "");
  readonly #now = make("div", "now");
  readonly #told = make("p", "told");
  #standing: Tableau | undefined;

  constructor(thinking: Thinking, wishes: Wishes) {
    this.#thinking = thinking;
    this.#back = button("back", "Stap terug", () => wishes.goBack());
    this.#forward = button("forward", "Stap vooruit", () => wishes.goForward());
    const why = button("why ahead", "Waarom?", () => this.#tell(this.#answer, thinking.why(this.#standing!)));
    const print = button("print", "Afdrukken", () => window.print());
    this.element.ariaLabel = "Logboek";
    this.#told.role = "status";
    // What has no markers of its own is no list to some.
    this.#list.role = "list";
    this.element.append(
      make("div", "bar", make("span", "title", "Logboek"), this.#back, this.#forward, why, print),
      this.#answer,
      make("p", "paper", "Naam:"),
      make("p", "empty", "Wat je in het tableau doet, komt hier te staan."),
      this.#list,
      this.#now,
      this.#told,
    );
    addEventListener("beforeprint", () => this.#turn(true));
    addEventListener("afterprint", () => this.#turn(false));
  }

  // The step that stands, on top of those before it.
  push({ previous, current }: History): void {
    if (!previous) return;
    const entry = this.#entry(previous, current);
    entry.value = this.#list.childElementCount + 1;
    this.#list.prepend(entry);
  }
  pop(): void {
    this.#list.firstElementChild?.remove();
  }

  show(history: History, words = ""): void {
    const { tableau } = history.current;
    setAttribute(this.#back, "aria-disabled", history.previous ? undefined : "true");
    setAttribute(this.#forward, "aria-disabled", history.next ? undefined : "true");
    this.element.classList.toggle("begun", Boolean(history.previous));
    this.#standing = tableau;
    this.#answer.replaceChildren();
    const now = fold("Het tableau nu", () => this.#figure(tableau));
    const isOpen = this.#now.querySelector("details")?.open;
    this.#now.replaceChildren(now);
    if (isOpen) unfold(now);
    this.#told.textContent = words;
  }

  #entry({ tableau: before }: Step, { tableau: after, change, sentences }: Step): HTMLLIElement {
    const [what = "", ...operations] = sentences;
    const made = make("li", "", make("p", "", what), ...operations.map((each) => make("div", "operation", each)));
    const { cause = "restore", column = 0, row = 0 } = change ?? {};
    if (change && judged.includes(cause)) {
      const answer = make("div", "answer");
      const right = button("judge", "Klopt het?", () =>
        this.#tell(answer, this.#thinking.judge(before, after, change).sentences),
      );
      const why = button("why", "Waarom?", () => this.#tell(answer, this.#thinking.why(before)));
      made.append(make("div", "ask", right, why), answer);
    }
    const pivot = cause !== "cell" && column && row ? { column, row } : undefined;
    made.append(fold("Het tableau ervoor", () => this.#figure(before, pivot)));
    return made;
  }

  #figure(tableau: Tableau, pivot?: Place): readonly Node[] {
    const table = smallTable(tableau, pivot);
    const around = make("div", "figure", table);
    around.tabIndex = 0;
    around.role = "group";
    around.ariaLabel = table.caption!.textContent;
    const word = this.#copying("table", "Kopieer als tabel", () => ({
      "text/html": tableForPasting(table),
      "text/plain": plainText(tableau),
    }));
    const math = this.#copying("latex", "Kopieer als LaTeX", () => ({ "text/plain": latex(tableau, pivot) }));
    return [around, make("div", "copies", word, math)];
  }

  #copying(name: string, words: string, formats: () => Readonly<Record<string, string>>): HTMLButtonElement {
    const made = button(name, words, () => {
      copy(formats());
      made.textContent = "Gekopieerd";
      this.#told.textContent = "Gekopieerd.";
    });
    made.addEventListener("blur", () => (made.textContent = words));
    return made;
  }

  #tell(answer: HTMLElement, sentences: readonly string[]): void {
    answer.replaceChildren(...paragraphs(sentences));
    this.#told.textContent = sentences.join(" ");
  }

  // On paper a log begins at the beginning, and everything is unfolded.
  #turn(toPaper: boolean): void {
    if (toPaper === this.element.classList.contains("on-paper")) return;
    this.element.classList.toggle("on-paper", toPaper);
    this.#list.append(...[...this.#list.children].reverse());
    for (const each of this.element.querySelectorAll("details")) this.#turnFold(each, toPaper);
  }

  readonly #folded = new Set<HTMLDetailsElement>();
  #turnFold(details: HTMLDetailsElement, toPaper: boolean): void {
    if (toPaper && !details.open) {
      this.#folded.add(details);
      unfold(details);
    } else if (!toPaper && this.#folded.delete(details)) {
      details.open = false;
    }
  }
}
