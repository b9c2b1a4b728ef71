// How a teacher takes an exercise: as a link, a file, a line for a frame, HTML, or on paper.
import { afterARest } from "./after-a-rest.mjs";
import { fileNameOf, titleOf } from "./exercise.mjs";
import { exercisePage, scripts, snippet } from "./exercise-view.mjs";
import { toHash } from "./link.mjs";
import { make } from "./make.mjs";
import { asSingleFile, keep } from "./own-scripts.mjs";

const byId = (id) => document.getElementById(id);
// Beyond this some mail programs cut a link.
const longLink = 2000;

let taken = null;
let written = null; // what the fields and links hold

const address = (page, hash) => new URL(page + hash, location.href).href;

const frame = (source, title) =>
  make("iframe", {
    src: source,
    title,
    width: "100%",
    height: "900",
    sandbox: "allow-scripts allow-downloads",
    allow: "clipboard-write",
  }).outerHTML;

function adviceOn(link) {
  if (location.protocol === "file:")
    return "Deze link wijst naar deze computer. Zet de map op een server, en maak hem daar opnieuw voor uw leerlingen.";
  if (link.length > longLink)
    return `De link is lang (${link.length} tekens). Sommige mailprogramma's kappen zo'n link af; een los bestand is dan beter.`;
  return "";
}

async function write() {
  const offered = taken;
  if (!offered || offered === written) return;
  const { exercise, problem } = offered;
  const hash = await toHash(exercise);
  if (taken !== offered) return write();
  const names = scripts(exercise).map((name) => make("code", {}, name));
  byId("ernaast").replaceChildren(...names.flatMap((name, at) => (at ? [" en ", name] : [name])));
  byId("html").value = snippet(exercise, problem);
  const link = address("oefening.html", hash);
  byId("link").value = link;
  byId("open").href = link;
  byId("werkblad").href = address("werkblad.html", hash);
  byId("iframe").value = frame(link, titleOf(exercise));
  byId("over-link").textContent = adviceOn(link);
  written = offered;
}

// Not at every key.
const writeSoon = afterARest(write);

// The ways to take { exercise, problem }; null: there is none to take.
export function offer(offered) {
  taken = offered;
  byId("wegen").hidden = !offered;
  byId("nog-niet").hidden = Boolean(offered);
  writeSoon.rest();
}

// Who comes for a way before that finds it written, and who takes one gets the newest.
async function writeNow(event) {
  if (written === taken) return;
  const isTaken = event.type === "click";
  if (isTaken) {
    event.preventDefault();
    event.stopPropagation();
  }
  await write();
  if (isTaken) event.target.click();
}

for (const type of ["pointerover", "focusin", "click"]) byId("wegen").addEventListener(type, writeNow, true);

async function save() {
  const { exercise, problem } = taken;
  const name = fileNameOf(exercise);
  keep(name, await asSingleFile("eigen.html", exercisePage(exercise, problem)));
}

async function copied(field) {
  field.select();
  try {
    await navigator.clipboard.writeText(field.value);
    return true;
  } catch {
    // Where a page gets no clipboard of its own, as on http:, it may still copy what is selected.
    return document.execCommand("copy");
  }
}

const usual = "Kopieer";

async function copy(button) {
  const done = await copied(byId(button.dataset.kopieer));
  byId("gekopieerd").textContent = done ? "Gekopieerd." : "De tekst is geselecteerd: druk op Ctrl+C.";
  button.textContent = done ? "Gekopieerd" : "Druk op Ctrl+C";
  setTimeout(() => (button.textContent = usual), 3000);
}

byId("bewaar").addEventListener("click", save);
for (const button of document.querySelectorAll("[data-kopieer]")) button.addEventListener("click", () => copy(button));
