// Colours as the control names them: 0x00BBGGRR, or one of the person's system colours.
import { SystemColour } from "#shared";

const systemColours: Record<number, string> = {
  [SystemColour.window]: "Canvas",
  [SystemColour.windowText]: "CanvasText",
  [SystemColour.buttonFace]: "ButtonFace",
  [SystemColour.buttonText]: "ButtonText",
  // The system's own grey is for what is switched off, and too light to be read with ease.
  [SystemColour.greyText]: "color-mix(in srgb, CanvasText 68%, Canvas)",
  [SystemColour.transparent]: "transparent",
} satisfies Record<SystemColour, string>;

export const isTransparent = (colour: number): boolean => colour === SystemColour.transparent;

export function cssColour(colour: number): string {
  return systemColours[colour] ?? `rgb(${colour & 255}, ${(colour >> 8) & 255}, ${(colour >> 16) & 255})`;
}
