// The tableau from the record that the module makes of it (tableau_record.h), and saved ones as bytes.
import { readSavedTableau, readTableauBasis, readTableauCell, readTableauColumn, readTableauHead } from "#wire";
import type { RecordReader } from "./record.js";
import type { Tableau, TableauCell, TableauRow, TableauState } from "./tableau.js";

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
