// The npm package as its users meet it: the packed file installed in an empty folder, then types, a bundler, two
// frameworks in a browser, and a server.
import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { cp, mkdir, mkdtemp, readdir, readFile, rm, symlink, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { after, before, describe, test } from "node:test";
import { checkPackage, Package } from "@arethetypeswrong/core";
import vue from "@vitejs/plugin-vue";
import { publint } from "publint";
import { build } from "vite";
import { packNpm } from "../../tools/package-npm.mjs";
import { root } from "../../tools/sources.mjs";
import { idle, launch, noise, text } from "../browser/browser.mjs";

const { version } = JSON.parse(await readFile(join(root, "package.json"), "utf8"));

const run = (command, args, options) =>
  new Promise((resolve) =>
    execFile(command, args, options, (error, stdout, stderr) => resolve({ code: error?.code ?? 0, stdout, stderr })),
  );

// The folder of someone who has installed the package; what else a page is made of is taken from ours.
let folder;
let installed;
const besides = ["react", "react-dom", "scheduler", "csstype", "@types", "vue", "@vue"];

before(async () => {
  folder = await mkdtemp(join(tmpdir(), "installed-"));
  const packed = await packNpm(folder, process.env.TABULON_WEB);
  await writeFile(join(folder, "package.json"), '{ "private": true, "type": "module" }');
  const { code, stderr } = await run("npm", ["install", "--offline", "--no-audit", "--no-fund", packed], {
    cwd: folder,
  });
  assert.equal(code, 0, stderr);
  installed = join(folder, "node_modules/tabulon");
  for (const name of besides) {
    await mkdir(dirname(join(folder, "node_modules", name)), { recursive: true });
    await symlink(join(root, "node_modules", name), join(folder, "node_modules", name));
  }
  for (const page of ["plain", "react", "vue"])
    await cp(join(root, "tests/package", page), join(folder, page), { recursive: true });
});
after(() => rm(folder, { recursive: true, force: true }));

async function filesOf(place) {
  const entries = await readdir(place, { recursive: true, withFileTypes: true });
  const paths = entries
    .filter((entry) => entry.isFile())
    .map((entry) => join(entry.parentPath ?? entry.path, entry.name));
  return Promise.all(paths.map(async (path) => [path, await readFile(path, "utf8")]));
}

describe("those who check packages find nothing", () => {
  test("of what publint looks for", async () => {
    const { messages } = await publint({ pkgDir: installed, pack: false, strict: true });
    assert.deepEqual(messages, []);
  });

  // The package is for import alone, which older ways to resolve do not know.
  test("of what attw looks for", async () => {
    const files = (await filesOf(installed)).map(([path, content]) => [path.slice(folder.length), content]);
    const { problems, entrypoints } = await checkPackage(new Package(Object.fromEntries(files), "tabulon", version));
    const forImport = problems.filter(
      ({ kind, resolutionKind }) => resolutionKind !== "node10" && kind !== "CJSResolvesToESM",
    );
    assert.ok(Object.keys(entrypoints).includes("./react"));
    assert.deepEqual(forImport, []);
  });
});

describe("the package", () => {
  test("has the project's version, licence and changes, and no dependency", async () => {
    const told = JSON.parse(await readFile(join(installed, "package.json"), "utf8"));
    assert.equal(told.version, version);
    assert.equal(told.license, "MIT");
    assert.equal(told.dependencies, undefined);
    assert.deepEqual(await readdir(folder).then((names) => names.includes("node_modules")), true);
    assert.match(await readFile(join(installed, "LICENSE"), "utf8"), /^MIT License/);
    assert.ok((await readFile(join(installed, "CHANGELOG.md"), "utf8")).includes(`## [${version}]`));
  });

  test("names no host", async () => {
    const told = await readFile(join(installed, "package.json"), "utf8");
    assert.doesNotMatch(told, /https?:|git@|github|gitlab/);
  });

  test("says its version at the head of both scripts", async () => {
    for (const name of ["tabulon.js", "tabulon.mjs"]) {
      const script = await readFile(join(installed, name), "utf8");
      assert.match(script, new RegExp(`^(//#.*\\n)?/\\*! Tabulon ${version}\\. `), name);
    }
  });

  const described = (list) => list.map(({ name, description }) => (description ? name : `${name} without a word`));

  // What an editor is told of an element.
  async function toldOf(tag) {
    const { modules } = JSON.parse(await readFile(join(installed, "custom-elements.json"), "utf8"));
    const { path, declarations } = modules.find(({ exports }) => exports.some(({ name }) => name === tag));
    return { path, ...declarations.find(({ tagName }) => tagName === tag) };
  }

  test("tells an editor of every attribute and event of the log", async () => {
    const { path, description, attributes, members, events } = await toldOf("tabulon-les");
    assert.ok((await readdir(installed)).includes(path));
    assert.match(description, /^`<tabulon-les>` around a `<tabulon-lpctrl>`/);
    assert.deepEqual(described(attributes), ["hulp", "bewaar"]);
    assert.equal(attributes[0].type.text, '"geen"|"achteraf"|"altijd"');
    assert.deepEqual(members, []);
    assert.deepEqual(described(events), ["tabulon-change"]);
  });

  test("tells an editor of every attribute, property, method and event of the control", async () => {
    const { attributes, members, events } = await toldOf("tabulon-lpctrl");
    assert.deepEqual(described(attributes), [
      ...["prmNrBeslisVar", "prmNrKleinerGelijkVglen", "prmNrGroterGelijkVglen", "prmNrGelijkVglen", "prmBigM"],
      ...[
        "prmSTR_DLfunctie",
        "prmSTR_KleinerGelijkVglen",
        "prmSTR_GroterGelijkVglen",
        "prmSTR_GelijkVglen",
        "prmSTR_RL",
        "nofocus",
      ],
    ]);
    // What the types declare, the constructor and what the browser calls aside.
    const types = await readFile(join(installed, "types/element.d.ts"), "utf8");
    const declared = [...types.matchAll(/^ {4}(?:static |readonly |[gs]et )*(\w+)[(:]/gm)]
      .map(([, name]) => name)
      .filter((name) => !/^constructor$|Callback$|^"/.test(name));
    assert.deepEqual(described(members), declared);
    assert.deepEqual(described(events), ["tabulon-error", "tabulon-change"]);
  });
});

describe("TypeScript in strict mode", () => {
  const compiler = join(root, "node_modules/typescript/bin/tsc");
  const options = "--noEmit --strict --target es2022 --lib es2023,dom,dom.iterable --jsx react-jsx --types".split(" ");

  async function complaints(resolution, module, ...files) {
    const how = ["--module", module, "--moduleResolution", resolution];
    const { stdout } = await run(process.execPath, [compiler, ...options, "", ...how, ...files], { cwd: folder });
    return stdout;
  }

  for (const [resolution, module] of Object.entries({ bundler: "esnext", nodenext: "nodenext" })) {
    test(`takes the pages, resolving as ${resolution} does`, async () => {
      assert.equal(await complaints(resolution, module, "plain/main.ts", "react/main.tsx"), "");
    });
  }

  const lines = {
    "an attribute that is not there, in TSX": [
      "one.tsx",
      'import type {} from "tabulon/react";\nexport const e = <tabulon-lpctrl prmNrRijen={2} />;',
      /prmNrRijen/,
    ],
    "a value of another type, in TSX": [
      "two.tsx",
      'import type {} from "tabulon/react";\nexport const e = <tabulon-lpctrl prmBigM={true} />;',
      /'true' is not assignable/,
    ],
    "help of the log that is not there, in TSX": [
      "four.tsx",
      'import type {} from "tabulon/react";\nexport const e = <tabulon-les hulp="soms" />;',
      /'"soms"' is not assignable/,
    ],
    "help of the log that is not there, in Vue's templates": [
      "five.ts",
      'import type {} from "tabulon/vue";\nimport type { GlobalComponents } from "vue";\n' +
        'type Props = InstanceType<GlobalComponents["tabulon-les"]>["$props"];\n' +
        'export const right: Props = { hulp: "geen", bewaar: "les 1", onTabulonChange: ({ detail }) => detail.row };\n' +
        'export const wrong: Props = { hulp: "soms" };',
      /^five\.ts\(5,31\): .*'"soms"' is not assignable/,
    ],
    "a change of a cause that is not there": [
      "six.ts",
      'import "tabulon/tabulon-les.js";\nimport type { Verdict } from "tabulon/tabulon-les.js";\n' +
        "export const told = (verdict: Verdict) => verdict.sentences[0];\n" +
        'document.querySelector("tabulon-les")?.addEventListener("tabulon-change", ({ detail }) => detail.cause === "typed");',
      /^six\.ts\(4,\d+\): .*'"typed"' have no overlap/,
    ],
    "a value of another type, in Vue's templates": [
      "three.ts",
      'import type {} from "tabulon/vue";\nimport type { GlobalComponents } from "vue";\n' +
        'type Props = InstanceType<GlobalComponents["tabulon-lpctrl"]>["$props"];\n' +
        "export const right: Props = { prmNrBeslisVar: 2 };\nexport const wrong: Props = { prmSTR_RL: 3 };",
      /^three\.ts\(5,31\): .*'number' is not assignable to type 'string'/,
    ],
  };
  for (const [what, [name, content, said]] of Object.entries(lines))
    test(`refuses ${what}`, async () => {
      await writeFile(join(folder, name), content);
      assert.match(await complaints("bundler", "esnext", name), said);
    });
});

describe("on a server", () => {
  test("importing it does nothing and throws nothing", async () => {
    const script =
      'const before = Object.keys(globalThis).join(); const { TabulonLPctrl, TabulonError } = await import("tabulon"); ' +
      'await import("tabulon/tabulon-les.js"); ' +
      'if (Object.keys(globalThis).join() !== before) throw new Error("it left something behind"); ' +
      "console.log(TabulonLPctrl.version, new TabulonError(6, '').number);";
    const { code, stdout, stderr } = await run(process.execPath, ["--input-type=module", "-e", script], {
      cwd: folder,
    });
    assert.deepEqual({ code, stdout, stderr }, { code: 0, stdout: `${version} 6\n`, stderr: "" });
  });

  test("React writes a page with it", async () => {
    const script =
      'import "tabulon"; import { createElement } from "react"; import { renderToString } from "react-dom/server"; ' +
      'console.log(renderToString(createElement("tabulon-lpctrl", { prmNrBeslisVar: 2 })));';
    const { stdout, stderr } = await run(process.execPath, ["--input-type=module", "-e", script], { cwd: folder });
    assert.equal(stdout, '<tabulon-lpctrl prmNrBeslisVar="2"></tabulon-lpctrl>\n', stderr);
  });
});

describe("a page that Vite builds", () => {
  const isCustomElement = (tag) => tag.startsWith("tabulon-");

  let browser;
  before(async () => (browser = await launch()));
  after(() => browser?.close());

  // Builds the page and opens it, under the rules that the control promises to keep.
  async function built(page) {
    await build({
      root: join(folder, page),
      base: "./",
      configFile: false,
      logLevel: "error",
      plugins: [vue({ template: { compilerOptions: { isCustomElement } } })],
      esbuild: { jsx: "automatic" },
      build: { outDir: join(browser.folder, page), target: "es2022" },
    });
    return browser.open(`${page}/index.html`, { wait: false });
  }

  const shown = async (page) => {
    await page.waitForSelector("tabulon-lpctrl");
    await idle(page);
    return [await text(page, "txtRij_F", 2), await text(page, "txtTableau", 12), await text(page, "txtRL", 3)];
  };
  // By the log, and to the page.
  async function stepIsTold(page) {
    await page.waitForSelector("tabulon-les >>> .title");
    await page.click('tabulon-lpctrl >>> [data-name="cmd_Opties"]');
    await page.click('tabulon-lpctrl >>> [data-name="mnu_Breuken"]');
    const told = await page.waitForSelector("tabulon-les >>> li p");
    assert.equal(await told.evaluate(({ textContent }) => textContent), "De getallen staan er nu als breuken.");
    assert.equal(await page.title(), "fractions");
    assert.deepEqual(await page.$$("tabulon-les >>> .log[data-hulp=achteraf]").then(({ length }) => length), 1);
    await page.click('tabulon-lpctrl >>> [data-name="cmd_Opties"]');
    await page.click('tabulon-lpctrl >>> [data-name="mnu_Breuken"]');
    await idle(page);
  }

  const ofTheProblem = [" -5", " 2", " 18"];

  test("keeps the element, which a page only names", async () => {
    const page = await built("plain");
    assert.deepEqual(await shown(page), ofTheProblem);
    await page.waitForSelector('button[title=" 3/4"]');
    assert.equal(await page.$eval("button", (button) => button.textContent), version);
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  for (const framework of ["react", "vue"])
    test(`of ${framework} shows its exercise, and again when it is put back`, async () => {
      const page = await built(framework);
      assert.deepEqual(await shown(page), ofTheProblem);
      assert.equal(await page.$eval("button", (button) => button.textContent), version);
      await stepIsTold(page);
      await page.click("button");
      await page.waitForFunction(() => !document.querySelector("tabulon-lpctrl"));
      await page.click("button");
      assert.deepEqual(await shown(page), ofTheProblem);
      assert.deepEqual(noise(page), []);
      await page.close();
    });
});
