// tabulon-les.js: defines <tabulon-les>, and gives a page's scripts what it thinks with as `tabulonLes`:
//
//   const { read, why } = await tabulonLes.thinking();
import { TabulonLes } from "./element.js";
import { thinking } from "./thinking.js";

declare global {
  interface Window {
    tabulonLes?: { readonly thinking: typeof thinking };
  }
}

// A page may name the script twice; the first stays. Where there are no elements, on a server, nothing is done.
if (globalThis.customElements) {
  window.tabulonLes ??= { thinking };
  if (!customElements.get("tabulon-les")) customElements.define("tabulon-les", TabulonLes);
}
