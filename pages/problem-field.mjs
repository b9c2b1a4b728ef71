// The field for the problem, with the numbers of its lines. It is as high as its text.
const field = document.getElementById("probleem");
const numbers = document.getElementById("nummers");
const fewest = 7;

const linesOf = (text) => text.split("\n");

export function number(mistaken = []) {
  const count = Math.max(linesOf(field.value).length, fewest);
  const marked = new Set(mistaken.map(({ line }) => line));
  field.rows = count;
  while (numbers.childElementCount > count) numbers.lastElementChild.remove();
  while (numbers.childElementCount < count) numbers.append(document.createElement("li"));
  [...numbers.children].forEach((item, at) => item.classList.toggle("fout", marked.has(at + 1)));
}

// Lines and characters count from 1; a character may be two of a script's.
function offsetOf({ line, column }) {
  const lines = linesOf(field.value);
  const before = lines.slice(0, line - 1).reduce((sum, each) => sum + each.length + 1, 0);
  const within = [...(lines[line - 1] ?? "")].slice(0, column - 1).join("").length;
  return before + within;
}

export function goTo(place) {
  const at = offsetOf(place);
  field.focus();
  field.setSelectionRange(at, at);
}
