// oefening.js: the exercise that the address of the page holds, made by the maker.
import { apology } from "./apology.mjs";
import { titleOf } from "./exercise.mjs";
import { exerciseBody } from "./exercise-view.mjs";
import { fromHash } from "./link.mjs";
import { make } from "./make.mjs";

async function bodyOf(hash) {
  const exercise = await fromHash(hash);
  const thinker = await tabulonLes.thinking();
  const problem = exercise && thinker.read(exercise.probleem).problem;
  if (!problem) return make("main", {}, apology(hash));
  document.title = titleOf(exercise);
  return exerciseBody(exercise, problem);
}

async function show() {
  const { hash } = location;
  const body = await bodyOf(hash);
  // Another address may have come meanwhile, with a body of its own.
  if (hash === location.hash) document.body.replaceChildren(body);
}

addEventListener("hashchange", show);
show();
