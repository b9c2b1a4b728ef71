// How bytes can be written as bytes and copies of what was before them, chosen well: as xz chooses. Its LZMA stream
// (lc 3, lp 0, pb 0, with an end mark, without a header) is read for that.
//
//   stepsOf(bytes)    [{ kind, length, distance }]: no longer than 272; how far back a copy is, less 1
import { spawnSync } from "node:child_process";

// What a step may be: a byte, a copy, the byte that is as far back as the last copy, a copy from as far back as one of
// the last four; and the end.
export const Kind = { byte: 0, copy: 1, same: 2, known: 3, end: 7 };

// By the last few steps; from 7 on the last one was a copy.
export const afterCopy = (state) => state >= 7;
export function stateAfter(state, kind) {
  if (kind === Kind.byte) return state < 4 ? 0 : state - (state < 10 ? 3 : 6);
  if (kind === Kind.copy) return afterCopy(state) ? 10 : 7;
  if (kind === Kind.same) return afterCopy(state) ? 11 : 9;
  return afterCopy(state) ? 11 : 8;
}

// As well as it can: everyone who opens a page loads it.
const lzma = "preset=9e,lc=3,lp=0,pb=0,nice=64,mf=bt3,depth=1000";

function compressed(bytes) {
  const { status, stdout, stderr, error } = spawnSync("xz", ["--format=raw", `--lzma1=${lzma}`, "--stdout"], {
    input: bytes,
    maxBuffer: 2 ** 26,
  });
  if (status !== 0) throw new Error(`xz: ${error?.message ?? stderr}`);
  return stdout;
}

// ---- Its bits

const evenOdds = (count) => new Uint16Array(count).fill(1024);

class BitReader {
  #bytes;
  #at = 5;
  #range = 0xffffffff;
  #place;

  constructor(bytes) {
    this.#bytes = bytes;
    this.#place = bytes.readUInt32BE(1); // after a 0
  }

  #fillUp() {
    if (this.#range >= 2 ** 24) return;
    this.#range = (this.#range << 8) >>> 0;
    this.#place = ((this.#place << 8) | this.#bytes[this.#at++]) >>> 0;
  }

  bit(odds, at) {
    this.#fillUp();
    const bound = (this.#range >>> 11) * odds[at];
    if (this.#place < bound) {
      this.#range = bound;
      odds[at] += (2048 - odds[at]) >> 5;
      return 0;
    }
    this.#range -= bound;
    this.#place -= bound;
    odds[at] -= odds[at] >> 5;
    return 1;
  }

  evenBit() {
    this.#fillUp();
    this.#range >>>= 1;
    if (this.#place < this.#range) return 0;
    this.#place -= this.#range;
    return 1;
  }

  // The highest bit first, each with odds of its own by those before it.
  bits(odds, from, count) {
    let number = 1;
    while (number >> count === 0) number = number * 2 + this.bit(odds, from + number);
    return number - 2 ** count;
  }

  bitsLowestFirst(odds, from, count) {
    let number = 0;
    for (let at = 0, branch = 1; at < count; ++at) {
      const bit = this.bit(odds, from + branch);
      branch = branch * 2 + bit;
      number += bit * 2 ** at;
    }
    return number;
  }
}

// ---- What they tell

class Lengths {
  #beyond = evenOdds(2);
  #low = evenOdds(8);
  #middle = evenOdds(8);
  #high = evenOdds(256);

  read(reader) {
    if (!reader.bit(this.#beyond, 0)) return 2 + reader.bits(this.#low, 0, 3);
    if (!reader.bit(this.#beyond, 1)) return 10 + reader.bits(this.#middle, 0, 3);
    return 18 + reader.bits(this.#high, 0, 8);
  }
}

class StepReader {
  #reader;
  #bytes;
  #at = 0;
  #state = 0;
  #distances = [0, 0, 0, 0]; // of the last copies, the last one first
  #isCopy = evenOdds(12);
  #isKnown = evenOdds(12);
  #isNotFirst = evenOdds(12);
  #isLonger = evenOdds(12);
  #isNotSecond = evenOdds(12);
  #isNotThird = evenOdds(12);
  #lengths = new Lengths();
  #lengthsOfKnown = new Lengths();
  #slots = evenOdds(256);
  #middleBits = evenOdds(128);
  #lowestBits = evenOdds(16);
  #literals = evenOdds(8 * 0x300);

  // `bytes` are what the stream was made of.
  constructor(stream, bytes) {
    this.#reader = new BitReader(stream);
    this.#bytes = bytes;
  }

  // Undefined at the end.
  next() {
    const step = this.#read();
    if (!step) return undefined;
    this.#state = stateAfter(this.#state, step.kind);
    this.#at += step.length;
    return step;
  }

  #read() {
    if (!this.#reader.bit(this.#isCopy, this.#state)) return this.#readByte();
    return this.#reader.bit(this.#isKnown, this.#state) ? this.#readKnownCopy() : this.#readCopy();
  }

  // What it is is known; its bits are to be read past.
  #readByte() {
    const from = 0x300 * ((this.#bytes[this.#at - 1] ?? 0) >> 5);
    let number = 1;
    if (afterCopy(this.#state)) {
      const likely = this.#bytes[this.#at - this.#distances[0] - 1] | 0x100;
      for (let depth = 0; depth < 8 && likely >> (8 - depth) === number; ++depth) {
        const expected = (likely >> (7 - depth)) & 1;
        number = number * 2 + this.#reader.bit(this.#literals, from + 0x100 * (1 + expected) + number);
      }
    }
    while (number < 0x100) number = number * 2 + this.#reader.bit(this.#literals, from + number);
    return { kind: Kind.byte, length: 1 };
  }

  #readCopy() {
    const length = this.#lengths.read(this.#reader);
    const distance = this.#readDistance(length);
    if (distance === 0xffffffff) return undefined;
    this.#distances = [distance, ...this.#distances.slice(0, 3)];
    return { kind: Kind.copy, length, distance };
  }

  #readDistance(length) {
    const slot = this.#reader.bits(this.#slots, 64 * Math.min(length - 2, 3), 6);
    if (slot < 4) return slot;
    const count = (slot >> 1) - 1;
    let distance = (2 + (slot & 1)) * 2 ** count;
    if (slot < 14) return distance + this.#reader.bitsLowestFirst(this.#middleBits, distance - slot, count);
    for (let bit = count - 1; bit > 3; --bit) distance += this.#reader.evenBit() * 2 ** bit;
    return distance + this.#reader.bitsLowestFirst(this.#lowestBits, 0, 4);
  }

  #readKnownCopy() {
    const bit = (odds) => this.#reader.bit(odds, this.#state);
    let which = 0;
    if (!bit(this.#isNotFirst)) {
      if (!bit(this.#isLonger)) return { kind: Kind.same, length: 1, distance: this.#distances[0] };
    } else {
      which = !bit(this.#isNotSecond) ? 1 : !bit(this.#isNotThird) ? 2 : 3;
    }
    const [distance] = this.#distances.splice(which, 1);
    this.#distances.unshift(distance);
    return { kind: Kind.known + which, length: this.#lengthsOfKnown.read(this.#reader), distance };
  }
}

// A copy of the longest length goes on as the byte that is as far back: so all others are one of 16 times 16 and a few.
const withoutLongest = (step) =>
  step.length > 272
    ? [
        { ...step, length: 272 },
        { kind: Kind.same, length: step.length - 272, distance: step.distance },
      ]
    : [step];

export function stepsOf(bytes) {
  const reader = new StepReader(compressed(bytes), bytes);
  const steps = [];
  for (let step = reader.next(); step; step = reader.next()) steps.push(...withoutLongest(step));
  return steps;
}
