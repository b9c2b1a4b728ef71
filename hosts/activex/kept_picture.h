// What a picture box shows, kept as pixels: what moves over a picture uncovers it, and does not paint it
// again.
//
//   KeptPicture kept;
//   kept.show(dc, {246, 240}, ground, [&](HDC paper) { ... });   // paints, and copies to dc
//   kept.show(dc, {246, 240}, ground, [&](HDC paper) { ... });   // copies
//   kept.forget();                                              // the drawing has changed
#pragma once

#include <windows.h>

#include <optional>

#include "hosts/activex/bitmap.h"

namespace tabulon::activex {

class KeptPicture {
 public:
  // Shows the picture at the corner of `dc`; `paint` is asked for it where it is not here in this size and on
  // this ground.
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
