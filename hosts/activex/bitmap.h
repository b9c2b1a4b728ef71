// A bitmap in memory: GDI draws on it, and its pixels can be read and written.
//
//   const MemoryBitmap bitmap({16, 16});
//   FillRect(bitmap.dc(), &box, brush);
//   bitmap.pixels()[5 * 16 + 3];   // row 5 from the top, column 3: 0x00RRGGBB
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

  // False if the system had no memory for it.
  bool made() const { return bits_ != nullptr; }
  SIZE size() const { return size_; }
  HDC dc() const { return dc_; }
  // From the top row down. Waits for GDI, which may still be drawing.
  std::span<std::uint32_t> pixels() const;

 private:
  SIZE size_;
  HDC dc_;
  void* bits_ = nullptr;
  HBITMAP bitmap_;
  HGDIOBJ before_;
};

}  // namespace tabulon::activex
