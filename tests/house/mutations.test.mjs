// The changes that ./mutate tries: it takes an hour, so it seldom runs, and what it changes goes on changing.
import assert from "node:assert/strict";
import { test } from "node:test";
import { placed } from "../../tools/mutate.mjs";

test("what ./mutate changes stands in one place of its room", () => {
  assert.ok(placed().length >= 100);
});
