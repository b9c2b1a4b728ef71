// An open form: a modal dialog over the control.
import { Key } from "#shared";
import type { OpenedSurface, SurfaceChange } from "#wire";
import type { ControlView } from "./control_view.js";
import { make } from "./dom.js";
import type { Send } from "./module.js";
import type { RecordReader } from "./record.js";
import { Around } from "./styles.js";
import { SurfaceView } from "./surface_view.js";

const leastMargin = 8;

export class FormView extends SurfaceView {
  readonly dialog = make("dialog", "form");
  readonly #title = make("div", "title");
  // What the form opens over.
  readonly #below: HTMLElement;
  #hasClosed = false;

  constructor(
    opened: OpenedSurface,
    root: ShadowRoot,
    below: HTMLElement,
    send: Send,
    introduced: (control: ControlView) => void,
  ) {
    super(opened, send, introduced);
    this.#below = below;
    this.ground.id = `form${opened.id}`;
    this.#title.id = `title${opened.id}`;
    this.dialog.dataset.name = opened.name;
    this.dialog.tabIndex = -1;
    this.dialog.setAttribute("aria-labelledby", this.#title.id);
    // The form decides when it closes.
    this.dialog.setAttribute("closedby", "none");
    this.dialog.addEventListener("cancel", (event) => event.preventDefault());
    this.dialog.addEventListener("close", () => this.#refuseToClose(send));
    this.dialog.append(this.#title, this.ground);
    root.append(this.dialog);
  }

  override apply(change: SurfaceChange, record: RecordReader): void {
    super.apply(change, record);
    this.#title.textContent = change.caption;
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
    this.#hasClosed = true;
    this.dialog.close();
    this.dialog.remove();
  }

  #placeOverControl(): void {
    const control = this.#below.getBoundingClientRect();
    const width = this.width + 2 * Around.border;
    const height = this.height + Around.formTitle + 2 * Around.border;
    const within = (at: number, room: number) => Math.round(Math.max(leastMargin, Math.min(at, room - leastMargin)));
    this.dialog.style.left = `${within(control.left + (control.width - width) / 2, innerWidth - width)}px`;
    this.dialog.style.top = `${within(control.top + (control.height - height) / 2, innerHeight - height)}px`;
  }

  // A browser may close a dialog by a gesture of its own: that is the form's Escape.
  #refuseToClose(send: Send): void {
    if (this.dialog.open || this.#hasClosed) return;
    send((module) => module.key(this.id, Key.escape, 0));
    if (!this.#hasClosed) this.show();
  }
}
