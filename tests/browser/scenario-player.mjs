// Plays a scenario in a browser, with the mouse and the keyboard.
//
//   await play(browser, { steps, dumps, fakeTimers, file });   // throws at the first line that fails
//
// The steps are what the headless host has understood of the scenario, its sentences by their forms (language.h in
// tests/scenarios):
//
//   { line: 12, says: "see CONTROL \"TEXT\"", given: [{ name: "txtRL", index: 1 }, " 4"] }
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { setTimeout as sleep } from "node:timers/promises";
import { fileURLToPath } from "node:url";
import { noise, problem, idle } from "./browser.mjs";
import { look } from "./scenario-eyes.mjs";

const patience = 5000; // milliseconds until what must be seen is missed

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
  // How many questions for a file to open have been answered, and the page has done what it does then. A browser tells
  // the page some time after the file has been given to it.
  window.scenarioAnswers = 0;
  const macrotask = () => new Promise((resume) => {
    const { port1, port2 } = new MessageChannel();
    port1.onmessage = resume;
    port2.postMessage(0);
  });
  const { click } = HTMLInputElement.prototype;
  HTMLInputElement.prototype.click = function () {
    const answered = async () => {
      await this.files[0]?.arrayBuffer();
      await macrotask();
      ++window.scenarioAnswers;
    };
    if (this.type === "file") for (const answer of ["change", "cancel"]) this.addEventListener(answer, answered);
    click.call(this);
  };
`;

// What is seen when the page has handled what was waiting, and a control that let it paint meanwhile has gone on.
const eyesScript = `
  const look = ${look};
  window.settle = async () => {
    for (let turn = 0; turn < 2; ++turn) {
      if (document.querySelector("[aria-busy]")) await new Promise(requestAnimationFrame);
      await new Promise((resolve) => {
        const { port1, port2 } = new MessageChannel();
        port1.onmessage = resolve;
        port2.postMessage(0);
      });
    }
  };
  window.settleAndLook = async (wanted) => {
    await settle();
    return JSON.stringify({ ...look(wanted), errors: scenarioErrors });
  };
`;

const projectFile = (path) => fileURLToPath(new URL(`../../${path}`, import.meta.url));

const pageWith = (element, scripts) => `<!doctype html>
<html lang="nl">
<meta charset="utf-8">
<title>Scenario</title>
<link rel="icon" href="data:,">
${scripts.map((source) => `<script src="${source}"></script>`).join("\n")}
<link rel="stylesheet" href="scenario.css">
<body>
${element}
</body>
</html>
`;

const onlyLooks = ({ says }) => says.startsWith("see ") || says === "dump LABEL";
const calledOf = ({ name, index }) => (index ? `${name} ${index}` : name);
const namedBy = ({ says, given }) =>
  says.endsWith(" ITEM") ? [{ name: given[0] }] : given.filter((each) => each?.name !== undefined);

// What one look must tell, so that nothing is asked of the page again until something is done: the steps that only
// look, and the controls of the one behind them.
function wantedBy(steps) {
  const next = steps.findIndex((step) => !onlyLooks(step));
  const looking = next < 0 ? steps : steps.slice(0, next + 1);
  const named = new Map(looking.flatMap(namedBy).map((each) => [calledOf(each), each]));
  return { named: [...named.values()], whole: looking.some(({ says }) => says === "dump LABEL") };
}

class Player {
  parameters = {};
  errorsSeen = 0;
  error = undefined;

  constructor(browser, { fakeTimers, dumps, hasClock, opensFiles }) {
    Object.assign(this, { browser, fakeTimers, dumps, hasClock, opensFiles });
  }

  // ---- Looking

  // `seen` is what the page showed then; what has not come yet is looked for again, see eventually.
  async look() {
    // As text: engines take long over the values of a page.
    const seen = JSON.parse(await this.page.evaluate(`settleAndLook(${JSON.stringify(this.wanted)})`));
    this.seen = {
      ...seen,
      controls: new Map(this.wanted.named.map((each, at) => [calledOf(each), seen.controls[at]])),
    };
    this.noteErrors(seen.errors);
  }

  // Until `check` throws no more; then what it returns.
  async eventually(check) {
    for (const end = Date.now() + patience; ; await sleep(20), await this.look()) {
      try {
        return await check();
      } catch (error) {
        if (!(error instanceof assert.AssertionError) || Date.now() > end) throw error;
      }
    }
  }

  find(named) {
    const called = calledOf(named);
    const control = this.seen.controls.get(called);
    assert.ok(control, `there is no ${called}`);
    return { ...control, called };
  }

  findShown(named) {
    const control = this.find(named);
    assert.ok(control.shown, `${control.called} is not shown`);
    return control;
  }

  findBar(named) {
    const control = this.findShown(named);
    assert.ok(control.bar, `${control.called} is no bar`);
    return control;
  }

  noteErrors(errors) {
    if (errors.length > this.errorsSeen) this.error = errors.at(-1);
    this.errorsSeen = errors.length;
  }

  // The browser's own question for a file to open, as soon as it comes, where the browser tells of it.
  awaitChooser() {
    this.chooser = undefined;
    if (!this.page.waitForFileChooser) return;
    this.page.waitForFileChooser({ timeout: 0 }).then(
      (chooser) => (this.chooser = chooser),
      () => {},
    );
  }

  savedFiles = () => this.page.evaluate(() => Object.keys(window.scenarioFiles));
  asksToOpen = () => this.chooser ?? this.page.fileChooser?.();
  answerToOpen = () =>
    this.eventually(async () => (await this.asksToOpen()) ?? assert.fail("nothing asks for a file to open"));
  answers = () => this.page.evaluate(() => window.scenarioAnswers);
  // Answers what asks for a file to open.
  async answer(give) {
    const before = await this.answers();
    this.awaitChooser();
    await give();
    await this.eventually(async () => assert.notEqual(await this.answers(), before, "the page knows of no file"));
  }
  asksToSave = () => this.page.evaluate(() => "answerSave" in window);
  answerSave = (name) => this.page.evaluate((given) => window.answerSave(given ?? undefined), name);

  expectNoError() {
    assert.equal(this.error, undefined, `error ${this.error} that nobody looks at`);
  }

  // ---- Doing

  async play({ says, given }, behind) {
    if (!says.startsWith("see ")) this.expectNoError();
    if (onlyLooks({ says })) return this.eventually(() => sentences[says].apply(this, given));
    await sentences[says].apply(this, given);
    if (!this.page) return;
    this.wanted = wantedBy(behind);
    await this.look();
  }

  settle = () => this.page.evaluate(() => window.settle());
  clickAt = ({ left, top, width, height }) => this.page.mouse.click(left + width / 2, top + height / 2);

  async pressKey({ key, held }) {
    for (const hold of held) await this.page.keyboard.down(hold);
    await this.page.keyboard.press(key);
    for (const hold of [...held].reverse()) await this.page.keyboard.up(hold);
  }

  async dragThumb({ bar, vertical }, to) {
    const { thumb, track, low, high } = bar;
    const along = vertical ? "height" : "width";
    const [x, y] = [thumb.left + thumb.width / 2, thumb.top + thumb.height / 2];
    const start = vertical ? track.top : track.left;
    const place = start + ((to - low) / (high - low)) * (track[along] - thumb[along]);
    const distance = place - (vertical ? thumb.top : thumb.left);
    await this.page.mouse.move(x, y);
    await this.page.mouse.down();
    await this.page.mouse.move(x + (vertical ? 0 : distance), y + (vertical ? distance : 0), { steps: 5 });
    await this.settle();
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

  async scroll(named, steps, placeOn) {
    for (let turn = 0; turn < Math.abs(steps); ++turn) {
      if (turn > 0) await this.look();
      await this.clickAt(placeOn(this.findBar(named), steps > 0));
    }
  }
}

// By their forms, as language.h has them.
export const sentences = {
  "page PARAMETERS"(parameters) {
    Object.assign(this.parameters, parameters);
  },

  async show() {
    const { browser } = this;
    await browser.write("scenario-clock.js", this.fakeTimers + clockScript);
    await browser.write("scenario-errors.js", errorsScript);
    await browser.write("scenario-files.js", filesScript);
    await browser.write("scenario-eyes.js", eyesScript);
    // So that the mouse can leave the control on every side.
    await browser.write("scenario.css", "body { margin: 300px }");
    const scripts = [
      ...(this.hasClock ? ["scenario-clock.js"] : []),
      "scenario-errors.js",
      "scenario-files.js",
      "scenario-eyes.js",
      "tabulon.js",
    ];
    const page = pageWith(problem(this.parameters), scripts);
    this.page = await browser.open(page, { wait: false, width: 1280, height: 900 });
    if (this.opensFiles) this.awaitChooser();
    await idle(this.page);
    this.error = await this.page.evaluate(() =>
      document.querySelector("tabulon-lpctrl").ready.then(
        () => undefined,
        (error) => error.number,
      ),
    );
  },

  async "click CONTROL"(named) {
    await this.clickAt(this.findShown(named).box);
  },

  async leave() {
    const { bottom } = await this.page.$eval("tabulon-lpctrl", (element) => element.getBoundingClientRect().toJSON());
    await this.page.mouse.click(20, bottom + 20);
  },

  async "choose ITEM"(name) {
    const item = await this.eventually(() => this.find({ name }));
    await this.clickAt(item.box);
  },

  async "hover ITEM"(name) {
    const { box } = this.find({ name });
    await this.page.mouse.move(box.left + box.width / 2, box.top + box.height / 2);
  },

  async "press KEY..."(keys) {
    for (const [at, key] of keys.entries()) {
      if (at > 0) await this.settle();
      await this.pressKey(key);
    }
  },

  async "type TEXT"(text) {
    await this.page.keyboard.type(text);
  },

  async "script PROPERTY = VALUE"(property, given) {
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
      property,
      given,
    );
    assert.notEqual(result, "unknown", `there is no property ${property}`);
    this.error = result;
  },

  async "call METHOD = FILE"(method, given) {
    this.error = await this.page.evaluate(
      (name, file) =>
        document
          .querySelector("tabulon-lpctrl")
          [name](file)
          .then(
            () => undefined,
            (error) => error.number,
          ),
      method,
      given,
    );
  },

  async "call METHOD"(method) {
    this.error = await this.page.evaluate((name) => {
      try {
        void document.querySelector("tabulon-lpctrl")[name]();
      } catch (error) {
        return error.number;
      }
      return undefined;
    }, method);
  },

  async "save as FILE"(name) {
    await this.eventually(async () => assert.ok(await this.asksToSave(), "nothing asks where to save"));
    await this.answerSave(name);
  },

  async "open file PATH"(path) {
    const chooser = await this.answerToOpen();
    await this.answer(() => chooser.accept([projectFile(path)]));
  },

  async "cancel file"() {
    const asked = await this.eventually(async () => {
      if (await this.asksToSave()) return "save";
      return (await this.asksToOpen()) ?? assert.fail("nothing asks for a file");
    });
    if (asked === "save") return this.answerSave(undefined);
    await this.answer(() => asked.cancel());
  },

  async "wait SECONDS"(given) {
    await this.page.evaluate((seconds) => void window.scenarioClock.tick(seconds * 1000), given);
  },

  async "scroll BAR arrow STEPS"(named, steps) {
    await this.scroll(named, steps, ({ bar }, forward) => (forward ? bar.forward : bar.back));
  },

  async "scroll BAR page STEPS"(named, steps) {
    await this.scroll(named, steps, (bar, forward) => this.trackBeside(bar, forward));
  },

  async "scroll BAR to PLACE"(named, place) {
    await this.dragThumb(this.findBar(named), place);
  },

  async "drag CONTROL by RIGHT DOWN"(named, right, down) {
    const { box } = this.findShown(named);
    const [x, y] = [box.left + box.width / 2, box.top + box.height / 2];
    await this.page.mouse.move(x, y);
    await this.page.mouse.down();
    await this.page.mouse.move(x + right, y + down, { steps: 5 });
    await this.page.mouse.up();
  },

  "dump LABEL"(label) {
    const wanted = this.dumps[label];
    assert.ok(wanted, `the headless host has no dump ${label}`);
    assert.equal(this.seen.state, wanted);
  },

  // ---- What must be seen

  "see form FORM TEXT"(name, caption) {
    assert.deepEqual(this.seen.form, { name, caption });
  },

  "see form FORM"(name) {
    const form = this.seen.form;
    assert.ok(form, "no form is open");
    assert.equal(form.name, name);
  },

  "see no form"() {
    assert.equal(this.seen.form, null, "a form is open");
  },

  "see menu MENU"(name) {
    const menus = this.seen.menus;
    assert.ok(menus.includes(name), `the open menus are ${menus.join(", ") || "none"}`);
  },

  "see no menu"() {
    assert.deepEqual(this.seen.menus, [], "a menu is open");
  },

  async "see file FILE like PATH"(name, path) {
    const bytes = await this.page.evaluate((file) => window.scenarioFiles[file], name);
    assert.ok(bytes, `no file ${name} was written`);
    assert.equal(Buffer.from(bytes).toString("latin1"), await readFile(projectFile(path), "latin1"));
  },

  async "see no file"() {
    assert.deepEqual(await this.savedFiles(), [], "a file was written");
  },

  "see focus CONTROL"(named) {
    const control = this.find(named);
    assert.ok(control.focused, `the focus is not on ${control.called}`);
  },

  "see error NUMBER"(number) {
    assert.equal(this.error, number);
    this.error = undefined;
  },

  "see busy"() {
    assert.equal(this.seen.busy, true, "the control is not busy");
  },

  "see idle"() {
    assert.equal(this.seen.busy, false, "the control is busy");
  },

  'see CONTROL "TEXT"'(named, text) {
    const control = this.findShown(named);
    assert.equal(control.text, text, control.called);
  },

  "see CONTROL LOOK TEXT"(named, look, text) {
    const control = this.findShown(named);
    assert.equal(control[look], text, `${control.called}: ${look}`);
  },

  "see CONTROL STATE"(named, { word, seen, wanted }) {
    const control = seen === "shown" ? this.find(named) : this.findShown(named);
    assert.equal(control[seen], wanted, `${control.called} is not ${word}`);
  },
};

// `fakeTimers` is a script that gives the page the global FakeTimers.
export async function play(browser, { steps, dumps, fakeTimers, file }) {
  const has = (...forms) => steps.some(({ says }) => forms.includes(says));
  const player = new Player(browser, {
    fakeTimers,
    dumps,
    hasClock: has("wait SECONDS"),
    opensFiles: has("open file PATH", "cancel file"),
  });
  try {
    for (const [at, step] of steps.entries()) {
      try {
        await player.play(step, steps.slice(at + 1));
      } catch (error) {
        error.message = `${file} line ${step.line}: ${error.message}`;
        throw error;
      }
    }
    player.expectNoError();
    if (!has("see error NUMBER")) assert.deepEqual(noise(player.page), []);
  } finally {
    await player.page?.close();
  }
}
