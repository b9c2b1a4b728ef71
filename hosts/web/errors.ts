// The numbered errors as a script meets them.
import { errorWords, Said, unknownError } from "#shared";

// A text that is a number after all was to be a whole one.
const notWhole = "is geen geheel getal";
const isFraction = (text: string) => Number(text) % 1 !== 0 && Number.isFinite(Number(text));

function sentence(number: number, given: string | undefined): string {
  const row = errorWords[number];
  if (!row) return unknownError;
  const [about, said, words] = row;
  if (given === undefined || said === Said.Unsaid) return `${about} ${words}`;
  return `${said === Said.Behind ? `${about} ` : ""}"${given}" ${isFraction(given) ? notWhole : words}`;
}

/**
 * What the element throws, and what its promises reject with.
 *
 * @example
 * ```js
 * tableau.ready.catch((error) => error instanceof TabulonError && console.log(error.number, error.subject));
 * ```
 */
export class TabulonError extends Error {
  override readonly name = "TabulonError";

  // `given` is what was given for the subject.
  constructor(
    /**
     * 6: a number outside 16 bits. 9: more rows or columns than there is room for. 13: a text that is no number.
     * 52, 53, 54: a file's name, its absence, its use.
     */
    readonly number: number,
    /** The parameter, property or method that it is about, "" where there is none. */
    readonly subject: string,
    given?: string,
  ) {
    super(`${subject ? `${subject}: ` : ""}${sentence(number, given)} (fout ${number})`);
  }
}
