// What is done when a person has stopped typing:
//
//   const judge = afterARest((text) => ...);
//   judge.rest(text);    // in a while, unless more comes
//   judge.now(text);     // at once, and not later
//   judge.hurry();       // at once what was to come later, if anything was
const patience = 700; // milliseconds

export function afterARest(act) {
  let waiting;
  let given = null;
  const now = (...words) => {
    clearTimeout(waiting);
    given = null;
    act(...words);
  };
  const rest = (...words) => {
    clearTimeout(waiting);
    given = words;
    waiting = setTimeout(() => now(...words), patience);
  };
  return { rest, now, hurry: () => given && now(...given) };
}
