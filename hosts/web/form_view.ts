// An open form: a modal dialog over the control.
import { make } from "./dom.js";
import { SurfaceView } from "./surface_view.js";
import { escapeKey } from "./keys.js";
import type { ElementView } from "./element_view.js";
import type { RecordReader } from "./record.js";

const titleHeight = 32;
const border = 1;
const leastMargin = 8;

export class FormView extends SurfaceView {
  readonly dialog = make("dialog", "form");
  readonly #title = make("div", "title");

  constructor(element: ElementView, id: number, name: string, width: number, height: number) {
    super(element, id, name, width, height);
    this.ground.id = `form${id}`;
    this.#title.id = `title${id}`;
    this.dialog.dataset.name = name;
    this.dialog.tabIndex = -1;
    this.dialog.setAttribute("aria-labelledby", this.#title.id);
    // The form decides when it closes.
    this.dialog.setAttribute("closedby", "none");
    this.dialog.addEventListener("cancel", (event) => event.preventDefault());
    this.dialog.addEventListener("close", () => this.#refuseToClose());
    this.dialog.append(this.#title, this.ground);
    element.root.append(this.dialog);
  }

  override apply(record: RecordReader): void {
    super.apply(record);
    this.#title.textContent = this.caption;
    // What only tells something is read out when it opens.
    const onlyTells = !this.controls.some(
      ({ node }) => node instanceof HTMLInputElement && !node.classList.contains("aside"),
    );
    if (!onlyTells) return;
    this.dialog.setAttribute("role", "alertdialog");
    this.dialog.setAttribute("aria-describedby", this.ground.id);
  }

  show(): void {
    if (this.dialog.open || !this.dialog.isConnected) return;
    this.#placeOverControl();
    this.dialog.showModal();
  }

  // After its element has moved in the page the dialog stands no longer above it.
  showAgain(): void {
    if (this.dialog.open) this.dialog.close();
    this.show();
  }

  close(): void {
    this.dialog.close();
    this.dialog.remove();
  }

  #placeOverControl(): void {
    const control = this.element.surface.ground.getBoundingClientRect();
    const width = this.width + 2 * border;
    const height = this.height + titleHeight + 2 * border;
    const within = (at: number, room: number) => Math.round(Math.max(leastMargin, Math.min(at, room - leastMargin)));
    this.dialog.style.left = `${within(control.left + (control.width - width) / 2, innerWidth - width)}px`;
    this.dialog.style.top = `${within(control.top + (control.height - height) / 2, innerHeight - height)}px`;
  }

  // A browser may close a dialog by a gesture of its own: that is the form's Escape.
  #refuseToClose(): void {
    if (this.dialog.open || !this.element.forms.includes(this)) return;
    this.send((module) => module.key(this.id, escapeKey, 0));
    if (this.element.forms.includes(this)) this.show();
  }
}
