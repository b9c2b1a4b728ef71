// What a browser does with a key in a text box, for a key whose own turn has passed.

// From the selection and the text's length: what a key takes away, or where it puts the caret.
type Reach = (from: number, to: number, length: number) => readonly [number, number];

const removals: Record<string, Reach> = {
  Backspace: (from, to) => [from < to ? from : Math.max(0, from - 1), to],
  Delete: (from, to) => [from, from < to ? to : to + 1],
};

const at = (place: number) => [place, place] as const;

const moves: Record<string, Reach> = {
  ArrowLeft: (from, to) => at(from < to ? from : Math.max(0, from - 1)),
  ArrowRight: (from, to) => at(from < to ? to : to + 1),
  Home: () => at(0),
  End: (_from, _to, length) => at(length),
};

const isSign = (key: string) => key.length === 1;

// Signs that AltGr makes have both Ctrl and Alt.
export const isTyping = ({ key, ctrlKey, altKey, metaKey }: KeyboardEvent): boolean =>
  ctrlKey === altKey && !metaKey && (isSign(key) || key in removals || key in moves);

// The box is told by an `input` event, as when the browser does it.
export function typeInto(box: HTMLInputElement, key: string): void {
  const selection = [box.selectionStart ?? 0, box.selectionEnd ?? 0, box.value.length] as const;
  const move = moves[key];
  if (move) return box.setSelectionRange(...move(...selection));
  if (box.readOnly) return;
  const [from, to] = removals[key]?.(...selection) ?? selection;
  box.setRangeText(isSign(key) ? key : "", from, Math.min(to, box.value.length), "end");
  box.dispatchEvent(new InputEvent("input", { bubbles: true }));
}
