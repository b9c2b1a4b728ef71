// A surface: the control itself, or one of its forms.
import { Measure } from "#shared";
import {
  type Introduction,
  type OpenedSurface,
  type Reader,
  readControlChange,
  readIntroduction,
  type SurfaceChange,
} from "#wire";
import { ControlView } from "./control_view.js";
import { make } from "./dom.js";
import type { Send } from "./module.js";
import { scaleOf } from "./place.js";
import type { RecordReader } from "./record.js";
import { TableView } from "./table_view.js";

export class SurfaceView {
  readonly id: number;
  readonly ground = make("div", "surface");
  readonly controls: ControlView[] = [];
  readonly width: number;
  readonly height: number;
  active: ControlView | undefined;
  #table: TableView | undefined;
  readonly #send: Send;
  readonly #introduced: (control: ControlView) => void;

  // `introduced` is told of every control that appears here.
  constructor({ id, width, height }: OpenedSurface, send: Send, introduced: (control: ControlView) => void) {
    this.id = id;
    this.width = width / Measure.twipsPerPixel;
    this.height = height / Measure.twipsPerPixel;
    this.ground.style.width = `${this.width}px`;
    this.ground.style.height = `${this.height}px`;
    this.#send = send;
    this.#introduced = introduced;
  }

  // How many of the window's pixels one of its own is.
  get scale(): number {
    return scaleOf(this.ground, this.width);
  }

  // The record goes on with the controls.
  apply({ active }: SurfaceChange, record: RecordReader): void {
    while (!record.done) this.#applyControl(record);
    this.#table?.update();
    this.#setActive(this.controls[active]);
  }

  #applyControl(record: Reader): void {
    const { id, marked, isNew } = readControlChange(record);
    if (!isNew) return this.controls[id]!.apply(marked, record);
    const introduction = readIntroduction(record);
    const control = this.#introduce(id, introduction);
    control.apply(marked, record);
    if (introduction.part) this.#tableOf().add(control.node, introduction);
    else (control.container?.node ?? this.ground).append(control.node);
  }

  #tableOf(): TableView {
    return (this.#table ??= new TableView(this.ground, this.ground.querySelector("[data-name=txtFocus]")));
  }

  #introduce(id: number, introduction: Introduction): ControlView {
    const container = this.controls[introduction.container];
    const control = new ControlView(this.id, id, introduction, container, this.#send);
    this.controls[id] = control;
    this.#introduced(control);
    return control;
  }

  #setActive(active: ControlView | undefined): void {
    if (active === this.active) return;
    const before = this.active;
    this.active = active;
    before?.setActive(false);
    active?.setActive(true);
  }
}
