// For Vue: `import type {} from "tabulon/vue";` once, and `<tabulon-lpctrl :prmNrBeslisVar="2" />` is checked in
// templates. `compilerOptions.isCustomElement` of the compiler says that the name is no component.
import type { HTMLAttributes, PublicProps } from "vue";
import type { TabulonAttributes } from "./attributes.js";
import type { TabulonError, TabulonLPctrl } from "./tabulon.js";

interface Events {
  onTabulonError?: (event: CustomEvent<TabulonError>) => void;
}

type Props = HTMLAttributes & TabulonAttributes & Events & PublicProps;

declare module "vue" {
  interface GlobalComponents {
    /** A Simplex tableau in which a pupil solves a linear-programming problem. */
    "tabulon-lpctrl": new () => TabulonLPctrl & { $props: Props };
  }
}
