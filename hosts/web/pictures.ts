// The pictures that forms and drawings name, drawn here so that they are sharp at any density.

// platform::Picture
export enum Picture {
  None,
  Warning,
  Cross,
  Simplex,
  BigM,
  Column,
  Row,
  Basis,
  Pivot,
  About,
}

interface Shape {
  path: string; // in a square of 24 by 24
  fill?: string;
  stroke?: string;
  width?: number;
}

const ink = "#4b5563";
const faint = "#d7dbe2";
const pale = "#dcebff";
const marked = "#b9d4fb";
const accent = "#1f5fbf";
const grid = "M4 4h16v16H4z M4 9.33h16 M4 14.67h16 M9.33 4v16 M14.67 4v16";
const lines = (path: string, stroke = ink, width = 1.2): Shape => ({ path, stroke, width });

const shapes: Record<Picture, Shape[]> = {
  [Picture.None]: [],
  [Picture.Warning]: [
    {
      path: "M12 2.6c.6 0 1.1.3 1.4.8l8.6 15.4c.6 1.1-.2 2.4-1.4 2.4H3.4c-1.2 0-2-1.3-1.4-2.4L10.6 3.4c.3-.5.8-.8 1.4-.8z",
      fill: "#f2b01e",
    },
    lines("M12 8.6v6", "#33270a", 2.2),
    { path: "M12 16.6a1.3 1.3 0 1 1 0 2.6 1.3 1.3 0 0 1 0-2.6z", fill: "#33270a" },
  ],
  [Picture.Cross]: [lines("M5 5l14 14M19 5L5 19", "#c00000", 2.6)],
  [Picture.Simplex]: [
    { path: "M5 19V7l6-2 7 6v8z", fill: pale },
    lines("M5 3v16h16"),
    lines("M5 7l6-2 7 6v8", accent, 1.8),
  ],
  [Picture.BigM]: [{ path: "M4 4h16v16H4z", fill: pale }, lines("M7 17V7l5 6 5-6v10", accent, 2.2)],
  [Picture.Column]: [{ path: "M9.33 4h5.34v16H9.33z", fill: marked }, lines(grid)],
  [Picture.Row]: [{ path: "M4 9.33h16v5.34H4z", fill: marked }, lines(grid)],
  [Picture.Basis]: [
    { path: "M4 4h5.33v16H4z", fill: marked },
    lines(grid),
    { path: "M6.7 7.9a1.2 1.2 0 1 0 0-2.4 1.2 1.2 0 0 0 0 2.4z", fill: accent },
  ],
  [Picture.Pivot]: [
    { path: "M9.33 4h5.34v16H9.33z M4 9.33h16v5.34H4z", fill: faint },
    { path: "M9.33 9.33h5.34v5.34H9.33z", fill: "#e03131" },
    lines(grid),
  ],
  [Picture.About]: [
    { path: "M3 3h18v18H3z", fill: "#eef4ff" },
    lines("M6 3.5v15h15"),
    lines("M6 8l5-1.5 7.5 5V18.5", accent, 1.8),
    lines("M8.5 21L21 8.5", "#00a0a0", 1.5),
  ],
};

const svgNamespace = "http://www.w3.org/2000/svg";

function svgPath({ path, fill, stroke, width }: Shape): SVGPathElement {
  const element = document.createElementNS(svgNamespace, "path");
  element.setAttribute("d", path);
  element.setAttribute("fill", fill ?? "none");
  if (stroke) {
    element.setAttribute("stroke", stroke);
    element.setAttribute("stroke-width", String(width));
    element.setAttribute("stroke-linecap", "round");
    element.setAttribute("stroke-linejoin", "round");
  }
  return element;
}

export function pictureElement(picture: Picture): SVGSVGElement {
  const svg = document.createElementNS(svgNamespace, "svg");
  svg.setAttribute("viewBox", "0 0 24 24");
  svg.setAttribute("aria-hidden", "true");
  svg.append(...shapes[picture].map(svgPath));
  return svg;
}

// Paints the picture in a rectangle.
export function paintPicture(
  context: CanvasRenderingContext2D,
  picture: Picture,
  x: number,
  y: number,
  width: number,
  height: number,
): void {
  context.save();
  context.translate(x, y);
  context.scale(width / 24, height / 24);
  context.lineCap = context.lineJoin = "round";
  for (const { path, fill, stroke, width: thickness } of shapes[picture]) {
    const shape = new Path2D(path);
    if (fill) {
      context.fillStyle = fill;
      context.fill(shape);
    }
    if (stroke) {
      context.strokeStyle = stroke;
      context.lineWidth = thickness!;
      context.stroke(shape);
    }
  }
  context.restore();
}
