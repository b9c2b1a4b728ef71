// How the control looks, in all states that a person sees under the hand, and the forms' and menus' frames. Places,
// sizes, letters and the given colours are the control's own. The packaging packs it with the module, for where that
// cannot be unpacked there is no control.
import { Look, Measure } from "#shared";
import { Around, letters } from "./look.js";

export const css = `
:host {
  all: initial;
  display: inline-block;
  box-sizing: content-box !important;
  width: ${Measure.controlWidth}px !important;
  min-width: ${Measure.controlWidth}px !important;
  max-width: ${Measure.controlWidth}px !important;
  height: ${Measure.controlHeight}px !important;
  min-height: ${Measure.controlHeight}px !important;
  max-height: ${Measure.controlHeight}px !important;
  padding: 0 !important;
  columns: auto !important;
  vertical-align: top;
}

* { box-sizing: border-box; }
[hidden] { display: none !important; }

/* Of what the page has set for its own words nothing is inherited but whether they are seen. */
.surface, .form, .menu {
  all: initial;
  display: block;
  box-sizing: border-box;
  direction: ltr;
  unicode-bidi: isolate;
  visibility: inherit;
  pointer-events: inherit;
  color-scheme: light;
  --ink: ${Look.ink};
  --line: ${Look.edge};
  --soft-line: ${Look.lockedEdge};
  --ground: ${Look.ground};
  --band: ${Look.band};
  --hover: rgb(28 36 48 / ${Measure.hoverShade}%);
  --press: rgb(28 36 48 / ${Measure.pressShade}%);
  --accent: ${Look.accent};
  font-family: ${letters};
  font-size: 12px;
  font-variant-numeric: tabular-nums lining-nums;
  color: var(--ink);
  cursor: default;
  /* Colours tell something on paper too. */
  print-color-adjust: exact;
  -webkit-print-color-adjust: exact;
  user-select: none;
  -webkit-user-select: none;
  -webkit-tap-highlight-color: transparent;
}
.surface {
  position: relative;
  overflow: clip;
  contain: layout style;
  isolation: isolate;
  background-color: var(--ground);
}
:host > .surface, .surface:not(.form *) {
  border-radius: 3px;
  background-image: linear-gradient(var(--band) ${Measure.menuBar}px, transparent ${Measure.menuBar}px);
}
/* The edge lies over what the surface shows, and takes no room from it. */
.surface:not(.form *)::after {
  content: "";
  position: absolute;
  inset: 0;
  border: 1px solid var(--line);
  border-radius: inherit;
  pointer-events: none;
}
:host([aria-busy]) .surface { cursor: progress; }

.surface [data-name] { position: absolute; margin: 0; }

/* One line of text stands in the middle of its height, as in boxes. */
.label { display: grid; align-content: center; white-space: pre; text-align: left; }
.label.wraps { white-space: pre-wrap; line-height: 1.35; overflow-wrap: break-word; }
.label.wraps:not(.middle) { align-content: start; }
.caption { position: absolute; left: ${Measure.captionLeft}px; top: ${Measure.captionTop}px; white-space: pre; }
.frame { overflow: clip; contain: layout style; }
.frame.captioned { border-radius: 4px; box-shadow: 0 0 0 1px ${Look.buttonEdge}, 0 6px 18px 1px rgb(16 24 40 / 22%); }
.line { border: 0 solid; border-width: 1px 0 0 1px; pointer-events: none; }
.surface .line.slants { --width: 1.5px; height: var(--width); margin-top: calc(var(--width) / -2); border: 0; background-color: currentColor; transform-origin: left; }
@media (min-resolution: 1.2dppx) { .surface .line.slants { --width: 1.2px; } }
@media (min-resolution: 1.5dppx) { .surface .line.slants { --width: 1px; } }
.image svg { display: block; width: 100%; height: 100%; }
.picture { overflow: clip; contain: layout style; outline: 1px solid var(--line); outline-offset: -1px; }
.picture:focus { outline: 2px solid var(--accent); }
.told { position: absolute; width: 1px; height: 1px; overflow: clip; clip-path: inset(50%); white-space: nowrap; }
.picture .image, .frame .button { touch-action: none; }
.picture .image { border-radius: 3px; }
.button[data-name="cmdFrame"] { cursor: move; border-color: var(--line); border-radius: 3px; background: linear-gradient(90deg, transparent 40%, #f7f8fa 40% 60%, transparent 60%), radial-gradient(circle, ${Look.gripDot} 0.8px, transparent 1.2px) 0 0 / 5px 5px #f7f8fa; }
.button[data-name="cmdFrame"]:hover { border-color: #5d6878; }
.picture .image:hover { background-color: rgb(192 0 0 / 10%) !important; }
.picture .image { cursor: grab; }
.picture .image:active { cursor: grabbing; }
.picture canvas { position: absolute; left: 0; top: 0; image-rendering: pixelated; }

/* Cells: what can be typed in has a firm edge, what is locked a faint one. */
.box {
  appearance: none;
  padding: 0 ${Measure.textMargin - 1}px;
  font: inherit;
  font-variant-numeric: inherit;
  text-align: left;
  white-space: pre;
  border: 1px solid ${Look.boxEdge};
  border-radius: 2px;
  outline: 2px solid transparent;
  outline-offset: -1px;
  cursor: text;
  user-select: text;
  -webkit-user-select: text;
}
.box:read-only { border-color: var(--soft-line); cursor: default; }
.box:hover:not(:read-only, :disabled) { border-color: #5d6878; }
.box:focus { border-color: var(--accent); outline-color: var(--accent); }
.box:disabled { opacity: 0.55; }
/* A number that a spin bar turns: alike in boxes and labels, and the one that the keys turn in the focus's colour. */
[data-role~="number"] { outline: 1px solid ${Look.boxEdge}; outline-offset: -1px; border-radius: 2px; }
.box[data-role~="number"] { border-color: transparent; }
[data-role~="current"] { outline: 2px solid var(--accent); }
.box:focus::selection { background: var(--accent); color: #ffffff; }

.surface .aside {
  left: 0 !important;
  top: 0 !important;
  width: 1px !important;
  height: 1px !important;
  padding: 0;
  border: 0;
  outline: none;
  opacity: 0;
  pointer-events: none;
  font-size: 16px !important;
}

.button {
  appearance: none;
  padding: 0 4px;
  font: inherit;
  line-height: 1;
  white-space: pre;
  background-color: ${Look.button};
  border: 1px solid ${Look.buttonEdge};
  border-radius: 4px;
  outline: 2px solid transparent;
  outline-offset: 1px;
}
.button u { text-underline-offset: 2px; text-decoration-thickness: 1px; }
.button:hover { background-image: linear-gradient(var(--hover), var(--hover)); }
.button:active { background-image: linear-gradient(var(--press), var(--press)); }
.button:focus { outline-color: var(--accent); }
.button:disabled { opacity: 0.5; background-image: none; }
.button[data-role="default"] { border-color: var(--accent); box-shadow: inset 0 0 0 1px var(--accent); }
.button[data-role~="open"] { background-image: linear-gradient(var(--press), var(--press)); }
/* The menu bar's buttons are flat. */
.surface:not(.form *) > .button { background-color: transparent; border-color: transparent; outline-offset: -2px; border-radius: 3px; }

.bar { --thickness: 16px; background-color: var(--band) !important; touch-action: none; overflow: clip; border-radius: 3px; outline: 2px solid transparent; }
.bar:focus-visible { outline-color: var(--accent); }
.bar .arrow, .bar .track { position: absolute; }
.bar .arrow { width: var(--thickness); height: var(--thickness); }
.bar .arrow::before {
  content: "";
  position: absolute;
  inset: 0;
  margin: auto;
  width: 8px;
  height: 5px;
  background-color: #4b5563;
  clip-path: polygon(50% 0, 100% 100%, 0 100%);
}
.bar .arrow:hover { background-color: var(--hover); }
.bar .arrow:active { background-color: var(--press); }
.vertical .back { top: 0; }
.vertical .forward { bottom: 0; }
.vertical .forward::before { rotate: 180deg; }
.horizontal .back { left: 0; }
.horizontal .back::before { rotate: -90deg; }
.horizontal .forward { right: 0; }
.horizontal .forward::before { rotate: 90deg; }
.vertical .track { inset: var(--thickness) 0; }
.horizontal .track { inset: 0 var(--thickness); }
.bar .thumb { position: absolute; touch-action: none; }
.bar .thumb::before { content: ""; position: absolute; border-radius: 4px; background-color: #aab2bd; }
.vertical .thumb { width: 100%; }
.vertical .thumb::before { inset: 1px 4px; }
.horizontal .thumb { height: 100%; }
.horizontal .thumb::before { inset: 4px 1px; }
.bar .thumb:hover::before { background-color: #828c9a; }
.bar .thumb:active::before { background-color: #5d6878; }
.bar[aria-disabled] { opacity: 0.5; pointer-events: none; }
.spin { border: 1px solid ${Look.buttonEdge}; border-radius: 3px; background-color: ${Look.button} !important; }
.spin .track { display: none; }
.spin .arrow { width: 100%; height: 50%; }
.spin.horizontal .arrow { width: 50%; height: 100%; }
.spin .forward { border-top: 1px solid var(--soft-line); }
.spin.horizontal .forward { border-top: 0; border-left: 1px solid var(--soft-line); }

.form {
  position: fixed;
  margin: 0;
  padding: 0;
  max-width: 100vw;
  max-height: 100dvh;
  border: ${Around.border}px solid #8d97a5;
  border-radius: 8px;
  background-color: ${Look.form};
  box-shadow: 0 1px 2px rgb(16 24 40 / 12%), 0 12px 32px rgb(16 24 40 / 24%);
  overflow: auto;
  scroll-padding: ${Around.formTitle + 8}px 8px 8px;
}
.form::backdrop { background-color: rgb(16 24 40 / 10%); }
.form .title {
  position: sticky;
  top: 0;
  left: 0;
  z-index: 1;
  touch-action: none;
  height: ${Around.formTitle}px;
  padding: 0 12px 0 9px;
  line-height: ${Around.formTitle - 1}px;
  font-size: 12.5px;
  font-weight: 600;
  white-space: pre;
  overflow: clip;
  text-overflow: ellipsis;
  background-color: #ffffff;
  border-bottom: 1px solid var(--soft-line);
}
.form .surface { background-color: transparent; }

.menu {
  position: absolute;
  width: max-content;
  padding: ${Around.menuPadding}px;
  min-width: 150px;
  border: ${Around.border}px solid #b4bcc8;
  border-radius: 6px;
  background-color: #ffffff;
  box-shadow: 0 1px 2px rgb(16 24 40 / 10%), 0 8px 20px rgb(16 24 40 / 18%);
  z-index: 2147483647;
}
.item {
  position: relative;
  padding: 0 28px 0 26px;
  height: 26px;
  line-height: 26px;
  font-size: 12.5px;
  white-space: pre;
  border-radius: 4px;
}
.item u { text-underline-offset: 2px; text-decoration-thickness: 1px; }
.item.highlighted { background-color: #e3ecfa; }
.item[aria-disabled="true"] { color: #8a93a0; }
.item[aria-disabled="true"].highlighted { background-color: #f0f1f3; }
.item[aria-checked="true"]::before {
  content: "";
  position: absolute;
  left: 9px;
  top: 7px;
  width: 5px;
  height: 9px;
  border: solid currentColor;
  border-width: 0 1.7px 1.7px 0;
  rotate: 42deg;
}
.item[aria-haspopup]::after {
  content: "";
  position: absolute;
  right: 11px;
  top: 10px;
  width: 5px;
  height: 5px;
  border: solid currentColor;
  border-width: 1.4px 1.4px 0 0;
  rotate: 45deg;
}
.separator { height: 1px; margin: 4px 6px; background-color: var(--soft-line); }

/* Under a finger arrows grow: out of their row, or where rows follow each other, side by side. What else is small is
   caught from further off. */
@media (pointer: coarse) {
  .surface:not(.form *) > .button::after { content: ""; position: absolute; inset: 0 0 -5px; z-index: 1; }
  .picture .image::after { content: ""; position: absolute; inset: -12px; }
  .frame.captioned { z-index: 2; }
  .spin { overflow: visible; }
  .spin .arrow { left: -3px; width: 24px; height: 24px; border: 1px solid ${Look.buttonEdge}; border-radius: 3px; background-color: ${Look.button}; }
  .spin .back { top: auto; bottom: 50%; }
  .spin .forward { top: 50%; bottom: auto; }
  .spin[data-name^="VScroll_"] .arrow { top: calc(50% - 12px); bottom: auto; left: -4px; width: 21px; }
  .spin[data-name^="VScroll_"] .forward { left: 16px; }
  .spin[data-name^="VScroll_"] .arrow::after { content: ""; position: absolute; inset: -1px -1px -1px -5px; z-index: 1; }
  .spin[data-name^="VScroll_"] .forward::after { inset: -1px -4px -1px -1px; }
  .item { height: 38px; line-height: 38px; }
  .item[aria-checked="true"]::before { top: 13px; }
  .item[aria-haspopup]::after { top: 16px; }
}

@media (forced-colors: active) {
  .surface, .form, .menu { --ink: CanvasText; --line: CanvasText; --soft-line: CanvasText; --ground: Canvas; --band: Canvas; --accent: Highlight; }
  .form, .form .title, .menu { background-color: Canvas; }
  .button, .surface:not(.form *) > .button { background-color: ButtonFace; border-color: ButtonBorder; }
  .box, .box:read-only { border-color: ButtonBorder; }
  .box:focus, .button:focus { border-color: Highlight; }
  .box:focus::selection { background: Highlight; color: HighlightText; }
  /* Here even a transparent outline is seen. */
  .box:not(:focus, [data-role]), .button:not(:focus), .bar:not(:focus-visible) { outline-width: 0; }
  .tinted { forced-color-adjust: none; }
  .tinted, .tinted > .label { color: #000000 !important; }
  .frame > .line { forced-color-adjust: none; outline: 3px solid #ffffff; }
  .frame.captioned, .picture:not(:focus) { outline: 1px solid CanvasText; outline-offset: -1px; }
  .surface .button[data-role="default"] { border: 2px solid Highlight; }
  .surface .button[data-role~="open"] { background-color: Highlight; color: HighlightText !important; forced-color-adjust: none; }
  .button[data-name="cmdFrame"] { background: ButtonFace; }
  .bar .arrow::before, .bar .thumb::before { background-color: ButtonText; forced-color-adjust: none; }
  .bar, .spin { border: 1px solid ButtonBorder; }
  .item.highlighted { background-color: Highlight; color: HighlightText; forced-color-adjust: none; }
  .item[aria-disabled="true"] { color: GrayText; }
  .separator { background-color: CanvasText; }
}
`;
