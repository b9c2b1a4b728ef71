// The module's heap: blocks of powers of two, and a list of free blocks for each size.
//
// A page's control keeps few blocks and asks for the same sizes again and again, so a freed block is best
// kept for the next of its size. This takes a tenth of the room of the C library's allocator, in a file that
// a page has to load.
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>

extern "C" std::byte __heap_base;  // where the linker's data ends

namespace {

constexpr std::size_t page_bytes = 65536;
constexpr unsigned smallest = 5, largest = 31;  // powers of two

struct FreeBlock {
  FreeBlock* next;
};

// Stands before each block, as long as the strictest alignment asks for.
struct alignas(16) Header {
  unsigned power;
};

std::array<FreeBlock*, largest + 1> free_blocks;
std::uintptr_t unused = 0;  // where nothing has been handed out yet

std::byte* take_unused(std::size_t bytes) {
  if (unused == 0) unused = (reinterpret_cast<std::uintptr_t>(&__heap_base) + 15) & ~std::uintptr_t{15};
  const std::size_t end = __builtin_wasm_memory_size(0) * page_bytes;
  if (unused + bytes > end) {
    const std::size_t pages = (unused + bytes - end + page_bytes - 1) / page_bytes;
    if (__builtin_wasm_memory_grow(0, pages) == static_cast<std::size_t>(-1)) __builtin_trap();
  }
  auto* const block = reinterpret_cast<std::byte*>(unused);
  unused += bytes;
  return block;
}

}  // namespace

void* operator new(std::size_t size) {
  const std::size_t whole = size + sizeof(Header);
  if (whole < size || whole > std::size_t{1} << largest) __builtin_trap();
  const unsigned power = std::max(smallest, static_cast<unsigned>(std::bit_width(whole - 1)));
  std::byte* block = reinterpret_cast<std::byte*>(free_blocks[power]);
  if (block)
    free_blocks[power] = free_blocks[power]->next;
  else
    block = take_unused(std::size_t{1} << power);
  reinterpret_cast<Header*>(block)->power = power;
  return block + sizeof(Header);
}

void operator delete(void* memory) noexcept {
  if (!memory) return;
  std::byte* const block = static_cast<std::byte*>(memory) - sizeof(Header);
  const unsigned power = reinterpret_cast<Header*>(block)->power;
  auto* const freed = reinterpret_cast<FreeBlock*>(block);
  freed->next = free_blocks[power];
  free_blocks[power] = freed;
}

void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete[](void* memory) noexcept {
  operator delete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  operator delete(memory);
}
