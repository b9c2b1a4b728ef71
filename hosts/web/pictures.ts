// The pictures that forms and drawings name (platform/pictures.def), sharp at any density.
import { type Picture, type Shape, shapes } from "#shared";

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
