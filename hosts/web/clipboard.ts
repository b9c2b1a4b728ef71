// The clipboard, as far as a page may use it.
import { Measure } from "#shared";
import type { CopiedPicture } from "#wire";
import { paint } from "./drawing.js";
import { letters } from "./styles.js";

const density = 2;
const paper = "white"; // whatever it is pasted on
const font = `10.667px ${letters}`;

// The picture that follows takes the place of what was there, so there is nothing to clear apart.
export function clearClipboard(): void {}

// Resolves to why the clipboard refuses the picture, or to "".
export async function copyPicture(picture: CopiedPicture): Promise<string> {
  const canvas = document.createElement("canvas");
  const [width, height] = [picture.width / Measure.twipsPerPixel, picture.height / Measure.twipsPerPixel];
  paint(canvas, picture, width, height, density, font, paper);
  // The clipboard is asked at once, while the page still has the person's leave.
  const image = new Promise<Blob>((resolve, reject) => {
    canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error("empty"))), "image/png");
  });
  try {
    await navigator.clipboard.write([new ClipboardItem({ "image/png": image })]);
    return "";
  } catch (error) {
    return String(error);
  }
}
