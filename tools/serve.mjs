// Serves dist/web on this machine only: node tools/serve.mjs [--port N] [--no-open]
import { spawn } from "node:child_process";
import { realpath } from "node:fs/promises";
import { createServer } from "node:http";
import { join, sep } from "node:path";
import { fileURLToPath } from "node:url";
import { parseArgs } from "node:util";
import send from "send";

const usualPort = 8080;
const folder = fileURLToPath(new URL("../dist/web", import.meta.url));

// The rules that the control promises to run under; a page of ours that breaks them shows it at once.
const headers = {
  "Content-Security-Policy":
    "script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; require-trusted-types-for 'script'",
  "Cache-Control": "no-store",
  "X-Content-Type-Options": "nosniff",
};

// A page of elsewhere may have a name that leads to this machine; it is not to read what is served here.
const isOwnHost = (host = "") => /^(127\.0\.0\.1|localhost|\[::1\])(:\d+)?$/i.test(host);

// Whether the file, links followed, lies in the folder; one that is not there is for the server to miss.
async function liesIn(root, path) {
  const inside = await realpath(root);
  const file = await realpath(join(inside, path)).catch(() => inside);
  return file === inside || file.startsWith(inside + sep);
}

const refuse = (response, status, words) =>
  response.writeHead(status, { "Content-Type": "text/plain" }).end(`${words}\n`);

async function serve(root, request, response) {
  if (!isOwnHost(request.headers.host)) return refuse(response, 403, "Not from here");
  if (!["GET", "HEAD"].includes(request.method)) return refuse(response, 405, "Only to be read");
  const { pathname } = new URL(request.url, "http://localhost");
  if (!(await liesIn(root, decodeURIComponent(pathname)))) return refuse(response, 404, "Not found");
  for (const [name, value] of Object.entries(headers)) response.setHeader(name, value);
  const options = { root, dotfiles: "ignore", etag: false, lastModified: false, cacheControl: false };
  send(request, pathname, options)
    .on("error", ({ status = 500 }) => refuse(response, status, status === 404 ? "Not found" : "Not possible"))
    .pipe(response);
}

export const createPageServer = (root = folder) =>
  createServer((request, response) => {
    serve(root, request, response).catch(() => refuse(response, 400, "Not understood"));
  });

// Resolves to the port; port 0 is any free one.
export function listen(server, port) {
  return new Promise((resolve, reject) => {
    server.once("error", reject);
    server.listen(port, "127.0.0.1", () => resolve(server.address().port));
  });
}

async function listenSomewhere(server, asked) {
  try {
    return await listen(server, asked ?? usualPort);
  } catch (error) {
    if (error.code === "EADDRINUSE" && asked === undefined) return listen(server, 0);
    throw error;
  }
}

const hasDisplay = () => process.platform === "darwin" || Boolean(process.env.DISPLAY || process.env.WAYLAND_DISPLAY);

function openBrowser(url) {
  const opener = process.platform === "darwin" ? "open" : "xdg-open";
  const child = spawn(opener, [url], { stdio: "ignore", detached: true });
  child.on("error", () => {}); // the address is on the screen; no opener is no failure
  child.unref();
}

const complaints = {
  EADDRINUSE: (port) => `Port ${port} is in use; choose another with --port.`,
  EACCES: (port) => `Port ${port} is not allowed here; choose one from 1024 up with --port.`,
  ERR_SOCKET_BAD_PORT: () => "A port is a number from 0 to 65535.",
};

async function main() {
  const { values } = parseArgs({ options: { port: { type: "string" }, "no-open": { type: "boolean" } } });
  const asked = values.port === undefined ? undefined : Number(values.port);
  const server = createPageServer();
  const stop = () => process.exit(0);
  process.on("SIGINT", stop).on("SIGTERM", stop).on("SIGHUP", stop);
  try {
    const url = `http://127.0.0.1:${await listenSomewhere(server, asked)}/`;
    console.log(`Tabulon: ${url}`);
    if (!values["no-open"] && hasDisplay()) openBrowser(url);
  } catch (error) {
    console.error(complaints[error.code]?.(asked) ?? error.message);
    process.exit(1);
  }
}

if (process.argv[1] === fileURLToPath(import.meta.url)) await main();
