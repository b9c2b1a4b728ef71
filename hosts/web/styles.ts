// The style sheets of a page's elements.
import { ownStyle } from "./unpack.js";

// What holds also where style_sheet.ts is missing, because nothing could be unpacked.
const hostCss = ":host { display: inline-block } :host([hidden]) { display: none }";

// On paper a page that hides it says so last.
const boxCss = "@media screen { :host { display: inline-block !important } }";

// The sheet of a page: a page takes none that was made for another.
function makeSheets(text: () => string): (page: Document) => CSSStyleSheet {
  const sheets = new WeakMap<Document, CSSStyleSheet>();
  return (page) => {
    const made = sheets.get(page) ?? new (page.defaultView ?? window).CSSStyleSheet();
    if (!sheets.has(page)) made.replaceSync(text());
    sheets.set(page, made);
    return made;
  };
}

export const sheetOf = makeSheets(() => hostCss + ownStyle());
// Makes a box of an element that is part of a line.
export const boxSheetOf = makeSheets(() => boxCss);
