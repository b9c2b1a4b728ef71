// The packaging puts the compiled control here: deflated without a header, as base64.
declare module "tabulon.wasm" {
  const deflated: string;
  export default deflated;
}
