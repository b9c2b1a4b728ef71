#include "hosts/activex/lpctrl_object.h"

#include <string>

#include "hosts/activex/enumerator.h"
#include "hosts/activex/module.h"
#include "shell/safety.h"

namespace tabulon::activex {

namespace {

// The interface's ID as in the registry; nothing for a null pointer.
std::optional<std::string> registry_text(const IID* id) {
  return id ? std::optional(narrow(text_of(*id))) : std::nullopt;
}

HRESULT result_of(SafetyAnswer answer) {
  return static_cast<HRESULT>(answer);
}

// The address of a reference that may come from a null pointer. A compiler may assume that references are
// never null, so it must not see where this one comes from.
const IID* address_of(REFIID id) {
  const IID* volatile address = &id;
  return address;
}

}  // namespace

HRESULT type_info(REFGUID id, ITypeInfo** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  ComPtr<ITypeLib> types;
  const HRESULT loaded = LoadTypeLibEx(module_path().c_str(), REGKIND_NONE, types.receive());
  return SUCCEEDED(loaded) ? types->GetTypeInfoOfGuid(id, out) : loaded;
}

HRESULT LPctrlObject::create(REFIID id, void** out) {
  auto* const made = new LPctrlObject;
  const HRESULT answer = made->QueryInterface(id, out);
  made->Release();
  return answer;
}

LPctrlObject::LPctrlObject()
    : control_(library().host.desk(), library().model),
      view_(library().host.services(), control_, *this),
      events_(*this) {
  host().add(view_);
  // Another control of the process may have left a tableau that is too large; the parameters will decide.
  dispatcher().handle([this] { static_cast<void>(control_.UserControl_Initialize()); });
}

LPctrlObject::~LPctrlObject() {
  host().remove(view_);
  if (accelerators_) DestroyAcceleratorTable(accelerators_);
}

void LPctrlObject::retire() {
  host().abandon(control_);
  InPlaceDeactivate();
  control_.UserControl_Terminate();
  view_.detach();
}

Result<> LPctrlObject::reported() {
  const auto error = host().take_error();
  return error ? Result<>(std::unexpected(*error)) : Result<>();
}

// ---- IUnknown

STDMETHODIMP LPctrlObject::QueryInterface(REFIID id, void** out) {
  auto* const persist = static_cast<IPersistPropertyBag*>(this);
  auto* const in_place = static_cast<IOleInPlaceObject*>(this);
  auto* const class_info = static_cast<IProvideClassInfo2*>(this);
  auto* const picture = static_cast<IViewObject2*>(this);
  auto* const script = static_cast<ILPctrl*>(this);
  const Offered offered[] = {
      {&IID_IUnknown, script},
      {&IID_IDispatch, script},
      {&IID_ILPctrl, script},
      {&IID_IPersist, persist},
      {&IID_IPersistPropertyBag, persist},
      {&IID_IPersistStreamInit, static_cast<IPersistStreamInit*>(this)},
      {&IID_IPersistStorage, static_cast<IPersistStorage*>(this)},
      {&IID_IOleObject, static_cast<IOleObject*>(this)},
      {&IID_IOleControl, static_cast<IOleControl*>(this)},
      {&IID_IOleWindow, in_place},
      {&IID_IOleInPlaceObject, in_place},
      {&IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(this)},
      {&IID_IViewObject, picture},
      {&IID_IViewObject2, picture},
      {&IID_IConnectionPointContainer, static_cast<IConnectionPointContainer*>(this)},
      {&IID_IProvideClassInfo, class_info},
      {&IID_IProvideClassInfo2, class_info},
      {&IID_ISupportErrorInfo, static_cast<ISupportErrorInfo*>(this)},
      {&IID_IObjectSafety, static_cast<IObjectSafety*>(this)},
  };
  return answer_query(offered, id, out);
}

STDMETHODIMP_(ULONG) LPctrlObject::AddRef() {
  return ++references_;
}

STDMETHODIMP_(ULONG) LPctrlObject::Release() {
  if (--references_ != 0) return references_;
  ++references_;  // the container may add and release references while it is being notified
  dispatcher().after_event([this] {
    retire();
    dispatcher().release_later({this, [](LPctrlObject* gone) { delete gone; }});
  });
  return 0;
}

// ---- IConnectionPointContainer

STDMETHODIMP LPctrlObject::EnumConnectionPoints(IEnumConnectionPoints** out) {
  std::vector<ComPtr<IConnectionPoint>> points{ComPtr<IConnectionPoint>(&events_)};
  return Enumerator<IEnumConnectionPoints, ComPtr<IConnectionPoint>>::create(std::move(points), out);
}

STDMETHODIMP LPctrlObject::FindConnectionPoint(REFIID id, IConnectionPoint** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (id != DIID__LPctrlEvents) return CONNECT_E_NOCONNECTION;
  events_.AddRef();
  *out = &events_;
  return S_OK;
}

// ---- IProvideClassInfo2

STDMETHODIMP LPctrlObject::GetClassInfo(ITypeInfo** out) {
  return type_info(CLSID_LPctrl, out);
}

STDMETHODIMP LPctrlObject::GetGUID(DWORD kind, GUID* id) {
  if (!id) return E_POINTER;
  *id = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? DIID__LPctrlEvents : GUID_NULL;
  return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

// ---- ISupportErrorInfo

STDMETHODIMP LPctrlObject::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_ILPctrl || id == IID_IDispatch || id == IID_IPersistPropertyBag ? S_OK : S_FALSE;
}

// ---- IObjectSafety

STDMETHODIMP LPctrlObject::GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) {
  const SafetyOptions options = safety_options(library().model, registry_text(address_of(id)));
  if (supported) *supported = options.supported;
  if (enabled && options.enabled) *enabled = *options.enabled;
  return result_of(options.answer);
}

STDMETHODIMP LPctrlObject::SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD enabled) {
  const IID* const about = address_of(id);
  const HRESULT answer = result_of(set_safety_options(library().model, registry_text(about), mask, enabled));
  if (about && *about == IID_IDispatch && SUCCEEDED(answer)) asked_to_be_safe_ = true;
  return answer;
}

}  // namespace tabulon::activex
