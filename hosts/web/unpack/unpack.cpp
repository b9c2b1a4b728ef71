// Unpacks what a script brings for itself, its style sheet and its module, of which tools/pack.mjs made a
// text. A module by itself, small because every page loads it, and used once:
//
//   packed      where the text is put, signs of one byte
//   unpack()    answers how many bytes it was
//   unpacked    where they stand
//
// The text tells steps, each a byte or a copy of what was before, and a step is a few choices of one of
// sixteen. Every choice has odds, which learn from what is chosen, so that what is likely costs little;
// asymmetric numerals (rANS, 15 bits of odds, words of 16) tell it. With sixteen odds in two vectors a choice
// is hardly dearer than a bit would be. Each sign stands for 6 or 7 bits: so many that a server or an archive
// that codes signs by how often they come finds nothing that could be shorter. A text that is damaged ends in
// a trap or in bytes that are no module.
#include <wasm_simd128.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t longest_text = 1 << 17, most_bytes = 1 << 18;

}  // namespace

extern "C" {
std::array<unsigned char, longest_text> packed;
std::array<unsigned char, most_bytes> unpacked;
std::size_t unpack();
}

namespace {

// ---- The signs

constexpr unsigned signs_of_six_bits = 36;  // and 56 of seven, which begin with none of those

const unsigned char* next_sign = packed.data();
unsigned waiting = 0, waiting_count = 0;  // bits

// Every sign of ASCII from the blank on, without what a string or a page would have to write in another way.
unsigned number_of(unsigned sign) {
  return sign - ' ' - (sign > '"') - (sign > '<') - (sign > '\\');
}

unsigned next_word() {
  while (waiting_count < 16) {
    const unsigned number = number_of(*next_sign++);
    const bool short_one = number < signs_of_six_bits;
    const unsigned bits = short_one ? 6 : 7;
    waiting = waiting << bits | (short_one ? number : number + signs_of_six_bits);
    waiting_count += bits;
  }
  waiting_count -= 16;
  return waiting >> waiting_count & 0xFFFF;
}

// ---- The choices

constexpr std::size_t lanes = 8;
constexpr unsigned whole_bits = 15, whole = 1U << whole_bits;
constexpr std::uint16_t least = 16;  // never learnt to be less

using Starts = std::array<std::uint16_t, 16>;

// Where the share of each of sixteen in the whole begins, as it is learnt quickly and slowly.
struct alignas(16) Odds {
  Starts quick, slow;
};

constexpr Starts steps_of(unsigned width) {
  Starts starts{};
  for (unsigned at = 0; at < starts.size(); ++at) starts[at] = static_cast<std::uint16_t>(at * width);
  return starts;
}
constexpr Starts beginnings = steps_of(least);

std::uint32_t place;

// What was told of the whole is used up.
void go_on(unsigned start, unsigned size) {
  place = size * (place >> whole_bits) + (place & (whole - 1)) - start;
  if (place >> 16 == 0) place = place << 16 | next_word();
}

v128_t load(const Starts& starts, std::size_t from) {
  return wasm_v128_load(starts.data() + from);
}

v128_t middle(v128_t one, v128_t other) {
  return wasm_u16x8_shr(wasm_i16x8_add(one, other), 1);
}

void learn(Starts& starts, std::size_t from, v128_t now, v128_t wanted, unsigned rate) {
  wasm_v128_store(starts.data() + from,
                  wasm_i16x8_add(now, wasm_i16x8_shr(wasm_i16x8_sub(wanted, now), rate)));
}

// One of sixteen, by the mean of two odds, which may be the same. They learn it by a part of 2 to the power
// of `rate`.
[[gnu::noinline]] unsigned choose(unsigned rate, Odds& one, Odds& other) {
  const v128_t told = wasm_i16x8_splat(static_cast<std::int16_t>(place & (whole - 1)));
  std::array<std::uint16_t, 17> starts;
  starts[16] = whole;
  unsigned begun = 0;
#pragma clang loop unroll(disable)
  for (std::size_t from = 0; from < 2 * lanes; from += lanes) {
    const v128_t quick = load(one.quick, from), slow = load(one.slow, from);
    const v128_t other_quick = load(other.quick, from), other_slow = load(other.slow, from);
    const v128_t start = middle(middle(quick, slow), middle(other_quick, other_slow));
    wasm_v128_store(starts.data() + from, start);
    const v128_t has_begun = wasm_i16x8_le(start, told);
    begun += static_cast<unsigned>(__builtin_popcount(wasm_i16x8_bitmask(has_begun)));
    const v128_t end = wasm_v128_andnot(wasm_i16x8_const_splat(whole - 16 * least), has_begun);
    const v128_t wanted = wasm_i16x8_add(load(beginnings, from), end);
    learn(one.quick, from, quick, wanted, rate);
    learn(one.slow, from, slow, wanted, rate + 3);
    learn(other.quick, from, other_quick, wanted, rate);
    learn(other.slow, from, other_slow, wanted, rate + 3);
  }
  go_on(starts[begun - 1], starts[begun] - starts[begun - 1]);
  return begun - 1;
}

unsigned choose(unsigned rate, Odds& odds) {
  return choose(rate, odds, odds);
}

unsigned even_bits(unsigned count) {
  const unsigned size_bits = whole_bits - count, chosen = (place & (whole - 1)) >> size_bits;
  go_on(chosen << size_bits, 1U << size_bits);
  return chosen;
}

// ---- What they tell

constexpr unsigned rate_of_bytes = 3, rate_of_copies = 5;
constexpr unsigned state_count = 12, first_state_after_copy = 7;

// Odds by what is known: the state, which is what the last few steps were, and the highest bits of bytes
// before.
struct Model {
  template <std::size_t count>
  using Row = std::array<Odds, count>;

  Row<state_count> step;
  Row<32> step_by_byte;
  Row<8> high;
  Row<64> high_by_two;
  std::array<Row<16>, 8> low;
  std::array<Row<16>, 64> low_by_two;
  // After a copy, by the byte that would have gone on with it.
  std::array<Row<8>, 16> likely_high;
  Row<16> likely_low;
  Row<256> likely_byte;
  struct Lengths {
    Odds first, rest_high;
    Row<state_count> first_by_step;
    Row<16> rest_low;
  };
  std::array<Lengths, 2> lengths;
  Row<4> size;
  Row<16> highest;
  std::array<Row<state_count>, 16> highest_by_step;
  Row<5> lowest;
};

Model model;

enum Step : unsigned { byte, copy, same, known, end = 7 };

class Unpacker {
 public:
  // Answers the size.
  std::size_t run() {
    // As even odds.
    auto* const starts = reinterpret_cast<std::uint16_t*>(&model);
    for (std::size_t at = 0; at < sizeof(Model) / sizeof *starts; ++at) starts[at] = at % 16 * (whole / 16);
    place = next_word() << 16;
    place |= next_word();
    while (take(choose(rate_of_bytes, model.step[state_],
                       model.step_by_byte[after_copy() * 16U + (last_two_ >> 4 & 15)])));
    return size_;
  }

 private:
  bool after_copy() const { return state_ >= first_state_after_copy; }
  unsigned byte_back() const { return unpacked[size_ - distances_[0] - 1]; }

  // False at the end.
  bool take(unsigned step) {
    if (step >= end) return false;
    if (step == byte) {
      put(read_byte());
      state_ = state_ < 4 ? 0 : state_ - (state_ < 10 ? 3 : 6);
      return true;
    }
    unsigned length = 1;
    if (step == copy) {
      length = read_length(model.lengths[0]);
      bring_forward(3, read_distance(length));
    } else if (step >= known) {
      bring_forward(step - known, distances_[step - known]);
      length = read_length(model.lengths[1]);
    }
    if (after_copy())
      state_ = step == copy ? 10 : 11;
    else
      state_ = step == copy ? 7 : step == same ? 9 : 8;
    for (; length; --length) put(byte_back());
    return true;
  }

  void put(unsigned value) {
    unpacked[size_++] = static_cast<unsigned char>(value);
    last_two_ = last_two_ << 8 | value;
  }

  // Its high half, then its low one.
  unsigned read_byte() {
    const unsigned one = last_two_ >> 5 & 7, two = (last_two_ >> 13 & 7) * 8 + one;
    const unsigned likely = after_copy() ? byte_back() : 0;
    const unsigned high = after_copy() ? choose(rate_of_bytes, model.likely_high[likely >> 4][one])
                                       : choose(rate_of_bytes, model.high[one], model.high_by_two[two]);
    const bool goes_on = after_copy() && high == likely >> 4;
    return high << 4 |
           (goes_on ? choose(rate_of_bytes, model.likely_low[likely & 15], model.likely_byte[likely])
                    : choose(rate_of_bytes, model.low[one][high], model.low_by_two[two][high]));
  }

  unsigned read_length(Model::Lengths& lengths) const {
    const unsigned first = choose(rate_of_copies, lengths.first, lengths.first_by_step[state_]);
    if (first < 15) return 2 + first;
    const unsigned high = choose(rate_of_copies, lengths.rest_high);
    return 17 + high * 16 + choose(rate_of_copies, lengths.rest_low[high]);
  }

  // How far back, less 1: its five highest bits, and of more than nine those in the middle as they are.
  std::uint32_t read_distance(unsigned length) const {
    const unsigned size = choose(rate_of_copies, model.size[length < 5 ? length - 2 : 3]);
    std::uint32_t distance = choose(rate_of_copies, model.highest[size], model.highest_by_step[size][state_]);
    if (size == 0) return distance;
    distance += 16;
    unsigned rest = size - 1;
    if (rest > 4) distance = distance << (rest - 4) | even_bits(rest - 4);
    if (rest > 4) rest = 4;
    return rest ? distance << rest | choose(rate_of_copies, model.lowest[rest]) : distance;
  }

  // The distance that was the last but `which` is the last one now.
  void bring_forward(unsigned which, std::uint32_t distance) {
    for (; which; --which) distances_[which] = distances_[which - 1];
    distances_[0] = distance;
  }

  std::size_t size_ = 0;
  unsigned state_ = 0;
  unsigned last_two_ = 0;  // bytes, the last one lowest
  std::array<std::uint32_t, 4> distances_{};
};

}  // namespace

std::size_t unpack() {
  return Unpacker().run();
}
