// The parameters that a page gives to an element: attributes and <param> children, in the order of the source.

export interface Parameters {
  // name, text, name, text, ...
  readonly listing: readonly string[];
  textOf(name: string): string | undefined;
}

const isParameterName = (name: string) => /^prm/i.test(name);
const withoutNul = (text: string) => text.replaceAll("\0", "\uFFFD");

function* given(element: Element): Generator<[string, string]> {
  for (const attribute of element.attributes) yield [attribute.name, attribute.value];
  for (const child of element.children)
    if (child.localName === "param") yield [child.getAttribute("name") ?? "", child.getAttribute("value") ?? ""];
}

export function readParameters(element: Element): Parameters {
  const texts = new Map<string, string>();
  const listing: string[] = [];
  for (const [name, value] of given(element)) {
    if (!isParameterName(name)) continue;
    if (texts.has(name.toLowerCase())) {
      console.warn(`Tabulon: ${name} is tweemaal gegeven; de eerste telt.`);
      continue;
    }
    texts.set(name.toLowerCase(), value);
    listing.push(withoutNul(name), withoutNul(value));
  }
  return { listing, textOf: (name) => texts.get(name.toLowerCase()) };
}

// The parser calls for an element before it has read what stands in it. It is past the element's end as soon
// as something stands after it.
export function isParsed(element: Element): boolean {
  if (element.ownerDocument.readyState !== "loading") return true;
  for (let node: Node | null = element; node; node = node.parentNode) if (node.nextSibling) return true;
  return false;
}
