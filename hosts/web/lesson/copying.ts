// Text onto the clipboard, on any page: by the browser's own copying, which asks for no leave and no secure connection.

// `formats` by their types; there is always "text/plain".
export function copy(formats: Readonly<Record<string, string>>): void {
  const focused = (document.activeElement?.shadowRoot ?? document).activeElement as HTMLElement | null;
  const onCopy = (event: ClipboardEvent) => {
    for (const [type, text] of Object.entries(formats)) event.clipboardData?.setData(type, text);
    event.preventDefault();
    event.stopImmediatePropagation();
  };
  // Where nothing is selected, some browsers copy nothing at all.
  const selected = document.createElement("textarea");
  selected.value = formats["text/plain"]!;
  selected.readOnly = true;
  document.body.append(selected);
  selected.select();
  addEventListener("copy", onCopy, { capture: true, once: true });
  document.execCommand("copy");
  removeEventListener("copy", onCopy, { capture: true });
  selected.remove();
  focused?.focus({ preventScroll: true });
}
