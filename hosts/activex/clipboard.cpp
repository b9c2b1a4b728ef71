#include "hosts/activex/clipboard.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "hosts/activex/bitmap.h"
#include "hosts/activex/drawing.h"
#include "hosts/activex/pixels.h"

namespace tabulon::activex {

using platform::ClipboardPicture;

namespace {

// Clipboard viewers open the clipboard for a moment after each change, often just after we have cleared it.
constexpr int attempts = 20;
constexpr DWORD milliseconds_between = 10;

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) : opened_(open(owner)) {}
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  bool empty() const { return opened_ && EmptyClipboard(); }

 private:
  static bool open(HWND owner) {
    for (int attempt = 1; !OpenClipboard(owner); ++attempt) {
      if (attempt == attempts) return false;
      Sleep(milliseconds_between);
    }
    return true;
  }

  bool opened_;
};

void paint(const MemoryBitmap& bitmap, const ClipboardPicture& picture, HFONT letters, int dpi) {
  const RECT box{0, 0, bitmap.size().cx, bitmap.size().cy};
  PatBlt(bitmap.dc(), 0, 0, box.right, box.bottom, WHITENESS);
  paint_drawing(bitmap.dc(), box, picture.scale, picture.drawing, letters, dpi);
}

std::size_t bytes_in_row(LONG width) {
  return (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
}

// 24 bits per pixel, bottom row first: every program reads this, and none takes it for transparent.
BITMAPINFOHEADER header_of(SIZE size, int dpi) {
  constexpr double metres_per_inch = 0.0254;
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = size.cx;
  header.biHeight = size.cy;
  header.biPlanes = 1;
  header.biBitCount = 24;
  header.biSizeImage = static_cast<DWORD>(bytes_in_row(size.cx) * static_cast<std::size_t>(size.cy));
  header.biXPelsPerMeter = header.biYPelsPerMeter = nearest_edge(dpi / metres_per_inch);
  return header;
}

void write_row(std::span<const std::uint32_t> pixels, unsigned char* bytes) {
  for (const std::uint32_t pixel : pixels)
    for (unsigned channel = 0; channel < 3; ++channel)
      *bytes++ = static_cast<unsigned char>(pixel >> (8 * channel));
}

void write_dib(const MemoryBitmap& bitmap, const BITMAPINFOHEADER& header, unsigned char* bytes) {
  const auto pixels = bitmap.pixels();
  const auto width = static_cast<std::size_t>(header.biWidth),
             height = static_cast<std::size_t>(header.biHeight);
  std::memcpy(bytes, &header, sizeof header);
  bytes += sizeof header;
  for (std::size_t row = height; row-- > 0; bytes += bytes_in_row(header.biWidth))
    write_row(pixels.subspan(row * width, width), bytes);
}

// The picture as a DIB in global memory; null if there is none left.
HGLOBAL make_dib(const ClipboardPicture& picture, HFONT letters, int dpi) {
  const double pixels = twip_scale(dpi).unit_x;
  const MemoryBitmap bitmap({nearest_edge(picture.width * pixels), nearest_edge(picture.height * pixels)});
  if (!bitmap.made()) return nullptr;
  paint(bitmap, picture, letters, dpi);
  const BITMAPINFOHEADER header = header_of(bitmap.size(), dpi);
  const HGLOBAL memory = GlobalAlloc(GHND, sizeof header + header.biSizeImage);
  if (!memory) return nullptr;
  write_dib(bitmap, header, static_cast<unsigned char*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

void clear_clipboard(HWND owner) {
  OpenedClipboard(owner).empty();
}

bool copy_picture(HWND owner, const ClipboardPicture& picture, HFONT letters, int dpi) {
  const HGLOBAL memory = make_dib(picture, letters, dpi);
  if (!memory) return false;
  const OpenedClipboard clipboard(owner);
  if (clipboard.empty() && SetClipboardData(CF_DIB, memory)) return true;
  GlobalFree(memory);
  return false;
}

}  // namespace tabulon::activex
