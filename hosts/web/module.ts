// The WebAssembly module, and how texts go into it and out of it.
import deflated from "tabulon.wasm";
import type { Exports, Imports } from "#wire";

const encoder = new TextEncoder();
const decoder = new TextDecoder();

// Calls the module, and does what it asked for when it has returned. What a call takes as a text is given just
// before it, and what it answers is read just after.
export type Send = <Result>(call: (module: Exports, texts: Texts) => Result) => Result;

export interface Texts {
  // Gives the texts to the next call, with a NUL between them.
  give(...texts: string[]): void;
  // A file's name, and after a NUL its bytes.
  giveFile(name: string, content: Uint8Array): void;
  answer(): string;
}

// Texts and bytes in the module's memory, which moves when it grows: it is looked up each time.
export class Module implements Texts {
  constructor(readonly exports: Exports) {}

  // A copy of what the module lends.
  copy(at: number, size: number): Uint8Array {
    return new Uint8Array(this.exports.memory.buffer, at, size).slice();
  }

  text(at: number, size: number): string {
    return decoder.decode(this.copy(at, size));
  }

  give(...texts: string[]): void {
    this.#give(encoder.encode(texts.join("\0")));
  }

  giveFile(name: string, content: Uint8Array): void {
    this.#give(encoder.encode(`${name}\0`), content);
  }

  #give(...parts: Uint8Array[]): void {
    const length = parts.reduce((sum, part) => sum + part.length, 0);
    let at = this.exports.argument(length);
    for (const part of parts) {
      new Uint8Array(this.exports.memory.buffer, at, part.length).set(part);
      at += part.length;
    }
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
  const module = new Module(instance.exports as Exports);
  module.exports._initialize();
  return module;
}
