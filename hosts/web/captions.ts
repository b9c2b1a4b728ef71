// Captions with an access key, as captions.h has them: "&" stands before the key's letter, "&&" is a plain "&".

export interface Caption {
  readonly before: string;
  readonly key: string; // "" when there is none
  readonly after: string;
}

export function parseCaption(caption: string): Caption {
  const parts = { before: "", key: "", after: "" };
  for (let at = 0; at < caption.length; ++at) {
    const marked = caption[at] === "&" && at + 1 < caption.length;
    const letter = caption[marked ? ++at : at]!;
    if (marked && letter !== "&" && !parts.key) parts.key = letter;
    else if (parts.key) parts.after += letter;
    else parts.before += letter;
  }
  return parts;
}

export const plainCaption = (caption: string): string => {
  const { before, key, after } = parseCaption(caption);
  return before + key + after;
};

// Writes the caption into an element, the letter of its key underlined.
export function writeCaption(element: Element, caption: string): void {
  const { before, key, after } = parseCaption(caption);
  const letter = document.createElement("u");
  letter.textContent = key;
  element.replaceChildren(before, ...(key ? [letter] : []), after);
}
