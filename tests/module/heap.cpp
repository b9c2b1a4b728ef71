// A random walk over every way to take memory and to give it back, as a module of its own: heap.test.mjs.
//
// Each block is filled with its number and looked at again when it is given back, so two blocks at one place
// are found, whichever functions they came from.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <random>
#include <vector>

namespace {

constexpr std::size_t strict = 256;

struct Way {
  void* (*take)(std::size_t size);
  void (*give)(void* memory);
  std::size_t alignment;
};

void* aligned(std::size_t alignment, std::size_t size) {
  void* memory = nullptr;
  return posix_memalign(&memory, alignment, size) == 0 ? memory : nullptr;
}

constexpr std::align_val_t strictly{strict};

// The operators are called as functions: a compiler may leave out an expression with new and its delete.
constexpr std::array ways = {
    Way{[](std::size_t size) { return std::malloc(size); }, std::free, 16},
    Way{[](std::size_t size) { return std::calloc(1, size); }, std::free, 16},
    Way{[](std::size_t size) { return std::realloc(nullptr, size); }, std::free, 16},
    Way{[](std::size_t size) { return std::aligned_alloc(strict, size); }, std::free, strict},
    Way{[](std::size_t size) { return aligned(strict, size); }, std::free, strict},
    Way{[](std::size_t size) { return operator new(size); }, [](void* memory) { operator delete(memory); },
        16},
    Way{[](std::size_t size) { return operator new[](size); },
        [](void* memory) { operator delete[](memory); }, 16},
    Way{[](std::size_t size) { return operator new(size, std::nothrow); },
        [](void* memory) { operator delete(memory, std::nothrow); }, 16},
    Way{[](std::size_t size) { return operator new(size, strictly); },
        [](void* memory) { operator delete(memory, strictly); }, strict},
    Way{[](std::size_t size) { return operator new[](size, strictly); },
        [](void* memory) { operator delete[](memory, strictly); }, strict},
};

struct Block {
  std::uint8_t* memory;
  std::size_t size;
  const Way* way;
  std::uint8_t filling;
};

enum Fault { none, no_memory, misaligned, not_zeroed, overwritten };

bool holds(const Block& block, std::size_t size) {
  return std::all_of(block.memory, block.memory + size, [&](auto byte) { return byte == block.filling; });
}

class Walk {
 public:
  explicit Walk(std::uint32_t seed) : random(seed) {}

  Fault step() {
    if (blocks.size() < 100 || random() % 2 == 0) return take();
    return random() % 4 == 0 ? resize() : give();
  }

  Fault give() {
    const Block block = take_one_out();
    if (!holds(block, block.size)) return overwritten;
    block.way->give(block.memory);
    return none;
  }

  bool is_empty() const { return blocks.empty(); }

 private:
  std::size_t any_size() { return 1 + random() % (random() % 8 == 0 ? 20000 : 200); }

  Fault take() {
    const Way& way = ways[random() % ways.size()];
    const std::size_t size = any_size();
    const Block block{static_cast<std::uint8_t*>(way.take(size)), size, &way, 0};
    if (!block.memory) return no_memory;
    if (reinterpret_cast<std::uintptr_t>(block.memory) % way.alignment != 0) return misaligned;
    if (&way == &ways[1] && !holds(block, size)) return not_zeroed;
    put(block);
    return none;
  }

  // The C library's own question to a block: what was in it is still there.
  Fault resize() {
    Block block = take_one_out();
    const std::size_t size = any_size();
    if (block.way->give != std::free) {
      blocks.push_back(block);
      return none;
    }
    void* const moved = std::realloc(block.memory, size);
    if (!moved) return no_memory;
    block.memory = static_cast<std::uint8_t*>(moved);
    if (!holds(block, std::min(size, block.size))) return overwritten;
    block.size = size;
    put(block);
    return none;
  }

  void put(Block block) {
    block.filling = static_cast<std::uint8_t>(random());
    std::fill_n(block.memory, block.size, block.filling);
    blocks.push_back(block);
  }

  Block take_one_out() {
    std::swap(blocks[random() % blocks.size()], blocks.back());
    const Block block = blocks.back();
    blocks.pop_back();
    return block;
  }

  std::minstd_rand random;
  std::vector<Block> blocks;
};

}  // namespace

// The first fault of a walk of that many steps, after which all is given back.
extern "C" [[clang::export_name("walk")]] int walk(std::uint32_t seed, int steps) {
  Walk walk(seed);
  Fault fault = none;
  for (int step = 0; step < steps && fault == none; ++step) fault = walk.step();
  while (fault == none && !walk.is_empty()) fault = walk.give();
  return fault;
}

// How many of the ways to ask for more than there can be are not refused. Not optimised, since a compiler may
// hold that memory that is not used is always given.
extern "C" [[clang::export_name("granted_beyond_all"), clang::optnone]] int granted_beyond_all() {
  constexpr std::size_t most = SIZE_MAX, half = most / 2;
  int granted = 0;
  for (const std::size_t size : {half, half + 1, most - 8, most}) {
    granted += std::malloc(size) != nullptr;
    granted += std::realloc(nullptr, size) != nullptr;
    granted += std::aligned_alloc(strict, size) != nullptr;
    granted += aligned(strict, size) != nullptr;
    granted += operator new(size, std::nothrow) != nullptr;
  }
  granted += std::calloc(half, 4) != nullptr;
  granted += std::calloc(half + 2, 2) != nullptr;
  return granted;
}
