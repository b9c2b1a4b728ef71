// What a page holds that shows nothing: nodes of elements that are gone. Chromium alone counts them.
//
//   const held = await nodesHeld(page);              // with one element
//   await expectNothingLeft(page, held);             // when many have come and gone
const patience = 5000; // milliseconds until what is to go has gone

export async function nodesHeld(page) {
  const tools = await page.createCDPSession();
  await tools.send("HeapProfiler.collectGarbage");
  const { nodes } = await tools.send("Memory.getDOMCounters");
  await tools.detach();
  return nodes;
}

// Removes every element. Without one the page holds no more than it did with one.
export async function expectNothingLeft(page, heldWithOne, limit = patience) {
  await page.evaluate(() => {
    for (const element of document.querySelectorAll("tabulon-lpctrl")) element.remove();
  });
  const end = Date.now() + limit;
  for (;;) {
    const held = await nodesHeld(page);
    if (held <= heldWithOne) return;
    if (Date.now() > end)
      throw new Error(`${held} nodes are left without an element; with one there were ${heldWithOne}`);
    await new Promise((resume) => setTimeout(resume, 100));
  }
}
