// The control as COM sees it: one object with every interface that a page, a form or a script asks a control
// for. Each group of interfaces stands in a file of its own, hosts/activex/lpctrl_*.cpp.
//
//   ComPtr<ILPctrl> control;
//   LPctrlObject::create(IID_ILPctrl, control.put());
//   control->put_prmNrBeslisVar(3);
#pragma once

#include <windows.h>

#include <objsafe.h>
#include <ocidl.h>
#include <olectl.h>

#include <Tabulon_idl.h>

#include <string>
#include <string_view>
#include <vector>

#include "control/LPctrl.h"
#include "hosts/activex/com.h"
#include "hosts/activex/events.h"
#include "hosts/activex/in_place_state.h"
#include "hosts/activex/library.h"
#include "hosts/activex/surface_view.h"
#include "hosts/activex/view_site.h"

namespace tabulon::activex {

// What a container learns of the control, before creating it (from the registry) and after.
inline constexpr DWORD misc_status = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                     OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

class LPctrlObject final : public ILPctrl,
                           public IPersistPropertyBag,
                           public IPersistStreamInit,
                           public IPersistStorage,
                           public IOleObject,
                           public IOleControl,
                           public IOleInPlaceObject,
                           public IOleInPlaceActiveObject,
                           public IViewObject2,
                           public IConnectionPointContainer,
                           public IProvideClassInfo2,
                           public ISupportErrorInfo,
                           public IObjectSafety,
                           private ViewSite {
 public:
  static HRESULT create(REFIID id, void** out);

  // ---- IUnknown
  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;

  // ---- IDispatch, lpctrl_dispatch.cpp
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT at, LCID locale, ITypeInfo** out) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument) override;

  // ---- ILPctrl, lpctrl_script.cpp
  STDMETHODIMP put_prmNrBeslisVar(short value) override;
  STDMETHODIMP put_prmNrKleinerGelijkVglen(short value) override;
  STDMETHODIMP put_prmNrGroterGelijkVglen(short value) override;
  STDMETHODIMP put_prmNrGelijkVglen(short value) override;
  STDMETHODIMP put_prmBigM(short value) override;
  STDMETHODIMP put_prmShow(VARIANT_BOOL value) override;
  STDMETHODIMP put_prmDLfunctie(BSTR value) override;
  STDMETHODIMP put_prmKleinerGelijkVglen(BSTR value) override;
  STDMETHODIMP put_prmGroterGelijkVglen(BSTR value) override;
  STDMETHODIMP put_prmGelijkVglen(BSTR value) override;
  STDMETHODIMP put_prmRL(BSTR value) override;
  STDMETHODIMP InitTableau() override;
  STDMETHODIMP strSoortGetal(VARIANT_BOOL Soort, double* Getal, BSTR* text) override;
  STDMETHODIMP ShowAboutBox() override;
  STDMETHODIMP ShowfrmMelding() override;
  STDMETHODIMP ShowfrmFoutmelding() override;
  STDMETHODIMP ShowfrmPivotelement() override;
  STDMETHODIMP SchrijfTableau(BSTR* strFile) override;
  STDMETHODIMP LeesTableau(BSTR* strFile) override;

  // ---- IPersistPropertyBag, IPersistStreamInit, IPersistStorage, lpctrl_persistence.cpp
  STDMETHODIMP GetClassID(CLSID* id) override;
  STDMETHODIMP InitNew() override;
  STDMETHODIMP IsDirty() override { return S_FALSE; }
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) override;
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clear_dirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP InitNew(IStorage* storage) override;
  STDMETHODIMP Load(IStorage* storage) override;
  STDMETHODIMP Save(IStorage* storage, BOOL same_as_load) override;
  STDMETHODIMP SaveCompleted(IStorage*) override { return S_OK; }
  STDMETHODIMP HandsOffStorage() override { return S_OK; }

  // ---- IOleObject, IOleControl, lpctrl_ole.cpp
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** out) override;
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP Close(DWORD save) override;
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** out) override;
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject** out) override;
  STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG, HWND parent,
                      LPCRECT place) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** out) override;
  STDMETHODIMP Update() override { return S_OK; }
  STDMETHODIMP IsUpToDate() override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID* id) override { return GetClassID(id); }
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* out) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** out) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG* message) override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
  STDMETHODIMP FreezeEvents(BOOL freeze) override;

  // ---- IOleInPlaceObject, IOleInPlaceActiveObject, lpctrl_in_place.cpp
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
  STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
  STDMETHODIMP TranslateAccelerator(MSG* message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  // ---- IViewObject2, lpctrl_picture.cpp
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* reserved, DVTARGETDEVICE* target, HDC target_dc, HDC dc,
                    LPCRECTL bounds, LPCRECTL whole, BOOL(STDMETHODCALLTYPE* go_on)(ULONG_PTR),
                    ULONG_PTR argument) override;
  STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** out) override;
  STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target, SIZEL* size) override;

  // ---- IConnectionPointContainer, IProvideClassInfo2, ISupportErrorInfo, IObjectSafety, lpctrl_object.cpp
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** out) override;
  STDMETHODIMP GetClassInfo(ITypeInfo** out) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;
  STDMETHODIMP GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) override;
  STDMETHODIMP SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD enabled) override;

 private:
  LPctrlObject();
  ~LPctrlObject() override;

  WindowsHost& host() const { return library().host; }
  Dispatcher& dispatcher() const { return host().dispatcher(); }

  // Ends the control's tasks and releases the container.
  void retire();
  // Runs a script's call; the answer is its error, or one that it reported.
  template <class Act>
  Result<> run(Act act) {
    host().take_error();
    const Result<> result = dispatcher().handle(act);
    return result ? reported() : result;
  }
  Result<> reported();

  // ---- lpctrl_dispatch.cpp
  HRESULT own_type(ITypeInfo** out);
  Result<> set(DISPID property, VARIANT& given);
  Result<> call(DISPID method, DISPPARAMS& given, VARIANT* answer);
  Result<> display_text(VARIANT* kind, VARIANT* number, VARIANT* answer);

  // ---- lpctrl_script.cpp
  Result<> set(DISPID property, const PropertyValue& value);
  Result<> build();
  Result<> show(platform::Task<> form);
  Result<> admit_file(const std::string& name) const;
  Result<> with_file(const std::string& name, Result<> (LPctrl::*method)(std::string_view));

  // ---- lpctrl_persistence.cpp
  Result<> read(const PropertyBag& bag);
  HRESULT load_defaults();

  // ---- lpctrl_ole.cpp
  bool ambient(DISPID property, bool otherwise) const;
  void follow_ambient();

  // ---- lpctrl_in_place.cpp
  HRESULT activate();
  HRESULT activate_ui();
  HRESULT enter_site();
  HRESULT open_in_site();
  void leave_site();
  void become_ui_active();
  void place(const RECT& wanted, const RECT& clip);
  void show_surface();

  // ---- ViewSite, lpctrl_in_place.cpp
  void focus_changed(bool has_focus) override;
  void enable_modeless(bool enabled) override;
  bool pass_on(const MSG& key) override;
  void picture_changed() override;
  void fire_click(DISPID event) override;
  short fire_key(DISPID event, short code, short modifiers) override;
  void fire_mouse(DISPID event, short button, short modifiers, POINT at) override;

  LibraryUser keeps_library_;
  ULONG references_ = 1;
  LPctrl control_;
  SurfaceView view_;
  Events events_;

  ComPtr<IOleClientSite> site_;
  ComPtr<IOleInPlaceSite> in_place_site_;  // while active in place
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  std::vector<ComPtr<IOleInPlaceFrame>> disabled_;  // one for each open form or dialog
  ComPtr<IOleAdviseHolder> advised_;
  ComPtr<ITypeInfo> own_type_;
  ComPtr<IAdviseSink> picture_sink_;
  bool asked_to_be_safe_ = false;  // for the scripts of others, as browsers ask
  DWORD picture_aspects_ = 0, picture_flags_ = 0;
  HACCEL accelerators_ = nullptr;
  InPlace place_;
  UiActive ui_;
};

// The description of an interface or class in the library's own type library.
HRESULT type_info(REFGUID id, ITypeInfo** out);

}  // namespace tabulon::activex
