// A surface: the control itself, or one of its forms.
import { ControlView, twipsPerPixel } from "./control_view.js";
import { make } from "./dom.js";
import type { ElementView } from "./element_view.js";
import type { Exports } from "./module.js";
import type { RecordReader } from "./record.js";

const introduced = 0x80000000;

export class SurfaceView {
  readonly ground = make("div", "surface");
  readonly controls: ControlView[] = [];
  readonly width: number;
  readonly height: number;
  caption = "";
  active: ControlView | undefined;

  // The size is in twips.
  constructor(
    readonly element: ElementView,
    readonly id: number,
    readonly name: string,
    width: number,
    height: number,
  ) {
    this.width = width / twipsPerPixel;
    this.height = height / twipsPerPixel;
    this.ground.style.width = `${this.width}px`;
    this.ground.style.height = `${this.height}px`;
  }

  send<Result>(call: (module: Exports) => Result): Result {
    return this.element.page.send(call);
  }

  // Reads what write_surface (mirror.cpp) wrote, from the active control on.
  apply(record: RecordReader): void {
    const active = record.i32();
    this.caption = record.text();
    while (!record.done) this.#applyControl(record);
    this.#setActive(this.controls[active]);
  }

  #applyControl(record: RecordReader): void {
    const id = record.u16();
    const marked = record.u32();
    const control = marked & introduced ? this.#introduce(id, record) : this.controls[id]!;
    control.apply(marked, record);
    if (marked & introduced) (control.container?.node ?? this.ground).append(control.node);
  }

  #introduce(id: number, record: RecordReader): ControlView {
    const [kind, index, container] = [record.u8(), record.u16(), record.i32()];
    const control = new ControlView(this, id, kind, record.text(), index, this.controls[container]);
    this.controls[id] = control;
    this.element.controlOf.set(control.node, control);
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
