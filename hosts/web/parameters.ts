// The parameters that a page gives to an element: what a script or a framework has set on it before it is first
// shown, then attributes and <param> children, in the order of the source.
// An element without any takes those of the <object> that it stands in: there it is what browsers show that do
// not take the object's class, and both are to be given the same problem.
import { TabulonError } from "./errors.js";

export interface Parameters {
  // name, text, name, text, ...
  readonly listing: readonly string[];
  textOf(name: string): string | undefined;
  // A value that is no text at all; then nothing is listed.
  readonly error: TabulonError | undefined;
}

// With `prm`, or as it is easily forgotten: the control then names what it does not know.
const isParameterName = (name: string) => /^(prm|nr\w+(var|vglen)$|bigm$|str_)/i.test(name);
// A script's name for a list, as the page has it.
const pageName = (property: string) => property.replace(/^prm(?!Nr|BigM)/, "prmSTR_");
const withoutNul = (text: string) => text.replaceAll("\0", "\uFFFD");

type Given = [name: string, text: string];

const attributesOf = (element: Element) => [...element.attributes].map(({ name, value }): Given => [name, value]);
const paramsOf = (element: Element) =>
  [...element.children]
    .filter(({ localName }) => localName === "param")
    .map((param): Given => [param.getAttribute("name") ?? "", param.getAttribute("value") ?? ""]);
const ofParameters = (all: Given[]) => all.filter(([name]) => isParameterName(name));

function given(element: Element): Given[] {
  const own = ofParameters([...attributesOf(element), ...paramsOf(element)]);
  const object = element.closest("object");
  return own.length || !object ? own : ofParameters(paramsOf(object));
}

// `early` are the properties that have been set so far. Theirs is the last word, so they stand in the place of the
// page's own. That the control is to be shown goes without saying.
export function readParameters(element: Element, early: ReadonlyMap<string, unknown>): Parameters {
  const texts = new Map<string, string>();
  const listing: string[] = [];
  const add = (name: string, text: string) => {
    texts.set(name.toLowerCase(), text);
    listing.push(withoutNul(name), withoutNul(text));
  };
  for (const [property, value] of early) {
    if (value === null || value === undefined)
      return { listing: [], textOf: () => undefined, error: new TabulonError(13, property, String(value)) };
    if (property !== "prmShow") add(pageName(property), String(value));
  }
  const spoken = new Set(texts.keys());
  for (const [name, value] of given(element)) {
    if (spoken.has(name.toLowerCase())) continue;
    if (texts.has(name.toLowerCase())) console.warn(`Tabulon: ${name} is tweemaal gegeven; de eerste telt.`);
    else add(name, value);
  }
  return { listing, textOf: (name) => texts.get(name.toLowerCase()), error: undefined };
}

// The parser calls for an element before it has read what stands in it. It is past the element's end as soon
// as something stands after it.
function isParsed(element: Element): boolean {
  if (element.ownerDocument.readyState !== "loading") return true;
  for (let node: Node | null = element; node; node = node.parentNode) if (node.nextSibling) return true;
  return false;
}

// Calls when the parameters stand there and the element can be seen. One in an <object> is not seen before the
// browser has found that it has nothing else to show there, which it does before it says that the page is loaded.
// (Chromium must not be asked for anything of the object before that, or it never shows what stands in it.)
export function whenGiven(element: Element, start: () => void): void {
  const page = element.ownerDocument;
  const once = { once: true };
  if (page.readyState !== "complete" && element.closest("object")) addEventListener("load", start, once);
  else if (isParsed(element)) start();
  else page.addEventListener("DOMContentLoaded", start, once);
}
