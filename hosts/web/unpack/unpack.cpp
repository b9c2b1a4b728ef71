// Unpacks what a script brings for itself, its style sheet and its module, of which tools/pack.mjs made a
// text. A module by itself, small because every page loads it, and used once:
//
//   packed      where the text is put, signs of one byte
//   unpack()    answers how many bytes it was
//   unpacked    where they stand
//
// The text is an LZMA stream (lc 3, lp 0, pb 0, with its end mark, without a header), each sign of which
// stands for 6 or 7 bits: so many that a server or an archive that codes signs by how often they come finds
// nothing that could be shorter. A text that is damaged ends in a trap or in bytes that are no module.
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

unsigned next_byte() {
  while (waiting_count < 8) {
    const unsigned number = number_of(*next_sign++);
    const bool short_one = number < signs_of_six_bits;
    const unsigned bits = short_one ? 6 : 7;
    waiting = waiting << bits | (short_one ? number : number + signs_of_six_bits);
    waiting_count += bits;
  }
  waiting_count -= 8;
  return waiting >> waiting_count & 0xFF;
}

// ---- The bits of the stream

// Of a 0, in 2048ths, less a half: so that all begin as even odds.
using Odds = std::int16_t;
constexpr int half = 1024;
constexpr unsigned shift_of_change = 5;

std::uint32_t range = 0xFFFFFFFF, place = 0;

void fill_up() {
  if (range >> 24) return;
  range <<= 8;
  place = place << 8 | next_byte();
}

unsigned bit(Odds& odds) {
  fill_up();
  const std::uint32_t bound = (range >> 11) * static_cast<unsigned>(half + odds);
  if (place < bound) {
    range = bound;
    odds = static_cast<Odds>(odds + ((half - odds) >> shift_of_change));
    return 0;
  }
  range -= bound;
  place -= bound;
  odds = static_cast<Odds>(odds - ((half + odds) >> shift_of_change));
  return 1;
}

unsigned even_bit() {
  fill_up();
  range >>= 1;
  const bool one = place >= range;
  if (one) place -= range;
  return one;
}

// The highest bit first, each with odds of its own by those before it.
unsigned bits(Odds* odds, unsigned count) {
  unsigned number = 1;
  while (!(number >> count)) number = number * 2 + bit(odds[number]);
  return number - (1U << count);
}

unsigned bits_lowest_first(Odds* odds, unsigned count) {
  unsigned number = 0, branch = 1;
  for (unsigned at = 0; at < count; ++at) {
    const unsigned one = bit(odds[branch]);
    branch = branch * 2 + one;
    number |= one << at;
  }
  return number;
}

// ---- What they tell

struct Lengths {
  Odds beyond_low, beyond_middle;
  std::array<Odds, 8> low, middle;
  std::array<Odds, 256> high;

  unsigned read() {
    if (!bit(beyond_low)) return 2 + bits(low.data(), 3);
    if (!bit(beyond_middle)) return 10 + bits(middle.data(), 3);
    return 18 + bits(high.data(), 8);
  }
};

constexpr unsigned state_count = 12, first_state_after_copy = 7;
constexpr std::uint32_t end_mark = 0xFFFFFFFF;

// By the state: what the last few steps were.
std::array<Odds, state_count> is_copy, is_known, is_not_first, is_not_second, is_not_third, is_longer;
Lengths lengths, lengths_of_known;
std::array<std::array<Odds, 64>, 4> slots;
std::array<Odds, 128> middle_bits;
std::array<Odds, 16> lowest_bits;
// By the byte before: without a likely byte, and with one by its next bit.
std::array<std::array<std::array<Odds, 256>, 3>, 8> literals;

// How far back, less 1.
std::uint32_t read_distance(unsigned length) {
  const unsigned slot = bits(slots[length < 6 ? length - 2 : 3].data(), 6);
  if (slot < 4) return slot;
  unsigned count = slot / 2 - 1;
  std::uint32_t distance = (2 | slot % 2) << count;
  if (slot < 14) return distance + bits_lowest_first(middle_bits.data() + distance - slot, count);
  while (count > 4) distance += even_bit() << --count;
  return distance + bits_lowest_first(lowest_bits.data(), 4);
}

class Unpacker {
 public:
  // Answers the size.
  std::size_t run() {
    next_byte();  // every stream begins with a 0
    for (int byte = 0; byte < 4; ++byte) place = place << 8 | next_byte();
    for (;;) {
      if (!bit(is_copy[state_])) {
        read_byte();
      } else if (bit(is_known[state_])) {
        read_known_copy();
      } else if (!read_copy()) {
        return size_;
      }
    }
  }

 private:
  bool after_copy() const { return state_ >= first_state_after_copy; }
  unsigned char byte_back() const { return unpacked[size_ - distance_ - 1]; }

  void read_byte() {
    auto& by_likely = literals[size_ ? unpacked[size_ - 1] >> 5 : 0];
    unsigned number = 1;
    // After a copy the byte is not the one that would have gone on with it.
    for (unsigned likely = after_copy() ? byte_back() | 0x100U : 0; likely && number < 256;) {
      const unsigned expected = likely >> 7 & 1, one = bit(by_likely[1 + expected][number]);
      number = number * 2 + one;
      likely = one == expected ? likely << 1 : 0;
    }
    while (number < 256) number = number * 2 + bit(by_likely[0][number]);
    unpacked[size_++] = static_cast<unsigned char>(number);
    state_ = state_ < 4 ? 0 : state_ - (state_ < 10 ? 3 : 6);
  }

  // False at the end.
  bool read_copy() {
    fourth_ = third_;
    third_ = second_;
    second_ = distance_;
    const unsigned length = lengths.read();
    distance_ = read_distance(length);
    if (distance_ == end_mark) return false;
    state_ = after_copy() ? 10 : 7;
    copy(length);
    return true;
  }

  // From as far back as one of the last four.
  void read_known_copy() {
    if (!bit(is_not_first[state_])) {
      if (!bit(is_longer[state_])) {
        state_ = after_copy() ? 11 : 9;
        return copy(1);
      }
    } else {
      std::uint32_t chosen = second_;
      if (bit(is_not_second[state_])) {
        chosen = third_;
        if (bit(is_not_third[state_])) {
          chosen = fourth_;
          fourth_ = third_;
        }
        third_ = second_;
      }
      second_ = distance_;
      distance_ = chosen;
    }
    const unsigned length = lengths_of_known.read();
    state_ = after_copy() ? 11 : 8;
    copy(length);
  }

  void copy(unsigned length) {
    for (; length; --length, ++size_) unpacked[size_] = byte_back();
  }

  std::size_t size_ = 0;
  unsigned state_ = 0;
  std::uint32_t distance_ = 0, second_ = 0, third_ = 0, fourth_ = 0;  // the last four, the last one first
};

}  // namespace

std::size_t unpack() {
  return Unpacker().run();
}
