// The open pop-up menu and its submenus. What keys and pointing do is decided by the module; this shows it.
import { plainCaption, writeCaption } from "./captions.js";
import { twipsPerPixel } from "./control_view.js";
import { make } from "./dom.js";
import type { ElementView } from "./element_view.js";
import type { RecordReader } from "./record.js";

// The bits of item_state (mirror.cpp).
const separator = 1;
const enabled = 2;
const checkable = 4;
const checked = 8;
const hasSubmenu = 16;
const standsOpen = 32;
const highlighted = 64;

const leastMargin = 4;

interface Item {
  readonly id: number;
  readonly node: HTMLElement;
}

interface Level {
  readonly menu: number;
  readonly node: HTMLElement;
  readonly items: Item[];
}

interface ItemState {
  readonly id: number;
  readonly state: number;
  readonly name: string;
  readonly caption: string;
}

interface Place {
  readonly left: number;
  readonly top: number;
  // Where a menu that would leave the window on the right goes instead.
  readonly otherLeft: number;
}

function readItems(record: RecordReader): ItemState[] {
  return Array.from({ length: record.u16() }, () => ({
    id: record.i32(),
    state: record.u8(),
    name: record.text(),
    caption: record.text(),
  }));
}

export class MenuView {
  readonly #levels: Level[] = [];
  readonly #listening = new AbortController();

  constructor(readonly element: ElementView) {
    const { page } = element;
    const { signal } = this.#listening;
    const pressed = (event: Event) => {
      if (event.composedPath().some((node) => this.#levels.some((level) => level.node === node))) return;
      element.pressedOutsideMenu(event);
      page.dismissMenu();
    };
    document.addEventListener("pointerdown", pressed, { capture: true, signal });
    window.addEventListener("blur", () => page.dismissMenu(), { signal });
  }

  // What has the focus while the menu is open.
  get node(): HTMLElement | undefined {
    return this.#levels.at(-1)?.node;
  }

  // Reads what write_menu (mirror.cpp) wrote, from the place on.
  apply(record: RecordReader): void {
    const [x, y] = [record.f64() / twipsPerPixel, record.f64() / twipsPerPixel];
    const count = record.u8();
    for (let depth = 0; depth < count; ++depth) {
      const [menu, caption, items] = [record.i32(), record.text(), readItems(record)];
      if (this.#levels[depth]?.menu !== menu) this.#open(depth, menu, caption, items, x, y);
      this.#update(this.#levels[depth]!, items);
    }
    this.#closeFrom(count);
  }

  close(): void {
    this.#listening.abort();
    this.#closeFrom(0);
  }

  #closeFrom(depth: number): void {
    for (const level of this.#levels.splice(depth)) level.node.remove();
  }

  #open(depth: number, menu: number, caption: string, items: ItemState[], x: number, y: number): void {
    this.#closeFrom(depth);
    const node = make("div", "menu");
    node.setAttribute("role", "menu");
    node.ariaLabel = plainCaption(caption);
    node.tabIndex = -1;
    node.popover = "manual";
    const level = { menu, node, items: items.map((item) => this.#makeItem(item)) };
    node.append(...level.items.map((item) => item.node));
    this.#levels.push(level);
    this.element.root.append(node);
    node.showPopover();
    this.#place(node, depth === 0 ? this.#placeOnControl(x, y) : this.#placeBeside(depth, menu));
  }

  #makeItem({ id, state, name, caption }: ItemState): Item {
    const node = make("div", state & separator ? "separator" : "item");
    node.dataset.name = name;
    node.id = `item${id}`;
    node.setAttribute("role", state & separator ? "separator" : state & checkable ? "menuitemcheckbox" : "menuitem");
    if (state & separator) return { id, node };
    if (state & hasSubmenu) node.ariaHasPopup = "menu";
    const text = make("span", "");
    writeCaption(text, caption);
    node.append(text);
    const { page } = this.element;
    node.addEventListener("pointermove", (event) => {
      if (event.pointerType !== "mouse" || node.classList.contains("highlighted")) return;
      page.send((module) => module.menu_point_at(id));
    });
    node.addEventListener("click", () => page.send((module) => module.menu_choose(id)));
    return { id, node };
  }

  #update(level: Level, states: ItemState[]): void {
    level.node.removeAttribute("aria-activedescendant");
    states.forEach(({ state, id }, at) => {
      const { node } = level.items[at]!;
      if (state & separator) return;
      node.ariaDisabled = String(!(state & enabled));
      if (state & checkable) node.ariaChecked = String(Boolean(state & checked));
      if (state & hasSubmenu) node.ariaExpanded = String(Boolean(state & standsOpen));
      node.classList.toggle("highlighted", Boolean(state & (highlighted | standsOpen)));
      if (state & highlighted) level.node.setAttribute("aria-activedescendant", `item${id}`);
    });
  }

  #placeOnControl(x: number, y: number): Place {
    const control = this.element.surface.ground.getBoundingClientRect();
    return { left: control.left + x, top: control.top + y, otherLeft: innerWidth };
  }

  #placeBeside(depth: number, menu: number): Place {
    const parent = this.#levels[depth - 1]!;
    const item = parent.items.find(({ id }) => id === menu)!.node.getBoundingClientRect();
    const all = parent.node.getBoundingClientRect();
    return { left: all.right - 3, top: item.top - 5, otherLeft: all.left + 3 };
  }

  // Within the window, and with the page when it is scrolled.
  #place(node: HTMLElement, { left, top, otherLeft }: Place): void {
    const { offsetWidth: width, offsetHeight: height } = node;
    const { clientWidth, clientHeight } = document.documentElement;
    const fits = left + width + leastMargin <= clientWidth;
    const wanted =
      fits || otherLeft - width < leastMargin ? left : Math.min(otherLeft, clientWidth - leastMargin) - width;
    const x = Math.max(leastMargin, Math.min(wanted, clientWidth - width - leastMargin));
    const y = Math.max(leastMargin, Math.min(top, Math.max(clientHeight, height) - height - leastMargin));
    node.style.left = `${Math.round(x + scrollX)}px`;
    node.style.top = `${Math.round(y + scrollY)}px`;
  }
}
