// los-bestand.js: all pages and what they are made of, for the button that saves one as a single file. A page from
// file: may read no other file, but it may load a script. A page that is none of these is given as a text.
import files from "page-files";
import { singleFile } from "./single-file.mjs";

globalThis.tabulonLosBestand = (name, page = files[name]) =>
  singleFile(name, (file) => (file === name ? page : files[file]));
