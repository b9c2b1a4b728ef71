#include "container.h"

#include <comutil.h>

#include "hosts/activex/names.h"
#include "hosts/activex/text.h"
#include "tests/activex/bags.h"
#include "tests/activex/screen.h"

namespace tabulon::activex {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t frame_class[] = L"TabulonTestFrame";
constexpr wchar_t place_class[] = L"TabulonTestPlace";
constexpr wchar_t program[] = L"Tabulon.LPctrl";

// The control's size and the frame's, at 96 dots to an inch.
constexpr SIZE control_size{600, 296}, frame_size{640, 400};

// ---- What the ATL library offers

class Atl {
 public:
  Atl() : library_(LoadLibraryW(L"atl100.dll")) {
    load(init, "AtlAxWinInit");
    load(create, "AtlAxCreateControl");
    load(attach, "AtlAxAttachControl");
    load(control_of, "AtlAxGetControl");
    if (init) init();
  }

  BOOL(WINAPI* init)() = nullptr;
  HRESULT(WINAPI* create)(LPCOLESTR name, HWND window, IStream* data, IUnknown** container) = nullptr;
  HRESULT(WINAPI* attach)(IUnknown* control, HWND window, IUnknown** container) = nullptr;
  HRESULT(WINAPI* control_of)(HWND window, IUnknown** control) = nullptr;

 private:
  template <class Function>
  void load(Function& function, const char* name) {
    if (library_)
      function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }
  HMODULE library_;
};

const Atl& atl() {
  static const Atl atl;
  return atl;
}

// As the PARAM elements of a page give them: texts.
client::Bag::Given given_by(const Container::Parameters& parameters) {
  client::Bag::Given given;
  for (const auto& [name, text] : parameters) given.try_emplace(wide(name), wide(text).c_str());
  return given;
}

_variant_t variant_of(const Container::Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  return wide(std::get<std::string>(value)).c_str();
}

// ---- Windows

// The window that had the focus gets it back when the frame is on top again, as in every program with boxes
// of its own.
LRESULT CALLBACK frame_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  static HWND last_focus = nullptr;
  if (message == WM_DESTROY) PostQuitMessage(0);
  if (message != WM_ACTIVATE) return DefWindowProcW(window, message, wparam, lparam);
  if (LOWORD(wparam) == WA_INACTIVE)
    last_focus = GetFocus();
  else if (!HIWORD(wparam))
    SetFocus(IsChild(window, last_focus) ? last_focus : window);
  return 0;
}

void register_class(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = procedure;
  window_class.lpszClassName = name;
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  RegisterClassW(&window_class);
}

HWND create_frame() {
  register_class(frame_class, frame_procedure);
  register_class(place_class, DefWindowProcW);
  RECT bounds{0, 0, scaled(frame_size.cx), scaled(frame_size.cy)};
  AdjustWindowRect(&bounds, WS_OVERLAPPEDWINDOW, false);
  return CreateWindowExW(0, frame_class, L"Container", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 60, 60,
                         bounds.right - bounds.left, bounds.bottom - bounds.top, nullptr, nullptr, nullptr,
                         nullptr);
}

HWND create_child(HWND frame, const wchar_t* window_class, DWORD style, POINT at, SIZE size) {
  return CreateWindowExW(0, window_class, nullptr, WS_CHILD | WS_VISIBLE | style, scaled(at.x), scaled(at.y),
                         scaled(size.cx), scaled(size.cy), frame, nullptr, nullptr, nullptr);
}

}  // namespace

Container::Container(const Options& options)
    : options_(options),
      frame_(create_frame()),
      place_(create_child(frame_, place_class, WS_CLIPCHILDREN, {0, 0}, control_size)),
      own_box_(create_child(frame_, L"EDIT", WS_BORDER, {20, 340}, {200, 24})) {
  OleInitialize(nullptr);
  ShowWindow(frame_, SW_SHOW);
  SetForegroundWindow(frame_);
}

Container::~Container() {
  control_.Reset();
  if (IsWindow(frame_)) DestroyWindow(frame_);
  OleUninitialize();
}

void Container::run() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (offer_key(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

bool Container::offer_key(MSG& message) {
  const bool of_a_key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  if (!options_.offers_keys || !of_a_key || !IsChild(place_, message.hwnd)) return false;
  ComPtr<IOleInPlaceActiveObject> active;
  if (control_) control_.As(&active);
  return active && active->TranslateAccelerator(&message) == S_OK;
}

HWND Container::surface() const {
  return FindWindowExW(place_, nullptr, surface_class, nullptr);
}

HRESULT Container::show(const Parameters& parameters) {
  if (!atl().create || !atl().attach || !atl().control_of) return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
  return options_.order == Order::LoadFirst ? load_and_show(parameters) : show_and_load(parameters);
}

HRESULT Container::load_and_show(const Parameters& parameters) {
  CLSID which{};
  HRESULT answer = CLSIDFromProgID(program, &which);
  if (SUCCEEDED(answer)) answer = CoCreateInstance(which, nullptr, CLSCTX_ALL, IID_PPV_ARGS(&control_));
  if (FAILED(answer)) return answer;
  const HRESULT loaded = load(parameters);
  ComPtr<IUnknown> site;
  answer = atl().attach(control_.Get(), place_, &site);
  return FAILED(answer) ? answer : loaded;
}

HRESULT Container::show_and_load(const Parameters& parameters) {
  ComPtr<IUnknown> site;
  HRESULT answer = atl().create(program, place_, nullptr, &site);
  if (SUCCEEDED(answer)) answer = atl().control_of(place_, &control_);
  return FAILED(answer) ? answer : load(parameters);
}

HRESULT Container::load(const Parameters& parameters) {
  ComPtr<IPersistPropertyBag> persistent;
  if (const HRESULT found = control_.As(&persistent); FAILED(found)) return found;
  return persistent->Load(client::Bag::of(given_by(parameters)).Get(), nullptr);
}

HRESULT Container::set(std::string_view property, const Value& value) {
  _variant_t given = variant_of(value);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&given, &put, 1, 1};
  return invoke(property, DISPATCH_PROPERTYPUT, parameters);
}

HRESULT Container::call(std::string_view method, const std::string* file) {
  _bstr_t name(file ? wide(*file).c_str() : L"");
  VARIANT given{};
  given.vt = VT_BYREF | VT_BSTR;
  given.pbstrVal = &name.GetBSTR();
  DISPPARAMS parameters{&given, nullptr, file ? 1U : 0U, 0};
  return invoke(method, DISPATCH_METHOD, parameters);
}

// What a method raises comes back as one number, however the system hands it over.
HRESULT Container::invoke(std::string_view name, WORD how, DISPPARAMS& given) {
  ComPtr<IDispatch> dispatch;
  if (!control_ || FAILED(control_.As(&dispatch))) return E_NOINTERFACE;
  std::wstring word = wide(name);
  LPOLESTR words = word.data();
  DISPID id = 0;
  if (const HRESULT found = dispatch->GetIDsOfNames(IID_NULL, &words, 1, LOCALE_USER_DEFAULT, &id);
      FAILED(found))
    return found;
  EXCEPINFO raised{};
  UINT which = 0;
  const HRESULT answer =
      dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &given, nullptr, &raised, &which);
  for (BSTR text : {raised.bstrSource, raised.bstrDescription, raised.bstrHelpFile}) SysFreeString(text);
  return answer == DISP_E_EXCEPTION ? raised.scode : answer;
}

}  // namespace tabulon::activex
