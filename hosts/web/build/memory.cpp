// Copying and filling by the machine's own instructions, for which the C library has loops of its own.
#include <cstddef>

extern "C" {

void* memcpy(void* to, const void* from, std::size_t size) {
  return __builtin_memmove(to, from, size);
}

void* memmove(void* to, const void* from, std::size_t size) {
  return __builtin_memmove(to, from, size);
}

void* memset(void* to, int byte, std::size_t size) {
  return __builtin_memset(to, byte, size);
}

}  // extern "C"
