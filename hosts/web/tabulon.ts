// tabulon.js: defines <tabulon-lpctrl>.
import { TabulonLPctrl } from "./element.js";
import { loadPage } from "./page.js";

export { TabulonLPctrl } from "./element.js";
export type { Count } from "./element.js";
export { TabulonError } from "./errors.js";

// A page may name the script twice; the first stays.
if (!customElements.get("tabulon-lpctrl")) {
  loadPage().catch(() => {}); // each element says what went wrong
  customElements.define("tabulon-lpctrl", TabulonLPctrl);
}
