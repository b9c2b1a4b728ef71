// What the web package is made of, and what it is served with.
import assert from "node:assert/strict";
import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";
import { breaches } from "../../tools/package-web.mjs";
import { createPageServer, listen } from "../../tools/serve.mjs";

// A WebAssembly module that imports one function without parameters.
function moduleImporting(module, name) {
  const text = (word) => [word.length, ...Buffer.from(word)];
  const section = (id, content) => [id, content.length, ...content];
  return Uint8Array.from([
    ...[0, 0x61, 0x73, 0x6d, 1, 0, 0, 0],
    ...section(1, [1, 0x60, 0, 0]),
    ...section(2, [1, ...text(module), ...text(name), 0, 0]),
  ]);
}

const call = moduleImporting("wasi_snapshot_preview1", "fd_write");
const wish = moduleImporting("tabulon", "changed");

test("a module that asks for a system call is refused", () => {
  assert.deepEqual(breaches(call, [], []), [
    "wasi_snapshot_preview1.fd_write stands not in hosts/web/wire/imports.def",
  ]);
});

test("a module that asks its page for what stands in the table is accepted", () => {
  assert.deepEqual(breaches(wish, ["changed"], []), []);
});

test("a module that lacks what stands in a table is refused", () => {
  assert.deepEqual(breaches(wish, ["changed", "closed"], ["press"]), [
    "closed of hosts/web/wire/imports.def is missing",
    "press of hosts/web/wire/exports.def is missing",
  ]);
});

test("a page is served under the rules that the control promises to keep, and is never kept", async (t) => {
  const folder = mkdtempSync(join(tmpdir(), "served-"));
  writeFileSync(join(folder, "index.html"), "<title>Start</title>");
  writeFileSync(join(folder, "tabulon.js"), "0;");
  const server = createPageServer(folder);
  t.after(() => {
    server.closeAllConnections();
    server.close();
    rmSync(folder, { recursive: true });
  });
  const address = `http://127.0.0.1:${await listen(server, 0)}`;

  const page = await fetch(`${address}/`);
  assert.equal(await page.text(), "<title>Start</title>");
  assert.match(page.headers.get("content-type"), /^text\/html/);
  assert.equal(
    page.headers.get("content-security-policy"),
    "script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; require-trusted-types-for 'script'",
  );
  assert.equal(page.headers.get("cache-control"), "no-store");

  const script = await fetch(`${address}/tabulon.js`);
  assert.match(script.headers.get("content-type"), /^text\/javascript/);
  await script.text();
  const missing = await fetch(`${address}/none.html`);
  assert.equal(missing.status, 404);
  await missing.text();
});
