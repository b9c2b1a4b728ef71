// What the scripts weigh on their way to a page, in thousands of bytes.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { brotliCompressSync, gzipSync } from "node:zlib";

const read = (name) => readFileSync(join(process.env.TABULON_WEB ?? "dist/web", name));
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
