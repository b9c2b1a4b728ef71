// What tools/rebuilds.mjs reads from the build.
import assert from "node:assert/strict";
import { test } from "node:test";
import { objectsOf } from "../../tools/rebuilds.mjs";

test("the objects of a header are those that list it whole", () => {
  const deps = [
    "a.o: #deps 2, deps mtime 5 (VALID)\n    /p/a.cpp\n    /p/control/LPctrl.h\n",
    "b.o: #deps 2, deps mtime 5 (VALID)\n    /p/b.cpp\n    /p/other/control/LPctrl.h\n",
    "c.o: #deps 1, deps mtime 5 (STALE)\n    /p/control/LPctrl.h\n",
  ].join("\n");
  assert.deepEqual(objectsOf(deps, "/p/control/LPctrl.h"), ["a.o", "c.o"]);
  assert.deepEqual(objectsOf(deps, "/p/none.h"), []);
});
