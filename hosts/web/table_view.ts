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

interface Part {
  readonly node: HTMLElement;
  readonly inside: Part[];
}

// The part of `around` at that place, made when it is not there yet.
function partAt({ node, inside }: Part, at: number, role: string): Part {
  const there = inside[at];
  if (there) return there;
  const part = { node: make("div", ""), inside: [] };
  part.node.role = role;
  node.insertBefore(part.node, inside.find((next, place) => next && place > at)?.node ?? null);
  inside[at] = part;
  return part;
}

// Written only where it changes: a page may watch.
function show(part: HTMLElement, isShown: boolean): void {
  if (part.hidden === isShown) part.hidden = !isShown;
}

export class TableView {
  readonly #table: Part = { node: make("div", ""), inside: [] };

  // `resting` is what has the focus while no cell has it.
  constructor(ground: HTMLElement, resting: HTMLElement | null) {
    const told = make("span", "told", howTo);
    told.id = "how-to";
    const { node } = this.#table;
    node.role = "grid";
    node.ariaLabel = name;
    for (const described of [node, resting]) if (described) setAttribute(described, "aria-describedby", told.id);
    ground.append(told, node);
  }

  add(control: HTMLElement, { part, row, column }: Introduction): void {
    partAt(partAt(this.#table, row, "row"), column, cellRoles[part]).node.append(control);
  }

  // What is not seen is not told.
  update(): void {
    this.#table.inside.forEach((row) => {
      row.inside.forEach(({ node }) => show(node, !(node.firstChild as HTMLElement).hidden));
      show(
        row.node,
        row.inside.some(({ node }) => !node.hidden),
      );
    });
  }
}
