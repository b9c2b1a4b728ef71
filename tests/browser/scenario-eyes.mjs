// What a person sees of the control in a page, read from the page itself. Runs inside the page: it may use
// nothing from outside its own body.
//
//   const { controls, form, menus, busy } = await page.evaluate(look, { named: [{ name: "txtRL", index: 2 }] });
//   const { state } = await page.evaluate(look, { named: [], whole: true }); // as headless writes it

/* global document, getComputedStyle */
export function look({ named, whole }) {
  const element = document.querySelector("tabulon-lpctrl");
  const root = element.shadowRoot;
  const kinds = {
    frame: "frame",
    label: "label",
    box: "text",
    button: "button",
    image: "image",
    picture: "picture",
    line: "line",
    bar: "bar",
  };
  const systemColours = ["Canvas", "ButtonFace", "Field"];

  const colours = {};
  const colourOf = (css) => (colours[css] ??= paintedAs(css));
  const paintedAs = (css) => {
    const probe = document.createElement("span");
    probe.style.color = css;
    document.body.append(probe);
    const { color } = getComputedStyle(probe);
    probe.remove();
    return color;
  };

  const kindOf = (node) => {
    const kind = kinds[[...node.classList].find((word) => kinds[word])];
    return kind === "bar" ? (node.classList.contains("vertical") ? "vscroll" : "hscroll") : kind;
  };
  const isOn = (node, ground) => {
    const [one, other] = [node.getBoundingClientRect(), ground.getBoundingClientRect()];
    return (
      one.width > 0 &&
      one.height > 0 &&
      one.right > other.left &&
      one.left < other.right &&
      one.bottom > other.top &&
      one.top < other.bottom
    );
  };
  // What stands beside the surface has the class "aside".
  const isShown = (node, ground) => node.checkVisibility() && !node.classList.contains("aside") && isOn(node, ground);

  // A line that begins where it ends is nothing to see.
  const isNoPoint = (node) => kindOf(node) !== "line" || Math.max(node.offsetWidth, node.offsetHeight) > 1;

  const backOf = (node) => {
    const colour = getComputedStyle(node).backgroundColor;
    if (colour === "rgba(0, 0, 0, 0)") return "none";
    // A given colour comes as it was given; a colour of the system is one that the style names.
    if (
      systemColours.some(
        (system) => system.toLowerCase() === node.style.backgroundColor.toLowerCase() && colour === colourOf(system),
      )
    )
      return "system";
    return colour.match(/\d+/g).join(",");
  };
  const textOf = (node) => (node instanceof HTMLInputElement ? node.value : node.textContent);
  const isDisabled = (node) => node.matches(":disabled") || node.getAttribute("aria-disabled") === "true";
  const fullName = ({ dataset }) => dataset.name + (dataset.index ? `[${dataset.index}]` : "");
  const pixels = (number) => Math.floor(number + 0.5);
  const quoted = (text) => `"${text}"`;

  const forms = [...root.querySelectorAll("dialog[open]")];
  const ground = [...root.children].find((node) => node.matches(".surface"));
  const groundOf = (form) => form.querySelector(".surface");
  const top = forms.length ? groundOf(forms.at(-1)) : ground;
  const menus = [...root.querySelectorAll('[role="menu"]')];
  // A menu is called after its caption.
  const menuName = (menu) => `mnu_${menu.getAttribute("aria-label")}`;
  const itemsOf = (menu) => [...menu.children];

  const sizeOf = (node) => {
    const { width, height } = node.getBoundingClientRect();
    return `${pixels(width)}x${pixels(height)}`;
  };
  const placeOf = (node, on) => {
    const [one, other] = [node.getBoundingClientRect(), on.getBoundingClientRect()];
    return `${pixels(one.left - other.left)},${pixels(one.top - other.top)}`;
  };
  const aria = (node, property) => node.getAttribute(`aria-${property}`);

  const lineOf = (node, on) => {
    const kind = kindOf(node);
    let line = `${fullName(node)} ${kind}`;
    if (["label", "text", "button"].includes(kind)) line += ` ${quoted(textOf(node))}`;
    if (kind.endsWith("scroll"))
      line += ` ${aria(node, "valuemin")}..${aria(node, "valuemax")} value ${aria(node, "valuenow")}`;
    if (!node.parentElement.closest(".picture")) line += ` at ${placeOf(node, on)} ${sizeOf(node)}`;
    if (["frame", "label", "text"].includes(kind)) line += ` back ${backOf(node)}`;
    if (node.title) line += ` tip ${quoted(node.title)}`;
    if (node.readOnly) line += " locked";
    if (isDisabled(node)) line += " disabled";
    return `${line}\n`;
  };

  const order = (one, other) => {
    const [a, b] = [one.dataset, other.dataset];
    if (a.name !== b.name) return a.name < b.name ? -1 : 1;
    return Number(a.index ?? 0) - Number(b.index ?? 0);
  };
  const controlsOf = (on) =>
    [...on.querySelectorAll("[data-name]")]
      .filter((node) => isShown(node, on) && isNoPoint(node))
      .sort(order)
      .map((node) => lineOf(node, on))
      .join("");

  const itemLine = (item, menu) => {
    if (item.getAttribute("role") === "separator") return "  -\n";
    let line = `  ${fullName(item)} ${quoted(item.textContent)}`;
    if (aria(item, "haspopup")) line += " submenu";
    if (aria(item, "checked") === "true") line += " checked";
    if (isDisabled(item)) line += " disabled";
    if (aria(menu, "activedescendant") === item.id) line += " highlighted";
    return `${line}\n`;
  };
  const menuLines = () =>
    menus
      .map((menu, depth) => {
        const place = depth === 0 ? ` at ${placeOf(menu, ground)}` : "";
        return `menu ${menuName(menu)}${place}\n${itemsOf(menu)
          .map((item) => itemLine(item, menu))
          .join("")}`;
      })
      .join("");

  const focused = () => {
    const active = root.activeElement;
    return active?.dataset.name && !(active instanceof HTMLDialogElement) ? active : undefined;
  };
  const focusLine = () => `focus ${focused() ? fullName(focused()) : "none"}\n`;

  const state = () =>
    `LPctrl ${sizeOf(ground)}\n${controlsOf(ground)}${element.hasAttribute("aria-busy") ? "busy\n" : ""}` +
    forms
      .map((form) => {
        const caption = quoted(form.querySelector(".title").textContent);
        return `form ${form.dataset.name} ${caption} ${sizeOf(groundOf(form))}\n${controlsOf(groundOf(form))}`;
      })
      .join("") +
    (menus.length ? menuLines() : focusLine());

  const control = ({ name, index }) => {
    const find = (on) =>
      on.querySelector(`[data-name="${name}"]${index ? `[data-index="${index}"]` : ":not([data-index])"}`);
    const item = menus.map(find).find(Boolean);
    const on = find(top) ? top : ground;
    const node = item ?? find(on);
    if (!node) return null;
    const box = (part) => {
      const { left, top: above, width, height } = part.getBoundingClientRect();
      return { left, top: above, width, height };
    };
    const bar = node.classList.contains("bar");
    return {
      shown: item ? true : isShown(node, on),
      text: textOf(node),
      back: backOf(node),
      tip: node.title,
      locked: node.readOnly === true,
      disabled: isDisabled(node),
      checked: aria(node, "checked") === "true",
      value: aria(node, "valuenow"),
      box: box(node),
      focused: focused() === node,
      vertical: node.classList.contains("vertical"),
      bar: bar && {
        back: box(node.querySelector(".arrow.back")),
        forward: box(node.querySelector(".arrow.forward")),
        track: box(node.querySelector(".track")),
        thumb: box(node.querySelector(".thumb")),
        low: Number(aria(node, "valuemin")),
        high: Number(aria(node, "valuemax")),
      },
    };
  };

  const form = () => ({
    name: forms.at(-1).dataset.name,
    caption: forms.at(-1).querySelector(".title").textContent,
  });

  return {
    controls: named.map(control),
    form: forms.length ? form() : null,
    menus: menus.map(menuName),
    busy: element.hasAttribute("aria-busy"),
    state: whole ? state() : undefined,
  };
}
