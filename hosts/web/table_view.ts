// The tableau as a table for who hears it: each control that has a place in it stands in a cell, the cells in rows.
// These take no room; the controls stand where they stand.
import { TablePart } from "#shared";
import type { Introduction } from "#wire";
import { make, setAttribute } from "./dom.js";

const cellRoles = {
  [TablePart.None]: "",
  [TablePart.Cell]: "gridcell",
  [TablePart.RowHeader]: "rowheader",
  [TablePart.ColumnHeader]: "columnheader",
} satisfies Record<TablePart, string>;

const name = "Simplex-tableau";
const howTo =
  "Tab gaat langs de cellen. Met Escape en daarna Tab verlaat je het tableau. " +
  "Alt+B, Alt+W, Alt+O en Alt+H openen de menu's.";

// The part of `around` at that place, made when it is not there yet.
function partAt(around: HTMLElement, at: number, role: string): HTMLElement {
  const parts = [...around.children] as HTMLElement[];
  const next = parts.find((part) => Number(part.dataset.at) >= at);
  if (next?.dataset.at === String(at)) return next;
  const part = make("div", "");
  part.role = role;
  part.dataset.at = String(at);
  around.insertBefore(part, next ?? null);
  return part;
}

// Written only where it changes: a page may watch.
function show(part: HTMLElement, isShown: boolean): void {
  if (part.hidden === isShown) part.hidden = !isShown;
}

export class TableView {
  readonly #node = make("div", "");
  readonly #cells: HTMLElement[] = [];

  // `resting` is what has the focus while no cell has it.
  constructor(ground: HTMLElement, resting: HTMLElement | null) {
    const told = make("span", "told", howTo);
    told.id = "how-to";
    this.#node.role = "grid";
    this.#node.ariaLabel = name;
    for (const described of [this.#node, resting]) if (described) setAttribute(described, "aria-describedby", told.id);
    ground.append(told, this.#node);
  }

  add(control: HTMLElement, { part, row, column }: Introduction): void {
    const cell = partAt(partAt(this.#node, row, "row"), column, cellRoles[part]);
    cell.append(control);
    this.#cells.push(cell);
  }

  // What is not seen is not told.
  update(): void {
    for (const cell of this.#cells) show(cell, !(cell.firstChild as HTMLElement).hidden);
    for (const row of [...this.#node.children] as HTMLElement[])
      show(
        row,
        ([...row.children] as HTMLElement[]).some((cell) => !cell.hidden),
      );
  }
}
