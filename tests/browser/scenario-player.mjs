// Plays a scenario in a browser, with the mouse and the keyboard.
//
//   await play(browser, readScenario(text), readDumps(headless));   // throws at the first line that fails
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { setTimeout as sleep } from "node:timers/promises";
import { fileURLToPath } from "node:url";
import { noise, problem, idle } from "./browser.mjs";
import { look } from "./scenario-eyes.mjs";

const patience = 5000; // milliseconds until what must be seen is missed

const keyNames = { Space: "Space", Up: "ArrowUp", Down: "ArrowDown", Left: "ArrowLeft", Right: "ArrowRight" };
const modifierNames = { Shift: "Shift", Ctrl: "Control", Alt: "Alt" };

// A clock that stands still at ten o'clock until the scenario moves it. What a page paints goes on by itself.
const clockScript = `
  window.scenarioClock = FakeTimers.install({
    now: new Date(2026, 0, 5, 10).getTime(),
    toFake: ["setTimeout", "clearTimeout", "setInterval", "clearInterval", "Date"],
  });
`;

const errorsScript = `
  window.scenarioErrors = [];
  document.addEventListener("tabulon-error", (event) => scenarioErrors.push(event.detail.number));
`;

// Whoever saves is asked here and not in a window of the browser, which nobody could answer. What is saved, in the
// place that was picked or as a download, is kept by its name.
const filesScript = `
  window.scenarioFiles = {};
  const keep = async (name, blob) => (scenarioFiles[name] = [...new Uint8Array(await blob.arrayBuffer())]);
  const handleOf = (name) => ({
    name,
    async createWritable() {
      const parts = [];
      return { write: async (part) => void parts.push(part), close: () => keep(name, new Blob(parts)) };
    },
  });
  window.showSaveFilePicker = () =>
    new Promise((resolve, reject) => {
      window.answerSave = (name) => {
        delete window.answerSave;
        if (name === undefined) reject(new DOMException("The person has cancelled", "AbortError"));
        else resolve(handleOf(name));
      };
    });
  const contents = new Map();
  const { createObjectURL } = URL;
  URL.createObjectURL = (blob) => {
    const address = createObjectURL.call(URL, blob);
    contents.set(address, blob);
    return address;
  };
  HTMLAnchorElement.prototype.click = function () {
    void keep(this.download, contents.get(this.href));
  };
`;

const projectFile = (path) => fileURLToPath(new URL(`../../${path}`, import.meta.url));

const pageWith = (element, scripts) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>Scenario</title>
<link rel="icon" href="data:,">
${scripts.map((source) => `<script src="${source}"></script>`).join("\n")}
<body>
${element}
</body>
</html>
`;

class Player {
  parameters = {};
  errorsSeen = 0;
  error = undefined;
  expectsErrors = false;

  constructor(browser, { fakeTimers, dumps, hasClock, opensFiles }) {
    Object.assign(this, { browser, fakeTimers, dumps, hasClock, opensFiles });
  }

  // ---- Looking

  look = (what, name, index) => this.page.evaluate(look, { what, name, index });

  // Until `check` throws no more; then what it returns.
  async eventually(check) {
    for (const end = Date.now() + patience; ; await sleep(20)) {
      try {
        return await check();
      } catch (error) {
        if (!(error instanceof assert.AssertionError) || Date.now() > end) throw error;
      }
    }
  }

  // words[at] names a control, and an index may follow.
  named({ words, quoted }, at) {
    const name = words[at];
    assert.ok(name, "a name is missing");
    const hasIndex = words.length > at + 1 && !quoted[at + 1] && /^\d+$/.test(words[at + 1]);
    return { name, index: hasIndex ? words[at + 1] : undefined, next: at + (hasIndex ? 2 : 1) };
  }

  async find(command, at = 1) {
    const { name, index, next } = this.named(command, at);
    const control = await this.look("control", name, index);
    assert.ok(control, `there is no ${name} ${index ?? ""}`);
    return { ...control, name, index, next, called: index ? `${name} ${index}` : name };
  }

  // Until the page has painted and has handled what was waiting.
  waitUntilIdle = async () => {
    for (let turn = 0; turn < 2; ++turn) {
      await this.page.evaluate(
        () =>
          new Promise((resolve) =>
            requestAnimationFrame(() => {
              const { port1, port2 } = new MessageChannel();
              port1.onmessage = () => resolve();
              port2.postMessage(0);
            }),
          ),
      );
    }
  };

  async noteErrors() {
    const errors = await this.page.evaluate(() => window.scenarioErrors);
    if (errors.length > this.errorsSeen) this.error = errors.at(-1);
    this.errorsSeen = errors.length;
  }

  // The browser's own question for a file to open, as soon as it comes.
  awaitChooser() {
    this.chooser = undefined;
    this.page.waitForFileChooser({ timeout: 0 }).then(
      (chooser) => (this.chooser = chooser),
      () => {},
    );
  }

  savedFiles = () => this.page.evaluate(() => Object.keys(window.scenarioFiles));
  answerToOpen = () => this.eventually(() => this.chooser ?? assert.fail("nothing asks for a file to open"));
  asksToSave = () => this.page.evaluate(() => "answerSave" in window);
  answerSave = (name) => this.page.evaluate((given) => window.answerSave(given ?? undefined), name);

  expectNoError() {
    assert.equal(this.error, undefined, `error ${this.error} that nobody looks at`);
  }

  // ---- Doing

  async play(command) {
    const [word] = command.words;
    const run = Object.hasOwn(commands, word) ? commands[word] : undefined;
    assert.ok(run, `unknown command "${word}"`);
    assert.ok(!command.below.length || word === "page", "only page has lines below it");
    if (word !== "see") this.expectNoError();
    await run.call(this, command);
    if (!this.page || word === "see") return;
    if (word !== "press") await this.waitUntilIdle(); // it has idle after each key
    await this.noteErrors();
  }

  clickAt = ({ left, top, width, height }) => this.page.mouse.click(left + width / 2, top + height / 2);

  async pressKey(name) {
    const parts = name.split(/\+(?=.)/);
    const key = parts.pop();
    const held = parts.map((part) => modifierNames[part] ?? assert.fail(`there is no key "${name}"`));
    for (const hold of held) await this.page.keyboard.down(hold);
    await this.page.keyboard.press(keyNames[key] ?? (key.length === 1 ? key.toLowerCase() : key));
    for (const hold of held.reverse()) await this.page.keyboard.up(hold);
    await this.waitUntilIdle();
  }

  async drag({ bar, vertical }, to) {
    const { thumb, track, low, high } = bar;
    const along = vertical ? "height" : "width";
    const [x, y] = [thumb.left + thumb.width / 2, thumb.top + thumb.height / 2];
    const start = vertical ? track.top : track.left;
    const place = start + ((to - low) / (high - low)) * (track[along] - thumb[along]);
    const distance = place - (vertical ? thumb.top : thumb.left);
    await this.page.mouse.move(x, y);
    await this.page.mouse.down();
    await this.page.mouse.move(x + (vertical ? 0 : distance), y + (vertical ? distance : 0), { steps: 5 });
    await this.waitUntilIdle();
    await this.page.mouse.up();
  }

  // A place on the track before the thumb or after it.
  trackBeside({ bar: { track, thumb }, vertical }, forward) {
    const [from, along] = vertical ? ["top", "height"] : ["left", "width"];
    const [trackEnd, thumbEnd] = [track[from] + track[along], thumb[from] + thumb[along]];
    const [begin, end] = forward ? [thumbEnd, trackEnd] : [track[from], thumb[from]];
    assert.ok(end - begin > 1, "there is no track on that side of the thumb");
    return { ...track, [from]: begin, [along]: end - begin };
  }
}

const scriptValue = ({ value, valueQuoted }) => {
  if (valueQuoted) return value;
  if (value === "true" || value === "false") return value === "true";
  return value !== "" && Number.isFinite(Number(value)) ? Number(value) : value;
};

const commands = {
  page({ below }) {
    for (const { words, value } of below) {
      assert.equal(words.length, 1, "a parameter is written as name = text");
      this.parameters[words[0]] = value;
    }
  },

  async show() {
    const { browser } = this;
    await browser.write("scenario-clock.js", this.fakeTimers + clockScript);
    await browser.write("scenario-errors.js", errorsScript);
    await browser.write("scenario-files.js", filesScript);
    const scripts = [
      ...(this.hasClock ? ["scenario-clock.js"] : []),
      "scenario-errors.js",
      "scenario-files.js",
      "tabulon.js",
    ];
    this.page = await browser.open(pageWith(problem(this.parameters), scripts), { wait: false });
    if (this.opensFiles) this.awaitChooser();
    await idle(this.page);
    this.error = await this.page.evaluate(() =>
      document.querySelector("tabulon-lpctrl").ready.then(
        () => undefined,
        (error) => error.number,
      ),
    );
  },

  async click(command) {
    const control = await this.find(command);
    assert.ok(control.shown, `${control.called} is not shown`);
    await this.clickAt(control.box);
  },

  async choose({ words }) {
    const item = await this.eventually(() => this.find({ words, quoted: [] }));
    await this.page.mouse.move(item.box.left + item.box.width / 2, item.box.top + item.box.height / 2);
    await this.clickAt(item.box);
  },

  async hover({ words }) {
    const { box } = await this.find({ words, quoted: [] });
    await this.page.mouse.move(box.left + box.width / 2, box.top + box.height / 2);
  },

  async press({ words }) {
    assert.ok(words.length > 1, "press what?");
    for (const key of words.slice(1)) await this.pressKey(key);
  },

  async type({ words }) {
    assert.equal(words.length, 2, "type one word, or a text in quotes");
    await this.page.keyboard.type(words[1]);
  },

  async script(command) {
    const result = await this.page.evaluate(
      (name, value) => {
        const element = document.querySelector("tabulon-lpctrl");
        if (!(name in element)) return "unknown";
        try {
          element[name] = value;
        } catch (error) {
          return error.number;
        }
        return undefined;
      },
      command.words[1],
      scriptValue(command),
    );
    assert.notEqual(result, "unknown", `there is no property ${command.words[1]}`);
    this.error = result;
  },

  async save({ words: [, as, name] }) {
    assert.ok(as === "as" && name, "save as which name?");
    await this.eventually(async () => assert.ok(await this.asksToSave(), "nothing asks where to save"));
    await this.answerSave(name);
  },

  async open({ words: [, what, path] }) {
    assert.ok(what === "file" && path, "open file of which path?");
    const chooser = await this.answerToOpen();
    this.awaitChooser();
    await chooser.accept([projectFile(path)]);
  },

  async cancel({ words: [, what] }) {
    assert.equal(what, "file", "cancel file");
    const asked = await this.eventually(async () => {
      if (await this.asksToSave()) return "save";
      return this.chooser ?? assert.fail("nothing asks for a file");
    });
    if (asked === "save") return this.answerSave(undefined);
    this.awaitChooser();
    await asked.cancel();
  },

  async call({ words, value }) {
    if (["SchrijfTableau", "LeesTableau"].includes(words[1])) {
      this.error = await this.page.evaluate(
        (name, file) =>
          document
            .querySelector("tabulon-lpctrl")
            [name](file)
            .then(
              () => undefined,
              (error) => error.number,
            ),
        words[1],
        value,
      );
      return;
    }
    this.error = await this.page.evaluate((name) => {
      try {
        void document.querySelector("tabulon-lpctrl")[name]();
      } catch (error) {
        return error.number;
      }
      return undefined;
    }, words[1]);
  },

  async wait({ words }) {
    assert.match(words[1] ?? "", /^\d+$/, "wait how many seconds?");
    await this.page.evaluate((seconds) => void window.scenarioClock.tick(seconds * 1000), Number(words[1]));
  },

  async scroll(command) {
    const first = await this.find(command);
    assert.ok(first.bar && first.shown, "no such bar is shown");
    const [how, far] = command.words.slice(first.next);
    assert.match(far ?? "", /^[+-]?\d+$/, "scroll how far?");
    if (how === "to") return this.drag(first, Number(far));
    assert.ok(how === "arrow" || how === "page", "scroll by arrow, page or to");
    const forward = Number(far) > 0;
    for (let turn = 0; turn < Math.abs(Number(far)); ++turn) {
      const bar = await this.find(command);
      await this.clickAt(how === "page" ? this.trackBeside(bar, forward) : forward ? bar.bar.forward : bar.bar.back);
      await this.waitUntilIdle();
    }
  },

  async drag(command) {
    const { shown, called, next, box } = await this.find(command);
    assert.ok(shown, `${called} is not shown`);
    const [by, right, down] = command.words.slice(next);
    assert.ok(
      by === "by" && [right, down].every((far) => /^[+-]?\d+$/.test(far)),
      "drag by how many pixels to the right and down?",
    );
    const [x, y] = [box.left + box.width / 2, box.top + box.height / 2];
    await this.page.mouse.move(x, y);
    await this.page.mouse.down();
    await this.page.mouse.move(x + Number(right), y + Number(down), { steps: 5 });
    await this.page.mouse.up();
  },

  async dump({ words }) {
    assert.equal(words.length, 2, "dump under what name?");
    const wanted = this.dumps[words[1]];
    assert.ok(wanted, `the headless host has no dump ${words[1]}`);
    await this.eventually(async () => assert.equal(await this.look("state"), wanted));
  },

  see(command) {
    const [, what] = command.words;
    assert.ok(what, "see what?");
    const check = Object.hasOwn(seen, what) ? seen[what] : seeControl;
    return this.eventually(() => check.call(this, command));
  },
};

const seen = {
  async no({ words: [, , what] }) {
    if (what === "form") return assert.equal(await this.look("form"), null, "a form is open");
    if (what === "menu") return assert.deepEqual(await this.look("menus"), [], "a menu is open");
    if (what === "file") return assert.deepEqual(await this.savedFiles(), [], "a file was written");
    throw new Error("see no form, see no menu, or see no file");
  },

  async file({ words: [, , name, like, path] }) {
    assert.ok(like === "like" && path, "see file NAME like PATH");
    const bytes = await this.page.evaluate((file) => window.scenarioFiles[file], name);
    assert.ok(bytes, `no file ${name} was written`);
    assert.equal(Buffer.from(bytes).toString("latin1"), await readFile(projectFile(path), "latin1"));
  },

  async form({ words: [, , name, caption] }) {
    const form = await this.look("form");
    assert.ok(form, "no form is open");
    assert.equal(form.name, name);
    if (caption !== undefined) assert.equal(form.caption, caption);
  },

  async menu({ words: [, , name] }) {
    const menus = await this.look("menus");
    assert.ok(menus.includes(name), `the open menus are ${menus.join(", ") || "none"}`);
  },

  async focus(command) {
    const control = await this.find(command, 2);
    assert.ok(control.focused, `the focus is not on ${control.called}`);
  },

  async error({ words: [, , number] }) {
    await this.noteErrors();
    assert.equal(this.error, Number(number));
    this.error = undefined;
  },

  busy: async function () {
    assert.equal(await this.look("busy"), true, "the control is not busy");
  },

  idle: async function () {
    assert.equal(await this.look("busy"), false, "the control is busy");
  },
};

async function seeControl(command) {
  const { words, quoted } = command;
  const control = await this.find(command);
  const { next, called } = control;
  const [what, wanted] = words.slice(next);
  if (!quoted[next] && (what === "hidden" || what === "shown"))
    return assert.equal(control.shown, what === "shown", `${called} is not ${what}`);
  assert.ok(control.shown, `${called} is not shown`);
  if (quoted[next]) return assert.equal(control.text, what, called);
  const states = {
    locked: control.locked,
    unlocked: !control.locked,
    checked: control.checked,
    unchecked: !control.checked,
    enabled: !control.disabled,
    disabled: control.disabled,
  };
  if (Object.hasOwn(states, what)) return assert.ok(states[what], `${called} is not ${what}`);
  if (!["back", "tip", "value"].includes(what)) throw new Error(`nothing is known of "${what}"`);
  return assert.equal(control[what], wanted, `${called}: ${what}`);
}

// `fakeTimers` is a script that gives the page the global FakeTimers.
export async function play(browser, scenario, { fakeTimers, dumps, file }) {
  const has = (...commands) => scenario.some(({ words }) => commands.includes(words[0]));
  const player = new Player(browser, { fakeTimers, dumps, hasClock: has("wait"), opensFiles: has("open", "cancel") });
  try {
    for (const command of scenario) {
      try {
        await player.play(command);
      } catch (error) {
        error.message = `${file} line ${command.line}: ${error.message}`;
        throw error;
      }
    }
    player.expectNoError();
    if (!scenario.some(({ words }) => words[0] === "see" && words[1] === "error"))
      assert.deepEqual(noise(player.page), []);
  } finally {
    await player.page?.close();
  }
}
