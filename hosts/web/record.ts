// Reads the records that the module writes (record.h), value after value.
import type { Reader } from "#wire";

const decoder = new TextDecoder();
// Most texts are names and numbers; up to this many plain letters are faster read one by one.
const shortText = 24;

export class RecordReader implements Reader {
  readonly #bytes: Uint8Array;
  readonly #view: DataView;
  #at = 0;

  constructor(bytes: Uint8Array) {
    this.#bytes = bytes;
    this.#view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  }

  get done(): boolean {
    return this.#at >= this.#bytes.length;
  }

  u8(): number {
    return this.#view.getUint8(this.#skip(1));
  }
  flag(): boolean {
    return this.u8() !== 0;
  }
  u16(): number {
    return this.#view.getUint16(this.#skip(2), true);
  }
  u32(): number {
    return this.#view.getUint32(this.#skip(4), true);
  }
  i32(): number {
    return this.#view.getInt32(this.#skip(4), true);
  }
  f32(): number {
    return this.#view.getFloat32(this.#skip(4), true);
  }
  f64(): number {
    return this.#view.getFloat64(this.#skip(8), true);
  }
  text(): string {
    const size = this.u32();
    const start = this.#skip(size);
    if (size > shortText) return decoder.decode(this.#bytes.subarray(start, this.#at));
    let text = "";
    for (let at = start; at < this.#at; ++at) {
      const byte = this.#bytes[at]!;
      if (byte > 127) return decoder.decode(this.#bytes.subarray(start, this.#at));
      text += String.fromCharCode(byte);
    }
    return text;
  }
  bytes(): Uint8Array {
    const size = this.u32();
    const start = this.#skip(size);
    return this.#bytes.subarray(start, this.#at);
  }
  list<Value>(read: (record: Reader) => Value): readonly Value[] {
    return Array.from({ length: this.u32() }, () => read(this));
  }

  #skip(size: number): number {
    const start = this.#at;
    this.#at += size;
    return start;
  }
}
