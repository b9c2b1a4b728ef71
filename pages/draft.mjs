// The teacher's draft, kept by the browser where it may. Where it may not, the page does without.
import { exerciseOf } from "./exercise.mjs";

const key = "tabulon-maker";

export function keptDraft() {
  try {
    return exerciseOf(JSON.parse(localStorage.getItem(key)));
  } catch {
    return null;
  }
}

export function keepDraft(exercise) {
  try {
    localStorage.setItem(key, JSON.stringify(exercise));
  } catch {}
}
