// An element is a box also where a page's style makes it part of a line (`display: inline`): then a style of ours
// stands over the page's. What the page says meanwhile shows only where ours is taken away for a moment, which is done
// whenever something has changed by which the page's style may say another thing.
import { boxSheetOf } from "./styles.js";

const everything: MutationObserverInit = { subtree: true, childList: true, characterData: true, attributes: true };

export class OwnBox {
  readonly #host: HTMLElement;
  readonly #root: ShadowRoot;
  readonly #changes = new MutationObserver(() => this.#look());
  // While the element is a part of a line by the page: the style that makes it a box, and what ends the listening.
  #made: { readonly sheet: CSSStyleSheet; readonly listening: AbortController } | undefined;

  // `content` is as large as the element is to be.
  constructor(host: HTMLElement, root: ShadowRoot, content: HTMLElement) {
    this.#host = host;
    this.#root = root;
    // A part of a line has no size to an observer; where it comes out of hiding, its content gets one.
    const sizes = new ResizeObserver(() => this.#look());
    sizes.observe(host);
    sizes.observe(content);
  }

  #look(): void {
    const wasMade = this.#made;
    this.#leave();
    const { display } = getComputedStyle(this.#host);
    // One that hides is listened for: shown again before the next frame, it has the size that it had.
    if (display === "inline" || (wasMade && display === "none")) this.#make(this.#host.ownerDocument, display);
  }

  #make(page: Document, display: string): void {
    const sheet = boxSheetOf(page);
    const listening = new AbortController();
    this.#made = { sheet, listening };
    if (display === "inline") this.#root.adoptedStyleSheets = [...this.#root.adoptedStyleSheets, sheet];
    for (const tree of new Set([page, this.#host.getRootNode()])) this.#changes.observe(tree, everything);
    const { signal } = listening;
    page.defaultView?.addEventListener("resize", () => this.#look(), { signal });
    page.addEventListener("load", () => this.#look(), { capture: true, signal }); // of a style sheet
  }

  // What is as it was is not set again: the browser would look at every style anew.
  #leave(): void {
    if (!this.#made) return;
    const { sheet, listening } = this.#made;
    this.#made = undefined;
    this.#root.adoptedStyleSheets = this.#root.adoptedStyleSheets.filter((each) => each !== sheet);
    this.#changes.disconnect();
    listening.abort();
  }
}
