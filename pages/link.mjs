// An exercise as the end of an address, so that a link holds it and no server keeps it:
//
//   location.hash = await toHash(exercise);   // "#1eJyr..."
//   await fromHash(location.hash);            // the exercise, or null when it is not whole
//
// It is deflated, with a sum by which a link that lost a piece on its way is known, and written in letters, digits, "-"
// and "_", which no mail program takes for the end of a link.
import { exerciseOf } from "./exercise.mjs";

const version = "1";
const longestText = 2_000_000;

const through = (bytes, transform) => new Blob([bytes]).stream().pipeThrough(transform);

async function bytesOf(stream) {
  const parts = [];
  let length = 0;
  for (const reader = stream.getReader(); ; ) {
    const { value, done } = await reader.read();
    if (done) return new Blob(parts).arrayBuffer();
    if ((length += value.length) > longestText) throw new Error("too long");
    parts.push(value);
  }
}

const toLetters = (bytes) =>
  btoa(Array.from(bytes, (byte) => String.fromCharCode(byte)).join(""))
    .replaceAll("+", "-")
    .replaceAll("/", "_")
    .replaceAll("=", "");

const fromLetters = (letters) =>
  Uint8Array.from(atob(letters.replaceAll("-", "+").replaceAll("_", "/")), (sign) => sign.charCodeAt(0));

export async function toHash(exercise) {
  const text = new TextEncoder().encode(JSON.stringify(exercise));
  const packed = await bytesOf(through(text, new CompressionStream("deflate")));
  return `#${version}${toLetters(new Uint8Array(packed))}`;
}

// What mail programs do to a link: they break it into lines, and take a full stop or a bracket along.
const cleaned = (hash) => /^[\w-]*/.exec(hash.replace(/^#/, "").replace(/\s|%20|%0[ad]/gi, ""))[0];

export async function fromHash(hash) {
  const letters = cleaned(hash);
  if (!letters.startsWith(version)) return null;
  try {
    const packed = fromLetters(letters.slice(version.length));
    const text = new TextDecoder().decode(await bytesOf(through(packed, new DecompressionStream("deflate"))));
    return exerciseOf(JSON.parse(text));
  } catch {
    return null;
  }
}
