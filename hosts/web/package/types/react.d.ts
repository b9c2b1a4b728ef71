// For TSX: `import type {} from "tabulon/react";` once, and `<tabulon-lpctrl prmNrBeslisVar={2} />` is checked, and so is
// `<tabulon-les hulp="achteraf">` around it.
import type { DetailedHTMLProps, HTMLAttributes } from "react";
import type { TabulonAttributes, TabulonLesAttributes } from "./attributes.js";
import type { TableauChange, TabulonError, TabulonLPctrl } from "./tabulon.js";

interface LesEvents {
  "ontabulon-change"?: ((event: CustomEvent<TableauChange>) => void) | undefined;
}
interface Events extends LesEvents {
  "ontabulon-error"?: ((event: CustomEvent<TabulonError>) => void) | undefined;
}

declare module "react" {
  namespace JSX {
    interface IntrinsicElements {
      /** A Simplex tableau in which a pupil solves a linear-programming problem. */
      "tabulon-lpctrl": DetailedHTMLProps<HTMLAttributes<TabulonLPctrl>, TabulonLPctrl> & TabulonAttributes & Events;
      /** A log of what is done to the tableau within, with a way back and answers to who asks. */
      "tabulon-les": DetailedHTMLProps<HTMLAttributes<HTMLElement>, HTMLElement> & TabulonLesAttributes & LesEvents;
    }
  }
}
