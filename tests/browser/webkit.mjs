// WebKitGTK by its WebDriver, with as much of a puppeteer browser as tests for every engine use:
//
//   const browser = await launchWebKit();
//   const page = await browser.newPage();
//   await page.goto(address);
//   await page.click("#nieuw");
//   await browser.close();
//
// A WebDriver tells nothing by itself and runs nothing before a page's own scripts. So a page that is to be listened
// to has `listening`, a script, before its own.
import { spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { once } from "node:events";
import { readFile } from "node:fs/promises";
import { basename } from "node:path";
import { createInterface } from "node:readline";
import { Builder, By, Key, Origin } from "selenium-webdriver";
import { findFreePort } from "selenium-webdriver/net/portprober.js";
import remote from "selenium-webdriver/remote/index.js";

const driver = process.env.WEBKIT_DRIVER ?? "/usr/bin/WebKitWebDriver";
const miniBrowsers = ["x86_64-linux-gnu/webkit2gtk-4.1", "aarch64-linux-gnu/webkit2gtk-4.1"].map(
  (folder) => `/usr/lib/${folder}/MiniBrowser`,
);

// Keeps what a page complains of, for `evaluate`, and the question for a file, which nobody could answer in a window of
// the browser's, for `fileChooser`.
export const listening = `
  window.heard = [];
  for (const level of ["warn", "error"]) {
    const said = console[level];
    console[level] = (...words) => (heard.push(words.join(" ")), said.apply(console, words));
  }
  addEventListener("error", ({ message }) => heard.push(message));
  addEventListener("unhandledrejection", ({ reason }) => heard.push(String(reason)));
  addEventListener("securitypolicyviolation", ({ violatedDirective, blockedURI }) =>
    heard.push("refused: " + violatedDirective + " " + blockedURI));
  HTMLInputElement.prototype.click = function () {
    if (this.type === "file") window.chooser = this;
    else HTMLElement.prototype.click.call(this);
  };
`;

// Xvfb says which display it has taken when it can be used.
async function startScreen() {
  const screen = spawn("Xvfb", ["-displayfd", "3", "-screen", "0", "1440x1200x24", "-nolisten", "tcp"], {
    stdio: ["ignore", "ignore", "ignore", "pipe"],
  });
  const failed = once(screen, "exit").then(() => Promise.reject(new Error("Xvfb does not start")));
  const [number] = await Promise.race([once(createInterface(screen.stdio[3]), "line"), failed]);
  failed.catch(() => {});
  return { screen, display: `:${number}` };
}

const named = {
  Enter: Key.RETURN,
  Control: Key.CONTROL,
  Escape: Key.ESCAPE,
  Tab: Key.TAB,
  Shift: Key.SHIFT,
  Alt: Key.ALT,
  Backspace: Key.BACK_SPACE,
  Delete: Key.DELETE,
  " ": Key.SPACE,
  Home: Key.HOME,
  End: Key.END,
  PageUp: Key.PAGE_UP,
  PageDown: Key.PAGE_DOWN,
  ArrowLeft: Key.ARROW_LEFT,
  ArrowRight: Key.ARROW_RIGHT,
  ArrowUp: Key.ARROW_UP,
  ArrowDown: Key.ARROW_DOWN,
};
const keyOf = (name) => named[name] ?? /^Key([A-Z])$/.exec(name)?.[1].toLowerCase() ?? name;

class Keyboard {
  #actions;
  constructor(actions) {
    this.#actions = actions;
  }

  down = (name) => this.#actions().keyDown(keyOf(name)).perform();
  up = (name) => this.#actions().keyUp(keyOf(name)).perform();
  press = (name) => this.#actions().keyDown(keyOf(name)).keyUp(keyOf(name)).perform();
  type = (text) => this.#actions().sendKeys(text).perform();
}

class Mouse {
  #actions;
  #at = [0, 0];
  constructor(actions) {
    this.#actions = actions;
  }

  #moves(x, y, steps = 1) {
    const [fromX, fromY] = this.#at;
    const moves = this.#actions();
    for (let step = 1; step <= steps; ++step) {
      const part = step / steps;
      const place = { x: Math.round(fromX + (x - fromX) * part), y: Math.round(fromY + (y - fromY) * part) };
      moves.move({ ...place, origin: Origin.VIEWPORT, duration: 0 });
    }
    this.#at = [x, y];
    return moves;
  }

  move = (x, y, { steps } = {}) => this.#moves(x, y, steps).perform();
  down = () => this.#actions().press().perform();
  up = () => this.#actions().release().perform();

  async click(x, y, { clickCount = 1 } = {}) {
    const clicks = this.#moves(x, y);
    for (let click = 0; click < clickCount; ++click) clicks.press().release();
    await clicks.perform();
  }
}

// In the page: what a selector finds, " >>> " being the way into a shadow root.
const finding = `
  const find = (selector) =>
    selector.split(" >>> ").reduce((place, part) => (place?.shadowRoot ?? place)?.querySelector(part), document);
`;

class Page {
  #session;
  #complaints = () => {};
  #actions = () => this.#session.actions({ async: true });

  constructor(session) {
    this.#session = session;
  }

  keyboard = new Keyboard(this.#actions);
  mouse = new Mouse(this.#actions);

  // `hear` takes each complaint, not later than the next time that something is asked of the page.
  listen(hear) {
    this.#complaints = hear;
  }

  goto = (address) => this.#session.get(address);

  async setViewport({ width, height, deviceScaleFactor = 1 }) {
    if (deviceScaleFactor !== 1) throw new Error("WebKitGTK has the density of its screen");
    const frame = this.#session.manage().window();
    const outer = await frame.getRect();
    const [innerWidth, innerHeight] = await this.evaluate(() => [window.innerWidth, window.innerHeight]);
    await frame.setRect({ width: outer.width - innerWidth + width, height: outer.height - innerHeight + height });
  }

  async evaluate(script, ...given) {
    const expression = typeof script === "function" ? `(${script})(...given)` : script;
    const { value, isNothing, error, heard } = await this.#session.executeAsyncScript(
      `const answer = arguments[arguments.length - 1];
       const given = [...arguments].slice(0, -1);
       const heard = () => window.heard?.splice(0) ?? [];
       ${finding}
       (async () => ${expression})().then(
         (value) => answer({ value, isNothing: value === undefined, heard: heard() }),
         (error) => answer({ error: String(error), heard: heard() }),
       );`,
      ...given,
    );
    for (const complaint of heard) this.#complaints(complaint);
    if (error !== undefined) throw new Error(error);
    return isNothing ? undefined : value;
  }

  async $eval(selector, read, ...given) {
    return this.evaluate(`(${read})(find(given[0]), ...given.slice(1))`, selector, ...given);
  }

  async click(selector, options) {
    const [x, y] = await this.$eval(selector, (node) => {
      const { left, top, width, height } = node.getBoundingClientRect();
      return [left + width / 2, top + height / 2];
    });
    await this.mouse.click(x, y, options);
  }

  // What follows is asked of the frame.
  async enterFrame(selector) {
    await this.#session.switchTo().frame(await this.#session.findElement(By.css(selector)));
    return this;
  }

  // What asks for a file to open, if anything does.
  async fileChooser() {
    if (!(await this.evaluate(() => window.chooser !== undefined))) return undefined;
    return {
      accept: async ([path]) =>
        this.evaluate(
          (name, text) => {
            const files = new DataTransfer();
            files.items.add(new File([Uint8Array.from(atob(text), (sign) => sign.charCodeAt(0))], name));
            const picker = window.chooser;
            delete window.chooser;
            picker.files = files.files;
            picker.dispatchEvent(new Event("change"));
          },
          basename(path),
          await readFile(path, "base64"),
        ),
      cancel: () =>
        this.evaluate(() => {
          window.chooser.dispatchEvent(new Event("cancel"));
          delete window.chooser;
        }),
    };
  }

  screenshot = async () => Buffer.from(await this.#session.takeScreenshot(), "base64");

  close = () => this.goto("about:blank");
}

async function startService(display) {
  const port = await findFreePort();
  // Nobody sees the screen: layers that are painted apart for a graphics card, which is not there, only cost.
  return new remote.DriverService.Builder(driver)
    .setLoopback(true)
    .setPort(port)
    .addArguments(`--port=${port}`)
    .setEnvironment({ ...process.env, DISPLAY: display, NO_AT_BRIDGE: "1", WEBKIT_DISABLE_COMPOSITING_MODE: "1" })
    .build();
}

export async function launchWebKit() {
  const binary = process.env.WEBKIT ?? miniBrowsers.find(existsSync);
  if (!binary) throw new Error(`No browser at ${miniBrowsers.join(", ")}; name one in WEBKIT.`);
  const { screen, display } = await startScreen();
  process.once("exit", () => screen.kill());
  const service = await startService(display);
  const session = await new Builder()
    .usingServer(await service.start())
    .withCapabilities({ browserName: "MiniBrowser", "webkitgtk:browserOptions": { binary, args: ["--automation"] } })
    .build();

  return {
    // There is one window, whose mouse and keyboard are real: a page takes the place of the one before.
    newPage: async () => new Page(session),
    async close() {
      await session.quit();
      await service.kill();
      screen.kill();
      await once(screen, "exit");
    },
  };
}
