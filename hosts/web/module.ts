// The WebAssembly module, and how texts go into it and out of it.
import type { Exports } from "#wire";
import { unpackModule } from "./unpack.js";

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
  giveBytes(content: Uint8Array): void;
  answer(): string;
  answerBytes(): Uint8Array;
}

// What every module has.
export type TextExports = Pick<Exports, "memory" | "_initialize" | "argument" | "answer_at" | "answer_size">;

// Texts and bytes in the module's memory, which moves when it grows: it is looked up each time.
export class Module<Own extends TextExports = Exports> implements Texts {
  constructor(readonly exports: Own) {}

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

  giveBytes(content: Uint8Array): void {
    this.#give(content);
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

  answerBytes(): Uint8Array {
    return this.copy(this.exports.answer_at(), this.exports.answer_size());
  }
}

// What a person reads where the control would stand.
function reason(error: unknown): string {
  if (typeof WebAssembly === "undefined") return "deze browser heeft geen WebAssembly, of het staat uit";
  return /unsafe-eval|CSP|content security/i.test(String(error))
    ? "het beleid (Content-Security-Policy) van deze pagina laat WebAssembly niet toe; 'wasm-unsafe-eval' ontbreekt"
    : `deze browser is er niet geschikt voor (${String(error)})`;
}

// Rejects with a Dutch sentence that says what stands in the way.
export async function loadModule<Own extends TextExports>(imports: object): Promise<Module<Own>> {
  try {
    const { instance } = await WebAssembly.instantiate(unpackModule(), { tabulon: { ...imports } });
    const module = new Module(instance.exports as Own);
    module.exports._initialize();
    return module;
  } catch (error) {
    throw new Error(`Het Simplex-tableau kan hier niet worden getoond: ${reason(error)}.`, { cause: error });
  }
}
