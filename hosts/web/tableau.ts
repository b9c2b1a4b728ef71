// The tableau that the elements of a page share, as a script sees it: a picture of the moment, which does not change.
export interface TableauCell {
  readonly value: number;
  /** As it is shown, with the blank of the sign's place. */
  readonly text: string;
}

export interface TableauRow {
  /** One for each column. */
  readonly cells: readonly TableauCell[];
  readonly right: TableauCell;
}

export interface TableauState {
  readonly rowF: TableauRow;
  readonly rows: readonly TableauRow[];
  /** The column of each row's basic variable, counted from 1. */
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
  /** Whether numbers are shown as fractions. */
  readonly Breuken: boolean;
  /** The pivot element that was searched, null when there is none; both count from 1. */
  readonly pivot: { readonly column: number; readonly row: number } | null;
  readonly columns: readonly { readonly name: string; readonly kind: VariableKind | "" }[];
  readonly current: TableauState;
  /** The first tableau of the problem, which Reset brings back. */
  readonly first: TableauState;
  /** The text that Save writes; `restore` takes it. */
  readonly saved: string;
}

/** What "tabulon-change" tells. */
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
  /** Of a cell, a sweep or a normalisation; else 0. A cell's column is 0 for the right-hand side, its row 0 for row F. */
  readonly column: number;
  readonly row: number;
}
