// The clipboard, as far as a page may use it.
import { twipsPerPixel } from "./control_view.js";
import { paint, readDrawing } from "./drawing.js";
import type { RecordReader } from "./record.js";
import { letters } from "./styles.js";

const density = 2;
const paper = "white"; // whatever it is pasted on
const font = `10.667px ${letters}`;

// The picture that follows takes the place of what was there, so there is nothing to clear apart.
export function clearClipboard(): void {}

// Resolves to why the clipboard refuses the picture, or to "".
export async function copyPicture(record: RecordReader): Promise<string> {
  const [width, height] = [record.f32() / twipsPerPixel, record.f32() / twipsPerPixel];
  const canvas = document.createElement("canvas");
  paint(canvas, readDrawing(record), width, height, density, font, paper);
  // The clipboard is asked at once, while the page still has the person's leave.
  const picture = new Promise<Blob>((resolve, reject) => {
    canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error("empty"))), "image/png");
  });
  try {
    await navigator.clipboard.write([new ClipboardItem({ "image/png": picture })]);
    return "";
  } catch (error) {
    return String(error);
  }
}
