// What the parts of a surface's view share: windows, keys, focus, mouse and painting are a class each.
#pragma once

#include <windows.h>

#include "hosts/activex/dispatcher.h"
#include "hosts/activex/focus_owner.h"
#include "hosts/activex/fonts.h"
#include "hosts/activex/reader_names.h"
#include "hosts/activex/view_site.h"
#include "platform/desk.h"

namespace tabulon::activex {

// Shared by all views of the process.
struct Services {
  Dispatcher& dispatcher;
  platform::Desk& desk;
  FocusOwner& focus;
  Fonts& fonts;
  ReaderNames& reader_names;
};

struct ViewState {
  const Services& services;
  ViewSite& site;              // a form uses that of the control that opened it
  platform::Surface* surface;  // null once it has been destroyed
  HWND window = nullptr;
  int dpi = 96;

  // False for forms, which raise no events, and once the surface has been destroyed.
  bool is_control() const { return surface && !surface->is_form(); }
};

}  // namespace tabulon::activex
