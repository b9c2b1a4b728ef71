// tabulon.js: defines <tabulon-lpctrl>.
import { TabulonLPctrl } from "./element.js";
import { loadPage } from "./page.js";

export { TabulonLPctrl } from "./element.js";
export type { Count } from "./element.js";
export type { Tableau, TableauCell, TableauChange, TableauRow, TableauState, VariableKind } from "./tableau.js";
export { TabulonError } from "./errors.js";

// A page may name the script twice; the first stays. Where there are no elements, on a server, nothing is done.
if (globalThis.customElements && !customElements.get("tabulon-lpctrl")) {
  loadPage().catch(() => {}); // each element says what went wrong
  customElements.define("tabulon-lpctrl", TabulonLPctrl);
}
