#include "hosts/activex/bitmap.h"

#include <algorithm>

namespace tabulon::activex {

namespace {

HBITMAP make_bitmap(HDC dc, SIZE size, void** bits) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = -size.cy;  // rows from above
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return CreateDIBSection(dc, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

}  // namespace

MemoryBitmap::MemoryBitmap(SIZE size)
    : size_{std::max(size.cx, 1L), std::max(size.cy, 1L)},
      dc_(CreateCompatibleDC(nullptr)),
      bitmap_(make_bitmap(dc_, size_, &bits_)),
      before_(SelectObject(dc_, bitmap_)) {}

MemoryBitmap::~MemoryBitmap() {
  SelectObject(dc_, before_);
  DeleteObject(bitmap_);
  DeleteDC(dc_);
}

std::span<std::uint32_t> MemoryBitmap::pixels() const {
  GdiFlush();
  const auto count = static_cast<std::size_t>(size_.cx) * static_cast<std::size_t>(size_.cy);
  return {static_cast<std::uint32_t*>(bits_), bits_ ? count : 0};
}

}  // namespace tabulon::activex
