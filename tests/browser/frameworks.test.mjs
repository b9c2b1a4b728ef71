// The control in pages that frameworks make, and in pages whose scripts come late or early: each shows the exercise
// that was asked for, in whatever order and way its values arrive.
import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";
import * as esbuild from "esbuild";
import { root } from "../../tools/sources.mjs";
import { idle, launch, noise, problem, text } from "./browser.mjs";

let browser;
let page;

before(async () => (browser = await launch()));
after(() => browser.close());
afterEach(async () => {
  await page?.close();
  page = undefined;
});

const exercise = {
  prmNrBeslisVar: 3,
  prmNrKleinerGelijkVglen: 1,
  prmNrGelijkVglen: 1,
  prmBigM: 50,
  prmSTR_DLfunctie: " -2, -3, -1",
  prmSTR_KleinerGelijkVglen: " 1, 1, 1",
  prmSTR_GelijkVglen: " 2, 0, 1",
  prmSTR_RL: " 40, 25",
};
const backwards = Object.fromEntries(Object.entries(exercise).reverse());
const asProperties = Object.fromEntries(
  Object.entries(exercise).map(([name, value]) => [name.replace("STR_", ""), value]),
);

// One page: what stands in `body`, and a script with `contents` bundled in the place of BUNDLE.
async function open(contents, body) {
  const built = await esbuild.build({
    stdin: { contents, resolveDir: root, loader: "jsx" },
    jsx: "automatic",
    bundle: true,
    write: false,
    format: "iife",
    define: {
      "process.env.NODE_ENV": '"production"',
      __VUE_OPTIONS_API__: "false",
      __VUE_PROD_DEVTOOLS__: "false",
      __VUE_PROD_HYDRATION_MISMATCH_DETAILS__: "false",
    },
    logLevel: "error",
  });
  await browser.write("bundle.js", built.outputFiles[0].text);
  page = await browser.open(`<!doctype html><html lang="nl"><link rel="icon" href="data:,">${body}`, { wait: false });
  await page.waitForSelector("tabulon-lpctrl");
  await idle(page);
}

const control = '<script src="tabulon.js"></script>';
const bundle = '<script src="bundle.js"></script>';
const app = '<div id="app"></div>';
// Where the control's own script stands, before or after the page's.
const orders = [
  ["before", `${control}${app}${bundle}`],
  ["after", `${app}${bundle}${control}`],
];

async function expectTheExercise() {
  const rowF = await Promise.all([1, 2, 3, 4, 5].map((at) => text(page, "txtRij_F", at)));
  assert.deepEqual(rowF, [" -2", " -3", " -1", " 0", " 50"]);
  const cells = await Promise.all([1, 2, 3, 4, 6, 7, 8, 10].map((at) => text(page, "txtTableau", at)));
  assert.deepEqual(cells, [" 1", " 1", " 1", " 1", " 2", " 0", " 1", " 1"]);
  assert.deepEqual([await text(page, "txtRL", 1), await text(page, "txtRL", 2)], [" 40", " 25"]);
  assert.deepEqual(noise(page), []);
}

const react = (props, render) => `
  import { createRoot } from "react-dom/client";
  import { StrictMode, createElement, useLayoutEffect, useRef } from "react";
  const props = ${JSON.stringify(props)};
  ${render}`;
const vue = (props) => `
  import { createApp, h } from "vue/dist/vue.runtime.esm-bundler.js";
  createApp({ render: () => h("tabulon-lpctrl", ${JSON.stringify(props)}) }).mount("#app");`;

for (const [when, body] of orders)
  describe(`the control's script standing ${when} the page's`, () => {
    for (const [order, props] of [
      ["in the order of the method", exercise],
      ["backwards", backwards],
      ["with the lists as properties", asProperties],
    ]) {
      // What is not yet known to have properties is given attributes, and there lists have their other names.
      if (when === "after" && props === asProperties) continue;

      test(`React shows what its props say, ${order}`, async () => {
        const render = `createRoot(document.querySelector("#app")).render(
          createElement(StrictMode, null, createElement("tabulon-lpctrl", props)));`;
        await open(react(props, render), body);
        await expectTheExercise();
      });

      test(`Vue shows what its props say, ${order}`, async () => {
        await open(vue(props), body);
        await expectTheExercise();
      });
    }

    test("React shows what a layout effect sets after the element has been put into the page", async () => {
      const render = `
        const Late = () => {
          const element = useRef(null);
          useLayoutEffect(() => void Object.assign(element.current, ${JSON.stringify(asProperties)}));
          return <tabulon-lpctrl ref={element} />;
        };
        createRoot(document.querySelector("#app")).render(<Late />);`;
      await open(react({}, render), body);
      await expectTheExercise();
    });

    for (const [moment, steps] of [
      ["before it is put into the page", "give(); document.querySelector('#app').append(element);"],
      ["after it has been put into the page", "document.querySelector('#app').append(element); give();"],
    ])
      test(`a plain script shows what it gives ${moment}`, async () => {
        await open(
          `const element = document.createElement("tabulon-lpctrl");
           const give = () => {
             for (const [name, value] of Object.entries(${JSON.stringify(backwards)}))
               name.includes("STR_") ? element.setAttribute(name, value) : (element[name] = value);
           };
           ${steps}`,
          body,
        );
        await expectTheExercise();
      });
  });

describe("before the control is first shown", () => {
  test("a framework that makes the element anew for the next exercise shows that", async () => {
    await open(
      react(
        exercise,
        `const root = createRoot(document.querySelector("#app"));
         const show = (key, props) => root.render(createElement("tabulon-lpctrl", { key, ...props }));
         show(1, { prmNrBeslisVar: 1, prmSTR_RL: " 7, 8" });
         globalThis.next = () => show(2, props);`,
      ),
      `${control}${app}${bundle}`,
    );
    assert.equal(await text(page, "txtRL", 1), " 7");
    await page.evaluate(() => next());
    await page.waitForFunction(() => document.querySelector("tabulon-lpctrl")?.shadowRoot.querySelector(".surface"));
    await idle(page);
    await expectTheExercise();
  });

  test("what a script sets goes before what stands on the page", async () => {
    await open(
      "LPctrl1.prmNrBeslisVar = 3; LPctrl1.prmRL = ' 9, 8';",
      `${problem({ prmNrBeslisVar: 1, prmSTR_RL: " 7" })}${bundle}${control}`,
    );
    assert.notEqual(await text(page, "txtRij_F", 5), null);
    assert.equal(await text(page, "txtRL", 2), " 8");
    assert.deepEqual(noise(page), []);
  });

  test("prmShow is taken for granted: lists that were set before it stay", async () => {
    await open("LPctrl1.prmRL = ' 9, 8'; LPctrl1.prmShow = true;", `${problem()}${bundle}${control}`);
    assert.equal(await text(page, "txtRL", 2), " 8");
  });

  test("neither null nor undefined is an exercise", async () => {
    for (const nothing of ["null", "undefined"]) {
      await open(`LPctrl1.prmRL = ${nothing};`, `${problem({ prmSTR_DLfunctie: " 1, 1" })}${bundle}${control}`);
      assert.equal(await page.evaluate(() => LPctrl1.ready.catch(({ number }) => number)), 13);
      assert.deepEqual([await text(page, "txtRL", 1), await text(page, "txtRij_F", 1)], [" 0", " 0"]);
      await page.close();
    }
    page = undefined;
  });
});
