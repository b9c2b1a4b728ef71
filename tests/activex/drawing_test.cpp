// The pixels of drawings and pictures, on paper and on the clipboard.
#include "hosts/activex/drawing.h"
#include "hosts/activex/colours.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "graph/drawing.h"
#include "hosts/activex/bitmap.h"
#include "hosts/activex/clipboard.h"
#include "hosts/activex/pictures.h"
#include "hosts/activex/pixels.h"

namespace tabulon::activex {
namespace {

using platform::DisplayList;
using platform::Picture;
using platform::Point;
using platform::Raster;
using platform::rgb;
using platform::Scale;

constexpr platform::Colour ink = rgb(10, 20, 30);
constexpr char white = '.', inked = '#';

struct DeleteFont {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

Font letters(int height) {
  return Font(CreateFontW(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                          CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH, L"Tahoma"));
}

// White paper whose pixels can be read as text.
class Paper {
 public:
  Paper(int width, int height) : bitmap_({width, height}) { PatBlt(dc(), 0, 0, width, height, WHITENESS); }
  HDC dc() const { return bitmap_.dc(); }
  RECT box() const { return {0, 0, bitmap_.size().cx, bitmap_.size().cy}; }
  COLORREF at(int x, int y) const { return GetPixel(dc(), x, y); }
  void fill(const RECT& box, COLORREF colour) const {
    SetDCBrushColor(dc(), colour);
    FillRect(dc(), &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  }
  void draw(const DisplayList& drawing, const Scale& scale, int dpi = 96,
            const Font& font = letters(11)) const {
    paint_drawing(dc(), box(), scale, drawing, font.get(), dpi);
  }
  // A row of characters for each row of pixels: "." white, "#" ink, "?" anything else.
  std::vector<std::string> rows() const {
    std::vector<std::string> rows;
    for (int y = 0; y < box().bottom; ++y) {
      std::string& row = rows.emplace_back();
      for (int x = 0; x < box().right; ++x) row += character(at(x, y));
    }
    return rows;
  }
  // The smallest box around what is not white.
  RECT inked_box() const {
    RECT found{box().right, box().bottom, 0, 0};
    for (int y = 0; y < box().bottom; ++y)
      for (int x = 0; x < box().right; ++x)
        if (at(x, y) != RGB(255, 255, 255))
          found = {std::min<LONG>(found.left, x), std::min<LONG>(found.top, y),
                   std::max<LONG>(found.right, x + 1), std::max<LONG>(found.bottom, y + 1)};
    return found;
  }

 private:
  static char character(COLORREF colour) {
    return colour == RGB(255, 255, 255) ? white : colour == RGB(10, 20, 30) ? inked : '?';
  }
  MemoryBitmap bitmap_;
};

using Rows = std::vector<std::string>;

void expect_box(const RECT& box, const RECT& expected) {
  EXPECT_EQ(box.left, expected.left);
  EXPECT_EQ(box.top, expected.top);
  EXPECT_EQ(box.right, expected.right);
  EXPECT_EQ(box.bottom, expected.bottom);
}

// Units of 15, as many as the paper has pixels at 96 dpi; up is positive.
Scale upwards(int columns, int rows) {
  return {{0, 15.0 * rows}, {15.0 * columns, 0}};
}

DisplayList drawn(auto... strokes) {
  DisplayList list;
  (strokes(list), ...);
  return list;
}
auto dots(std::vector<Point> points) {
  return [=](DisplayList& list) { list.dots(points, ink); };
}
auto run(Point first, std::uint32_t count, Point step) {
  return [=](DisplayList& list) { list.dots({.step = step, .runs = {{first, count}}, .colour = ink}); };
}
auto line(Point from, Point to) {
  return [=](DisplayList& list) { list.line(from, to, ink); };
}

TEST(WindowsDrawing, ADotIsAPixelAt96Dpi) {
  const Paper paper(5, 4);
  paper.draw(drawn(dots({{15, 60}, {60, 30}})), upwards(5, 4));
  EXPECT_EQ(paper.rows(), (Rows{".#...", ".....", "....#", "....."}));
}

TEST(WindowsDrawing, ADotIsFourPixelsAt192Dpi) {
  const Paper paper(8, 6);
  paper.draw(drawn(dots({{15, 30}})), upwards(4, 3), 192);
  EXPECT_EQ(paper.rows(), (Rows{"........", "........", "..##....", "..##....", "........", "........"}));
}

TEST(WindowsDrawing, DotsThatTouchAreOneRectangle) {
  const Paper paper(4, 5);
  paper.draw(drawn(run({30, 30}, 3, {0, 15})), upwards(4, 5));
  EXPECT_EQ(paper.rows(), (Rows{"....", "..#.", "..#.", "..#.", "...."}));
}

TEST(WindowsDrawing, DotsThatDoNotTouchStandApart) {
  const Paper paper(7, 2);
  paper.draw(drawn(run({0, 15}, 3, {45, 0})), upwards(7, 2));
  EXPECT_EQ(paper.rows(), (Rows{".......", "#..#..#"}));
}

TEST(WindowsDrawing, ASlantingRunIsADotEach) {
  const Paper paper(3, 3);
  paper.draw(drawn(run({0, 45}, 3, {15, -15})), upwards(3, 3));
  EXPECT_EQ(paper.rows(), (Rows{"#..", ".#.", "..#"}));
}

// 246 by 240 pixels at 96 dpi are 307.5 by 300 at 120 dpi: columns of dots are no whole number of pixels
// apart.
TEST(WindowsDrawing, TheRegionHasNoSeamsAtAnyDensity) {
  for (const int dpi : {96, 120, 144, 168, 192, 240}) {
    const Paper paper(nearest_edge(3690 * dpi / 1440.0), nearest_edge(3600 * dpi / 1440.0));
    platform::stroke::DotRuns region{.step = {0, 15}, .runs = {}, .colour = ink};
    for (int column = 0; column <= 200; ++column) region.runs.push_back({{15.0 * column, 0}, 201});
    paper.draw(drawn([&](DisplayList& list) { list.dots(region); }), graph::scale, dpi);
    const RECT box = paper.inked_box();
    EXPECT_NEAR(box.right - box.left, 201 * dpi / 96.0, 1.5) << dpi;
    const Rows rows = paper.rows();
    EXPECT_EQ(std::count_if(rows.begin() + box.top, rows.begin() + box.bottom,
                            [&](const std::string& row) {
                              return row.find_first_not_of(inked, static_cast<std::size_t>(box.left)) !=
                                     static_cast<std::size_t>(box.right);
                            }),
              0)
        << dpi;
  }
}

TEST(WindowsDrawing, AHorizontalLineIsOneRow) {
  const Paper paper(6, 4);
  paper.draw(drawn(line({60, 30}, {15, 30})), upwards(6, 4));
  EXPECT_EQ(paper.rows(), (Rows{"......", "......", ".####.", "......"}));
}

TEST(WindowsDrawing, AVerticalLineIsTwoColumnsAt192Dpi) {
  const Paper paper(6, 6);
  paper.draw(drawn(line({15, 15}, {15, 30})), upwards(3, 3), 192);
  EXPECT_EQ(paper.rows(), (Rows{"......", "......", "..##..", "..##..", "..##..", "..##.."}));
}

// How much ink there is in a column, in pixels.
double ink_in_column(const Paper& paper, int x) {
  double ink_there = 0;
  for (int y = 0; y < paper.box().bottom; ++y)
    ink_there += (255 - GetRValue(paper.at(x, y))) / (255.0 - ink.red());
  return ink_there;
}

TEST(WindowsDrawing, ASlantingLineHasNoSteps) {
  const Paper paper(80, 40);
  paper.draw(drawn(line({15, 465}, {1065, 165})), upwards(80, 40));
  const Rows rows = paper.rows();
  for (int x = 6; x < 66; ++x) {
    const auto in_column = [&](char kind) {
      return std::ranges::count_if(
          rows, [&](const std::string& row) { return row[static_cast<std::size_t>(x)] == kind; });
    };
    EXPECT_NEAR(ink_in_column(paper, x), 1.5 * std::hypot(70, 20) / 70, 0.15) << x;
    EXPECT_GE(in_column('?'), 1) << x;
    EXPECT_LE(in_column('?') + in_column(inked), 4) << x;
  }
}

TEST(WindowsDrawing, ASlantingLineReachesBothItsEnds) {
  const Paper paper(4, 4);
  paper.draw(drawn(line({0, 60}, {45, 15})), upwards(4, 4));
  for (int at = 0; at < 4; ++at) EXPECT_EQ(paper.at(at, at), RGB(10, 20, 30)) << at;
  EXPECT_EQ(paper.at(3, 0), RGB(255, 255, 255));
}

TEST(WindowsDrawing, ASlantingLineIsTwoPixelsThickAt192Dpi) {
  const Paper paper(80, 40);
  paper.draw(drawn(line({0, 225}, {525, 75})), upwards(40, 20), 192);
  for (int x = 10; x < 60; ++x)
    EXPECT_NEAR(ink_in_column(paper, x), 2 * std::hypot(525, 150) / 525, 0.15) << x;
}

TEST(WindowsDrawing, AStraightLineIsOnePurePixelBelow192Dpi) {
  for (const int dpi : {96, 120, 144, 168}) {
    const Paper paper(8, 4);
    paper.draw(drawn(line({15, 30}, {60, 30})), upwards(8, 4), dpi);
    EXPECT_EQ(paper.rows(), (Rows{"........", "........", ".####...", "........"})) << dpi;
  }
}

TEST(WindowsDrawing, NothingIsPaintedOutsideTheBox) {
  const Paper paper(8, 6);
  const RECT box{2, 1, 6, 4};
  const Font font = letters(11);
  paint_drawing(paper.dc(), box, upwards(4, 3),
                drawn(line({-150, 15}, {150, 15}), line({15, -150}, {15, 150}), line({-15, 60}, {75, -30})),
                font.get(), 96);
  expect_box(paper.inked_box(), box);
  EXPECT_EQ(paper.rows()[3], "..####..");
}

TEST(WindowsDrawing, ATextBeginsAtItsTopLeftAndHasNoGround) {
  const Paper paper(60, 40);
  paper.fill({0, 0, 60, 40}, RGB(200, 255, 200));
  DisplayList list;
  list.text({300, 450}, "HH", ink);
  paper.draw(list, upwards(60, 40));
  RECT letters_box{60, 40, 0, 0};
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 60; ++x) {
      if (paper.at(x, y) == RGB(200, 255, 200)) continue;
      EXPECT_EQ(paper.at(x, y), RGB(10, 20, 30));
      letters_box = {std::min<LONG>(letters_box.left, x), std::min<LONG>(letters_box.top, y),
                     std::max<LONG>(letters_box.right, x + 1), std::max<LONG>(letters_box.bottom, y + 1)};
    }
  EXPECT_NEAR(letters_box.left, 20, 2);
  EXPECT_GE(letters_box.top, 10);
  EXPECT_LE(letters_box.bottom, 10 + 16);
}

TEST(WindowsDrawing, TheDCIsLeftAsItWas) {
  const Paper paper(20, 20);
  const HGDIOBJ font = GetCurrentObject(paper.dc(), OBJ_FONT), pen = GetCurrentObject(paper.dc(), OBJ_PEN);
  SetTextColor(paper.dc(), RGB(1, 2, 3));
  DisplayList list = drawn(line({0, 60}, {45, 15}));
  list.text({0, 60}, "x", ink);
  list.stamp({0, 60}, {90, 90}, Picture::Cross, Raster::And);
  paper.draw(list, upwards(20, 20));
  EXPECT_EQ(GetCurrentObject(paper.dc(), OBJ_FONT), font);
  EXPECT_EQ(GetCurrentObject(paper.dc(), OBJ_PEN), pen);
  EXPECT_EQ(GetTextColor(paper.dc()), RGB(1, 2, 3));
}

TEST(WindowsDrawing, AScaleGrowsTheWayThatItsCornersSay) {
  const PixelScale scale = pixel_scale(graph::scale, {246, 240});
  EXPECT_DOUBLE_EQ(scale.unit_x, 1 / 15.0);
  EXPECT_DOUBLE_EQ(scale.unit_y, -1 / 15.0);
  EXPECT_EQ(scale.pixels({-345, 3300}), (Point{0, 0}));
  EXPECT_DOUBLE_EQ(scale.pixels({0, 0}).y, 220);
  EXPECT_EQ(twip_scale(144).pixels({30, 1440}), (Point{3, 144}));
}

TEST(WindowsDrawing, ABoxWithoutAScaleCountsInPixels) {
  EXPECT_EQ(pixel_scale({}, {40, 30}).pixels({1, 2}), (Point{40, 60}));
}

TEST(WindowsColours, SystemColoursAreThePersonsOwn) {
  EXPECT_EQ(colour_ref(platform::system_colour::window), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(colour_ref(platform::system_colour::button_face), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(colour_ref(rgb(1, 2, 3)), RGB(1, 2, 3));
  EXPECT_TRUE(is_transparent(platform::system_colour::transparent));
  EXPECT_FALSE(is_transparent(platform::system_colour::window));
  EXPECT_FALSE(is_transparent(rgb(255, 255, 255)));
}

TEST(WindowsPictures, EveryPictureIsInItsBoxAndNoneIsNothing) {
  for (int picture = 0; picture <= static_cast<int>(Picture::About); ++picture) {
    const Paper paper(40, 40);
    paint_picture(paper.dc(), {4, 4, 36, 36}, static_cast<Picture>(picture), Raster::Copy);
    const RECT box = paper.inked_box();
    if (picture == 0) {
      EXPECT_GT(box.left, box.right);
      continue;
    }
    EXPECT_GE(box.left, 4) << picture;
    EXPECT_LE(box.right, 36) << picture;
    EXPECT_GE(box.right - box.left, 18) << picture;
    EXPECT_GE(box.bottom - box.top, 18) << picture;
  }
}

TEST(WindowsPictures, TheCrossIsRedAndSmooth) {
  const Paper paper(24, 24);
  paint_picture(paper.dc(), paper.box(), Picture::Cross, Raster::Copy);
  EXPECT_EQ(paper.at(12, 12), RGB(0xC0, 0, 0));
  EXPECT_EQ(paper.at(7, 7), RGB(0xC0, 0, 0));
  EXPECT_EQ(paper.at(12, 3), RGB(255, 255, 255));
  int between = 0;
  for (int x = 0; x < 24; ++x) {
    const COLORREF colour = paper.at(x, 7);
    if (GetGValue(colour) > 0 && GetGValue(colour) < 255) ++between;
  }
  EXPECT_GE(between, 2);
}

TEST(WindowsPictures, ACopyCoversAndAnAndOnlyDarkens) {
  const Paper paper(48, 24);
  paper.fill(paper.box(), RGB(0, 255, 128));
  paint_picture(paper.dc(), {0, 0, 24, 24}, Picture::Cross, Raster::Copy);
  paint_picture(paper.dc(), {24, 0, 48, 24}, Picture::Cross, Raster::And);
  EXPECT_EQ(paper.at(12, 12), RGB(0xC0, 0, 0));
  EXPECT_EQ(paper.at(24 + 12, 12), RGB(0, 0, 0));
  EXPECT_EQ(paper.at(12, 2), RGB(0, 255, 128));
  EXPECT_EQ(paper.at(24 + 12, 2), RGB(0, 255, 128));
}

TEST(WindowsPictures, ADarkGroundStaysDarkBelowAWhitePicture) {
  const Paper paper(24, 24);
  paper.fill(paper.box(), RGB(100, 50, 200));
  paint_picture(paper.dc(), paper.box(), Picture::BigM, Raster::And);
  EXPECT_EQ(paper.at(5, 5), RGB(100 * 0xDC / 255, (50 * 0xEB + 127) / 255, 200));
  EXPECT_EQ(paper.at(1, 1), RGB(100, 50, 200));
}

TEST(WindowsPictures, AStampIsAsLargeAsTheScaleSays) {
  const Paper paper(60, 60);
  DisplayList list;
  list.stamp({150, 750}, {450, 450}, Picture::BigM, Raster::And);
  paper.draw(list, upwards(60, 60));
  expect_box(paper.inked_box(), {15, 15, 35, 35});
}

// ---- The clipboard

class OnTheClipboard : public testing::Test {
 protected:
  void SetUp() override {
    window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
  }
  void TearDown() override {
    clear_clipboard(window);
    DestroyWindow(window);
  }
  bool copy(const platform::ClipboardPicture& picture, int dpi) const {
    const Font font = letters(11);
    return copy_picture(window, picture, font.get(), dpi);
  }
  std::vector<unsigned char> dib() const {
    std::vector<unsigned char> bytes;
    if (!OpenClipboard(window)) return bytes;
    if (const HANDLE memory = GetClipboardData(CF_DIB)) {
      const auto* const first = static_cast<const unsigned char*>(GlobalLock(memory));
      bytes.assign(first, first + GlobalSize(memory));
      GlobalUnlock(memory);
    }
    CloseClipboard();
    return bytes;
  }

  HWND window = nullptr;
};

// 5 by 3 pixels at 96 dpi, so that a row of 15 bytes is filled up to 16.
platform::ClipboardPicture small_picture() {
  return {.drawing = drawn(line({15, 30}, {45, 30})), .scale = upwards(5, 3), .width = 75, .height = 45};
}

TEST_F(OnTheClipboard, APictureIsABitmapOnWhitePaper) {
  ASSERT_TRUE(copy(small_picture(), 96));
  const auto bytes = dib();
  BITMAPINFOHEADER header;
  ASSERT_GE(bytes.size(), sizeof header + 48);
  std::memcpy(&header, bytes.data(), sizeof header);
  EXPECT_EQ(header.biSize, sizeof header);
  EXPECT_EQ(header.biWidth, 5);
  EXPECT_EQ(header.biHeight, 3);
  EXPECT_EQ(header.biBitCount, 24);
  EXPECT_EQ(header.biCompression, static_cast<DWORD>(BI_RGB));
  EXPECT_EQ(header.biXPelsPerMeter, 3780);
  const auto pixel = [&](std::size_t x, std::size_t row_from_below) {
    const unsigned char* const at = &bytes[sizeof header + row_from_below * 16 + x * 3];
    return RGB(at[2], at[1], at[0]);
  };
  const COLORREF paper = RGB(255, 255, 255), line_colour = RGB(10, 20, 30);
  EXPECT_EQ(pixel(0, 1), paper);
  EXPECT_EQ(pixel(1, 1), line_colour);
  EXPECT_EQ(pixel(3, 1), line_colour);
  EXPECT_EQ(pixel(4, 1), paper);
  EXPECT_EQ(pixel(2, 0), paper);
  EXPECT_EQ(pixel(2, 2), paper);
}

TEST_F(OnTheClipboard, ItIsAsFineAsItIsAskedFor) {
  ASSERT_TRUE(copy(small_picture(), 192));
  const auto bytes = dib();
  BITMAPINFOHEADER header;
  ASSERT_GE(bytes.size(), sizeof header);
  std::memcpy(&header, bytes.data(), sizeof header);
  EXPECT_EQ(header.biWidth, 10);
  EXPECT_EQ(header.biHeight, 6);
}

TEST_F(OnTheClipboard, ACopyTakesThePlaceOfWhatWasThere) {
  ASSERT_TRUE(OpenClipboard(window));
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GHND, 4));
  CloseClipboard();
  ASSERT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  ASSERT_TRUE(copy(small_picture(), 96));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
}

TEST_F(OnTheClipboard, ClearingLeavesNothing) {
  ASSERT_TRUE(copy(small_picture(), 96));
  clear_clipboard(window);
  EXPECT_EQ(CountClipboardFormats(), 0);
}

TEST_F(OnTheClipboard, AClipboardThatAnotherHoldsIsRefused) {
  const HWND other =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  ASSERT_TRUE(OpenClipboard(other));
  EXPECT_FALSE(copy(small_picture(), 96));
  CloseClipboard();
  DestroyWindow(other);
  EXPECT_TRUE(copy(small_picture(), 96));
}

}  // namespace
}  // namespace tabulon::activex
