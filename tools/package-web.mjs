// Makes dist/web from build/web/tabulon.wasm, hosts/web/*.ts and examples/:
//
//   dist/web/tabulon.js    the control, whole: script and WebAssembly in one file
//   dist/web/types/        its types, tabulon.d.ts first
//   dist/web/*.html ...    the examples; index.html is the start page
import { execFile } from "node:child_process";
import { cp, mkdir, readFile, rename, rm } from "node:fs/promises";
import { createRequire } from "node:module";
import { basename, dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import { deflateRawSync, constants } from "node:zlib";
import * as esbuild from "esbuild";

const root = fileURLToPath(new URL("..", import.meta.url));
const ownModule = "tabulon";

// What the module asks of its page besides what our sources ask, as "module.name"; empty when all is well.
export function foreignImports(wasm) {
  return WebAssembly.Module.imports(new WebAssembly.Module(wasm))
    .filter((wanted) => wanted.module !== ownModule)
    .map((wanted) => `${wanted.module}.${wanted.name}`);
}

// `import deflated from "tabulon.wasm"` gives the module, deflated without a header, as base64.
const embedWasm = (wasm) => ({
  name: "embed-wasm",
  setup(build) {
    build.onResolve({ filter: /^tabulon\.wasm$/ }, () => ({ path: "tabulon.wasm", namespace: "embed-wasm" }));
    build.onLoad({ filter: /.*/, namespace: "embed-wasm" }, () => ({
      contents: deflateRawSync(wasm, { level: constants.Z_BEST_COMPRESSION, memLevel: 9 }).toString("base64"),
      loader: "text",
    }));
  },
});

async function bundle({ entry, wasm, outfile }) {
  await esbuild.build({
    entryPoints: [entry],
    outfile,
    bundle: true,
    format: "iife",
    target: "es2022",
    minify: true,
    legalComments: "none",
    plugins: [embedWasm(wasm)],
    logLevel: "warning",
  });
}

const typescript = join(dirname(createRequire(import.meta.url).resolve("typescript/package.json")), "bin/tsc");

const writeTypes = (outDir) =>
  promisify(execFile)(process.execPath, [
    typescript,
    "--project",
    join(root, "tsconfig.json"),
    "--noEmit",
    "false",
    "--declaration",
    "--emitDeclarationOnly",
    "--outDir",
    outDir,
  ]).catch((error) => {
    throw new Error(error.stdout || error.message);
  });

const kilobytes = (bytes) => `${Math.ceil(bytes.length / 1024)} kB`;

async function packageWeb() {
  const wasm = await readFile(join(root, "build/web/tabulon.wasm"));
  const foreign = foreignImports(wasm);
  if (foreign.length) {
    throw new Error(`tabulon.wasm asks its page for ${foreign.join(", ")}: a source uses what a page has not`);
  }

  // Made aside and put in place when it is whole, so that a page that is being served is never half there.
  const made = join(root, `build/package-${process.pid}`);
  await cp(join(root, "examples"), made, {
    recursive: true,
    filter: (source) => !basename(source).startsWith("."),
  });
  const outfile = join(made, "tabulon.js");
  await bundle({ entry: join(root, "hosts/web/tabulon.ts"), wasm, outfile });
  await writeTypes(join(made, "types"));

  const out = join(root, "dist/web");
  await mkdir(dirname(out), { recursive: true });
  await rm(out, { recursive: true, force: true });
  await rename(made, out);
  console.log(
    `dist/web/tabulon.js: ${kilobytes(await readFile(join(out, "tabulon.js")))}, of ${kilobytes(wasm)} WebAssembly`,
  );
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  await packageWeb().catch((error) => {
    console.error(`The web package was not made. ${error.message}`);
    process.exit(1);
  });
}
