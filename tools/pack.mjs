// Packs bytes as the text that hosts/web/unpack/unpack.cpp unpacks; there stands what the text is.
//
//   pack(bytes)           the text
//   unpack(text, wasm)    the bytes again, as a page does it; `wasm` is the unpacking module
//   asSigns(wasm)         that module as a text, which is longer, but which the page reads by itself
import { spawnSync } from "node:child_process";

// As well as it can: everyone who opens a page loads it.
const lzma = "preset=9e,lc=3,lp=0,pb=0,nice=128,mf=bt4,depth=1000";

const signs = Array.from({ length: 95 }, (_, at) => String.fromCharCode(32 + at)).filter(
  (sign) => !'"<\\'.includes(sign),
);
const signsOfSixBits = 36;

function compressed(bytes) {
  const { status, stdout, stderr, error } = spawnSync("xz", ["--format=raw", `--lzma1=${lzma}`, "--stdout"], {
    input: bytes,
    maxBuffer: 2 ** 26,
  });
  if (status !== 0) throw new Error(`xz: ${error?.message ?? stderr}`);
  return stdout;
}

// The bits of the bytes, and zeros for what the last sign has more.
class Bits {
  #bytes;
  #at = 0;

  constructor(bytes) {
    this.#bytes = bytes;
  }

  get atEnd() {
    return this.#at >= 8 * this.#bytes.length;
  }

  take(count) {
    let number = 0;
    for (const end = this.#at + count; this.#at < end; ++this.#at)
      number = (number << 1) | (((this.#bytes[this.#at >> 3] ?? 0) >> (7 - (this.#at & 7))) & 1);
    return number;
  }
}

export function pack(bytes) {
  const bits = new Bits(compressed(bytes));
  let text = "";
  while (!bits.atEnd) {
    const six = bits.take(6);
    text += signs[six < signsOfSixBits ? six : ((six << 1) | bits.take(1)) - signsOfSixBits];
  }
  return text;
}

// A sign for a byte, or two: of what is coded by how often it comes, base64 leaves little to be seen.
export const asSigns = (bytes) =>
  Array.from(bytes, (byte) => ["", "}", "~"][Math.floor(byte / 90)] + String.fromCharCode(35 + (byte % 90))).join("");

export function unpack(text, wasm) {
  const { memory, packed, unpacked, unpack: run } = new WebAssembly.Instance(new WebAssembly.Module(wasm)).exports;
  new TextEncoder().encodeInto(text, new Uint8Array(memory.buffer, packed.value));
  return new Uint8Array(memory.buffer, unpacked.value, run());
}
