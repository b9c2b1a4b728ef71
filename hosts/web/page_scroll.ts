// The keys that scroll a page, for where the browser would take them for typing.

// How many windows down.
const ways: Record<string, number> = { PageDown: 0.9, PageUp: -0.9, End: 1e4, Home: -1e4 };

const wayOf = ({ key, shiftKey }: KeyboardEvent) => (key === " " ? ways[shiftKey ? "PageUp" : "PageDown"] : ways[key]);

const canScroll = (node: Element) =>
  node.scrollHeight > node.clientHeight && /auto|scroll/.test(getComputedStyle(node).overflowY);

// Scrolls what `node` stands in, as the key says; whether it says so.
export function scrollPage(node: Element, event: KeyboardEvent): boolean {
  const way = wayOf(event);
  if (way === undefined || event.ctrlKey || event.altKey) return false;
  let around = node.parentElement;
  while (around && !canScroll(around)) around = around.parentElement;
  const target = around ?? node.ownerDocument.documentElement;
  target.scrollBy({ top: way * target.clientHeight });
  return true;
}
