// A tableau as a small table, and the same for a word processor and for LaTeX. Numbers are as the control shows them.
import { make } from "../dom.js";
import type { Tableau, TableauRow } from "../tableau.js";

export interface Place {
  readonly column: number;
  readonly row: number;
}

const textsOf = ({ cells, right }: TableauRow) => [...cells, right].map(({ text }) => text.trim());
// With one blank in it, where no line breaks.
const nameOf = ({ columns }: Tableau, column: number) => columns[column - 1]?.name.replace(/ +/, "\u00a0") ?? "";

// A heading, then row F and the rows: what stands in front of each, and its numbers.
function linesOf(tableau: Tableau): readonly (readonly string[])[] {
  const { rowF, rows, basis } = tableau.current;
  const names = tableau.columns.map((_, at) => nameOf(tableau, at + 1));
  return [
    ["", ...names, "RL"],
    ["F", ...textsOf(rowF)],
    ...rows.map((row, at) => [nameOf(tableau, basis[at]!), ...textsOf(row)]),
  ];
}

const titleOf = (tableau: Tableau, pivot: Place | undefined) =>
  `${tableau.NrTableau}-e Simplex-tableau${pivot ? `, pivot in rij ${pivot.row}, kolom ${nameOf(tableau, pivot.column)}` : ""}`;

export function smallTable(tableau: Tableau, pivot: Place | undefined): HTMLTableElement {
  const table = make("table", "", make("caption", "", titleOf(tableau, pivot)));
  const body = table.createTBody();
  for (const [at, line] of linesOf(tableau).entries()) {
    const row = body.insertRow();
    row.append(...line.map((text, column) => cell(text, at === 0 ? "col" : column ? "" : "row")));
    if (pivot && at === pivot.row + 1) mark(row.cells[pivot.column]!);
  }
  return table;
}

function cell(text: string, scope: string): HTMLTableCellElement {
  const made = document.createElement(scope && text ? "th" : "td");
  made.append(text);
  if (scope && text) made.scope = scope;
  return made;
}

function mark(pivot: HTMLTableCellElement): void {
  pivot.className = "pivot";
  pivot.replaceChildren(make("b", "", ...pivot.childNodes));
}

// With the attributes that word processors know.
export function tableForPasting(table: HTMLTableElement): string {
  const copy = table.cloneNode(true) as HTMLTableElement;
  copy.border = "1";
  copy.cellPadding = "4";
  copy.cellSpacing = "0";
  for (const each of copy.querySelectorAll("td")) each.align = "right";
  for (const each of copy.querySelectorAll<HTMLTableCellElement>(".pivot")) each.bgColor = "#ffe69c";
  return copy.outerHTML;
}

export const plainText = (tableau: Tableau): string =>
  linesOf(tableau)
    .map((line) => `${line.join("\t")}\n`)
    .join("")
    .replaceAll("\u00a0", " ");

const inLatex = (text: string) =>
  text
    .replace(/[\\{}$&#^_%~]/g, "")
    .replace(/^([xsr])\s(\d+)$/, "$1_{$2}")
    .replace(/\(?(\d+)\/(\d+)\)?/, "\\frac{$1}{$2}")
    .replace(/pi/, "\\pi ")
    .replace(/E([+-])0*(\d+)/, (_, sign, digits) => ` \\cdot 10^{${sign === "-" ? "-" : ""}${digits}}`);

export function latex(tableau: Tableau, pivot: Place | undefined): string {
  const lines = linesOf(tableau).map((line, at) => {
    const cells = line.map(inLatex);
    if (pivot && at === pivot.row + 1) cells[pivot.column] = `\\boxed{${cells[pivot.column]}}`;
    return `  ${cells.join(" & ")} \\\\${at < 2 ? " \\hline" : ""}\n`;
  });
  return `\\begin{array}{l|${"r".repeat(tableau.columns.length)}|r}\n${lines.join("")}\\end{array}\n`;
}
