// For TSX: `import type {} from "tabulon/react";` once, and `<tabulon-lpctrl prmNrBeslisVar={2} />` is checked.
import type { DetailedHTMLProps, HTMLAttributes } from "react";
import type { TabulonAttributes } from "./attributes.js";
import type { TabulonLPctrl } from "./tabulon.js";

declare module "react" {
  namespace JSX {
    interface IntrinsicElements {
      /** A Simplex tableau in which a pupil solves a linear-programming problem. */
      "tabulon-lpctrl": DetailedHTMLProps<HTMLAttributes<TabulonLPctrl>, TabulonLPctrl> & TabulonAttributes;
    }
  }
}
