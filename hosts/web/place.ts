// Where a node stands in the window, on pages that scale what they show (`zoom`, `transform: scale`) too.

const probe = 100;

// Puts a positioned node at a place of the window, whatever its left and top are counted from and in. Most often that
// is the window itself, and a look is enough; each look has the browser lay out the page.
export function moveTo(node: HTMLElement, x: number, y: number): void {
  const placedAt = (left: number, top: number) => {
    node.style.left = `${Math.round(left)}px`;
    node.style.top = `${Math.round(top)}px`;
    return node.getBoundingClientRect();
  };
  const there = placedAt(x, y);
  if (Math.abs(there.left - x) <= 0.5 && Math.abs(there.top - y) <= 0.5) return;
  const [from, to] = [placedAt(0, 0), placedAt(probe, probe)];
  const at = (wanted: number, first: number, second: number) => ((wanted - first) * probe) / (second - first || probe);
  placedAt(at(x, from.left, to.left), at(y, from.top, to.top));
}

// How many of the window's pixels one of the node's own is, when it is `width` of its own wide.
export const scaleOf = (node: Element, width: number): number => node.getBoundingClientRect().width / width || 1;
