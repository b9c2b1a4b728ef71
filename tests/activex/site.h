// A container for tests: it logs the calls that it receives, and can be set to refuse them.
//
//   Site site(Site::Where::OffScreen);
//   object->SetClientSite(&site);
//   object->DoVerb(OLEIVERB_SHOW, nullptr, &site, 0, site.window(), nullptr);
//   site.take_calls();      // {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", ...}
//   site.when("OnUIDeactivate", [&] { in_place->InPlaceDeactivate(); });   // from within
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <string>
#include <string_view>
#include <utility>

#include "tests/activex/call_log.h"
#include "tests/activex/com_double.h"

namespace tabulon::client {

// The program's outermost window.
class Frame final : public Double<IOleInPlaceFrame> {
 public:
  Frame(HWND window, CallLog& log) : window_(window), log_(log) {}

  // Not counted, so that a test can release a control that is still active.
  IOleInPlaceActiveObject* active = nullptr;

  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL enable) override;
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
  bool is_also(REFIID id) const override { return id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow; }

  HWND window_;
  CallLog& log_;
};

class Site final : public IOleClientSite, public IOleInPlaceSite, public IOleControlSite, public IDispatch {
 public:
  // Windows beyond the edge of the screen do not take the focus from other tests.
  enum class Where { OffScreen, OnScreen };

  explicit Site(Where where);
  ~Site();
  Site(const Site&) = delete;
  Site& operator=(const Site&) = delete;

  // ---- What the container is like
  bool has_places = true;  // whether a control can be active in place at all
  HRESULT may_activate = S_OK, on_activate = S_OK, on_window = S_OK, on_context = S_OK;
  HRESULT on_key = S_FALSE;  // to a key that the control passes on
  bool user_mode = true, ui_dead = false;
  RECT place{30, 40, 130, 90};
  RECT clip{0, 0, 10000, 10000};

  // ---- What it is made of
  HWND top() const { return top_; }
  HWND window() const { return window_; }  // the control's parent
  HWND own_box() const { return own_box_; }

  // ---- What has happened
  const Calls& calls() const { return log_.calls(); }
  Calls take_calls() { return log_.take(); }
  long count(std::string_view call) const;
  // Runs the action on every such call; an empty action removes it.
  void when(std::string call, CallLog::Action act) { log_.when(std::move(call), std::move(act)); }

  ULONG references = 1;
  Frame& frame() { return frame_; }

  // ---- IUnknown
  STDMETHODIMP QueryInterface(REFIID id, void** answer) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  // ---- IOleClientSite
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** out) override;
  STDMETHODIMP GetContainer(IOleContainer** out) override;
  STDMETHODIMP ShowObject() override { return record("ShowObject"); }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // ---- IOleInPlaceSite
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP CanInPlaceActivate() override { return record("CanInPlaceActivate", may_activate); }
  STDMETHODIMP OnInPlaceActivate() override { return record("OnInPlaceActivate", on_activate); }
  STDMETHODIMP OnUIActivate() override { return record("OnUIActivate"); }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT wanted,
                                LPRECT seen, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return record("OnUIDeactivate"); }
  STDMETHODIMP OnInPlaceDeactivate() override { return record("OnInPlaceDeactivate"); }
  STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
  STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return record("OnPosRectChange"); }

  // ---- IOleControlSite
  STDMETHODIMP OnControlInfoChanged() override { return record("OnControlInfoChanged"); }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
  STDMETHODIMP GetExtendedControl(IDispatch** out) override;
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(MSG* key, DWORD held) override;
  STDMETHODIMP OnFocus(BOOL has_focus) override;
  STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

  // ---- IDispatch: the container's properties
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                      UINT*) override;

 private:
  HRESULT record(std::string call, HRESULT answer = S_OK);

  CallLog log_;
  HWND top_, window_, own_box_;
  Frame frame_;
};

}  // namespace tabulon::client
