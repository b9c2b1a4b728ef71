// Asking for a file and saving one, with what the browser has for it.
import { FilePurpose } from "#shared";
import type { FileQuestion, WrittenFile } from "#wire";
import { make } from "./dom.js";

const usualName = "tableau.tbl";
const mediaType = "text/plain";

// Where there is a save picker; not every browser has one.
interface SavePicker {
  showSaveFilePicker?(options: {
    suggestedName: string;
    types: { description: string; accept: Record<string, string[]> }[];
  }): Promise<FileSystemFileHandle>;
}

// The browser gives its dialogs titles of its own.
interface Kind {
  readonly description: string;
  readonly extension: string;
}

function kindOf(filter: string): Kind {
  const [description = "", pattern = ""] = filter.split("|");
  return { description, extension: pattern.replace("*", "") };
}

// Whatever a script calls it, what lies among the downloads is a tableau and nothing that a machine would run.
const tableauName = (name: string) => (/\.tbl$/i.test(name) ? name : `${name}.tbl`);

export function download(name: string, content: Blob): void {
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
  readonly #picked: (name: string, content: Uint8Array) => void;
  readonly #handles = new Map<string, FileSystemFileHandle>();

  // `picked` takes the content of a file that the person wants to open.
  constructor(picked: (name: string, content: Uint8Array) => void) {
    this.#picked = picked;
  }

  // Resolves to the name; cancelling answers the name that the question came with.
  async ask({ purpose, filter, fileName }: FileQuestion): Promise<string> {
    const kind = kindOf(filter);
    const name = await (purpose === FilePurpose.Save ? this.#askWhereToSave(kind) : this.#askWhatToOpen(kind));
    return name ?? fileName;
  }

  // What the person has picked was for the answer to one question: a script that uses the name again gets no say over
  // it.
  forget(): void {
    this.#handles.clear();
  }

  // Writes where the person has said, else downloads.
  async write({ name, content: bytes }: WrittenFile): Promise<void> {
    const content = new Blob([bytes.slice()], { type: mediaType });
    const handle = this.#handles.get(name);
    if (!handle) return download(tableauName(name), content);
    try {
      const file = await handle.createWritable();
      await file.write(content);
      await file.close();
    } catch {
      download(tableauName(name), content);
    }
  }

  async #askWhereToSave({ description, extension }: Kind): Promise<string | undefined> {
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

  async #askWhatToOpen({ extension }: Kind): Promise<string | undefined> {
    const file = await pickFile(extension);
    if (!file) return undefined;
    this.#picked(file.name, new Uint8Array(await file.arrayBuffer()));
    return file.name;
  }
}
