// In a page, for drag.bench.mjs: moves of a pointer over a graph, one a frame.
//
//   await prepare.control()       or canvas, or library
//   await dragAround(120)
//
// Each frame shows the level line through the point, a cross on it and three texts.

const size = 246;
const range = 10; // of both axes

const middle = 123;
const radius = 80;
let move;

// From one frame's beginning to the next one's.
async function dragAround(moves) {
  await nextFrame();
  for (let at = 0; at < moves; ++at) {
    const turn = (2 * Math.PI * at) / 149;
    begin("frame");
    move(middle + radius * Math.cos(turn), middle + radius * Math.sin(turn));
    await nextFrame();
    end("frame");
  }
}

const wait = async (found) => {
  while (!found()) await nextFrame();
  return found();
};

// ---- The control

async function openGraph(named) {
  named("cmd_Bewerken").click();
  (await wait(() => named("mnu_optimaliseren"))).click();
  (await wait(() => named("cmdOK"))).click();
  await settled();
  named("cmd_Opties").click();
  (await wait(() => named("mnu_Grafiek"))).click();
  await settled();
}

async function prepareControl() {
  const element = document.querySelector("tabulon-lpctrl");
  await element.ready;
  const named = (name) => element.shadowRoot.querySelector(`[data-name="${name}"]`);
  await openGraph(named);
  const cross = named("imgCross");
  cross.setPointerCapture = () => {};
  const box = named("PictureLN").getBoundingClientRect();
  const point = (type, clientX, clientY, button) =>
    cross.dispatchEvent(
      new PointerEvent(type, {
        bubbles: true,
        composed: true,
        isPrimary: true,
        pointerId: 1,
        clientX,
        clientY,
        button,
        buttons: 1,
      }),
    );
  const { left, top, width, height } = cross.getBoundingClientRect();
  point("pointerdown", left + width / 2, top + height / 2, 0);
  const before = named("lblValX1").textContent;
  move = (x, y) => point("pointermove", box.left + x, box.top + y, -1);
  move(middle, middle);
  if (named("lblValX1").textContent === before) throw new Error("the cross did not move");
}

// ---- The others: 3x + 5y through the point

const inUnits = (x, y) => [(x / size) * range, ((size - y) / size) * range];

// The ends of the level line, at x = 0 and at x = range.
const ends = (x, y) => [(3 * x + 5 * y) / 5, (3 * (x - range) + 5 * y) / 5];

function write(x, y) {
  const texts = document.querySelectorAll("p");
  [x, y, 3 * x + 5 * y].forEach((value, at) => (texts[at].textContent = value.toFixed(4)));
}

const constraints = [
  [4, 0, 4, 10],
  [0, 6, 10, 6],
  [0, 9, 6, 0],
];

function prepareCanvas() {
  const canvas = document.querySelector("canvas");
  canvas.width = canvas.height = size;
  const context = canvas.getContext("2d");
  const line = (x1, y1, x2, y2) => {
    const pixel = (x, y) => [(x / range) * size, size - (y / range) * size];
    context.beginPath();
    context.moveTo(...pixel(x1, y1));
    context.lineTo(...pixel(x2, y2));
    context.stroke();
  };
  move = (left, top) => {
    const [x, y] = inUnits(left, top);
    context.clearRect(0, 0, size, size);
    for (const each of constraints) line(...each);
    const [first, last] = ends(x, y);
    line(0, first, range, last);
    line(x - 0.3, y - 0.3, x + 0.3, y + 0.3);
    line(x - 0.3, y + 0.3, x + 0.3, y - 0.3);
    write(x, y);
  };
}

function prepareLibrary() {
  const axis = [0, 4, 4.001, 6, range];
  const series = ["black", "black", "red", "blue"].map((stroke) => ({ stroke, points: { show: stroke === "blue" } }));
  const scales = { x: { time: false, range: [0, range] }, y: { range: [0, range] } };
  const dataWith = (x, y) => {
    const xs = [...axis, x].sort((a, b) => a - b);
    const at = (value) => xs.map((each) => (each === x ? value : null));
    const level = xs.map((each) => (3 * (x - each) + 5 * y) / 5);
    return [xs, xs.map(() => 6), xs.map((each) => 9 - 1.5 * each), level, at(y)];
  };
  const options = { width: size, height: size, scales, legend: { show: false }, series: [{}, ...series] };
  const plot = new uPlot(options, dataWith(2, 6), document.querySelector("div"));
  move = (left, top) => {
    const [x, y] = inUnits(left, top);
    plot.setData(dataWith(x, y));
    write(x, y);
  };
}

Object.assign(window, {
  dragAround,
  prepare: { control: prepareControl, canvas: prepareCanvas, library: prepareLibrary },
});
