// The packaging puts here the script's style sheet and behind it the compiled module, packed by tools/pack.mjs.
declare module "own.packed" {
  const packed: string;
  export default packed;
}

// And the module that unpacks it, as signs of bytes.
declare module "unpack.wasm" {
  const unpacker: string;
  export default unpacker;
}
