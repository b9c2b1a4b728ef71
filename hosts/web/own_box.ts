// An element is a box also where a page's style makes it part of a line (`display: inline`): then a style of ours
// stands over the page's. What the page says meanwhile shows only where ours is taken away for a moment, which is done
// whenever something has changed by which the page's style may say another thing.
import { boxSheetOf } from "./styles.js";

const everything: MutationObserverInit = { subtree: true, childList: true, characterData: true, attributes: true };

export class OwnBox {
  readonly #host: HTMLElement;
  readonly #root: ShadowRoot;
  readonly #changes = new MutationObserver(() => this.#look());
  #listening = new AbortController();

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
    const { ownerDocument: page } = this.#host;
    const ours = boxSheetOf(page);
    const others = this.#root.adoptedStyleSheets.filter((sheet) => sheet !== ours);
    this.#root.adoptedStyleSheets = others;
    const isInLine = getComputedStyle(this.#host).display === "inline";
    if (isInLine) this.#root.adoptedStyleSheets = [...others, ours];
    this.#watch(isInLine ? page : undefined);
  }

  #watch(page: Document | undefined): void {
    this.#changes.disconnect();
    this.#listening.abort();
    if (!page) return;
    for (const tree of new Set([page, this.#host.getRootNode()])) this.#changes.observe(tree, everything);
    const { signal } = (this.#listening = new AbortController());
    page.defaultView?.addEventListener("resize", () => this.#look(), { signal });
    page.addEventListener("load", () => this.#look(), { capture: true, signal }); // of a style sheet
  }
}
