// The pages that a teacher could use: each opens without a complaint, and its problem has the optimum that the
// page's makers worked out.
import assert from "node:assert/strict";
import { after, before, describe, test } from "node:test";
import { control, launch, noise, idle, text } from "./browser.mjs";

// F at the optimum, and what the basic variables are worth there.
const pages = [
  { path: "index.html", F: " 36", values: { "x  1": " 2", "x  2": " 6", "x  3": " 2" } },
  { path: "standaard.html", F: " 13", values: { "x  1": " 2", "x  3": " 1", "x  5": " 1" } },
  { path: "breuken.html", F: " 13.4", values: { "x  1": " 2.2", "x  2": " 1.7" } },
  // x = (2, 3, 5) costs 62, and the ">=" row is met exactly.
  { path: "big-m.html", F: "-62", values: { "x  1": " 2", "x  2": " 3", "x  3": " 5" } },
  { path: "groot.html", F: " 620", values: { "x  1": " 10", "x  2": " 10", "x  6": " 10" } }, // x 3 = 40 stands in row 8
  { path: "object.html", F: " 22", values: { "x  1": " 4", "x  2": " 2" } },
];

const shows = async (page, name, wanted) => {
  for (let look = 0; look < 100 && (await text(page, name)) !== wanted; ++look) {
    await new Promise((resume) => setTimeout(resume, 20));
  }
  assert.equal(await text(page, name), wanted, name);
};

// The basic variables in the rows that are shown.
async function solution(page) {
  const found = {};
  for (let row = 1; row <= 7; ++row) {
    const variable = await text(page, "lblBasis", row);
    if (variable) found[variable] = await text(page, "txtRL", row);
  }
  return found;
}

async function confirm(page, message) {
  await shows(page, "lblMelding", message);
  await page.keyboard.press("Enter");
  await idle(page);
}

async function optimiseByMouse(page) {
  await page.click(control("cmd_Bewerken"));
  await page.click(control("mnu_optimaliseren"));
  await confirm(page, "Optimale oplossing gevonden!");
}

async function optimiseByKeyboard(page) {
  await page.keyboard.down("Alt");
  await page.keyboard.press("KeyW");
  await page.keyboard.up("Alt");
  await page.keyboard.press("KeyO");
  await confirm(page, "Optimale oplossing gevonden!");
}

describe("the example pages", () => {
  let browser;
  before(async () => (browser = await launch()));
  after(() => browser?.close());

  for (const { path, F, values } of pages) {
    for (const [how, optimise] of Object.entries({ "by mouse": optimiseByMouse, "by keyboard": optimiseByKeyboard })) {
      test(`${path} reaches its optimum ${how}`, async () => {
        const page = await browser.open(path);
        await optimise(page);
        await shows(page, "lblFRL", F);
        const found = await solution(page);
        for (const [variable, value] of Object.entries(values)) assert.equal(found[variable], value, variable);
        assert.deepEqual(noise(page), []);
        await page.close();
      });
    }
  }

  test("the page with a script gives problems whose optimum it knows", async () => {
    const page = await browser.open("script.html");
    for (let round = 0; round < 3; ++round) {
      await optimiseByMouse(page);
      const F = (await text(page, "lblFRL")).trim();
      await page.click("#waarde", { clickCount: 3 });
      await page.keyboard.type(F);
      await page.click("#antwoord button");
      assert.equal(await page.$eval("#uitslag", (node) => node.textContent), "Goed!");
      await page.click("#nieuw");
      await shows(page, "lblNRTableau", "1-e Simplex-tableau");
    }
    assert.deepEqual(noise(page), []);
    await page.close();
  });

  test("every page is reached from the start page", async () => {
    const page = await browser.open("index.html");
    const links = await page.$$eval(".oefeningen a", (nodes) => nodes.map((node) => node.getAttribute("href")));
    assert.deepEqual(links, [
      "standaard.html",
      "breuken.html",
      "big-m.html",
      "groot.html",
      "script.html",
      "object.html",
    ]);
    await page.close();
  });
});

for (const engine of ["firefox", "webkit"]) {
  describe(`in ${engine}`, () => {
    let browser;
    before(async () => (browser = await launch({ engine })));
    after(() => browser?.close());

    for (const [how, optimise] of Object.entries({ "by mouse": optimiseByMouse, "by keyboard": optimiseByKeyboard })) {
      test(`the start page reaches its optimum ${how}`, async () => {
        const page = await browser.open("index.html");
        await optimise(page);
        await shows(page, "lblFRL", " 36");
        assert.deepEqual(noise(page), []);
        await page.close();
      });
    }
  });
}
