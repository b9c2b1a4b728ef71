// The problem of the pages that are timed: 10 variables and 10 "<=" rows, always the same.
import { problem } from "../../tests/browser/browser.mjs";

function tenByTen() {
  let state = 20;
  const next = (least, most) => {
    state = (state * 48271) % 2147483647;
    return least + (state % (most - least + 1));
  };
  const list = (count, make) => Array.from({ length: count }, () => ` ${make()}`).join(",");
  return {
    prmNrBeslisVar: 10,
    prmNrKleinerGelijkVglen: 10,
    prmSTR_DLfunctie: list(10, () => -next(1, 20)),
    prmSTR_KleinerGelijkVglen: list(100, () => next(1, 10)),
    prmSTR_RL: list(10, () => next(10, 100)),
  };
}

export const element = problem(tenByTen());
