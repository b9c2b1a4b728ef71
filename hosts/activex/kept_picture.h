// A picture box's drawing as a cached bitmap, so that an image dragged over it does not paint it again.
//
//   KeptPicture kept;
//   kept.show(dc, {246, 240}, ground, [&](HDC paper) { ... });   // paints, then copies to dc
//   kept.show(dc, {246, 240}, ground, [&](HDC paper) { ... });   // copies
//   kept.forget();                                              // the drawing has changed
#pragma once

#include <windows.h>

#include <optional>

#include "hosts/activex/bitmap.h"

namespace tabulon::activex {

class KeptPicture {
 public:
  // Copies the picture to the origin of `dc`; calls `paint` first unless it is cached in this size and with
  // this background.
  template <class Paint>
  void show(HDC dc, SIZE size, COLORREF ground, Paint paint) {
    if (!is_here(size, ground)) {
      bitmap_.emplace(size);
      ground_ = ground;
      if (!bitmap_->made()) return forget(), paint(dc);
      paint(bitmap_->dc());
    }
    BitBlt(dc, 0, 0, size.cx, size.cy, bitmap_->dc(), 0, 0, SRCCOPY);
  }
  void forget() { bitmap_.reset(); }

 private:
  bool is_here(SIZE size, COLORREF ground) const {
    return bitmap_ && bitmap_->size().cx == size.cx && bitmap_->size().cy == size.cy && ground_ == ground;
  }

  std::optional<MemoryBitmap> bitmap_;
  COLORREF ground_ = 0;
};

}  // namespace tabulon::activex
