// The clipboard, as far as a page may use it.
import { Measure } from "#shared";
import type { CopiedPicture } from "#wire";
import { paint } from "./drawing.js";
import { download } from "./files.js";
import { letters } from "./look.js";

const density = 2;
const paper = "white"; // whatever it is pasted on
const font = `10.667px ${letters}`;

// The picture that follows takes the place of what was there, so there is nothing to clear apart.
export function clearClipboard(): void {}

// Where the page may not use the clipboard at all, the person gets the picture as a file.
const fileName = "grafiek.png";
const savedInstead = "saved instead"; // as platform/host.h has it

// Resolves to why the picture is not on the clipboard, or to "".
export async function copyPicture(picture: CopiedPicture): Promise<string> {
  const canvas = document.createElement("canvas");
  const [width, height] = [picture.width / Measure.twipsPerPixel, picture.height / Measure.twipsPerPixel];
  paint(canvas, picture, width, height, density, font, paper);
  // The clipboard is asked at once, while the page still has the person's leave.
  const image = new Promise<Blob>((resolve, reject) => {
    canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error("empty"))), "image/png");
  });
  if (!isSecureContext) {
    download(fileName, await image);
    return savedInstead;
  }
  try {
    await navigator.clipboard.write([new ClipboardItem({ "image/png": image })]);
    return "";
  } catch (error) {
    return String(error);
  }
}
