// An exercise as a teacher makes it, and as it travels in a link or a draft:
//
//   { titel: "De bakker", tekst: "...", probleem: "max F = 3x + 5y\n...", vragen: [{ vraag, antwoord }], hulp: "altijd" }
//
// `hulp` is that of the log around the control; without a log it is "".
export const emptyExercise = { titel: "", tekst: "", probleem: "", vragen: [], hulp: "" };

const helps = ["", "geen", "achteraf", "altijd"];

export const longestText = 20_000;
export const mostQuestions = 50;

const isText = (value) => typeof value === "string" && value.length <= longestText;
const isQuestion = (value) => isText(value?.vraag) && isText(value?.antwoord);

// What came from elsewhere as an exercise, without what does not belong to one; null when it is none.
export function exerciseOf(given) {
  const { titel, tekst, probleem, vragen, hulp } = { hulp: "", ...given };
  if (![titel, tekst, probleem].every(isText) || !helps.includes(hulp) || !Array.isArray(vragen)) return null;
  if (vragen.length > mostQuestions || !vragen.every(isQuestion)) return null;
  return { titel, tekst, probleem, vragen: vragen.map(({ vraag, antwoord }) => ({ vraag, antwoord })), hulp };
}

export const titleOf = ({ titel }) => titel.trim() || "Oefening";

// "De bäkker & zoon" is "de-bakker-zoon.html".
export function fileNameOf(exercise) {
  const plain = titleOf(exercise).normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
  const words = plain.match(/[a-z0-9]+/g) ?? ["oefening"];
  return `${words.join("-").slice(0, 60)}.html`;
}
