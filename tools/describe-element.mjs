// What an editor is told of <tabulon-lpctrl>, from the comments in hosts/web/element.ts:
//
//   const manifest = describeElement(types);   // types: the text of element.d.ts
//   attributesOf(manifest)                           // the declaration of TabulonAttributes
//
// The manifest is custom-elements.json, as editors and documentation tools read it.
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { create, ts } from "@custom-elements-manifest/analyzer";

const root = fileURLToPath(new URL("..", import.meta.url));
const sources = ["hosts/web/element.ts", "hosts/web/errors.ts"];
const tag = "tabulon-lpctrl";
// What a page imports.
const path = "tabulon.mjs";

function analyze() {
  const parsed = sources.map((path) =>
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

export function describeElement(types) {
  const setters = typesOfSetters(types);
  const classes = analyze().filter(({ kind, name }) => kind === "class" && name.startsWith("Tabulon"));
  const declarations = classes.map(({ members, ...told }) => ({
    ...told,
    superclass: { name: told.customElement ? "HTMLElement" : "Error" },
    members: members.filter(isPublic).map((member) => memberOf(member, setters)),
  }));
  const ofClass = (name) => ({ name, module: path });
  const exports = [
    ...classes.map(({ name }) => ({ kind: "js", name, declaration: ofClass(name) })),
    { kind: "custom-element-definition", name: tag, declaration: ofClass("TabulonLPctrl") },
  ];
  return {
    schemaVersion: "1.0.0",
    readme: "README.md",
    modules: [{ kind: "javascript-module", path, declarations, exports }],
  };
}

const declaration = (manifest) => manifest.modules[0].declarations.find(({ customElement }) => customElement);

function attributeLines({ name, type, description, default: usual }) {
  const taken = type.text === "number" ? "Count" : type.text;
  return `  /** ${description}${usual === undefined ? "" : ` ${usual} without it.`} */\n  ${name}?: ${taken} | undefined;`;
}

export const attributesOf = (manifest) =>
  [
    'import type { Count } from "./element.js";',
    "/** What a page gives to the element, by the names of its attributes. */",
    "export interface TabulonAttributes {",
    ...declaration(manifest).attributes.map(attributeLines),
    "}",
    "",
  ].join("\n");
