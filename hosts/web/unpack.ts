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
function byteOf(signs: string): number {
  const own = signs.charCodeAt(signs.length - 1) - 35;
  return signs.length > 1 ? own + 90 * (signs.charCodeAt(0) - 124) : own;
}

function unpack(): Uint8Array<ArrayBuffer> {
  const { exports } = new WebAssembly.Instance(
    new WebAssembly.Module(Uint8Array.from(unpacker.match(/[}~]?./g)!, byteOf)),
  );
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
