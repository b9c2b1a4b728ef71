// A browser on the web package, for tests that look at pages as a pupil does.
//
//   const browser = await launch();
//   const page = await browser.open(problem({ prmNrBeslisVar: 2, prmSTR_DLfunctie: " -3, -5" }));
//   await page.click(control("cmd_Bewerken"));
//   assert.equal(await text(page, "lblNRTableau"), "1-e Simplex-tableau");
//   assert.deepEqual(noise(page), []);
//   await browser.close();
//
// The pages are served by the project's own server, under the rules that the control promises to keep. The
// package is dist/web, or the folder that TABULON_WEB names; the browser is Chromium, or what TABULON_ENGINE names.
import { cp, mkdtemp, readFile, readdir, rm, writeFile } from "node:fs/promises";
import { existsSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";
import { createPageServer, listen } from "../../tools/serve.mjs";
import { launchWebKit, listening } from "./webkit.mjs";

const packageFolder = process.env.TABULON_WEB ?? fileURLToPath(new URL("../../dist/web", import.meta.url));

// Chromium without its windows, which costs half as much; it knows no icons of pages. One process shows all pages, so
// that what one has compiled serves the next.
const shell = "/usr/bin/chromium-headless-shell";
const shellArgs = ["--renderer-process-limit=1", "--in-process-gpu"];

const engines = {
  chromium: {
    variable: "CHROMIUM",
    usual: [
      "/usr/bin/chromium",
      "/usr/bin/chromium-browser",
      "/usr/bin/google-chrome",
      "/snap/bin/chromium",
      "/Applications/Chromium.app/Contents/MacOS/Chromium",
      "/Applications/Google Chrome.app/Contents/MacOS/Google Chrome",
    ],
    args: [
      "--no-sandbox",
      "--disable-gpu",
      "--disable-quic",
      "--no-first-run",
      "--disable-background-networking",
      "--disable-component-update",
      "--disable-sync",
    ],
  },
  firefox: {
    variable: "FIREFOX",
    usual: ["/usr/bin/firefox", "/usr/bin/firefox-esr", "/Applications/Firefox.app/Contents/MacOS/firefox"],
    args: [],
    // Without processes for the pages that a person might open next.
    extraPrefsFirefox: { "dom.ipc.processCount": 1, "dom.ipc.processPrelaunch.enabled": false },
  },
};

function executable({ variable, usual }) {
  const found = process.env[variable] ?? usual.find(existsSync);
  if (!found) throw new Error(`No browser at ${usual.join(", ")}; name one in ${variable}.`);
  return found;
}

const escapes = { "&": "&amp;", "<": "&lt;", '"': "&quot;" };
const escaped = (text) => String(text).replace(/[&<"]/g, (sign) => escapes[sign]);

// An element with its parameters, as a teacher writes it.
export function problem(parameters = {}, attributes = 'id="LPctrl1"') {
  const params = Object.entries(parameters).map(
    ([name, value]) => `  <param name="${escaped(name)}" value="${escaped(value)}">\n`,
  );
  return `<tabulon-lpctrl ${attributes}>\n${params.join("")}</tabulon-lpctrl>`;
}

const wholePage = (body) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>Simplex</title>
<link rel="icon" href="data:,">
<script src="tabulon.js"></script>
<body>
${body}
</body>
</html>
`;

// The selector of a control in the (first) element of a page.
export const control = (name, index, element = "tabulon-lpctrl") =>
  `${element} >>> [data-name="${name}"]${index ? `[data-index="${index}"]` : ""}`;

// What a control shows: the value of a text box, else the text; null where it is not rendered.
export async function text(page, name, index, element) {
  const shown = await page.evaluate(
    (path) => {
      const find = (place, part) => (place?.shadowRoot ?? place)?.querySelector(part);
      const node = path.reduce(find, document);
      return node?.checkVisibility() ? (node.value ?? node.textContent) : null;
    },
    control(name, index, element).split(" >>> "),
  );
  return shown ?? null;
}

// Until every element has been shown and waits for the person.
export const idle = (page) =>
  page.evaluate(async () => {
    await customElements.whenDefined("tabulon-lpctrl");
    const elements = [...document.querySelectorAll("tabulon-lpctrl")];
    await Promise.allSettled(elements.map((element) => element.ready));
    const busy = () => elements.some((element) => element.hasAttribute("aria-busy"));
    while (busy()) await new Promise((resume) => requestAnimationFrame(resume));
  });

// A script of a page: while it holds, nothing that the page posts to itself comes, as on a slow machine.
export const heldMessages = `
  const post = MessagePort.prototype.postMessage;
  window.held = [];
  window.holding = false;
  MessagePort.prototype.postMessage = function (...message) {
    if (holding) held.push(() => post.apply(this, message));
    else post.apply(this, message);
  };
  window.hold = () => void (holding = true);
  window.letThrough = () => held.shift()?.();
  window.goOn = () => {
    holding = false;
    for (const message of held.splice(0)) message();
  };
`;

const noises = new WeakMap();

// What the page complained of so far: warnings, errors, refusals by its rules.
export const noise = (page) => noises.get(page);

async function listenToNoise(page) {
  const heard = [];
  noises.set(page, heard);
  if (page.listen) return page.listen((complaint) => heard.push(complaint));
  page.on("console", (message) => {
    if (["warn", "error"].includes(message.type())) heard.push(message.text());
  });
  page.on("pageerror", (error) => heard.push(String(error)));
  await page.evaluateOnNewDocument(() => {
    const refused = ({ violatedDirective, blockedURI }) => console.error(`refused: ${violatedDirective} ${blockedURI}`);
    document.addEventListener("securitypolicyviolation", refused);
  });
}

function launchEngine(engine, whole) {
  if (engine === "webkit") return launchWebKit();
  const { args, variable, extraPrefsFirefox } = engines[engine];
  const inShell = engine === "chromium" && !whole && !process.env[variable] && existsSync(shell);
  return puppeteer.launch({
    browser: engine === "firefox" ? "firefox" : "chrome",
    executablePath: inShell ? shell : executable(engines[engine]),
    args: inShell ? [...args, ...shellArgs] : args,
    extraPrefsFirefox,
    headless: inShell ? "shell" : true,
  });
}

// WebKit's driver hears nothing by itself: its pages have a script that does, before those of their own.
const listeningFile = "listening.js";
const withListening = (html) => html.replace('<meta charset="utf-8">', `$&<script src="${listeningFile}"></script>`);

async function listenInPackage(folder) {
  await writeFile(join(folder, listeningFile), listening);
  for (const name of (await readdir(folder)).filter((each) => each.endsWith(".html"))) {
    const path = join(folder, name);
    await writeFile(path, withListening(await readFile(path, "utf8")));
  }
}

// engine: "chromium", "firefox" or "webkit". `whole` asks for Chromium with all that it does around a page.
export async function launch({ engine = process.env.TABULON_ENGINE ?? "chromium", whole = false } = {}) {
  const isWebKit = engine === "webkit";
  const folder = await mkdtemp(join(tmpdir(), "tabulon-pages-"));
  await cp(packageFolder, folder, { recursive: true });
  if (isWebKit) await listenInPackage(folder);
  const server = createPageServer(folder);
  const origin = `http://127.0.0.1:${await listen(server, 0)}`;
  const browser = await launchEngine(engine, whole);
  let pages = 0;

  // `place` is a body, a whole page (it starts with "<!doctype"), or a path in the package. `from` is "server"
  // or "file". `scale` is the number of device pixels to a pixel.
  async function open(place, { from = "server", scale = 1, width = 900, height = 700, wait = true } = {}) {
    let path = place;
    if (place.startsWith("<")) {
      path = `page${++pages}.html`;
      const html = place.startsWith("<!doctype") ? place : wholePage(place);
      await writeFile(join(folder, path), isWebKit ? withListening(html) : html);
    }
    const page = await browser.newPage();
    await listenToNoise(page);
    await page.setViewport({ width, height, deviceScaleFactor: scale });
    await page.goto(from === "file" ? pathToFileURL(join(folder, path)).href : `${origin}/${path}`);
    if (wait) await idle(page);
    return page;
  }

  // The same from a server elsewhere, without a secure connection; its pages are answered here.
  async function openInsecure(body) {
    const page = await browser.newPage();
    listenToNoise(page);
    await page.setRequestInterception(true);
    page.on("request", async (request) => {
      const name = new URL(request.url()).pathname.slice(1);
      if (name === "") return request.respond({ contentType: "text/html", body: wholePage(body) });
      return request.respond({ contentType: "text/javascript", body: await readFile(join(folder, name)) });
    });
    await page.goto("http://school.test/");
    await idle(page);
    return page;
  }

  async function close() {
    await browser.close();
    await new Promise((resume) => server.close(resume));
    await rm(folder, { recursive: true, force: true });
  }

  // For a script of the page: pages may load files of their own origin only.
  const write = (name, content) => writeFile(join(folder, name), content);

  return { browser, origin, folder, open, openInsecure, write, close };
}
