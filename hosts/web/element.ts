// The custom element: the control as a page and its script see it.
import { Look, Measure } from "#shared";
import { type Exports, Given, Method } from "#wire";
import { version } from "../../package.json";
import { make } from "./dom.js";
import type { ElementView } from "./element_view.js";
import { TabulonError } from "./errors.js";
import { letters } from "./look.js";
import type { Texts } from "./module.js";
import { loadPage, type Page } from "./page.js";
import { readParameters, whenGiven } from "./parameters.js";
import { sheetOf } from "./styles.js";
import type { Tableau, TableauChange } from "./tableau.js";
import { toLatin } from "./tableau_record.js";

/** A whole number of 16 bits (-32768 to 32767), or a text that is one. */
export type Count = number | string;

// Of what stands where there is no control: the style sheet may be missing too.
const failureStyle =
  `all:initial;display:inline-block;box-sizing:border-box;width:${Measure.controlWidth}px;` +
  `height:${Measure.controlHeight}px;padding:16px 20px;border:1px solid ${Look.edge};border-radius:3px;` +
  `background:${Look.ground};font:14px/1.5 ${letters};color:${Look.ink};vertical-align:top`;

// Where a page is only written, on a server, there are no elements to be one of.
const PageElement: typeof HTMLElement = globalThis.HTMLElement ?? class {};

/**
 * `<tabulon-lpctrl>`: a Simplex tableau in which a pupil solves a linear-programming problem step by step. It is 600
 * by 296 CSS pixels. All elements of a page show one and the same tableau.
 *
 * The problem is given by attributes, or by `<param>` children of the same names. Lists are numbers separated by
 * commas and are shown as they are written; a blank before a number is the place of its sign. There is room for 10
 * constraints and 30 columns: the decision variables, one column for each "<=" and "=" constraint and two for each
 * ">=" constraint. What a script sets before the first showing counts as if it stood on the page.
 *
 * @example
 * ```html
 * <tabulon-lpctrl
 *   prmNrBeslisVar="2"
 *   prmNrKleinerGelijkVglen="3"
 *   prmSTR_DLfunctie=" -3, -5"
 *   prmSTR_KleinerGelijkVglen=" 1, 0, 0, 2, 3, 2"
 *   prmSTR_RL=" 4, 12, 18"></tabulon-lpctrl>
 * ```
 *
 * @tag tabulon-lpctrl
 *
 * @attr {number} [prmNrBeslisVar=2] - The number of decision variables.
 * @attr {number} [prmNrKleinerGelijkVglen=2] - The number of "<=" constraints.
 * @attr {number} [prmNrGroterGelijkVglen=0] - The number of ">=" constraints.
 * @attr {number} [prmNrGelijkVglen=0] - The number of "=" constraints.
 * @attr {number} [prmBigM=100] - The value of M of the Big-M method, a whole number.
 * @attr {string} prmSTR_DLfunctie - Row F: one number for each decision variable, the objective's coefficient with opposite sign. Zeros without it.
 * @attr {string} prmSTR_KleinerGelijkVglen - The coefficients of the "<=" constraints, row after row. Zeros without it.
 * @attr {string} prmSTR_GroterGelijkVglen - The coefficients of the ">=" constraints, row after row. Zeros without it.
 * @attr {string} prmSTR_GelijkVglen - The coefficients of the "=" constraints, row after row. Zeros without it.
 * @attr {string} prmSTR_RL - The right-hand sides: those of the "<=" rows, then of the ">=" rows, then of the "=" rows. Zeros without it.
 * @attr {boolean} nofocus - The control does not take the keyboard when it is first shown.
 *
 * @fires {CustomEvent<TabulonError>} tabulon-error - What went wrong where no script was asking; the error is its `detail`.
 * @fires {CustomEvent<TableauChange>} tabulon-change - The tableau has changed; `detail` tells the cause, and the column and the row that it was about.
 */
export class TabulonLPctrl extends PageElement {
  /** The version of this package, as in "1.0.0". */
  static readonly version: string = version;

  /**
   * Resolves when the control has been shown. Rejects with a {@link TabulonError} when its parameters cannot be read;
   * the control is shown all the same, with an empty tableau. Rejects with an error that has no number where the
   * browser or the page's rules do not allow what the control needs.
   *
   * @example
   * ```js
   * const tableau = document.querySelector("tabulon-lpctrl");
   * await tableau.ready;
   * ```
   */
  readonly ready: Promise<void>;

  readonly #root: ShadowRoot;
  #settleReady!: { resolve: () => void; reject: (error: Error) => void };
  #view: ElementView | undefined;
  #page: Page | undefined;
  #started = false;
  // What a script gives before the control is there: parameters, as if they stood on the page.
  readonly #early = new Map<string, unknown>();
  // What a script does while the control is not there, or not in the page, is done, in its order, when it is.
  readonly #waiting: (() => void)[] = [];

  constructor() {
    super();
    this.#root = this.attachShadow({ mode: "open" });
    this.#root.adoptedStyleSheets = [sheetOf(this.ownerDocument)];
    const internals = this.attachInternals();
    internals.role = "group";
    internals.ariaLabel = "Simplex-tableau";
    this.ready = new Promise((resolve, reject) => (this.#settleReady = { resolve, reject }));
    // Whoever does not look at it finds the error on the console.
    this.ready.catch(() => {});
  }

  connectedCallback(): void {
    if (this.#view) this.#comeBack(this.#view);
    if (this.#started) return;
    this.#started = true;
    this.setAttribute("aria-busy", "true");
    this.#takeOwnProperties();
    whenGiven(this, () => void this.#start());
  }

  // Into another page, as that of a frame: the style does not come along.
  adoptedCallback(): void {
    this.#root.adoptedStyleSheets = [sheetOf(this.ownerDocument)];
  }

  disconnectedCallback(): void {
    // One that is being moved is back by then.
    queueMicrotask(() => {
      if (!this.isConnected && this.#view) this.#page?.abandon(this.#view);
    });
  }

  // ---- Properties, all write-only. Error 6, 9 or 13 when the value will not do. Until the control is first shown
  // they are parameters, and `ready` has their errors.

  /**
   * Sets the number of decision variables, and shows it when {@link prmShow} is set.
   *
   * @throws {TabulonError} 6 beyond 16 bits, 13 for what is no number.
   */
  set prmNrBeslisVar(value: Count) {
    this.#set("prmNrBeslisVar", value);
  }
  /**
   * Sets the number of "<=" constraints, and shows it when {@link prmShow} is set.
   *
   * @throws {TabulonError} 6 beyond 16 bits, 13 for what is no number.
   */
  set prmNrKleinerGelijkVglen(value: Count) {
    this.#set("prmNrKleinerGelijkVglen", value);
  }
  /**
   * Sets the number of ">=" constraints, and shows it when {@link prmShow} is set.
   *
   * @throws {TabulonError} 6 beyond 16 bits, 13 for what is no number.
   */
  set prmNrGroterGelijkVglen(value: Count) {
    this.#set("prmNrGroterGelijkVglen", value);
  }
  /**
   * Sets the number of "=" constraints, and shows it when {@link prmShow} is set.
   *
   * @throws {TabulonError} 6 beyond 16 bits, 13 for what is no number.
   */
  set prmNrGelijkVglen(value: Count) {
    this.#set("prmNrGelijkVglen", value);
  }
  /**
   * Sets M of the Big-M method, a whole number. It enters row F when {@link prmShow} is set.
   *
   * @throws {TabulonError} 6 beyond 16 bits, 13 for what is no number.
   */
  set prmBigM(value: Count) {
    this.#set("prmBigM", value);
  }
  /**
   * True lays out and shows a new tableau of the counts that have been set, filled with zeros; false does nothing.
   * The lists come after it.
   *
   * @throws {TabulonError} 9 for more than 10 rows or 30 columns.
   *
   * @example
   * ```js
   * tableau.prmNrBeslisVar = 3;
   * tableau.prmNrKleinerGelijkVglen = 2;
   * tableau.prmShow = true;
   * tableau.prmDLfunctie = " -2, -3, -1";
   * tableau.prmKleinerGelijkVglen = " 1, 1, 1, 2, 0, 1";
   * tableau.prmRL = " 40, 25";
   * ```
   */
  set prmShow(value: boolean) {
    this.#set("prmShow", value);
  }
  /**
   * Sets row F: one number for each decision variable, the objective's coefficient with opposite sign.
   *
   * @throws {TabulonError} 9 for more columns than there is room for.
   */
  set prmDLfunctie(value: string) {
    this.#set("prmDLfunctie", value);
  }
  /**
   * Sets the coefficients of the "<=" constraints, row after row.
   *
   * @throws {TabulonError} 9 for more rows or columns than there is room for.
   */
  set prmKleinerGelijkVglen(value: string) {
    this.#set("prmKleinerGelijkVglen", value);
  }
  /**
   * Sets the coefficients of the ">=" constraints, row after row.
   *
   * @throws {TabulonError} 9 for more rows or columns than there is room for.
   */
  set prmGroterGelijkVglen(value: string) {
    this.#set("prmGroterGelijkVglen", value);
  }
  /**
   * Sets the coefficients of the "=" constraints, row after row.
   *
   * @throws {TabulonError} 9 for more rows or columns than there is room for.
   */
  set prmGelijkVglen(value: string) {
    this.#set("prmGelijkVglen", value);
  }
  /**
   * Sets the right-hand sides: those of the "<=" rows, then of the ">=" rows, then of the "=" rows.
   *
   * @throws {TabulonError} 9 for more rows than there is room for.
   */
  set prmRL(value: string) {
    this.#set("prmRL", value);
  }

  // ---- Methods

  /**
   * Lays out a new tableau of the counts' size, and shows nothing yet.
   *
   * @throws {TabulonError} 9 when it would be too large.
   */
  InitTableau(): void {
    this.#whenThere((page, { surface }) => this.#ask(page, (module) => module.InitTableau(surface.id)));
  }

  /**
   * The text with which the tableau shows a number. It works once {@link ready} has resolved.
   *
   * @param Soort - True for a fraction or a multiple of pi, false for a decimal.
   * @param Getal - The number.
   * @returns {string} The text, with a blank in the place of the sign: `" 3/4"`, `"-0.5"`.
   * @throws {TabulonError} 13 for what is no number.
   */
  strSoortGetal(Soort: number | boolean, Getal: number): string {
    if (!this.#page || !this.#view) throw new Error("Tabulon: strSoortGetal kan pas als element.ready vervuld is.");
    const { id } = this.#view.surface;
    const kind = typeof Soort === "boolean" ? -Number(Soort) : Number(Soort);
    const number = Number(Getal);
    if (Number.isNaN(kind + number))
      throw new TabulonError(13, "strSoortGetal", String(Number.isNaN(kind) ? Soort : Getal));
    return this.#ask(this.#page, (module) => module.strSoortGetal(id, kind, number), String(Soort));
  }

  /** Shows who made the control. Resolves when the form has closed. */
  ShowAboutBox(): Promise<void> {
    return this.#call(Method.ShowAboutBox);
  }
  /** Shows the last message again. Resolves when the form has closed. */
  ShowfrmMelding(): Promise<void> {
    return this.#call(Method.ShowfrmMelding);
  }
  /** Shows the last error message again. Resolves when the form has closed. */
  ShowfrmFoutmelding(): Promise<void> {
    return this.#call(Method.ShowfrmFoutmelding);
  }
  /** Shows the column and the row of the pivot element, 0 when there is none. Resolves when the form has closed. */
  ShowfrmPivotelement(): Promise<void> {
    return this.#call(Method.ShowfrmPivotelement);
  }

  /**
   * Saves the tableau: the browser downloads a file.
   *
   * @param strFile - The file's name, as in `"oefening.tbl"`.
   * @throws {TabulonError} 52 for a name that no file can have; the promise rejects.
   */
  SchrijfTableau(strFile: string): Promise<void> {
    return this.#callWithFile("SchrijfTableau", strFile);
  }
  /**
   * Reads no file: it rejects for each of them, as the control has always done.
   *
   * @param strFile - The file's name.
   * @throws {TabulonError} 54 for a file that this page wrote or the person picked, 53 for any other, 52 for a name
   * that no file can have; the promise rejects.
   */
  LeesTableau(strFile: string): Promise<void> {
    return this.#callWithFile("LeesTableau", strFile);
  }

  // ---- For what stands around it

  /**
   * The tableau as it is: counts, names, values and texts, also of the first tableau. `undefined` before `ready`.
   *
   * @throws {@link TabulonError} 9 when the counts that a script has set make no tableau.
   */
  get tableau(): Tableau | undefined {
    return this.#view && this.#page?.tableau();
  }

  /**
   * Puts a saved tableau back: the text that Save writes, which is `tableau.saved`. Nothing changes when that fails.
   *
   * @throws {@link TabulonError} 54 for a text of another kind, 6 and 9 for numbers that make no tableau, 62 for a text
   * that ends too soon.
   */
  restore(text: string): void {
    const bytes = toLatin(String(text));
    this.#whenThere((page, { surface }) =>
      this.#ask(page, (module, texts) => {
        texts.giveBytes(bytes);
        return module.restore(surface.id);
      }),
    );
  }

  // ---- How it starts

  async #start(): Promise<void> {
    try {
      const page = await loadPage();
      if (this.isConnected) this.#show(page);
      else this.#started = false; // taken away before it was shown; it starts when it comes back
    } catch (error) {
      this.#fail(error as Error);
    }
  }

  #show(page: Page): void {
    this.#page = page;
    this.#view = page.create(this, this.#root);
    const error = this.#readParameters(page, this.#view);
    if (!this.#view.isBusy) this.removeAttribute("aria-busy");
    this.#doWhatWaits();
    if (error) this.#settleReady.reject(error);
    else this.#settleReady.resolve();
  }

  // There is no control: its place says why.
  #fail(error: Error): void {
    console.error(error);
    this.removeAttribute("aria-busy");
    const words = make("p", "", error.message);
    words.role = "alert";
    words.style.cssText = failureStyle;
    this.#root.append(words);
    this.#settleReady.reject(error);
  }

  #comeBack(view: ElementView): void {
    view.box.look();
    for (const form of view.forms) form.showAgain();
    this.#doWhatWaits();
  }

  #doWhatWaits(): void {
    for (const action of this.#waiting.splice(0)) action();
  }

  #readParameters(page: Page, view: ElementView): TabulonError | undefined {
    const { surface } = view;
    const parameters = readParameters(this, this.#early);
    const [number, answer] = page.send((module, texts) => {
      texts.give(...parameters.listing, "");
      const started = module.start(surface.id);
      // Into the page when it is whole and looks as it will: the browser then lays it out once.
      page.afterwards(() => {
        if (!view.isBusy) this.removeAttribute("aria-busy");
        this.#root.append(surface.ground);
      });
      return [started, texts.answer()] as const;
    });
    const error = number ? new TabulonError(number, answer, parameters.textOf(answer)) : parameters.error;
    if (error) {
      page.report(this, error);
      return error;
    }
    for (const name of answer.split("\0").filter(Boolean)) console.warn(`Tabulon: ${name} is geen parameter.`);
    return undefined;
  }

  // A script may set properties before the browser knows the element; then they stand on the element itself.
  #takeOwnProperties(): void {
    for (const name of Object.keys(this)) {
      if (!Object.getOwnPropertyDescriptor(TabulonLPctrl.prototype, name)?.set) continue;
      const value: unknown = Reflect.get(this, name);
      Reflect.deleteProperty(this, name);
      Reflect.set(this, name, value);
    }
  }

  // ---- How a script's wish reaches the control

  // At once when the control is there, which may throw; else later, when an error can only be reported. A form of
  // an element that is not in the page would be nowhere, and keep all others waiting.
  #whenThere(action: (page: Page, view: ElementView) => void): void {
    const [page, view] = [this.#page, this.#view];
    if (page && view && this.isConnected) return action(page, view);
    this.#waiting.push(() => {
      try {
        action(this.#page!, this.#view!);
      } catch (error) {
        if (!(error instanceof TabulonError)) throw error;
        this.#page!.report(this, error);
      }
    });
  }

  // What the module answers; throws its error, with what was given.
  #ask(page: Page, call: (module: Exports, texts: Texts) => number, given?: string): string {
    const [number, answer] = page.send((module, texts) => [call(module, texts), texts.answer()] as const);
    if (number) throw new TabulonError(number, answer, given);
    return answer;
  }

  #set(name: string, value: unknown): void {
    if (!this.#view) return void this.#early.set(name, value);
    this.#whenThere((page, { surface }) => {
      if (value === null || value === undefined) throw new TabulonError(13, name, String(value));
      const kind = typeof value === "number" ? Given.Number : typeof value === "boolean" ? Given.Truth : Given.Text;
      const set = (module: Exports, texts: Texts) => {
        texts.give(name, String(value));
        return module.set_property(surface.id, kind, kind === Given.Text ? 0 : Number(value));
      };
      this.#ask(page, set, String(value));
    });
  }

  async #isThere(): Promise<void> {
    await loadPage(); // where that fails no control will ever be there
    await new Promise<void>((there) => this.#whenThere(() => there()));
  }

  async #callWithFile(method: "SchrijfTableau" | "LeesTableau", strFile: string): Promise<void> {
    await this.#isThere();
    const number = this.#page!.send((module, texts) => {
      texts.give(String(strFile));
      return module[method](this.#view!.surface.id);
    });
    if (number) throw new TabulonError(number, method, String(strFile));
  }

  async #call(method: Method): Promise<void> {
    await this.#isThere();
    await this.#page!.call(this.#view!, method);
  }
}

declare global {
  interface HTMLElementTagNameMap {
    /** A Simplex tableau in which a pupil solves a linear-programming problem. */
    "tabulon-lpctrl": TabulonLPctrl;
  }
  interface HTMLElementEventMap {
    /** What went wrong where no script was asking. */
    "tabulon-error": CustomEvent<TabulonError>;
    /** What was done to the tableau, when it has been done and is seen. */
    "tabulon-change": CustomEvent<TableauChange>;
  }
}
