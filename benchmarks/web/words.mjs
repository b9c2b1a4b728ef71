// Problems in words, always the same: one of a textbook, and the largest that there is room for.
const rows = 10;
const variables = 20;

function randomNumbers() {
  let state = 20;
  return (least, most) => {
    state = (state * 48271) % 2147483647;
    return least + (state % (most - least + 1));
  };
}

function tenByThirty() {
  const next = randomNumbers();
  const sum = (make) => Array.from({ length: variables }, (_, at) => `${make()} x${at + 1}`).join(" + ");
  const row = () => `${sum(() => next(1, 10))} <= ${next(10, 100)}`;
  return [`max F = ${sum(() => next(1, 20))}`, ...Array.from({ length: rows }, row)].join("\n");
}

export const problems = {
  "2x3": "max F = 3x + 5y\nx <= 4\n2y <= 12\n3x + 2y <= 18",
  "10x30": tenByThirty(),
};
