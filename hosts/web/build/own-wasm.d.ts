// The packaging puts here the compiled module of the script that is bundled: deflated without a header, as base64.
declare module "own.wasm" {
  const deflated: string;
  export default deflated;
}
