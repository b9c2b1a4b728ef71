// Any bytes as a tableau file, and nothing but the reader, so that many more files are tried than
// tableau_fuzz can work with.

#include <cstddef>
#include <cstdint>

#include "fuzz/reading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tabulon;
  platform::MemoryFiles files;
  files.contents[fuzz::file_name] = std::string(reinterpret_cast<const char*>(data), size);
  basSafeCtl model;
  fuzz::check_reading(fuzz::read(model, files), model);
  fuzz::require_finite(model);
  fuzz::require(files.open_files == 0);
  return 0;
}
