// The fields for questions and their answers: as many as the teacher wants.
import { make } from "./make.mjs";

const place = document.getElementById("vraagvelden");

function field(name, label, text, rows) {
  const box = make("textarea", { rows, name });
  box.value = text;
  return make("label", { class: "veld" }, label, box);
}

function remove(group, changed) {
  const next = group.nextElementSibling ?? group.previousElementSibling;
  group.remove();
  number();
  (next?.querySelector("textarea") ?? document.getElementById("erbij")).focus();
  changed();
}

function number() {
  [...place.children].forEach((group, at) => {
    group.querySelector("legend").textContent = `Vraag ${at + 1}`;
    group.querySelector("button").ariaLabel = `Verwijder vraag ${at + 1}`;
  });
}

export function addQuestion({ vraag, antwoord }, changed) {
  const away = make("button", { class: "knoopje", type: "button" }, "Verwijderen");
  const group = make(
    "fieldset",
    { class: "vraag" },
    make("legend"),
    away,
    field("vraag", "Vraag", vraag, 2),
    field("antwoord", "Antwoord", antwoord, 2),
  );
  away.addEventListener("click", () => remove(group, changed));
  place.append(group);
  number();
  return group;
}

export function showQuestions(questions, changed) {
  place.replaceChildren();
  for (const question of questions) addQuestion(question, changed);
}

export const questionsTyped = () =>
  [...place.children].map((group) => {
    const [vraag, antwoord] = [...group.querySelectorAll("textarea")].map(({ value }) => value);
    return { vraag, antwoord };
  });
