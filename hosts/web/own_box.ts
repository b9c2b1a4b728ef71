// An element is a box also where a page's style makes it part of a line (`display: inline`): then a style of ours
// stands over the page's. What the page says meanwhile shows only where ours is taken away for a moment, which is done
// whenever something has changed by which the page's style may say another thing.
import { boxSheetOf } from "./styles.js";

const everything: MutationObserverInit = { subtree: true, childList: true, characterData: true, attributes: true };

export class OwnBox {
  readonly #host: HTMLElement;
  readonly #root: ShadowRoot;
  readonly #changes = new MutationObserver(() => this.look());
  // A part of a line has no size to it; where the element comes out of hiding, its content gets one.
  readonly #sizes = new ResizeObserver(() => this.look());
  // Once the page has made the element a part of a line: the style that makes it a box, while it is needed, and what ends
  // the listening. That goes on when the page makes something else of it: what changes back within a frame has for the
  // observer of sizes the size that it had.
  #inLine: { readonly sheet: CSSStyleSheet | undefined; readonly listening: AbortController } | undefined;

  // `content` is as large as the element is to be.
  constructor(host: HTMLElement, root: ShadowRoot, content: HTMLElement) {
    this.#host = host;
    this.#root = root;
    this.#sizes.observe(host);
    this.#sizes.observe(content);
  }

  // Whoever puts the element into a page asks for it: no change there is heard of while it stands in none.
  look(): void {
    const wasInLine = this.#inLine;
    this.#leave();
    const isInLine = getComputedStyle(this.#host).display === "inline";
    if (isInLine || (wasInLine && this.#host.isConnected)) this.#listen(this.#host.ownerDocument, isInLine);
  }

  #listen(page: Document, isInLine: boolean): void {
    const sheet = isInLine ? boxSheetOf(page) : undefined;
    const listening = new AbortController();
    this.#inLine = { sheet, listening };
    if (sheet) {
      // The size that it gets is our doing: told of it, the page would hear of a loop.
      this.#sizes.unobserve(this.#host);
      this.#root.adoptedStyleSheets = [...this.#root.adoptedStyleSheets, sheet];
    }
    for (const tree of new Set([page, this.#host.getRootNode()])) this.#changes.observe(tree, everything);
    const { signal } = listening;
    page.defaultView?.addEventListener("resize", () => this.look(), { signal });
    page.addEventListener("load", () => this.look(), { capture: true, signal }); // of a style sheet
  }

  // What is as it was is not set again: the browser would look at every style anew.
  #leave(): void {
    if (!this.#inLine) return;
    const { sheet, listening } = this.#inLine;
    this.#inLine = undefined;
    if (sheet) {
      this.#sizes.observe(this.#host);
      this.#root.adoptedStyleSheets = this.#root.adoptedStyleSheets.filter((each) => each !== sheet);
    }
    this.#changes.disconnect();
    listening.abort();
  }
}
