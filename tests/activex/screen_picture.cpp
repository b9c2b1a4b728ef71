#include "screen_picture.h"

#include <fstream>
#include <vector>

namespace tabulon::activex {

bool save_picture_of(HWND window, const std::string& file) {
  RECT box{};
  GetWindowRect(window, &box);
  const LONG width = box.right - box.left, height = box.bottom - box.top;
  if (width <= 0 || height <= 0) return false;
  BITMAPINFOHEADER info{};
  info.biSize = sizeof info;
  info.biWidth = width;
  info.biHeight = height;
  info.biPlanes = 1;
  info.biBitCount = 32;
  HDC const screen = GetDC(nullptr);
  HDC const dc = CreateCompatibleDC(screen);
  HBITMAP const bitmap = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ const before = SelectObject(dc, bitmap);
  BitBlt(dc, 0, 0, width, height, screen, box.left, box.top, SRCCOPY);
  SelectObject(dc, before);
  std::vector<char> pixels(static_cast<std::size_t>(width * height * 4));
  GetDIBits(dc, bitmap, 0, static_cast<UINT>(height), pixels.data(), reinterpret_cast<BITMAPINFO*>(&info),
            DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);

  BITMAPFILEHEADER head{};
  head.bfType = 0x4D42;  // "BM"
  head.bfOffBits = sizeof head + sizeof info;
  head.bfSize = head.bfOffBits + static_cast<DWORD>(pixels.size());
  std::ofstream stream(file, std::ios::binary);
  stream.write(reinterpret_cast<const char*>(&head), sizeof head);
  stream.write(reinterpret_cast<const char*>(&info), sizeof info);
  stream.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  return stream.good();
}

}  // namespace tabulon::activex
