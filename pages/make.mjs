// Elements with what is in them:
//
//   make("p", { class: "klein" }, "Typ ", make("kbd", {}, "Tab"))
//
// A text is a text: what a person has typed never becomes HTML. They are made in a document of their own, where no
// element of the page wakes up, so that they can be written as HTML too; on the page they are what they are.
const elsewhere = document.implementation.createHTMLDocument("");

export function make(name, attributes = {}, ...children) {
  const node = elsewhere.createElement(name);
  for (const [key, value] of Object.entries(attributes)) node.setAttribute(key, value);
  node.append(...children.filter((child) => child !== null));
  return node;
}

const isLeafAlone = ([first, ...others]) => !others.length && !first.firstElementChild;

// Every element that holds elements alone gets a line for each of them, unless it is one that holds none itself.
export function spread(node, depth = 0) {
  const children = [...node.childNodes];
  const areElements = children.every(({ nodeType }) => nodeType === Node.ELEMENT_NODE);
  if (!children.length || !areElements || isLeafAlone(children)) return node;
  for (const child of children) child.before(`\n${"  ".repeat(depth + 1)}`);
  node.append(`\n${"  ".repeat(depth)}`);
  for (const child of children) spread(child, depth + 1);
  return node;
}
