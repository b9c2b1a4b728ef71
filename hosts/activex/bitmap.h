// A picture in memory that GDI draws on and that we can read and write pixel by pixel.
//
//   const MemoryBitmap bitmap({16, 16});
//   FillRect(bitmap.dc(), &box, brush);
//   bitmap.pixels()[5 * 16 + 3];   // row 5 from above, column 3: 0x00RRGGBB
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

namespace tabulon::activex {

class MemoryBitmap {
 public:
  // Black, at least one pixel wide and high.
  explicit MemoryBitmap(SIZE size);
  MemoryBitmap(const MemoryBitmap&) = delete;
  MemoryBitmap& operator=(const MemoryBitmap&) = delete;
  ~MemoryBitmap();

  // Whether the system had room for it; without, there is nothing to draw on.
  bool made() const { return bits_ != nullptr; }
  SIZE size() const { return size_; }
  HDC dc() const { return dc_; }
  // Rows from above. Waits for GDI, which may still be drawing.
  std::span<std::uint32_t> pixels() const;

 private:
  SIZE size_;
  HDC dc_;
  void* bits_ = nullptr;
  HBITMAP bitmap_;
  HGDIOBJ before_;
};

}  // namespace tabulon::activex
