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

export class TabulonError extends Error {
  override readonly name = "TabulonError";

  // `subject` is the parameter, property or file that it is about, "" where there is none; `given` is what
  // was given for it.
  constructor(
    readonly number: number,
    readonly subject: string,
    given?: string,
  ) {
    super(`${subject ? `${subject}: ` : ""}${sentence(number, given)} (fout ${number})`);
  }
}
