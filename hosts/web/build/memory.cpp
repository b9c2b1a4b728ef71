// Copying and filling by the machine's own instructions, for which the C library has loops of its own; and
// searching in few bytes, for what a control searches is short.
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

void* memchr(const void* from, int byte, std::size_t size) {
  const auto* const bytes = static_cast<const unsigned char*>(from);
  for (std::size_t at = 0; at < size; ++at)
    if (bytes[at] == static_cast<unsigned char>(byte))
      return const_cast<unsigned char*>(bytes + at);  // NOLINT
  return nullptr;
}

std::size_t strlen(const char* text) {
  std::size_t size = 0;
  while (text[size]) ++size;
  return size;
}

}  // extern "C"
