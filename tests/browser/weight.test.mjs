// What the scripts weigh on their way to a page, in thousands of bytes, and that every page reads them alike.
import assert from "node:assert/strict";
import { existsSync, readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { brotliCompressSync, gzipSync } from "node:zlib";

const folder = process.env.TABULON_WEB ?? "dist/web";
const read = (name) => readFileSync(join(folder, name));
const asTheyAre = (script) => script;
const gzip = (script) => gzipSync(script, { level: 9 });

for (const [name, how, packed, most] of [
  ["tabulon.js", "as it is", asTheyAre, 128],
  ["tabulon.js", "by gzip", gzip, 82],
  ["tabulon.js", "by brotli", brotliCompressSync, 79],
  ["tabulon-les.js", "by gzip", gzip, 60],
])
  test(`${name} stays under ${most} kB ${how}`, () => {
    const { length } = packed(read(name));
    assert.ok(length < 1000 * most, `${length} bytes`);
  });

test("every script that is made is ASCII, for a page that says it is of another encoding", () => {
  const isMade = (name) => /\.m?js$/.test(name) && !existsSync(join("examples", name));
  const scripts = readdirSync(folder).filter(isMade);
  assert.ok(scripts.includes("tabulon.js"));
  assert.deepEqual(
    scripts.filter((name) => read(name).some((byte) => byte > 126)),
    [],
  );
});
