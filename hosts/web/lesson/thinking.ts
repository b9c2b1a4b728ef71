// What a lesson around the control knows: problems in words, what a change did, and whether it was right.
//
//   const { read, tell, why, judge } = await thinking();
//   read("max F = 3x + 5y; x <= 4; 2y <= 12; 3x + 2y <= 18").problem?.verdict.sentences;
//
// All texts are Dutch and ready to be shown, numbers in them as the control shows numbers. Once the module is there,
// every answer is there at once.
import {
  type LessonExports,
  type LessonImports,
  readFoundInWords,
  readReadName,
  readReadParameter,
  readReadProblem,
  readReadRow,
  readReadVerdict,
  readReadWords,
  readSentence,
  readStepVerdict,
  readWorkedCell,
  readWorkedOut,
  readWorkedRow,
  readWorkedTableau,
} from "#lesson";
import { loadModule, type Module } from "../module.js";
import { RecordReader } from "../record.js";
import type { Tableau, TableauChange, TableauRow } from "../tableau.js";

/** A place in a problem in words and what there is to say of it; both numbers count from 1. */
export interface Finding {
  readonly line: number;
  readonly column: number;
  readonly text: string;
}

export interface ProblemRow {
  readonly kind: "<=" | ">=" | "=";
  /** The teacher's name of the row, "" without one. */
  readonly label: string;
  /** As it is printed: "3x + 2y <= 18". */
  readonly text: string;
  /** Whether both sides have been multiplied by -1. */
  readonly turned: boolean;
  readonly from: { readonly line: number; readonly column: number };
}

export interface Verdict {
  /** Whether the method as the control has it ends where the truth is. */
  readonly endsRight: boolean;
  readonly steps: number;
  /** The truth. */
  readonly outcome: "optimal" | "unbounded" | "infeasible";
  /** The first says how it ends. */
  readonly sentences: readonly string[];
}

export interface Problem {
  /** Printed; it reads back as the same problem. */
  readonly text: string;
  /** What is made as large or small as possible: "F". */
  readonly goal: string;
  readonly minimise: boolean;
  /** "3x + 5y" */
  readonly objective: string;
  readonly variables: readonly string[];
  /** In the control's order. */
  readonly rows: readonly ProblemRow[];
  /** The attributes of the control that shows it: prmNrBeslisVar and the others. */
  readonly parameters: Readonly<Record<string, string>>;
  /** Of the tableau. */
  readonly columns: number;
  readonly verdict: Verdict;
}

export interface Reading {
  /** null when there are mistakes. */
  readonly problem: Problem | null;
  readonly mistakes: readonly Finding[];
  /** How something was understood that may have been meant otherwise. */
  readonly notes: readonly Finding[];
}

export interface Judgement {
  /** null for what is no step of the pupil's: a cell, fractions, what the control did by itself. */
  readonly right: boolean | null;
  readonly sentences: readonly string[];
}

export interface WorkedRow {
  /** The name of its basic variable; "F" for row F. */
  readonly basis: string;
  /** As they are shown, without the blank of the sign's place; the last is the right-hand side. */
  readonly cells: readonly string[];
}

export interface WorkedTableau {
  readonly number: number;
  /** With which the next tableau is made; both count from 1. */
  readonly pivot: { readonly column: number; readonly row: number } | null;
  /** Row F first. */
  readonly rows: readonly WorkedRow[];
}

export interface WorkedOut {
  /** Of the columns: "x 1". */
  readonly names: readonly string[];
  /** At most 12; the first twice where it has artificial variables, as it is set up and with their columns swept. */
  readonly tableaus: readonly WorkedTableau[];
}

export interface Thinking {
  /** A problem as a teacher types it. */
  read(text: string): Reading;
  /** The tableaus of a problem that was read, step by step: its `text`. */
  workOut(text: string): WorkedOut;
  /** What a change did, for a log. */
  tell(before: Tableau, after: Tableau, change: TableauChange): readonly string[];
  /** Which pivot the method takes in the tableau that stands, and why. */
  why(tableau: Tableau): readonly string[];
  /** Whether the change was a step that the method would make, and else what it led to. */
  judge(before: Tableau, after: Tableau, change: TableauChange): Judgement;
}

// ---- Tableaus, on their way in

const rowNumbers = ({ cells, right }: TableauRow) => [...cells, right].map(({ value }) => value);

// In the order of tableau_numbers.h.
function numbersOf(tableau: Tableau): Uint8Array {
  const { NrTableau, NrBeslisVar, NrKleinerGelijkVglen, NrGroterGelijkVglen, NrGelijkVglen, BigM } = tableau;
  const { rowF, rows, basis } = tableau.current;
  const counts = [NrTableau, NrBeslisVar, NrKleinerGelijkVglen, NrGroterGelijkVglen, NrGelijkVglen, BigM];
  const cells = [rowF, ...rows].flatMap(rowNumbers);
  return new Uint8Array(Float64Array.from([...counts, Number(tableau.Breuken), ...basis, ...cells]).buffer);
}

// What stands in the cell that a change is about; "" where it is about none.
function textOfCell({ current }: Tableau, { cause, column, row }: TableauChange): string {
  if (cause !== "cell") return "";
  const cells = row ? current.rows[row - 1] : current.rowF;
  return (column ? cells?.cells[column - 1] : cells?.right)?.text ?? "";
}

// ---- Answers

const times = <Value>(count: number, make: () => Value): Value[] => Array.from({ length: count }, make);

function sentencesIn(record: RecordReader): readonly string[] {
  const sentences: string[] = [];
  while (!record.done) sentences.push(readSentence(record).words);
  return sentences;
}

function finding(record: RecordReader): Finding {
  const { line, column, sentence } = readFoundInWords(record);
  return { line, column, text: sentence };
}

const kinds = ["<=", ">=", "="] as const;
function row(record: RecordReader): ProblemRow {
  const { kind, label, printed, turned, line, column } = readReadRow(record);
  return { kind: kinds[kind]!, label, text: printed, turned, from: { line, column } };
}

function parameter(record: RecordReader): [string, string] {
  const { name, content } = readReadParameter(record);
  return [name, content];
}

const outcomes = ["optimal", "unbounded", "infeasible"] as const;
function verdict(record: RecordReader): Verdict {
  const { endsRight, steps, outcome } = readReadVerdict(record);
  return { endsRight, steps, outcome: outcomes[outcome]!, sentences: sentencesIn(record) };
}

function problem(record: RecordReader): Problem {
  const head = readReadProblem(record);
  return {
    text: head.printed,
    goal: head.goal,
    minimise: head.minimise,
    objective: head.objective,
    columns: head.columns,
    variables: times(head.variables, () => readReadName(record).name),
    rows: times(head.rows, () => row(record)),
    parameters: Object.fromEntries(times(head.parameters, () => parameter(record))),
    verdict: verdict(record),
  };
}

function reading(record: RecordReader): Reading {
  const { isProblem, mistakes, notes } = readReadWords(record);
  return {
    mistakes: times(mistakes, () => finding(record)),
    notes: times(notes, () => finding(record)),
    problem: isProblem ? problem(record) : null,
  };
}

function workedRow(record: RecordReader, columns: number): WorkedRow {
  const { basis } = readWorkedRow(record);
  return { basis, cells: times(columns + 1, () => readWorkedCell(record).shown) };
}

function workedTableau(record: RecordReader, columns: number, rows: number): WorkedTableau {
  const { number, pivotColumn, pivotRow } = readWorkedTableau(record);
  return {
    number,
    pivot: pivotColumn ? { column: pivotColumn, row: pivotRow } : null,
    rows: times(rows + 1, () => workedRow(record, columns)),
  };
}

function workedOut(record: RecordReader): WorkedOut {
  if (record.done) return { names: [], tableaus: [] };
  const { columns, rows, tableaus } = readWorkedOut(record);
  return {
    names: times(columns, () => readReadName(record).name),
    tableaus: times(tableaus, () => workedTableau(record, columns, rows)),
  };
}

class ModuleThinking implements Thinking {
  readonly #module: Module<LessonExports>;

  constructor(module: Module<LessonExports>) {
    this.#module = module;
  }

  read = (text: string): Reading => {
    this.#module.give(text);
    this.#module.exports.read_words();
    return reading(this.#answer());
  };

  workOut = (text: string): WorkedOut => {
    this.#module.give(text);
    this.#module.exports.work_out();
    return workedOut(this.#answer());
  };

  tell = (before: Tableau, after: Tableau, change: TableauChange): readonly string[] => {
    this.#give(before, after, change);
    this.#module.exports.tell(change.column, change.row);
    return sentencesIn(this.#answer());
  };

  judge = (before: Tableau, after: Tableau, change: TableauChange): Judgement => {
    this.#give(before, after, change);
    this.#module.exports.judge(change.column, change.row);
    const record = this.#answer();
    const { isStep, right } = readStepVerdict(record);
    return { right: isStep ? right : null, sentences: sentencesIn(record) };
  };

  why = (tableau: Tableau): readonly string[] => {
    this.#put(tableau, false);
    this.#module.exports.why();
    return sentencesIn(this.#answer());
  };

  #put(tableau: Tableau, before: boolean): void {
    this.#module.giveBytes(numbersOf(tableau));
    this.#module.exports.put_tableau(before);
  }

  #give(before: Tableau, after: Tableau, change: TableauChange): void {
    this.#put(before, true);
    this.#put(after, false);
    this.#module.give(change.cause, textOfCell(before, change), textOfCell(after, change));
  }

  #answer(): RecordReader {
    return new RecordReader(this.#module.answerBytes());
  }
}

// What the module has no code for.
const { atan, cos, exp, log, pow, sin } = Math;
const functions: LessonImports = { atan, cos, exp, log, pow, sin };

let loading: Promise<Thinking> | undefined;

// The same for all of a page. Rejects with a Dutch sentence where the browser or the page's rules do not allow it.
export function thinking(): Promise<Thinking> {
  loading ??= loadModule<LessonExports>(functions).then((module) => new ModuleThinking(module));
  return loading;
}
