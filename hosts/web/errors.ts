// The numbered errors as a script meets them, and the one place where their Dutch texts stand.

const quoted = (given: string | undefined, otherwise: string) => (given === undefined ? otherwise : `"${given}"`);

const texts: Record<number, (given?: string) => string> = {
  6: (given) => `${quoted(given, "het getal")} past niet; het moet tussen -32768 en 32767 liggen`,
  9: () => "dit past niet in een tableau van hoogstens 10 rijen en 30 kolommen, of een lijst van 300 getallen",
  13: (given) => `${quoted(given, "de tekst")} is geen getal`,
  52: (given) => `${quoted(given, "dit")} is geen geldige bestandsnaam`,
  53: (given) => `het bestand ${given === undefined ? "" : `"${given}" `}is er niet`,
  54: () => "het bestand is niet hiervoor geopend",
  61: () => "er is geen ruimte meer voor het bestand",
  62: () => "het bestand houdt te vroeg op",
  70: () => "het bestand mag niet worden geopend",
  76: () => "de map van het bestand is er niet",
};

export class TabulonError extends Error {
  override readonly name = "TabulonError";

  // `subject` is the parameter, property or file that it is about, "" where there is none; `given` is what
  // was given for it.
  constructor(
    readonly number: number,
    readonly subject: string,
    given?: string,
  ) {
    const text = texts[number]?.(given) ?? "dit kan niet";
    super(`${subject ? `${subject}: ` : ""}${text} (fout ${number})`);
  }
}
