// A page without a framework.
import { type Count, TabulonError, TabulonLPctrl } from "tabulon";

const tableau = document.querySelector("tabulon-lpctrl");
const button = document.querySelector("button");
if (!(tableau instanceof TabulonLPctrl) || !button) throw new Error("no tableau");
button.textContent = TabulonLPctrl.version;

const rows: Count = "70000";
try {
  await tableau.ready;
  tableau.prmNrKleinerGelijkVglen = rows;
} catch (error) {
  if (error instanceof TabulonError && error.number === 6) button.title = tableau.strSoortGetal(true, 0.75);
}
tableau.addEventListener("tabulon-error", ({ detail }) => console.error(detail.subject));
