// How the log looks: in the page's own letters and colours, whatever they are, with lines and grounds that show on any.
export const css = `
:host { display: flex; flex-wrap: wrap; gap: 16px 24px; align-items: flex-start; --line: rgb(128 128 128 / 45%); --ground: rgb(128 128 128 / 9%); }
:host([hidden]) { display: none; }
* { box-sizing: border-box; }
.control { flex: 0 1 auto; max-width: 100%; overflow-x: auto; }
.log { flex: 1 1 320px; min-width: 0; max-width: 640px; line-height: 1.45; }
.bar, .ask, .copies { display: flex; flex-wrap: wrap; align-items: center; gap: 6px; }
.title { width: 100%; font-weight: 700; font-size: 1.1em; }
button { min-height: 36px; padding: 4px 10px; border: 1px solid var(--line); border-radius: 6px; background: var(--ground); font: inherit; font-size: 0.88em; color: inherit; cursor: pointer; }
button:hover { background: rgb(128 128 128 / 20%); }
button[aria-disabled] { opacity: 0.45; cursor: default; }
:focus-visible { outline: 2px solid; outline-offset: 2px; }
p { margin: 0; }
.answer:not(:empty) { margin: 8px 0; padding: 8px 12px; border-inline-start: 4px solid #c98a00; border-radius: 4px; background: rgb(255 196 0 / 14%); }
.answer p + p { margin-top: 4px; }
.empty, .now { margin-top: 12px; }
.begun .empty, .paper { display: none; }
ol { margin: 12px 0 0; padding: 0; list-style: none; }
/* Of a long log the browser lays out what is looked at alone, and shows nothing of it outside its box. */
li { position: relative; margin: 0 0 4px; padding: 8px 4px 8px 2.2em; border-top: 1px solid var(--line); content-visibility: auto; contain-intrinsic-size: auto 9em; }
li::before { content: attr(value) "."; position: absolute; left: 0; width: 1.8em; text-align: right; font-variant-numeric: tabular-nums; }
li > p:first-child { font-weight: 600; }
.operation, table { font-variant-numeric: tabular-nums; }
.ask { margin-top: 8px; }
summary { width: fit-content; padding: 6px 0; cursor: pointer; }
.figure { overflow-x: auto; margin-bottom: 8px; }
table { border-collapse: collapse; font-size: 0.92em; }
caption { padding: 0 0 4px; text-align: start; }
th, td { padding: 2px 9px; border: 1px solid var(--line); text-align: right; white-space: nowrap; font-weight: 400; }
th { background: var(--ground); text-align: center; }
tr:nth-child(2) > * { border-bottom-width: 2px; }
.pivot { outline: 2px solid #c98a00; outline-offset: -2px; background: rgb(255 196 0 / 25%); }
.told { position: absolute; width: 1px; height: 1px; overflow: clip; clip-path: inset(50%); white-space: nowrap; }
.log:not([data-hulp="altijd"]) .ahead, .log[data-hulp="geen"] :is(.ask, .answer) { display: none; }
@media (max-width: 480px) { th, td { padding: 2px 5px; } }
@media (pointer: coarse) { button { min-height: 44px; } summary { padding: 11px 0; } }
@media (forced-colors: active) { .pivot { outline-color: Highlight; } button[aria-disabled] { color: GrayText; opacity: 1; } }
@media print {
  :host { display: block; }
  .bar, .ask, .copies, .empty, summary { display: none; }
  .paper { display: block; margin: 16px 0 24px; padding-bottom: 4px; border-bottom: 1px solid; }
  li { break-inside: avoid; content-visibility: visible; }
  .log { max-width: none; }
}
`;
