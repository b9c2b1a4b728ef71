// tabulon-les.js, for `<script src>`: it defines <tabulon-les> and gives a page's scripts `tabulonLes`.
import type { Thinking } from "./thinking.js";

declare global {
  interface Window {
    readonly tabulonLes: {
      /** What a lesson knows: problems in words, what a change did, and whether it was right. */
      thinking(): Promise<Thinking>;
    };
  }
}
