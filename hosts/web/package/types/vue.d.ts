// For Vue: `import type {} from "tabulon/vue";` once, and `<tabulon-lpctrl :prmNrBeslisVar="2" />` is checked in
// templates, and so is `<tabulon-les hulp="achteraf">` around it. `compilerOptions.isCustomElement` of the compiler says
// that these names are no components.
import type { HTMLAttributes, PublicProps } from "vue";
import type { TabulonAttributes, TabulonLesAttributes } from "./attributes.js";
import type { TableauChange, TabulonError, TabulonLPctrl } from "./tabulon.js";

interface LesEvents {
  onTabulonChange?: (event: CustomEvent<TableauChange>) => void;
}
interface Events extends LesEvents {
  onTabulonError?: (event: CustomEvent<TabulonError>) => void;
}

type Props = HTMLAttributes & TabulonAttributes & Events & PublicProps;
type LesProps = HTMLAttributes & TabulonLesAttributes & LesEvents & PublicProps;

declare module "vue" {
  interface GlobalComponents {
    /** A Simplex tableau in which a pupil solves a linear-programming problem. */
    "tabulon-lpctrl": new () => TabulonLPctrl & { $props: Props };
    /** A log of what is done to the tableau within, with a way back and answers to who asks. */
    "tabulon-les": new () => HTMLElement & { $props: LesProps };
  }
}
