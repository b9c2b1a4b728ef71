// A change repaints what it changes, and nothing else.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "hosts/activex/kept_picture.h"
#include "tests/activex/sample_view.h"

namespace tabulon::activex {
namespace {

using namespace platform;

struct Paints {
  int paints = 0, erases = 0;
  friend bool operator==(const Paints&, const Paints&) = default;
};
void PrintTo(const Paints& paints, std::ostream* out) {
  *out << paints.paints << " paints, " << paints.erases << " erases";
}

constexpr Paints unpainted{};

// Counts the paint messages of a window while it exists.
class Counted {
 public:
  explicit Counted(HWND window)
      : window_(window),
        original_(reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)))) {
    counted_[window] = this;
  }
  Counted(const Counted&) = delete;
  ~Counted() {
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
    counted_.erase(window_);
  }
  Paints take() { return std::exchange(paints_, {}); }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    Counted& counted = *counted_.at(window);
    counted.paints_.paints += message == WM_PAINT;
    counted.paints_.erases += message == WM_ERASEBKGND;
    return CallWindowProcW(counted.original_, window, message, wparam, lparam);
  }
  static inline std::map<HWND, Counted*> counted_;

  HWND window_;
  WNDPROC original_;
  Paints paints_;
};

class RepaintInAContainer : public SampleView {
 protected:
  // How often `control` is painted by that.
  Paints painted(const Control& control, const std::function<void()>& act) {
    Counted counted(window_of(control));
    act();
    view_.mirror();
    paint_what_must_be();
    return counted.take();
  }
};

TEST_F(RepaintInAContainer, AToolTipPaintsNothing) {
  for (Control* const control : sample_.controls())
    if (control->kind() != Kind::Line)
      EXPECT_EQ(painted(*control, [&] { control->set_tool_tip("tip"); }), unpainted) << control->name();
}

TEST_F(RepaintInAContainer, ASpokenNamePaintsNothing) {
  for (Control* const control : sample_.controls())
    if (control->kind() != Kind::Line)
      EXPECT_EQ(painted(*control, [&] { control->set_spoken_name("name"); }), unpainted) << control->name();
}

TEST_F(RepaintInAContainer, ASelectionErasesNothing) {
  EXPECT_EQ(painted(sample_.box, [&] { sample_.box.select_all(); }), unpainted);
}

TEST_F(RepaintInAContainer, ATextPaintsItsControlAndNoOther) {
  for (Control* const control :
       {static_cast<Control*>(&sample_.label), static_cast<Control*>(&sample_.button)})
    EXPECT_EQ(painted(*control, [&] { control->set_text("text"); }).paints, 1) << control->name();
  EXPECT_EQ(painted(sample_.box, [&] { sample_.label.set_text("another"); }), unpainted);
}

TEST_F(RepaintInAContainer, AColourErasesTheBoxThatHasIt) {
  const Paints of_box = painted(sample_.box, [&] { sample_.box.set_back_colour(rgb(1, 200, 3)); });
  EXPECT_EQ(of_box, (Paints{1, 1}));
}

TEST_F(RepaintInAContainer, APicturePressedIsPaintedAsItIs) {
  const Paints paints = painted(sample_.picture, [&] {
    send(sample_.picture, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
    send(sample_.picture, WM_MOUSEMOVE, MK_LBUTTON, {500, 5});
    send(sample_.picture, WM_LBUTTONUP, 0, {500, 5});
  });
  EXPECT_EQ(paints, unpainted);
}

TEST_F(RepaintInAContainer, AButtonPressedIsPainted) {
  const auto press = [&] { send(sample_.button, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5}); };
  EXPECT_EQ(painted(sample_.button, press).paints, 1);
  EXPECT_EQ(painted(sample_.button, [&] { send(sample_.button, WM_LBUTTONUP, 0, {5, 5}); }).paints, 1);
}

// An image on a picture shows the drawing between its own lines.
TEST_F(RepaintInAContainer, ADrawingPaintsWhatStandsOnItToo) {
  DisplayList drawing;
  drawing.dots({{150, 150}}, rgb(1, 2, 3));
  EXPECT_EQ(painted(sample_.image, [&] { sample_.picture.set_drawing(drawing); }).paints, 1);
}

TEST_F(RepaintInAContainer, AnImageShowsThePictureBehindItWhereverItIsMoved) {
  DisplayList drawing;
  drawing.line({0, 750}, {3000, 750}, rgb(1, 2, 3));
  sample_.picture.set_drawing(drawing);
  for (const Twips left : {600.0, 1200.0}) {
    sample_.image.set_bounds({left, 600, 300, 300});
    sample_.image.set_picture(Picture::None);
    view_.mirror();
    paint_what_must_be();
    HWND const window = window_of(sample_.image);
    RECT inside{};
    GetClientRect(window, &inside);
    HDC const dc = GetDC(window);
    EXPECT_EQ(GetPixel(dc, inside.right / 4, inside.bottom / 2), RGB(1, 2, 3)) << left;
    ReleaseDC(window, dc);
  }
}

// ---- The picture that is kept

class KeptPictures : public testing::Test {
 protected:
  // How often it had to be painted for this.
  int painted(SIZE size, COLORREF ground) {
    int count = 0;
    kept_.show(paper_.dc(), size, ground, [&](HDC dc) {
      ++count;
      SetPixelV(dc, 3, 2, RGB(7, 8, 9));
    });
    EXPECT_EQ(GetPixel(paper_.dc(), 3, 2), RGB(7, 8, 9));
    SetPixelV(paper_.dc(), 3, 2, 0);
    return count;
  }

  MemoryBitmap paper_{{20, 10}};
  KeptPicture kept_;
};

TEST_F(KeptPictures, ArePaintedOnce) {
  EXPECT_EQ(painted({20, 10}, 0), 1);
  EXPECT_EQ(painted({20, 10}, 0), 0);
}

TEST_F(KeptPictures, ArePaintedAgainWhenTheyAreForgotten) {
  painted({20, 10}, 0);
  kept_.forget();
  EXPECT_EQ(painted({20, 10}, 0), 1);
}

TEST_F(KeptPictures, ArePaintedAgainInAnotherSizeOrOnAnotherGround) {
  painted({20, 10}, 0);
  EXPECT_EQ(painted({15, 10}, 0), 1);
  EXPECT_EQ(painted({15, 9}, 0), 1);
  EXPECT_EQ(painted({15, 9}, RGB(1, 1, 1)), 1);
}

}  // namespace
}  // namespace tabulon::activex
