// The WebAssembly module: what it asks of the page, what the page asks of it, and how texts go in and out.
import deflated from "tabulon.wasm";

// page.h
export interface Imports {
  open_surface(record: number, size: number): void;
  close_surface(surface: number): void;
  mirror(record: number, size: number): void;
  show_menu(record: number, size: number): void;
  close_menu(): void;
  set_busy(surface: number, busy: number): void;
  take_focus(surface: number): number;
  seconds_since_midnight(): number;
  yield_due(): number;
  wake_after(milliseconds: number, ticket: number): void;
  wake_after_repaint(ticket: number): void;
  wake_after_events(ticket: number): void;
  beep(): void;
  show_file_dialog(record: number, size: number, ticket: number): void;
  write_file(record: number, size: number): void;
  clear_clipboard(): void;
  copy_picture(record: number, size: number, ticket: number): void;
  report(surface: number, error: number, subject: number, size: number): void;
  call_ended(call: number): void;
}

// exports.cpp
export interface Exports {
  memory: WebAssembly.Memory;
  _initialize(): void;
  argument(size: number): number;
  answer_at(): number;
  answer_size(): number;
  create(): number;
  start(element: number): number;
  abandon(element: number): void;
  destroy(element: number): void;
  set_property(element: number, kind: number, value: number): number;
  InitTableau(element: number): number;
  SchrijfTableau(element: number): number;
  LeesTableau(element: number): number;
  strSoortGetal(element: number, Soort: number, Getal: number): number;
  call(element: number): number;
  click(surface: number, control: number): number;
  type(surface: number, control: number): number;
  focus(surface: number, control: number): number;
  key(surface: number, code: number, shift: number): number;
  scroll(surface: number, bar: number, value: number, dragging: number): number;
  scroll_step(surface: number, bar: number, direction: number, page: number): number;
  pointer(surface: number, control: number, action: number, left: number, x: number, y: number): number;
  enter(surface: number): void;
  leave(surface: number): void;
  menu_point_at(item: number): void;
  menu_choose(item: number): void;
  menu_dismiss(): void;
  answer(ticket: number): void;
  put_file(): void;
}

const encoder = new TextEncoder();
const decoder = new TextDecoder();

// Texts and bytes in the module's memory, which moves when it grows: it is looked up each time.
export class Module {
  constructor(readonly exports: Exports) {}

  // A copy of what the module lends.
  copy(at: number, size: number): Uint8Array {
    return new Uint8Array(this.exports.memory.buffer, at, size).slice();
  }

  text(at: number, size: number): string {
    return decoder.decode(this.copy(at, size));
  }

  // Gives the texts to the next call, with a NUL between them.
  give(...texts: string[]): void {
    this.giveBytes(encoder.encode(texts.join("\0")));
  }

  giveBytes(bytes: Uint8Array): void {
    const at = this.exports.argument(bytes.length);
    new Uint8Array(this.exports.memory.buffer, at, bytes.length).set(bytes);
  }

  answer(): string {
    return this.text(this.exports.answer_at(), this.exports.answer_size());
  }
}

interface NativeBase64 {
  fromBase64?(text: string): Uint8Array<ArrayBuffer>;
}

// By the browser itself where it can, which is much faster.
function decodeBase64(text: string): Uint8Array<ArrayBuffer> {
  const native = Uint8Array as NativeBase64;
  return native.fromBase64?.(text) ?? Uint8Array.from(atob(text), (byte) => byte.charCodeAt(0));
}

// The module as a response, so that the browser compiles what is inflated while the rest is being inflated.
function inflated(): Response {
  const { readable, writable } = new DecompressionStream("deflate-raw");
  const writer = writable.getWriter();
  void writer.write(decodeBase64(deflated));
  void writer.close();
  return new Response(readable, { headers: { "Content-Type": "application/wasm" } });
}

export async function loadModule(imports: Imports): Promise<Module> {
  const { instance } = await WebAssembly.instantiateStreaming(inflated(), { tabulon: { ...imports } });
  const module = new Module(instance.exports as unknown as Exports);
  module.exports._initialize();
  return module;
}
