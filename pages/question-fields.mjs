// The fields for questions and their answers: as many as the teacher wants.
import { longestText, mostQuestions } from "./exercise.mjs";
import { make } from "./make.mjs";

const place = document.getElementById("vraagvelden");
const another = document.getElementById("erbij");

function field(name, label, text, rows) {
  const box = make("textarea", { rows, name, maxlength: longestText });
  box.value = text;
  return make("label", { class: "veld" }, label, box);
}

function remove(group, changed) {
  const next = group.nextElementSibling ?? group.previousElementSibling;
  group.remove();
  number();
  (next?.querySelector("textarea") ?? another).focus();
  changed();
}

function number() {
  another.disabled = place.childElementCount >= mostQuestions;
  [...place.children].forEach((group, at) => {
    group.querySelector("legend").textContent = `Vraag ${at + 1}`;
    group.querySelector("button").textContent = `Verwijder vraag ${at + 1}`;
  });
}

export function addQuestion({ vraag, antwoord }, changed) {
  const away = make("button", { class: "knoopje", type: "button" });
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
  number();
  for (const question of questions) addQuestion(question, changed);
}

export const questionsTyped = () =>
  [...place.children].map((group) => {
    const [vraag, antwoord] = [...group.querySelectorAll("textarea")].map(({ value }) => value);
    return { vraag, antwoord };
  });
