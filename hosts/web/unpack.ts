// Unpacks what is packed with the script, by a small module that is made for it: what a browser has for this itself
// packs an eighth worse, and is not in every browser.
import packed from "own.packed";
import unpacker from "unpack.wasm";

interface Unpacker {
  readonly memory: WebAssembly.Memory;
  readonly packed: WebAssembly.Global<"i32">;
  readonly unpacked: WebAssembly.Global<"i32">;
  unpack(): number;
}

// A byte is a sign from "#" on; one of 90 or more has a "}" before it, and one of 180 or more a "~".
function bytesOf(signs: string): Uint8Array<ArrayBuffer> {
  const bytes: number[] = [];
  let more = 0;
  for (let at = 0; at < signs.length; ++at) {
    const sign = signs.charCodeAt(at) - 35;
    if (sign < 90) bytes.push(sign + more);
    more = sign < 90 ? 0 : 90 * (sign - 89);
  }
  return Uint8Array.from(bytes);
}

function unpack(): Uint8Array<ArrayBuffer> {
  const { exports } = new WebAssembly.Instance(new WebAssembly.Module(bytesOf(unpacker)));
  const own = exports as unknown as Unpacker;
  new TextEncoder().encodeInto(packed, new Uint8Array(own.memory.buffer, own.packed.value));
  return new Uint8Array(own.memory.buffer, own.unpacked.value, own.unpack());
}

let style = "";

// The style sheet that is packed before the module; empty until that is unpacked.
export const ownStyle = (): string => style;

export function unpackModule(): Uint8Array<ArrayBuffer> {
  const bytes = unpack();
  const start = bytes.indexOf(0); // with which every module begins, and no text has one
  style = new TextDecoder().decode(bytes.subarray(0, start));
  return bytes.subarray(start);
}
