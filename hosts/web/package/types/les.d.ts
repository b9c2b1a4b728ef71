// tabulon-les.js, for `<script src>` or an import: it defines <tabulon-les> and gives a page's scripts `tabulonLes`.
import "./tabulon.js";
import type { Thinking } from "./thinking.js";

export type * from "./thinking.js";

declare global {
  interface Window {
    readonly tabulonLes: {
      /** What a lesson knows: problems in words, what a change did, and whether it was right. */
      thinking(): Promise<Thinking>;
    };
  }
  interface HTMLElementTagNameMap {
    /** A log of what is done to the tableau within, with a way back and answers to who asks. */
    "tabulon-les": HTMLElement;
  }
}
