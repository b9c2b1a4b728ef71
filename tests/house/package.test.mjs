// What the web package is made of, and what it is served with.
import assert from "node:assert/strict";
import { mkdirSync, mkdtempSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { request } from "node:http";
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
  assert.deepEqual(breaches(call, undefined, [], []), [
    "wasi_snapshot_preview1.fd_write stands not in hosts/web/wire/imports.def",
  ]);
});

test("a module that asks its page for what stands in the table is accepted", () => {
  assert.deepEqual(breaches(wish, undefined, ["changed"], []), []);
});

test("a module that lacks what stands in a table is refused", () => {
  assert.deepEqual(breaches(wish, undefined, ["changed", "closed"], ["press"]), [
    "closed of hosts/web/wire/imports.def is missing",
    "press of hosts/web/wire/exports.def is missing",
  ]);
});

// A folder of the first page and what a page has no business with.
async function served(t) {
  const around = mkdtempSync(join(tmpdir(), "served-"));
  const folder = join(around, "web");
  mkdirSync(folder);
  writeFileSync(join(folder, "index.html"), "<title>Start</title>");
  writeFileSync(join(folder, "tabulon.js"), "0;");
  writeFileSync(join(folder, ".secret"), "secret");
  writeFileSync(join(around, "outside.txt"), "secret");
  symlinkSync(join(around, "outside.txt"), join(folder, "link.txt"));
  symlinkSync(around, join(folder, "up"));
  const server = createPageServer(folder);
  t.after(() => {
    server.closeAllConnections();
    server.close();
    rmSync(around, { recursive: true });
  });
  const port = await listen(server, 0);
  // As it is written, which fetch would not do.
  return (path, options = {}) =>
    new Promise((resolve, reject) => {
      const asked = request({ host: "127.0.0.1", port, path, ...options }, async (answer) => {
        let text = "";
        for await (const part of answer) text += part;
        resolve({ status: answer.statusCode, headers: answer.headers, text });
      });
      asked.on("error", reject).end();
    });
}

test("a page is served under the rules that the control promises to keep, and is never kept", async (t) => {
  const ask = await served(t);
  const page = await ask("/");
  assert.equal(page.text, "<title>Start</title>");
  assert.match(page.headers["content-type"], /^text\/html/);
  assert.equal(
    page.headers["content-security-policy"],
    "script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; require-trusted-types-for 'script'",
  );
  assert.equal(page.headers["cache-control"], "no-store");
  assert.match((await ask("/tabulon.js?v=2")).headers["content-type"], /^(text|application)\/javascript/);
  assert.equal((await ask("/none.html")).status, 404);
});

for (const path of [
  "/.secret",
  "/link.txt",
  "/up/outside.txt",
  "/../outside.txt",
  "/%2e%2e/outside.txt",
  "/..%2foutside.txt",
  "/up/web/.secret",
])
  test(`what lies outside of the folder, or is hidden in it, is not served: ${path}`, async (t) => {
    const ask = await served(t);
    const { status, text } = await ask(path);
    assert.ok([400, 403, 404].includes(status), `${status}`);
    assert.doesNotMatch(text, /secret/);
  });

for (const range of ["bytes=5-2", "bytes=99-", "bytes=-0", "bytes=a-b", "bytes=0-1,3-2", "lines=1-2"])
  test(`the range ${range} does not end the server`, async (t) => {
    const ask = await served(t);
    const { status } = await ask("/index.html", { headers: { Range: range } });
    assert.ok([200, 206, 416].includes(status), `${status}`);
    assert.equal((await ask("/")).status, 200);
  });

test("a path that is no path, and a wish to write, are refused", async (t) => {
  const ask = await served(t);
  assert.equal((await ask("/%ff")).status, 400);
  assert.equal((await ask("/%00")).status, 400);
  assert.equal((await ask("/", { method: "PUT" })).status, 405);
  assert.equal((await ask("/")).status, 200);
});

test("another machine's name for this one gets nothing", async (t) => {
  const ask = await served(t);
  for (const host of ["elsewhere.example", "127.0.0.1.elsewhere.example", "localhost.elsewhere.example:8080"])
    assert.equal((await ask("/", { headers: { Host: host } })).status, 403);
  for (const host of ["localhost", "localhost:8080", "[::1]:8080"])
    assert.equal((await ask("/", { headers: { Host: host } })).status, 200);
});
