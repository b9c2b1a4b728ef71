// Shared by the tests of SurfaceView: a small surface of their own, in a window on the screen.
//
//   class RepaintInAContainer : public SampleView {};
//   TEST_F(RepaintInAContainer, ...) {
//     sample_.label.set_text("text");
//     view_.mirror();
//     paint_what_must_be();
//   }
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hosts/activex/library.h"
#include "hosts/activex/surface_view.h"

namespace tabulon::activex {

// A surface with a control of each kind that we paint; it logs clicks and the mouse.
class Sample : public platform::Surface {
 public:
  explicit Sample(platform::Desk& desk) : Surface(desk, "Sample", 6000, 3000) {
    box.set_bounds({300, 300, 1500, 300});
    label.set_bounds({300, 900, 1500, 300});
    button.set_bounds({300, 1500, 1500, 300});
    picture.set_bounds({2400, 300, 3000, 2400});
    picture.set_scale({{0, 0}, {3000, 2400}});
    image.set_bounds({600, 600, 300, 300});
    image.set_picture(platform::Picture::Cross);
    line.set_ends({0, 0}, {1500, 1500});
    button.set_tab(1, true);
    box.set_tab(2, true);
    picture.set_tab(3, true);
  }

  platform::TextBox box{*this, "box"};
  platform::Label label{*this, "label"};
  platform::CommandButton button{*this, "button"};
  platform::PictureBox picture{*this, "picture"};
  platform::Image image{*this, "image", 0, &picture};
  platform::Line line{*this, "line", 0, &picture};

  std::vector<std::string> log;

 private:
  platform::Task<> on_click(platform::Control& control) override {
    log.push_back("click " + std::string(control.name()));
    co_return;
  }
  platform::Task<> on_pointer(platform::Control& control, platform::Pointer pointer) override {
    constexpr const char* actions[] = {"down", "move", "up", "lost"};
    log.push_back(actions[static_cast<int>(pointer.action)] + (" " + std::string(control.name())) + " " +
                  std::to_string(static_cast<int>(pointer.x)) + " " +
                  std::to_string(static_cast<int>(pointer.y)));
    co_return;
  }
};

// A container that ignores everything.
class NothingAround : public ViewSite {
 public:
  void focus_changed(bool) override {}
  void enable_modeless(bool) override {}
  bool pass_on(const MSG&) override { return false; }
  void picture_changed() override {}
  void fire_click(DISPID) override {}
  short fire_key(DISPID, short code, short) override { return code; }
  void fire_mouse(DISPID, short, short, POINT) override {}
};

// In front of everything, because hidden windows are not painted.
class SampleView : public testing::Test {
 protected:
  SampleView() {
    host_.add(view_);
    view_.open(container_, {0, 0});
    ShowWindow(view_.window(), SW_SHOWNA);
    paint_what_must_be();
  }
  ~SampleView() override {
    host_.remove(view_);
    view_.close();
    DestroyWindow(container_);
  }

  HWND window_of(const platform::Control& control) const { return view_.view_of(control)->window(); }
  void paint_what_must_be() const {
    RedrawWindow(container_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  // A message of the mouse, at a place in the control's own window.
  void send(const platform::Control& to, UINT message, WPARAM how, POINT at) const {
    SendMessageW(window_of(to), message, how, MAKELPARAM(at.x, at.y));
  }

  NothingAround around_;
  WindowsHost& host_ = library().host;
  HWND container_ =
      CreateWindowExW(WS_EX_TOPMOST, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 640,
                      400, nullptr, nullptr, nullptr, nullptr);
  Sample sample_{host_.desk()};
  SurfaceView view_{host_.services(), sample_, around_};
};

}  // namespace tabulon::activex
