// Keys as the control names them (platform/keys.h).

const codes: Record<string, number> = {
  Backspace: 8,
  Tab: 9,
  Enter: 13,
  Escape: 27,
  " ": 32,
  PageUp: 33,
  PageDown: 34,
  End: 35,
  Home: 36,
  ArrowLeft: 37,
  ArrowUp: 38,
  ArrowRight: 39,
  ArrowDown: 40,
  F10: 121,
};

export const escapeKey = 27;

const letterOrDigit = (text: string) => /^[a-z0-9]$/i.test(text);

// The key's code; 0 for a key that the control knows nothing of. Where Alt turns a letter into a sign, the
// place of the key tells the letter.
export function keyCode({ key, code }: KeyboardEvent): number {
  if (letterOrDigit(key)) return key.toUpperCase().charCodeAt(0);
  if (codes[key] !== undefined) return codes[key];
  return /^(Key[A-Z]|Digit[0-9])$/.test(code) ? code.charCodeAt(code.length - 1) : 0;
}

export const modifiers = ({ shiftKey, ctrlKey, altKey }: KeyboardEvent): number =>
  Number(shiftKey) + 2 * Number(ctrlKey) + 4 * Number(altKey);
