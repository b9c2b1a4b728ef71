// The module's one heap: blocks of powers of two, and a list of free blocks for each size.
//
// A page's control keeps few blocks and asks for the same sizes again and again, so a freed block is best
// kept for the next of its size, and the file that a page has to load is smaller than with the C library's
// allocator. It replaces all of that: malloc and its relatives stand here, and the C++ library's operators
// new and delete call them. One that was missing would link the library's allocator, which defines malloc a
// second time, and that is an error of the linker.
#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

extern "C" std::byte __heap_base;  // where the linker's data ends

namespace {

constexpr std::size_t page_bytes = 65536;
constexpr std::size_t usual_alignment = 16;
constexpr unsigned smallest = 5, largest = 31;  // powers of two

struct FreeBlock {
  FreeBlock* next;
};

// Stands before what is handed out, and is as long as the usual alignment. A stricter one leaves a gap before
// it.
struct alignas(usual_alignment) Header {
  std::byte* block;
  unsigned power;
};

std::array<FreeBlock*, largest + 1> free_blocks;
std::uintptr_t unused = 0;  // where nothing has been handed out yet

std::uintptr_t round_up(std::uintptr_t address, std::size_t alignment) {
  return (address + alignment - 1) & ~(alignment - 1);
}

bool grow_to(std::uintptr_t end) {
  const std::size_t size = __builtin_wasm_memory_size(0) * page_bytes;
  if (end <= size) return true;
  const std::size_t pages = (end - size + page_bytes - 1) / page_bytes;
  return __builtin_wasm_memory_grow(0, pages) != static_cast<std::size_t>(-1);
}

std::byte* take_unused(std::size_t bytes) {
  if (unused == 0) unused = round_up(reinterpret_cast<std::uintptr_t>(&__heap_base), usual_alignment);
  const std::uintptr_t block = unused;
  if (bytes > UINTPTR_MAX - block || !grow_to(block + bytes)) return nullptr;
  unused += bytes;
  return reinterpret_cast<std::byte*>(block);
}

std::byte* take_block(unsigned power) {
  FreeBlock* const freed = free_blocks[power];
  if (!freed) return take_unused(std::size_t{1} << power);
  free_blocks[power] = freed->next;
  return reinterpret_cast<std::byte*>(freed);
}

// 0 where it is more than there can be.
unsigned power_for(std::size_t bytes) {
  if (bytes > std::size_t{1} << largest) return 0;
  return std::max(smallest, static_cast<unsigned>(std::bit_width(bytes - 1)));
}

void* allocate(std::size_t size, std::size_t alignment) {
  alignment = std::max(alignment, usual_alignment);
  std::size_t whole = 0;
  if (__builtin_add_overflow(size, alignment, &whole)) return nullptr;
  const unsigned power = power_for(whole);
  std::byte* const block = power ? take_block(power) : nullptr;
  if (!block) return nullptr;
  const auto first = reinterpret_cast<std::uintptr_t>(block + sizeof(Header));
  auto* const memory = reinterpret_cast<Header*>(round_up(first, alignment));
  memory[-1] = {block, power};
  return memory;
}

const Header& header_of(const void* memory) {
  return static_cast<const Header*>(memory)[-1];
}

std::size_t room_at(const void* memory) {
  const auto& [block, power] = header_of(memory);
  return (std::size_t{1} << power) - static_cast<std::size_t>(static_cast<const std::byte*>(memory) - block);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
  return allocate(size, usual_alignment);
}

void free(void* memory) {
  if (!memory) return;
  const auto [block, power] = header_of(memory);
  free_blocks[power] = new (block) FreeBlock{free_blocks[power]};
}

void* calloc(std::size_t count, std::size_t size) {
  std::size_t whole = 0;
  if (__builtin_mul_overflow(count, size, &whole)) return nullptr;
  void* const memory = allocate(whole, usual_alignment);
  return memory ? std::memset(memory, 0, whole) : nullptr;
}

void* realloc(void* memory, std::size_t size) {
  if (!memory) return allocate(size, usual_alignment);
  const std::size_t room = room_at(memory);
  if (size <= room) return memory;
  void* const moved = allocate(size, usual_alignment);
  if (!moved) return nullptr;
  std::memcpy(moved, memory, room);
  free(memory);
  return moved;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return allocate(size, alignment);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  void* const aligned = allocate(size, alignment);
  if (!aligned) return ENOMEM;
  *memory = aligned;
  return 0;
}

std::size_t malloc_usable_size(void* memory) {
  return memory ? room_at(memory) : 0;
}

// The C library's names for its own use.
[[gnu::alias("malloc")]] void* __libc_malloc(std::size_t size);
[[gnu::alias("calloc")]] void* __libc_calloc(std::size_t count, std::size_t size);
[[gnu::alias("free")]] void __libc_free(void* memory);

}  // extern "C"
