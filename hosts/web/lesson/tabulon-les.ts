// tabulon-les.js: what stands around the control in a lesson. A page's scripts find it as `tabulonLes`:
//
//   const { read, why } = await tabulonLes.thinking();
import { thinking } from "./thinking.js";

declare global {
  interface Window {
    tabulonLes?: { readonly thinking: typeof thinking };
  }
}

// A page may name the script twice; the first stays.
window.tabulonLes ??= { thinking };
