// What stands on a page whose address holds no exercise, or a broken one.
import { make } from "./make.mjs";

const words = {
  missing: [
    "Hier hoort een opgave te staan",
    "Dit adres is niet compleet: de opgave ontbreekt. Neem de hele link over, met alles achter het hekje (#).",
  ],
  broken: [
    "Deze link is beschadigd",
    "Onderweg is er een stuk van de link afgevallen of veranderd. Vraag om de link opnieuw, en plak hem in één keer in de adresbalk.",
  ],
};

export function apology(hash) {
  const [heading, text] = hash.length > 1 ? words.broken : words.missing;
  return make(
    "section",
    {},
    make("h1", {}, heading),
    make("p", { class: "lead" }, text),
    make("p", {}, make("a", { href: "index.html" }, "Naar de oefeningen")),
  );
}
