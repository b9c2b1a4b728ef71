// The open pop-up menu and its submenus. What keys and pointing do is decided by the module; this shows it.
import { Measure } from "#shared";
import { type MenuChange, type MenuItem, type OpenMenu, type Reader, readMenuItem, readOpenMenu } from "#wire";
import { plainCaption, writeCaption } from "./captions.js";
import { make, setAttribute } from "./dom.js";
import type { Send } from "./module.js";
import { moveTo } from "./place.js";
import { Around } from "./look.js";

const leastMargin = 4;
// A submenu lies over the edge of the menu that it belongs to.
const overlap = 3;

interface Item {
  readonly id: number;
  readonly node: HTMLElement;
}

interface Level {
  readonly menu: number;
  readonly node: HTMLElement;
  readonly items: Item[];
}

interface Place {
  readonly left: number;
  readonly top: number;
  // Where a menu that would leave the window on the right goes instead.
  readonly otherLeft: number;
  // What a menu that fits on neither side leaves free: a finger is still there.
  readonly opened?: DOMRect;
}

// What a menu needs of the element that it is opened on.
interface Opener {
  readonly root: ShadowRoot;
  readonly surface: { readonly ground: HTMLElement; readonly scale: number };
  // Called before a press outside the menu closes it.
  pressedOutsideMenu(event: Event): void;
}

export class MenuView {
  readonly #levels: Level[] = [];
  readonly #opener: Opener;
  readonly #send: Send;
  // An element may have been moved into another page than its script's.
  readonly #page: Document;
  // What has the focus while the menu is open.
  #resting: HTMLElement | undefined;

  constructor(opener: Opener, send: Send) {
    this.#opener = opener;
    this.#send = send;
    this.#page = opener.root.ownerDocument;
    this.#page.addEventListener("pointerdown", this.#pressed, true);
    this.#page.defaultView?.addEventListener("blur", this.#dismiss);
  }

  readonly #dismiss = () => this.#send((module) => module.menu_dismiss());

  readonly #pressed = (event: Event) => {
    if (event.composedPath().some((node) => this.#levels.some((level) => level.node === node))) return;
    this.#opener.pressedOutsideMenu(event);
    this.#dismiss();
  };

  // The focus stays where it rests, for to move it there and back is most of what a choice would cost. From there a
  // screen reader follows what is highlighted.
  tellThrough(resting: HTMLElement): void {
    const innermost = this.#levels.at(-1)?.node;
    this.#resting = resting;
    setAttribute(resting, "aria-controls", this.#levels.map(({ node }) => node.id).join(" "));
    setAttribute(resting, "aria-activedescendant", innermost?.getAttribute("aria-activedescendant") ?? innermost?.id);
  }

  // The record goes on with the open menus, each with its items.
  apply({ x, y, open }: MenuChange, record: Reader): void {
    for (let depth = 0; depth < open; ++depth) {
      const menu = readOpenMenu(record);
      const items = Array.from({ length: menu.items }, () => readMenuItem(record));
      if (this.#levels[depth]?.menu !== menu.id) this.#open(depth, menu, items, x, y);
      this.#update(this.#levels[depth]!, items);
    }
    this.#closeFrom(open);
  }

  close(): void {
    this.#page.removeEventListener("pointerdown", this.#pressed, true);
    this.#page.defaultView?.removeEventListener("blur", this.#dismiss);
    this.#closeFrom(0);
    for (const name of ["aria-controls", "aria-activedescendant"]) this.#resting?.removeAttribute(name);
  }

  #closeFrom(depth: number): void {
    for (const level of this.#levels.splice(depth)) level.node.remove();
  }

  #open(depth: number, { id: menu, caption }: OpenMenu, items: MenuItem[], x: number, y: number): void {
    this.#closeFrom(depth);
    const node = make("div", "menu");
    node.setAttribute("role", "menu");
    node.ariaLabel = plainCaption(caption);
    node.id = `menu${menu}`;
    const level = { menu, node, items: items.map((item) => this.#makeItem(item)) };
    node.append(...level.items.map((item) => item.node));
    this.#levels.push(level);
    this.#opener.root.append(node);
    // Above everything; where a browser cannot do that, above what the page has put no higher.
    if (node.showPopover) {
      node.popover = "manual";
      node.showPopover();
    }
    this.#place(node, depth === 0 ? this.#placeOnControl(x, y) : this.#placeBeside(depth, menu));
  }

  #makeItem({ id, name, caption, isSeparator, checkable, hasSubmenu }: MenuItem): Item {
    const node = make("div", isSeparator ? "separator" : "item");
    node.dataset.name = name;
    node.id = `item${id}`;
    node.setAttribute("role", isSeparator ? "separator" : checkable ? "menuitemcheckbox" : "menuitem");
    if (isSeparator) return { id, node };
    if (hasSubmenu) node.ariaHasPopup = "menu";
    const text = make("span", "");
    writeCaption(text, caption);
    node.append(text);
    node.addEventListener("pointermove", (event) => {
      if (event.pointerType !== "mouse" || node.classList.contains("highlighted")) return;
      this.#send((module) => module.menu_point_at(id));
    });
    node.addEventListener("click", () => this.#send((module) => module.menu_choose(id)));
    return { id, node };
  }

  #update(level: Level, items: MenuItem[]): void {
    level.node.removeAttribute("aria-activedescendant");
    items.forEach((item, at) => {
      const { node } = level.items[at]!;
      if (item.isSeparator) return;
      node.ariaDisabled = String(!item.enabled);
      if (item.checkable) node.ariaChecked = String(item.checked);
      if (item.hasSubmenu) node.ariaExpanded = String(item.standsOpen);
      node.classList.toggle("highlighted", item.highlighted || item.standsOpen);
      if (item.highlighted) level.node.setAttribute("aria-activedescendant", `item${item.id}`);
    });
  }

  #placeOnControl(x: number, y: number): Place {
    const control = this.#opener.surface.ground.getBoundingClientRect();
    const unit = this.#opener.surface.scale / Measure.twipsPerPixel;
    return { left: control.left + x * unit, top: control.top + y * unit, otherLeft: Infinity };
  }

  #placeBeside(depth: number, menu: number): Place {
    const parent = this.#levels[depth - 1]!;
    const item = parent.items.find(({ id }) => id === menu)!.node.getBoundingClientRect();
    const all = parent.node.getBoundingClientRect();
    const top = item.top - Around.menuPadding - Around.border;
    return { left: all.right - overlap, top, otherLeft: all.left + overlap, opened: item };
  }

  // Within the window, and with the page when it is scrolled.
  #place(node: HTMLElement, { left, top, otherLeft, opened }: Place): void {
    const { width, height } = node.getBoundingClientRect();
    const { clientWidth, clientHeight } = this.#page.documentElement;
    const within = (at: number, size: number, room: number) =>
      Math.max(leastMargin, Math.min(at, Math.max(room, size) - size - leastMargin));
    const fits = left + width + leastMargin <= clientWidth;
    const fitsOther = otherLeft - width >= leastMargin;
    const x = fits || !fitsOther ? left : Math.min(otherLeft, clientWidth - leastMargin) - width;
    if (fits || fitsOther || !opened)
      return moveTo(node, within(x, width, clientWidth), within(top, height, clientHeight));
    const below = opened.bottom + height + leastMargin <= clientHeight;
    moveTo(node, within(x, width, clientWidth), below ? opened.bottom : Math.max(leastMargin, opened.top - height));
  }
}
