// What the parts of a surface's view know of it: its windows, its input and its painting are a class each.
#pragma once

#include <windows.h>

#include "hosts/activex/dispatcher.h"
#include "hosts/activex/focus_owner.h"
#include "hosts/activex/fonts.h"
#include "hosts/activex/reader_names.h"
#include "hosts/activex/view_site.h"
#include "platform/desk.h"

namespace tabulon::activex {

// What all views of a process share.
struct Services {
  Dispatcher& dispatcher;
  platform::Desk& desk;
  FocusOwner& focus;
  Fonts& fonts;
  ReaderNames& reader_names;
};

struct ViewState {
  const Services& services;
  ViewSite& site;              // a form speaks through that of the control that it stands over
  platform::Surface* surface;  // null once it has gone
  HWND window = nullptr;
  int dpi = 96;

  // Whether it is there and has events: what happens on a form is no event of the control.
  bool is_control() const { return surface && !surface->is_form(); }
};

}  // namespace tabulon::activex
