// Inflates what was deflated (RFC 1951), for a browser that cannot do it by itself.
//
//   inflate(bytes);     // of a stream without a header; it must be whole

// The codes of a Huffman table in the order of their lengths, and how many there are of each length.
interface Codes {
  readonly counts: Uint16Array;
  readonly symbols: number[];
}

const longestCode = 15;
const endOfBlock = 256;
const firstLength = 257;
// The order in which a block tells the lengths of the codes of its code lengths.
const lengthOrder = [16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15];

function codesOf(lengths: readonly number[]): Codes {
  const counts = new Uint16Array(longestCode + 1);
  for (const length of lengths) ++counts[length]!;
  counts[0] = 0;
  const used = [...lengths.keys()].filter((symbol) => lengths[symbol]);
  return { counts, symbols: used.sort((one, other) => lengths[one]! - lengths[other]! || one - other) };
}

// Where each length or distance begins and how many more bits it takes: so many at a time take one bit more.
function ranges(first: number, plain: number, perBits: number, count: number): readonly (readonly [number, number])[] {
  let start = first;
  return Array.from({ length: count }, (_, at) => {
    const bits = at < plain ? 0 : Math.floor((at - plain) / perBits) + 1;
    const range = [start, bits] as const;
    start += 1 << bits;
    return range;
  });
}

const distances = ranges(1, 4, 2, 30);
const lengths = [...ranges(3, 8, 4, 28), [258, 0] as const];

const repeated = (times: number, value: number): number[] => Array<number>(times).fill(value);
const fixedLiterals = codesOf([...repeated(144, 8), ...repeated(112, 9), ...repeated(24, 7), ...repeated(8, 8)]);
const fixedDistances = codesOf(repeated(30, 5));

class Inflation {
  readonly #from: Uint8Array;
  #bit = 0;
  readonly #to: number[] = [];

  constructor(from: Uint8Array) {
    this.#from = from;
  }

  run(): Uint8Array<ArrayBuffer> {
    let last = 0;
    while (!last) {
      last = this.#bits(1);
      const kind = this.#bits(2);
      if (kind === 0) this.#copyStored();
      else if (kind === 1) this.#copyCoded(fixedLiterals, fixedDistances);
      else this.#copyCoded(...this.#readCodes());
    }
    return Uint8Array.from(this.#to);
  }

  #bits(count: number): number {
    let value = 0;
    for (let at = 0; at < count; ++at, ++this.#bit)
      value |= ((this.#from[this.#bit >> 3]! >> (this.#bit & 7)) & 1) << at;
    return value;
  }

  #symbol({ counts, symbols }: Codes): number {
    let code = 0;
    let first = 0;
    let before = 0;
    for (let length = 1; length <= longestCode; ++length) {
      code |= this.#bits(1);
      const count = counts[length]!;
      if (code < first + count) return symbols[before + code - first]!;
      before += count;
      first = (first + count) << 1;
      code <<= 1;
    }
    throw new Error("no such code");
  }

  #ranged([start, bits]: readonly [number, number]): number {
    return start + this.#bits(bits);
  }

  #copyStored(): void {
    this.#bit = (this.#bit + 7) & ~7;
    const count = this.#bits(16);
    this.#bits(16); // the same again, turned round
    for (let at = 0; at < count; ++at) this.#to.push(this.#bits(8));
  }

  #copyCoded(literalCodes: Codes, distanceCodes: Codes): void {
    const to = this.#to;
    for (;;) {
      const symbol = this.#symbol(literalCodes);
      if (symbol === endOfBlock) return;
      if (symbol < endOfBlock) {
        to.push(symbol);
        continue;
      }
      const length = this.#ranged(lengths[symbol - firstLength]!);
      const distance = this.#ranged(distances[this.#symbol(distanceCodes)]!);
      for (let at = 0; at < length; ++at) to.push(to[to.length - distance]!);
    }
  }

  #readCodes(): [Codes, Codes] {
    const literals = this.#bits(5) + firstLength;
    const all = literals + this.#bits(5) + 1;
    const told = repeated(lengthOrder.length, 0);
    for (const symbol of lengthOrder.slice(0, this.#bits(4) + 4)) told[symbol] = this.#bits(3);
    const codes = codesOf(told);
    const found: number[] = [];
    while (found.length < all) {
      const symbol = this.#symbol(codes);
      if (symbol < 16) found.push(symbol);
      else if (symbol === 16) found.push(...repeated(this.#bits(2) + 3, found.at(-1)!));
      else found.push(...repeated(symbol === 17 ? this.#bits(3) + 3 : this.#bits(7) + 11, 0));
    }
    return [codesOf(found.slice(0, literals)), codesOf(found.slice(literals))];
  }
}

export const inflate = (deflated: Uint8Array): Uint8Array<ArrayBuffer> => new Inflation(deflated).run();
