// Small words for making elements.

export function make<Name extends keyof HTMLElementTagNameMap>(
  name: Name,
  className: string,
  ...children: (Node | string)[]
): HTMLElementTagNameMap[Name] {
  const element = document.createElement(name);
  element.className = className;
  element.append(...children);
  return element;
}

// Sets the attribute, or takes it away when there is no value for it.
export function setAttribute(element: Element, name: string, value: string | undefined): void {
  if (value === undefined) element.removeAttribute(name);
  else element.setAttribute(name, value);
}
