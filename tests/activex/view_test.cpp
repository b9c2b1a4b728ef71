// The picture of a control that is not active: on a form in a designer, on paper.
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <vector>

#include "hosts/activex/bitmap.h"
#include "tests/activex/bags.h"
#include "tests/activex/com.h"

namespace tabulon::client {
namespace {

constexpr COLORREF untouched = RGB(255, 0, 255);

// A bitmap filled with a colour that the control does not use.
class Paper {
 public:
  Paper(LONG wide, LONG high) : bitmap_({wide, high}) {
    const HBRUSH brush = CreateSolidBrush(untouched);
    const RECT all{0, 0, wide, high};
    FillRect(dc(), &all, brush);
    DeleteObject(brush);
  }

  HDC dc() const { return bitmap_.dc(); }
  COLORREF at(LONG x, LONG y) const { return GetPixel(dc(), x, y); }
  // How many colours there are in a part of it.
  std::size_t colours(const RECT& part) const {
    std::set<COLORREF> found;
    for (LONG y = part.top; y < part.bottom; ++y)
      for (LONG x = part.left; x < part.right; ++x) found.insert(at(x, y));
    return found.size();
  }
  // How many pixels of a part have been drawn on.
  LONG drawn(const RECT& part) const {
    LONG count = 0;
    for (LONG y = part.top; y < part.bottom; ++y)
      for (LONG x = part.left; x < part.right; ++x) count += at(x, y) != untouched;
    return count;
  }
  std::vector<std::uint32_t> pixels() const { return {bitmap_.pixels().begin(), bitmap_.pixels().end()}; }

 private:
  activex::MemoryBitmap bitmap_;
};

class View : public ComTest {
 protected:
  View() {
    if (!view_) return;
    const ComPtr<Bag> bag = Bag::of({{L"prmSTR_DLfunctie", L" -3, -5"}, {L"prmSTR_RL", L" 4, 12"}});
    EXPECT_EQ(code(as<IPersistPropertyBag>(view_)->Load(bag.Get(), nullptr)), code(S_OK));
  }
  HRESULT draw(HDC dc, RECTL box) {
    return view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &box, nullptr, nullptr, 0);
  }

  ComPtr<IViewObject2> view_ = make_as<IViewObject2>();
};

TEST_F(View, ShowsTheGridAndItsNumbers) {
  ASSERT_TRUE(view_);
  const Paper paper(full_width, full_height);
  EXPECT_EQ(code(draw(paper.dc(), {0, 0, full_width, full_height})), code(S_OK));
  EXPECT_EQ(paper.drawn({0, 0, full_width, full_height}), full_width * full_height);
  // The menu buttons above, the cells below: text on a background has more than one colour.
  EXPECT_GT(paper.colours({0, 0, full_width, 30}), 2U);
  EXPECT_GT(paper.colours({0, 60, full_width, full_height}), 3U);
}

TEST_F(View, ShowsWhatTheTableauHolds) {
  ASSERT_TRUE(view_);
  const Paper before(full_width, full_height), after(full_width, full_height), again(full_width, full_height);
  EXPECT_EQ(code(draw(before.dc(), {0, 0, full_width, full_height})), code(S_OK));
  EXPECT_EQ(code(draw(again.dc(), {0, 0, full_width, full_height})), code(S_OK));
  EXPECT_EQ(before.pixels(), again.pixels());
  EXPECT_EQ(code(as<ILPctrl>(view_)->put_prmDLfunctie(_bstr_t(L" 88, 88"))), code(S_OK));
  EXPECT_EQ(code(draw(after.dc(), {0, 0, full_width, full_height})), code(S_OK));
  EXPECT_NE(before.pixels(), after.pixels());
}

TEST_F(View, StaysInsideItsBox) {
  ASSERT_TRUE(view_);
  const Paper paper(800, 400);
  EXPECT_EQ(code(draw(paper.dc(), {100, 50, 100 + full_width, 50 + full_height})), code(S_OK));
  EXPECT_EQ(paper.drawn({100, 50, 100 + full_width, 50 + full_height}), full_width * full_height);
  EXPECT_EQ(paper.drawn({0, 0, 800, 400}), full_width * full_height);
}

TEST_F(View, IsDrawnLargerAndSmaller) {
  ASSERT_TRUE(view_);
  for (const double scale : {0.5, 2.0, 3.0}) {
    const LONG wide = std::lround(full_width * scale), high = std::lround(full_height * scale);
    const Paper paper(wide + 20, high + 20);
    EXPECT_EQ(code(draw(paper.dc(), {10, 10, 10 + wide, 10 + high})), code(S_OK)) << scale;
    EXPECT_EQ(paper.drawn({10, 10, 10 + wide, 10 + high}), wide * high) << scale;
    EXPECT_EQ(paper.drawn({0, 0, wide + 20, high + 20}), wide * high) << scale;
    EXPECT_GT(paper.colours({10, 10 + high / 3, 10 + wide, 10 + high}), 3U) << scale;
  }
}

TEST_F(View, LeavesTheDeviceAsItWas) {
  ASSERT_TRUE(view_);
  const Paper paper(full_width, full_height);
  const HGDIOBJ pen = GetCurrentObject(paper.dc(), OBJ_PEN), brush = GetCurrentObject(paper.dc(), OBJ_BRUSH),
                font = GetCurrentObject(paper.dc(), OBJ_FONT);
  SetMapMode(paper.dc(), MM_TEXT);
  EXPECT_EQ(code(draw(paper.dc(), {0, 0, full_width, full_height})), code(S_OK));
  EXPECT_EQ(GetCurrentObject(paper.dc(), OBJ_PEN), pen);
  EXPECT_EQ(GetCurrentObject(paper.dc(), OBJ_BRUSH), brush);
  EXPECT_EQ(GetCurrentObject(paper.dc(), OBJ_FONT), font);
  EXPECT_EQ(GetMapMode(paper.dc()), MM_TEXT);
  POINT origin{};
  GetWindowOrgEx(paper.dc(), &origin);
  EXPECT_EQ(origin.x, 0);
  EXPECT_EQ(origin.y, 0);
}

TEST_F(View, CanBePutInAMetafile) {
  ASSERT_TRUE(view_);
  const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  const RECTL box{0, 0, full_width, full_height};
  EXPECT_EQ(code(view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &box, &box, nullptr, 0)),
            code(S_OK));
  const HENHMETAFILE picture = CloseEnhMetaFile(dc);
  ASSERT_TRUE(picture);
  ENHMETAHEADER header{};
  EXPECT_NE(GetEnhMetaFileHeader(picture, sizeof header, &header), 0U);
  EXPECT_GT(header.nRecords, 100U);
  const Paper paper(full_width, full_height);
  const RECT all{0, 0, full_width, full_height};
  EXPECT_TRUE(PlayEnhMetaFile(paper.dc(), picture, &all));
  EXPECT_GT(paper.drawn(all), full_width * full_height / 2);
  EXPECT_GT(paper.colours({0, 60, full_width, full_height}), 3U);
  DeleteEnhMetaFile(picture);
}

// A hundred times its size is more than any screen or printer can show.
TEST_F(View, IsNotDrawnInHugeBoxes) {
  ASSERT_TRUE(view_);
  constexpr LONG least = std::numeric_limits<LONG>::min(), most = std::numeric_limits<LONG>::max();
  const Paper paper(full_width, full_height);
  for (const RECTL& box : {RECTL{0, 0, 2'000'000, 1'000'000}, RECTL{least, least, most, most},
                           RECTL{0, 0, most, most}, RECTL{most, most, least, least}})
    EXPECT_EQ(code(draw(paper.dc(), box)), code(E_INVALIDARG)) << box.right;
  EXPECT_EQ(paper.drawn({0, 0, full_width, full_height}), 0);
  EXPECT_EQ(code(draw(paper.dc(), {0, 0, 60'000, 29'600})), code(S_OK));
  EXPECT_EQ(code(draw(paper.dc(), {0, 0, 0, 0})), code(S_OK));
}

TEST_F(View, TellsItsSize) {
  ASSERT_TRUE(view_);
  SIZEL size{};
  EXPECT_EQ(code(view_->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size)), code(S_OK));
  EXPECT_EQ(size.cx, 15875);
  EXPECT_EQ(size.cy, 7832);
}

TEST_F(View, NeedsAPlaceToBeDrawn) {
  ASSERT_TRUE(view_);
  const Paper paper(full_width, full_height);
  EXPECT_HRESULT_FAILED(
      view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, paper.dc(), nullptr, nullptr, nullptr, 0));
  const RECTL box{0, 0, full_width, full_height};
  EXPECT_EQ(
      code(view_->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, paper.dc(), &box, nullptr, nullptr, 0)),
      code(DV_E_DVASPECT));
  EXPECT_EQ(paper.drawn({0, 0, full_width, full_height}), 0);
}

}  // namespace
}  // namespace tabulon::client
