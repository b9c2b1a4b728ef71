// What an editor is told of <tabulon-lpctrl> and <tabulon-les>, from the comments in hosts/web/element.ts and
// hosts/web/lesson/element.ts:
//
//   const manifest = describeElements(types);   // types: the text of element.d.ts
//   attributesOf(manifest)                      // the declarations of TabulonAttributes and TabulonLesAttributes
//
// The manifest is custom-elements.json, as editors and documentation tools read it.
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { create, ts } from "@custom-elements-manifest/analyzer";

const root = fileURLToPath(new URL("..", import.meta.url));
// By what a page imports or loads.
const sources = {
  "tabulon.mjs": ["hosts/web/element.ts", "hosts/web/errors.ts"],
  "tabulon-les.js": ["hosts/web/lesson/element.ts"],
};

function analyze(paths) {
  const parsed = paths.map((path) =>
    ts.createSourceFile(path, readFileSync(join(root, path), "utf8"), ts.ScriptTarget.ES2022, true),
  );
  return create({ modules: parsed, context: {} }).modules.flatMap(({ declarations }) => declarations);
}

// The analyzer does not say of what type a property is that is only written.
const typesOfSetters = (types) => new Map([...types.matchAll(/set (\w+)\(value: (.+?)\);/g)].map(([, ...row]) => row));

// What is for others is described for others.
const isPublic = ({ description }) => description !== undefined;

function memberOf(member, setters) {
  const { default: _, ...told } = member;
  const text = setters.get(member.name);
  return text ? { ...told, type: { text } } : told;
}

function moduleOf(path, setters) {
  const classes = analyze(sources[path]).filter(({ kind, name }) => kind === "class" && name.startsWith("Tabulon"));
  const declarations = classes.map(({ members = [], ...told }) => ({
    ...told,
    superclass: { name: told.customElement ? "HTMLElement" : "Error" },
    members: members.filter(isPublic).map((member) => memberOf(member, setters)),
  }));
  const ofClass = (name) => ({ name, module: path });
  const defined = classes.filter(({ customElement }) => customElement);
  const exports = [
    ...(path.endsWith(".mjs") ? classes : []).map(({ name }) => ({ kind: "js", name, declaration: ofClass(name) })),
    ...defined.map(({ name, tagName }) => ({
      kind: "custom-element-definition",
      name: tagName,
      declaration: ofClass(name),
    })),
  ];
  return { kind: "javascript-module", path, declarations, exports };
}

export function describeElements(types) {
  const setters = typesOfSetters(types);
  return {
    schemaVersion: "1.0.0",
    readme: "README.md",
    modules: Object.keys(sources).map((path) => moduleOf(path, setters)),
  };
}

function attributeLines({ name, type, description, default: usual }) {
  const taken = type.text === "number" ? "Count" : type.text;
  return `  /** ${description}${usual === undefined ? "" : ` ${usual} without it.`} */\n  ${name}?: ${taken} | undefined;`;
}

const attributesNamed = (name, tag, { modules }) => [
  `/** What a page gives to <${tag}>, by the names of its attributes. */`,
  `export interface ${name} {`,
  ...modules
    .flatMap(({ declarations }) => declarations)
    .find(({ tagName }) => tagName === tag)
    .attributes.map(attributeLines),
  "}",
  "",
];

export const attributesOf = (manifest) =>
  [
    'import type { Count } from "./element.js";',
    ...attributesNamed("TabulonAttributes", "tabulon-lpctrl", manifest),
    ...attributesNamed("TabulonLesAttributes", "tabulon-les", manifest),
  ].join("\n");
