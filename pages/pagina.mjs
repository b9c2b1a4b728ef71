// pagina.js: what the pages around the control can do. A button with data-los="bakker.html" saves that page as a
// single file.
import { asSingleFile, keep } from "./own-scripts.mjs";

const save = async (name) => keep(name === "index.html" ? "meubelmaker.html" : name, await asSingleFile(name));

for (const button of document.querySelectorAll("button[data-los]"))
  button.addEventListener("click", () => save(button.dataset.los));
