// Asking for a file and saving one, with what the browser has for it.
import { make } from "./dom.js";
import type { Page } from "./page.js";
import type { RecordReader } from "./record.js";

enum Purpose {
  Open,
  Save,
}

const usualName = "tableau.tbl";
const mediaType = "text/plain";

// Where there is a save picker; not every browser has one.
interface SavePicker {
  showSaveFilePicker?(options: {
    suggestedName: string;
    types: { description: string; accept: Record<string, string[]> }[];
  }): Promise<FileSystemFileHandle>;
}

interface Question {
  readonly purpose: Purpose;
  readonly description: string;
  readonly extension: string;
  // What cancelling answers.
  readonly fileName: string;
}

function readQuestion(record: RecordReader): Question {
  const purpose = record.u8();
  record.text(); // the browser gives its dialogs titles of its own
  const [description = "", pattern = ""] = record.text().split("|");
  return { purpose, description, extension: pattern.replace("*", ""), fileName: record.text() };
}

function download(name: string, content: Blob): void {
  const link = make("a", "");
  link.href = URL.createObjectURL(content);
  link.download = name;
  link.click();
  // The browser has taken the address by then; without this the content would stay as long as the page.
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

function pickFile(extension: string): Promise<File | undefined> {
  return new Promise((resolve) => {
    const picker = make("input", "");
    picker.type = "file";
    picker.accept = extension;
    picker.addEventListener("change", () => resolve(picker.files?.[0]));
    picker.addEventListener("cancel", () => resolve(undefined));
    picker.click();
  });
}

export class Files {
  readonly #page: Page;
  readonly #handles = new Map<string, FileSystemFileHandle>();

  constructor(page: Page) {
    this.#page = page;
  }

  async ask(record: RecordReader, ticket: number): Promise<void> {
    const question = readQuestion(record);
    const name = await (question.purpose === Purpose.Save
      ? this.#askWhereToSave(question)
      : this.#askWhatToOpen(question));
    this.#page.answer(ticket, name ?? question.fileName);
  }

  // Writes where the person has said, else downloads.
  async write(record: RecordReader): Promise<void> {
    const name = record.text();
    const content = new Blob([record.bytes().slice()], { type: mediaType });
    // What the person has picked is for this once: a script that uses the name again gets no say over it.
    const handle = this.#handles.get(name);
    this.#handles.delete(name);
    if (!handle) return download(name, content);
    try {
      const file = await handle.createWritable();
      await file.write(content);
      await file.close();
    } catch {
      download(name, content);
    }
  }

  async #askWhereToSave({ description, extension }: Question): Promise<string | undefined> {
    const { showSaveFilePicker } = window as SavePicker;
    if (!showSaveFilePicker) return usualName;
    try {
      const types = [{ description, accept: { [mediaType]: [extension] } }];
      const handle = await showSaveFilePicker.call(window, { suggestedName: usualName, types });
      this.#handles.set(handle.name, handle);
      return handle.name;
    } catch (error) {
      // Only a cancelled picker means no; one that is not allowed here is as good as none.
      return error instanceof DOMException && error.name === "AbortError" ? undefined : usualName;
    }
  }

  async #askWhatToOpen({ extension }: Question): Promise<string | undefined> {
    const file = await pickFile(extension);
    if (!file) return undefined;
    const content = new Uint8Array(await file.arrayBuffer());
    const name = new TextEncoder().encode(`${file.name}\0`);
    const listing = new Uint8Array(name.length + content.length);
    listing.set(name);
    listing.set(content, name.length);
    this.#page.send((module) => {
      this.#page.module.giveBytes(listing);
      module.put_file();
    });
    return file.name;
  }
}
