// The numbered errors as a script meets them.
import { errorWords, Said, unknownError } from "#shared";

function sentence(number: number, given: string | undefined): string {
  const row = errorWords[number];
  if (!row) return unknownError;
  const [about, said, words] = row;
  if (given === undefined || said === Said.Unsaid) return `${about} ${words}`;
  return `${said === Said.Behind ? `${about} ` : ""}"${given}" ${words}`;
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
