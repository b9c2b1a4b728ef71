// The tableau that the elements of a page share, as a script sees it: a picture of the moment, which does not change.
import { readSavedTableau, readTableauBasis, readTableauCell, readTableauColumn, readTableauHead } from "#wire";
import type { RecordReader } from "./record.js";

export interface TableauCell {
  readonly value: number;
  // As it is shown, with the blank of the sign's place.
  readonly text: string;
}

export interface TableauRow {
  // One for each column.
  readonly cells: readonly TableauCell[];
  readonly right: TableauCell;
}

export interface TableauState {
  readonly rowF: TableauRow;
  readonly rows: readonly TableauRow[];
  // The column of each row's basic variable, counted from 1.
  readonly basis: readonly number[];
}

export type VariableKind = "decision" | "slack" | "surplus" | "artificial-greater" | "artificial-equal";

export interface Tableau {
  readonly NrTableau: number;
  readonly NrBeslisVar: number;
  readonly NrKleinerGelijkVglen: number;
  readonly NrGroterGelijkVglen: number;
  readonly NrGelijkVglen: number;
  readonly BigM: number;
  // Whether numbers are shown as fractions.
  readonly Breuken: boolean;
  // The pivot element that was searched, null when there is none; both count from 1.
  readonly pivot: { readonly column: number; readonly row: number } | null;
  readonly columns: readonly { readonly name: string; readonly kind: VariableKind | "" }[];
  readonly current: TableauState;
  // The first tableau of the problem, which Reset brings back.
  readonly first: TableauState;
  // The text that Save writes; `restore` takes it.
  readonly saved: string;
}

// What "tabulon-change" tells.
export interface TableauChange {
  readonly cause:
    | "cell"
    | "sweep"
    | "automatic-sweep"
    | "normalise"
    | "basic-solution"
    | "optimise"
    | "reset"
    | "fractions"
    | "parameters"
    | "problem"
    | "restore";
  // Of a cell, a sweep or a normalisation; else 0. A cell's column is 0 for the right-hand side, its row 0 for row F.
  readonly column: number;
  readonly row: number;
}

const times = <Value>(count: number, make: () => Value): readonly Value[] => Array.from({ length: count }, make);

// A saved tableau is Latin text of 8 bits.
const fromLatin = (bytes: Uint8Array) => Array.from(bytes, (byte) => String.fromCharCode(byte)).join("");
export const toLatin = (text: string): Uint8Array =>
  Uint8Array.from(text, (letter) => (letter > "\u00ff" ? 63 : letter.charCodeAt(0)));

export function readTableau(record: RecordReader): Tableau {
  const head = readTableauHead(record);
  const rowCount = head.lessEqual + head.greaterEqual + head.equal;
  const columnCount = head.decision + rowCount + head.greaterEqual;
  const basis = times(rowCount, () => readTableauBasis(record));
  const columns = times(columnCount, () => readTableauColumn(record)) as Tableau["columns"];
  const readCell = (): TableauCell => {
    const { value, shown } = readTableauCell(record);
    return { value, text: shown };
  };
  const readRow = (): TableauRow => ({ cells: times(columnCount, readCell), right: readCell() });
  const readState = (which: "current" | "first"): TableauState => ({
    rowF: readRow(),
    rows: times(rowCount, readRow),
    basis: basis.map((row) => row[which]),
  });
  return {
    NrTableau: head.number,
    NrBeslisVar: head.decision,
    NrKleinerGelijkVglen: head.lessEqual,
    NrGroterGelijkVglen: head.greaterEqual,
    NrGelijkVglen: head.equal,
    BigM: head.bigM,
    Breuken: head.fractions,
    pivot: head.pivotRow ? { column: head.pivotColumn, row: head.pivotRow } : null,
    columns,
    current: readState("current"),
    first: readState("first"),
    saved: fromLatin(readSavedTableau(record).content),
  };
}
