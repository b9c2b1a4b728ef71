// Keys as the control names them (platform/keys.def).
import { Key, Modifier } from "#shared";

const names = {
  [Key.back]: "Backspace",
  [Key.tab]: "Tab",
  [Key.enter]: "Enter",
  [Key.escape]: "Escape",
  [Key.space]: " ",
  [Key.pageUp]: "PageUp",
  [Key.pageDown]: "PageDown",
  [Key.end]: "End",
  [Key.home]: "Home",
  [Key.left]: "ArrowLeft",
  [Key.up]: "ArrowUp",
  [Key.right]: "ArrowRight",
  [Key.down]: "ArrowDown",
  [Key.f10]: "F10",
} satisfies Record<Key, string>;

const codes = new Map(Object.entries(names).map(([code, name]) => [name, Number(code)]));

const letterOrDigit = (text: string) => /^[a-z0-9]$/i.test(text);

// The key's code; 0 for a key that the control knows nothing of. Where Alt turns a letter into a sign, the
// place of the key tells the letter; WebKitGTK has no name for Shift+Tab, but its place.
export function keyCode({ key, code }: KeyboardEvent): number {
  if (letterOrDigit(key)) return key.toUpperCase().charCodeAt(0);
  const named = codes.get(key === "Unidentified" ? code : key);
  if (named) return named;
  return /^(Key[A-Z]|Digit[0-9])$/.test(code) ? code.charCodeAt(code.length - 1) : 0;
}

export const modifiers = ({ shiftKey, ctrlKey, altKey }: KeyboardEvent): number =>
  Number(shiftKey) * Modifier.shift + Number(ctrlKey) * Modifier.ctrl + Number(altKey) * Modifier.alt;
