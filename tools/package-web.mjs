// Makes dist/web from build/web/*.wasm, hosts/web/ and examples/:
//
//   dist/web/tabulon.js             the control, whole: script and WebAssembly in one file
//   dist/web/tabulon.mjs            the same to be imported
//   dist/web/tabulon-les.js         the lesson around it, likewise whole
//   dist/web/types/                 its types, tabulon.d.ts first
//   dist/web/custom-elements.json   what an editor is told of them
//   dist/web/*.html ...             the examples; index.html is the start page
//   dist/web/handboek/              the pictures of the handbook
//   dist/web/pagina.js              what those pages can do, and los-bestand.js what it needs to save one as one file
//   dist/web/maker.js ...           the scripts of the maker and the pages that come of it
import { execFile } from "node:child_process";
import { existsSync, readFileSync } from "node:fs";
import { cp, mkdir, readdir, readFile, rename, rm, writeFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { basename, dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import * as esbuild from "esbuild";
import { minify } from "terser";
import { attributesOf, describeElements } from "./describe-element.mjs";
import { makePictures } from "./handbook-pictures.mjs";
import { makeContract, namesOf } from "./make-contract.mjs";
import { asSigns, pack, unpack } from "./pack.mjs";

const root = fileURLToPath(new URL("..", import.meta.url));
export const { version } = JSON.parse(readFileSync(join(root, "package.json"), "utf8"));
const banner = `/*! Tabulon ${version}. MIT License, the Tabulon authors. */`;
const ownModule = "tabulon";

const tables = { imports: "hosts/web/wire/imports.def", exports: "hosts/web/wire/exports.def" };
const lessonTables = { imports: "hosts/web/lesson/wire/imports.def", exports: "hosts/web/lesson/wire/exports.def" };
// What starts every module, and its memory.
const ofEveryModule = ["memory", "_initialize"];

const differences = (found, told, where) => [
  ...found.filter((name) => !told.includes(name)).map((name) => `${name} stands not in ${where}`),
  ...told.filter((name) => !found.includes(name)).map((name) => `${name} of ${where} is missing`),
];

// Where the module is not what the tables say; empty when all is well. An import that nothing needs is left out by
// the linker.
export function breaches(
  wasm,
  { imports: importsTable, exports: exportsTable } = tables,
  imports = namesOf(importsTable, "IMPORT"),
  exports = namesOf(exportsTable, "EXPORT"),
) {
  const module = new WebAssembly.Module(wasm);
  const asked = WebAssembly.Module.imports(module).map(({ module: from, name }) =>
    from === ownModule ? name : `${from}.${name}`,
  );
  const offered = WebAssembly.Module.exports(module).map(({ name }) => name);
  return [
    ...differences(asked, imports, importsTable),
    ...differences(
      offered.filter((name) => !ofEveryModule.includes(name)),
      exports,
      exportsTable,
    ),
  ];
}

const run = promisify(execFile);

// `import packed from "own.packed"` gives the script's style sheet and module, packed, and "unpack.wasm" what unpacks
// them, as signs.
const embedPacked = (texts) => ({
  name: "embed-packed",
  setup(build) {
    build.onResolve({ filter: /^(own\.packed|unpack\.wasm)$/ }, ({ path }) => ({ path, namespace: "embed-packed" }));
    build.onLoad({ filter: /.*/, namespace: "embed-packed" }, ({ path }) => ({
      contents: texts[path],
      loader: "text",
    }));
  },
});

// Without what a style sheet needs for people alone; its values in ${} stay as they are.
const minifiedCss = (css) =>
  css
    .replace(/\/\*.*?\*\//gs, "")
    .replace(/(\$\{[^}]*\})|\s*([{};,])\s*/g, (_, value, sign) => value ?? sign)
    .replace(/([\w-]): /g, "$1:")
    .replace(/ (!important)/g, "$1")
    .replaceAll(";}", "}");

// A style sheet is the template in a source that is named so.
const minifyStyles = {
  name: "minify-styles",
  setup(build) {
    build.onLoad({ filter: /[\\/]style(s|_sheet)\.ts$/ }, async ({ path }) => ({
      contents: (await readFile(path, "utf8")).replace(/`[^`]*`/g, minifiedCss),
      loader: "ts",
    }));
  },
};

// Bundled and made small, and once more by a tool that names what comes most by the signs that come most: together
// 2 % smaller than by either.
async function bundle(entry, outfile, { format = "iife", plugins = [] } = {}) {
  const { outputFiles } = await esbuild.build({
    entryPoints: [join(root, entry)],
    bundle: true,
    format,
    target: "es2022",
    minify: true,
    legalComments: "none",
    write: false,
    plugins,
    logLevel: "warning",
  });
  const { code } = await minify(outputFiles[0].text, {
    ecma: 2022,
    module: format === "esm",
    // What is read and not used is read for what that does.
    compress: { passes: 2, pure_getters: false },
    format: {
      // A page says in which encoding its scripts are, also where it is not ours.
      ascii_only: true,
      // Nearly all of it runs at the start: the browser compiles it while it loads, beside its main thread.
      preamble: `//# allFunctionsCalledOnLoad\n${banner}`,
    },
  });
  await writeFile(outfile, `${code}\n`);
}

// `import files from "page-files"` gives the texts of the exercises and of what they name, by name.
const embedPages = (folder) => ({
  name: "embed-pages",
  setup(build) {
    build.onResolve({ filter: /^page-files$/ }, ({ path }) => ({ path, namespace: "embed-pages" }));
    build.onLoad({ filter: /.*/, namespace: "embed-pages" }, async () => {
      const ofAnExercise = (name) =>
        existsSync(join(root, "examples", name)) && !/^(handboek|maker|oefening|werkblad|les)/.test(name);
      const names = (await readdir(folder)).filter((name) => /^tabulon(-les)?\.js$/.test(name) || ofAnExercise(name));
      const texts = await Promise.all(
        names.sort().map(async (name) => [name, await readFile(join(folder, name), "utf8")]),
      );
      return { contents: JSON.stringify(Object.fromEntries(texts)), loader: "json" };
    });
  },
});

async function writePageScripts(made) {
  await bundle("pages/los-bestand.mjs", join(made, "los-bestand.js"), { plugins: [embedPages(made)] });
  for (const name of ["pagina", "maker", "oefening", "werkblad", "les"])
    await bundle(`pages/${name}.mjs`, join(made, `${name}.js`));
}

const typescript = join(dirname(createRequire(import.meta.url).resolve("typescript/package.json")), "bin/tsc");

// Declares every source in a folder of its own.
const declare = (folder) =>
  run(process.execPath, [
    typescript,
    "--project",
    join(root, "tsconfig.json"),
    "--noEmit",
    "false",
    "--declaration",
    "--emitDeclarationOnly",
    "--outDir",
    folder,
  ]).catch((error) => {
    throw new Error(error.stdout || error.message);
  });

// The declarations that a page's author needs: the element's, and what they name.
function reachable(file, found = new Set()) {
  if (found.has(file) || !existsSync(file)) return found;
  found.add(file);
  for (const [, target] of readFileSync(file, "utf8").matchAll(/from "(\.\/[^"]+)\.js"/g))
    reachable(join(dirname(file), `${target}.d.ts`), found);
  return found;
}

async function writeTypes(outDir) {
  const folder = `${outDir}-of-all`;
  await declare(folder);
  for (const file of reachable(join(folder, "hosts/web/tabulon.d.ts"))) await cp(file, join(outDir, basename(file)));
  const thinking = await readFile(join(folder, "hosts/web/lesson/thinking.d.ts"), "utf8");
  await writeFile(join(outDir, "thinking.d.ts"), thinking.replaceAll('"../', '"./'));
  await cp(join(root, "hosts/web/package/types"), outDir, { recursive: true });
  await rm(folder, { recursive: true });
}

async function writeDescription(made) {
  const manifest = describeElements(await readFile(join(made, "types/element.d.ts"), "utf8"));
  await writeFile(join(made, "custom-elements.json"), `${JSON.stringify(manifest, null, 2)}\n`);
  await writeFile(join(made, "types/attributes.d.ts"), attributesOf(manifest));
}

const kilobytes = (bytes) => `${Math.ceil(bytes.length / 1024)} kB`;

// The text of hosts/web/style_sheet.ts.
async function styleSheet() {
  const { outputFiles } = await esbuild.build({
    entryPoints: [join(root, "hosts/web/style_sheet.ts")],
    bundle: true,
    format: "esm",
    write: false,
    plugins: [minifyStyles],
    logLevel: "warning",
  });
  const { css } = await import(
    `data:text/javascript;base64,${Buffer.from(outputFiles[0].contents).toString("base64")}`
  );
  return css.trim();
}

// The plugins for a script that has this module in it, which must be as the tables say, and this style sheet.
async function pluginsFor(name, itsTables, style = "") {
  const module = await readFile(join(root, "build/web", name));
  const unpacker = await readFile(join(root, "build/web/unpack.wasm"));
  const found = breaches(module, itsTables);
  if (found.length) throw new Error(`${name} and its page do not agree: ${found.join("; ")}`);
  const whole = Buffer.concat([Buffer.from(style), module]);
  const packed = pack(whole);
  if (!whole.equals(unpack(packed, unpacker))) throw new Error(`${name} is not what it was when it is unpacked`);
  return [embedPacked({ "own.packed": packed, "unpack.wasm": asSigns(unpacker) }), minifyStyles];
}

async function packageWeb() {
  makeContract();
  const plugins = await pluginsFor("tabulon.wasm", tables, await styleSheet());
  const lessonPlugins = await pluginsFor("lesson.wasm", lessonTables);

  // Made aside and put in place when it is whole, so that a page that is being served is never half there.
  const made = join(root, `build/package-${process.pid}`);
  await cp(join(root, "examples"), made, {
    recursive: true,
    filter: (source) => !basename(source).startsWith("."),
  });
  for (const [name, format] of Object.entries({ "tabulon.js": "iife", "tabulon.mjs": "esm" }))
    await bundle("hosts/web/tabulon.ts", join(made, name), { format, plugins });
  await bundle("hosts/web/lesson/tabulon-les.ts", join(made, "tabulon-les.js"), { plugins: lessonPlugins });
  await writePageScripts(made);
  await writeTypes(join(made, "types"));
  await writeDescription(made);
  await makePictures(made);

  const out = join(root, "dist/web");
  await mkdir(dirname(out), { recursive: true });
  await rm(out, { recursive: true, force: true });
  await rename(made, out);
  for (const name of ["tabulon.js", "tabulon-les.js"])
    console.log(`dist/web/${name}: ${kilobytes(await readFile(join(out, name)))}`);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  await packageWeb().catch((error) => {
    console.error(`The web package was not made. ${error.message}`);
    process.exit(1);
  });
}
