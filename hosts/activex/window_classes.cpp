#include "hosts/activex/window_classes.h"

#include "hosts/activex/module.h"
#include "hosts/activex/names.h"

namespace tabulon::activex {

namespace {

void register_class(const wchar_t* name, UINT style, WNDPROC procedure) {
  WNDCLASSW shape{};
  shape.hInstance = this_module();
  shape.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  shape.style = style;
  shape.lpfnWndProc = procedure;
  shape.lpszClassName = name;
  RegisterClassW(&shape);
}

}  // namespace

WindowClasses::WindowClasses(WNDPROC surfaces) {
  register_class(surface_class, CS_DBLCLKS, surfaces);
  register_class(form_class, CS_DBLCLKS, surfaces);
  register_class(pane_class, 0, DefWindowProcW);
}

WindowClasses::~WindowClasses() {
  for (const wchar_t* const name : {surface_class, form_class, pane_class})
    UnregisterClassW(name, this_module());
}

}  // namespace tabulon::activex
