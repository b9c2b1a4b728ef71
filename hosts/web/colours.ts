// Colours as the control names them: 0x00BBGGRR, or one of the person's system colours.

const systemColours: Record<number, string> = {
  0x80000005: "Canvas",
  0x80000008: "CanvasText",
  0x8000000f: "ButtonFace",
  0x80000012: "ButtonText",
  // The system's own grey is for what is switched off, and too light to be read with ease.
  0x80000011: "color-mix(in srgb, CanvasText 68%, Canvas)",
  0xffffffff: "transparent",
};

export const isTransparent = (colour: number): boolean => colour === 0xffffffff;

export function cssColour(colour: number): string {
  return systemColours[colour] ?? `rgb(${colour & 255}, ${(colour >> 8) & 255}, ${(colour >> 16) & 255})`;
}
