// Runs clang-tidy over every C++ source that a configured preset compiles: node tools/tidy.mjs
//
// Most of its time goes to the headers of the standard library, so the sources of a part are read as one. Where
// two of them have a name of their own alike, it gets a number. Where that is not enough, the compiler is asked which
// names are in the way, and what still does not go together is read by halves. A part that was found clean is not read
// again as long as nothing in it changes: build/tidy/ has a mark for each text that passed.
import { execFile } from "node:child_process";
import { createHash } from "node:crypto";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join, relative } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import { bracketedIncludes, quotedIncludes } from "./include-direction.mjs";
import { root } from "./sources.mjs";

const compiler = "clang++-19";
const tidy = "clang-tidy-19";
const folder = join(root, "build/tidy");
const presets = ["native", "sanitize", "web", "windows"];

// Of how a source is compiled, what decides what it means; the rest is optimisation and precompiled headers.
const counts = /^(--target=|-stdlib=|-std=|-D|-I|-isystem|-fno-rtti|-fconstexpr-steps=)/;

// Our own sources: not what is made in build/, and nothing from elsewhere.
export const isRead = (path) => path.endsWith(".cpp") && !/^(build\/|\.\.)/.test(path);

// A source, or several that are compiled as one.
function compiledIn(file) {
  if (!/\/Unity\/unity_\d+_cxx\.cxx$/.test(file)) return [file];
  return [...readFileSync(file, "utf8").matchAll(/^#include "(.*)"$/gm)].map(([, source]) => source);
}

function compiled(preset) {
  const database = join(root, "build", preset, "compile_commands.json");
  if (!existsSync(database)) return [];
  return JSON.parse(readFileSync(database, "utf8"))
    .flatMap(({ file, command }) => compiledIn(file).map((each) => ({ file: each, command })))
    .filter(({ file }) => isRead(relative(root, file)));
}

const words = (command) => command.replaceAll("-isystem ", "-isystem").replaceAll('\\"', '"').split(" ");

const flagsOf = (entries) => [
  ...new Set(entries.flatMap(({ command }) => words(command).filter((word) => counts.test(word)))),
];

// The sources by preset, tests apart, each source in the first preset that has it.
export function parts() {
  const seen = new Set();
  return presets.flatMap((preset) => {
    const entries = compiled(preset).filter(({ file }) => !seen.has(file));
    for (const { file } of entries) seen.add(file);
    const isTest = ({ file }) => /^(tests|fuzz|benchmarks)\//.test(relative(root, file));
    return [
      { name: preset, entries: entries.filter((entry) => !isTest(entry)) },
      { name: `${preset}, tests`, entries: entries.filter(isTest) },
    ]
      .filter(({ entries }) => entries.length)
      .map(({ name, entries }) => ({
        name,
        flags: flagsOf(entries),
        sources: [...new Set(entries.map(({ file }) => file))].sort(),
      }));
  });
}

async function output(command, options) {
  const run = promisify(execFile)(command, options, { cwd: root, maxBuffer: 1 << 28 });
  return run.catch((error) => {
    if (typeof error.code === "number") return { ...error, failed: true };
    throw error;
  });
}

// The headers that a source includes, as it would from anywhere else. A table (.def) means nothing by itself.
function includeLines(source) {
  const text = readFileSync(source, "utf8");
  const beside = (target) => [join(dirname(source), target), target].find(existsSync) ?? target;
  return [
    ...bracketedIncludes(text).map((target) => `#include <${target}>`),
    ...quotedIncludes(text)
      .filter((target) => !target.endsWith(".def"))
      .map((target) => `#include "${beside(target)}"`),
  ];
}

const digest = (...texts) => texts.reduce((hash, text) => hash.update(text), createHash("sha256")).digest("hex");

// One source that includes those, with their headers first, which have no names of their own to tell apart.
// `renamed` has the names of a source that others have too.
function together(sources, renamed = new Map()) {
  const headers = sources.flatMap((source) => includeLines(source));
  const included = sources.flatMap((source, number) => {
    const names = [...(renamed.get(source) ?? [])];
    return [
      ...names.map((name) => `#define ${name} ${name}_${number}`),
      `#include "${source}"`,
      ...names.map((name) => `#undef ${name}`),
    ];
  });
  const text = [...new Set(headers), ...included, ""].join("\n");
  const path = join(folder, `${digest(text)}.cpp`);
  mkdirSync(folder, { recursive: true });
  writeFileSync(path, text);
  return path;
}

// The names of a source that those of others may be like: what is in its unnamed namespaces, and what is known to the
// system. What is a member somewhere in it cannot have another name.
function ownNames(source) {
  const text = readFileSync(source, "utf8");
  const apart =
    /^namespace \{$.*?^\} {2}\/\/ namespace$|^extern "C" \{$.*?^\} {2}\/\/ extern "C"$|^extern "C" [^{\n]*\{$/gms;
  const definition =
    /^(?:(?:class|struct|enum class) (\w+)|(?!class|struct|enum|using|namespace)\w[^\n;(={]*[ *&](\w+)(?:[(;[{]| =))/gm;
  const names = (text.match(apart) ?? []).flatMap((part) =>
    [...part.replaceAll('extern "C" ', "").matchAll(definition)].map(([, type, other]) => type ?? other),
  );
  return new Set(names.filter((name) => !new RegExp(`(\\.|->|::)${name}\\b`).test(text)));
}

// By source, the names that one before it has too.
function namesAlike(sources) {
  const seen = new Set();
  const alike = new Map();
  for (const source of sources) {
    const names = ownNames(source);
    alike.set(source, new Set([...names].filter((name) => seen.has(name))));
    for (const name of names) seen.add(name);
  }
  return alike;
}

// The sources in which the compiler finds an error when all are read as one, each with the names that it is about.
async function atOdds(path, flags) {
  const { stderr } = await output(compiler, [...flags, "-w", "-ferror-limit=0", "-fsyntax-only", path]);
  const names = new Map();
  for (const [, source, message] of stderr.matchAll(/^([^:\n]+):\d+:\d+: error: (.*)$/gm)) {
    const own = /(?:redefinition|declaration) of '(\w+)'/.exec(message);
    names.set(source, [...(names.get(source) ?? []), ...(own ? [own[1]] : [])]);
  }
  return names;
}

// The sources as few texts for clang-tidy: renamed as long as that helps, else by halves until they go together. One
// that does not even go alone is left to clang-tidy to report.
async function rounds(sources, flags) {
  const renamed = new Map();
  for (let helps = true; helps; ) {
    const path = together(sources, renamed);
    const odds = await atOdds(path, flags);
    if (odds.size === 0 || sources.length === 1) return [path];
    helps = false;
    for (const [source, names] of odds) {
      const all = new Set([...(renamed.get(source) ?? []), ...names]);
      helps ||= all.size > (renamed.get(source)?.size ?? 0);
      renamed.set(source, all);
    }
  }
  const middle = sources.length >> 1;
  return [...(await rounds(sources.slice(0, middle), flags)), ...(await rounds(sources.slice(middle), flags))];
}

async function findingsIn(path, flags) {
  const { stdout, stderr, failed } = await output(tidy, ["--quiet", path, "--", ...flags, "-w"]);
  return failed ? stdout || stderr : "";
}

// What clang-tidy finds in all of them, which most often can be read together as they are.
async function read(sources, flags) {
  const found = await findingsIn(together(sources, namesAlike(sources)), flags);
  if (!found.includes("clang-diagnostic-error")) return found;
  const said = [];
  for (const path of await rounds(sources, flags)) said.push(await findingsIn(path, flags));
  return said.join("");
}

// What clang-tidy has to say of a part, as text; empty when all is well.
export async function findings({ sources, flags }) {
  const { stdout: text } = await output(compiler, [...flags, "-w", "-E", "-CC", together(sources)]);
  const rules = readFileSync(join(root, ".clang-tidy"));
  const passed = join(folder, `${digest(rules, ...flags, text)}.passed`);
  if (existsSync(passed)) return "";
  const found = await read(sources, flags);
  if (!found) writeFileSync(passed, "");
  return found;
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  for (const part of parts()) {
    const found = await findings(part);
    process.stdout.write(found);
    if (found) process.exitCode = 1;
  }
}
