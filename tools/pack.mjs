// Packs bytes as the text that hosts/web/unpack/unpack.cpp unpacks; there stands what the text is.
//
//   pack(bytes)           the text
//   unpack(text, wasm)    the bytes again, as a page does it; `wasm` is the unpacking module
//   asSigns(wasm)         that module as a text, which is longer, but which the page reads by itself
import { Kind, afterCopy, stateAfter, stepsOf } from "./lz-steps.mjs";

// ---- The choices that a text tells, and the odds for each

// All of these as in unpack.cpp.
const whole = 2 ** 15;
const least = 16;
const rateOfBytes = 3;
const rateOfCopies = 5;

class Odds {
  quick = Int32Array.from({ length: 16 }, (_, at) => (at * whole) / 16);
  slow = this.quick.slice();

  startOf(at) {
    return (this.quick[at] + this.slow[at]) >> 1;
  }

  learn(chosen, rate) {
    for (let at = 0; at < 16; ++at) {
      const wanted = at * least + (at > chosen ? whole - 16 * least : 0);
      this.quick[at] += (wanted - this.quick[at]) >> rate;
      this.slow[at] += (wanted - this.slow[at]) >> (rate + 3);
    }
  }
}

class Model {
  // Each choice's share of the whole: { start, size }.
  shares = [];
  #odds = new Map();
  #bytes;
  #at = 0;
  #state = 0;
  #distance = 0;

  constructor(bytes) {
    this.#bytes = bytes;
  }

  #oddsOf(name) {
    if (!this.#odds.has(name)) this.#odds.set(name, new Odds());
    return this.#odds.get(name);
  }

  #choose(chosen, rate, name, other = name) {
    const [one, another] = [this.#oddsOf(name), this.#oddsOf(other)];
    const startOf = (at) => (at === 16 ? whole : (one.startOf(at) + another.startOf(at)) >> 1);
    const start = startOf(chosen);
    this.shares.push({ start, size: startOf(chosen + 1) - start });
    for (const odds of new Set([one, another])) odds.learn(chosen, rate);
  }

  #chooseEvenly(chosen, count) {
    this.shares.push({ start: (chosen * whole) / 2 ** count, size: whole / 2 ** count });
  }

  #back(count) {
    return this.#bytes[this.#at - count] ?? 0;
  }

  tell({ kind, length = 0, distance = this.#distance }) {
    const before = 16 * afterCopy(this.#state) + (this.#back(1) >> 4);
    this.#choose(kind, rateOfBytes, `step ${this.#state}`, `step by byte ${before}`);
    if (kind === Kind.byte) this.#tellByte(this.#bytes[this.#at]);
    else if (kind === Kind.copy) this.#tellCopy(length, distance);
    else if (kind >= Kind.known && kind < Kind.end) this.#tellLength(1, length);
    this.#state = stateAfter(this.#state, kind);
    this.#at += length;
    this.#distance = distance;
  }

  // Its high half, then its low one.
  #tellByte(byte) {
    const [high, low] = [byte >> 4, byte & 15];
    const one = this.#back(1) >> 5;
    const two = (this.#back(2) >> 5) * 8 + one;
    const likely = this.#back(this.#distance + 1);
    if (afterCopy(this.#state)) this.#choose(high, rateOfBytes, `likely high ${(likely >> 4) * 8 + one}`);
    else this.#choose(high, rateOfBytes, `high ${one}`, `high by two ${two}`);
    if (afterCopy(this.#state) && high === likely >> 4)
      this.#choose(low, rateOfBytes, `likely low ${likely & 15}`, `likely byte ${likely}`);
    else this.#choose(low, rateOfBytes, `low ${one} ${high}`, `low by two ${two} ${high}`);
  }

  #tellCopy(length, distance) {
    this.#tellLength(0, length);
    const size = Math.max(0, 28 - Math.clz32(distance)); // bits behind the highest five; below 16 there are four alone
    const rest = Math.max(0, size - 1);
    this.#choose(size, rateOfCopies, `size ${Math.min(length - 2, 3)}`);
    this.#choose((distance >> rest) & 15, rateOfCopies, `highest ${size}`, `highest by step ${size} ${this.#state}`);
    const lowest = Math.min(rest, 4);
    if (rest > 4) this.#chooseEvenly((distance >> 4) & (2 ** (rest - 4) - 1), rest - 4);
    if (rest > 0) this.#choose(distance & (2 ** lowest - 1), rateOfCopies, `lowest ${lowest}`);
  }

  #tellLength(kind, length) {
    const [first, rest] = [Math.min(length - 2, 15), length - 17];
    this.#choose(first, rateOfCopies, `length ${kind}`, `length by step ${kind} ${this.#state}`);
    if (rest < 0) return;
    this.#choose(rest >> 4, rateOfCopies, `long ${kind}`);
    this.#choose(rest & 15, rateOfCopies, `longer ${kind} ${rest >> 4}`);
  }
}

function choicesOf(bytes) {
  const model = new Model(bytes);
  for (const step of stepsOf(bytes)) model.tell(step);
  model.tell({ kind: Kind.end });
  return model.shares;
}

// Words of 16 bits, from which the choices come out in their order: they go in from the last one on.
function wordsOf(shares) {
  const words = [];
  let place = 2 ** 16;
  for (const { start, size } of shares.toReversed()) {
    while (place >= size * 2 ** 17) {
      words.push(place % 2 ** 16);
      place = Math.floor(place / 2 ** 16);
    }
    place = Math.floor(place / size) * whole + (place % size) + start;
  }
  return [...words, place % 2 ** 16, Math.floor(place / 2 ** 16)].reverse();
}

// ---- The signs

const signs = Array.from({ length: 95 }, (_, at) => String.fromCharCode(32 + at)).filter(
  (sign) => !'"<\\'.includes(sign),
);
const signsOfSixBits = 36;

// The bits of words, and zeros for what the last sign has more.
class Bits {
  #words;
  #at = 0;

  constructor(words) {
    this.#words = words;
  }

  get atEnd() {
    return this.#at >= 16 * this.#words.length;
  }

  take(count) {
    let number = 0;
    for (const end = this.#at + count; this.#at < end; ++this.#at)
      number = (number << 1) | (((this.#words[this.#at >> 4] ?? 0) >> (15 - (this.#at & 15))) & 1);
    return number;
  }
}

export function pack(bytes) {
  const bits = new Bits(wordsOf(choicesOf(bytes)));
  let text = "";
  while (!bits.atEnd) {
    const six = bits.take(6);
    text += signs[six < signsOfSixBits ? six : ((six << 1) | bits.take(1)) - signsOfSixBits];
  }
  return text;
}

// A sign for a byte, or two: of what is coded by how often it comes, base64 leaves little to be seen.
export const asSigns = (bytes) =>
  Array.from(bytes, (byte) => ["", "}", "~"][Math.floor(byte / 90)] + String.fromCharCode(35 + (byte % 90))).join("");

export function unpack(text, wasm) {
  const { memory, packed, unpacked, unpack: run } = new WebAssembly.Instance(new WebAssembly.Module(wasm)).exports;
  new TextEncoder().encodeInto(text, new Uint8Array(memory.buffer, packed.value));
  return new Uint8Array(memory.buffer, unpacked.value, run());
}
