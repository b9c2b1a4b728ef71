#include "hosts/activex/script_origin.h"

#include <ole2.h>
#include <servprov.h>
#include <urlmon.h>

#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/activex/com.h"

// Declared in headers of a hundred thousand lines.
extern "C" const IID IID_IHTMLDocument2, IID_IWebBrowser2, IID_IWebBrowserApp;

namespace tabulon::activex {

namespace {

using Zone = DWORD;
using Address = std::optional<std::wstring>;  // none where a browser does not tell it

template <class Interface>
ComPtr<Interface> service(IUnknown* site, REFGUID name, REFIID id) {
  const auto provider = ComPtr<IServiceProvider>::from(site, IID_IServiceProvider);
  ComPtr<Interface> found;
  if (provider && FAILED(provider->QueryService(name, id, found.put()))) found = {};
  return found;
}

// A page's security ID ends in its zone.
std::optional<Zone> zone_of_page(IInternetHostSecurityManager& manager) {
  BYTE id[MAX_SIZE_SECURITY_ID]{};
  DWORD size = sizeof id;
  if (FAILED(manager.GetSecurityId(id, &size, 0)) || size < sizeof(Zone) || size > sizeof id) return {};
  Zone zone = 0;
  std::memcpy(&zone, id + size - sizeof zone, sizeof zone);
  return zone;
}

// A browser's own manager may leave the answer to the system's.
std::optional<Zone> zone_of_address(const std::wstring& address, IInternetSecurityManager* browsers) {
  Zone zone = 0;
  HRESULT told = browsers ? browsers->MapUrlToZone(address.c_str(), &zone, 0) : INET_E_DEFAULT_ACTION;
  if (told == INET_E_DEFAULT_ACTION || told == E_NOTIMPL) {
    ComPtr<IInternetSecurityManager> systems;
    told = CoCreateInstance(CLSID_InternetSecurityManager, nullptr, CLSCTX_INPROC_SERVER,
                            IID_IInternetSecurityManager, systems.put());
    if (systems) told = systems->MapUrlToZone(address.c_str(), &zone, 0);
  }
  return told == S_OK ? std::optional(zone) : std::nullopt;
}

Address text_property(IDispatch& object, const wchar_t* name) {
  std::wstring letters = name;
  LPOLESTR names[] = {letters.data()};
  DISPID id = 0;
  DISPPARAMS none{};
  Variant value;
  if (FAILED(object.GetIDsOfNames(IID_NULL, names, 1, program_locale, &id)) ||
      FAILED(object.Invoke(id, IID_NULL, program_locale, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                           nullptr)) ||
      value.vt != VT_BSTR)
    return {};
  return std::wstring(value.bstrVal, SysStringLen(value.bstrVal));
}

// "https:" and the like; a single letter is a drive.
bool has_scheme(std::wstring_view name) {
  const std::size_t colon = name.find(L':');
  return colon != name.npos && colon > 1 && name.find_first_of(L"\\/") > colon;
}

// The documents of other programs have monikers too, which name files.
void add_moniker(IOleClientSite& site, std::vector<Address>& addresses) {
  ComPtr<IMoniker> moniker;
  ComPtr<IBindCtx> context;
  LPOLESTR name = nullptr;
  if (FAILED(site.GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_CONTAINER, moniker.receive())) ||
      !moniker || FAILED(CreateBindCtx(0, context.receive())) ||
      FAILED(moniker->GetDisplayName(context.get(), nullptr, &name)) || !name)
    return;
  if (has_scheme(name)) addresses.emplace_back(name);
  CoTaskMemFree(name);
}

void add_document(IOleClientSite& site, std::vector<Address>& addresses) {
  ComPtr<IOleContainer> container;
  if (FAILED(site.GetContainer(container.receive()))) return;
  if (const auto document = ComPtr<IDispatch>::from(container.get(), IID_IHTMLDocument2))
    addresses.push_back(text_property(*document.get(), L"URL"));
}

std::vector<Address> addresses_at(IUnknown* site) {
  std::vector<Address> addresses;
  if (const auto client = ComPtr<IOleClientSite>::from(site, IID_IOleClientSite)) {
    add_document(*client.get(), addresses);
    add_moniker(*client.get(), addresses);
  }
  if (const auto browser = service<IDispatch>(site, IID_IWebBrowserApp, IID_IWebBrowser2))
    addresses.push_back(text_property(*browser.get(), L"LocationURL"));
  return addresses;
}

bool is_trusted(std::optional<Zone> zone) {
  return zone && *zone <= URLZONE_TRUSTED;
}

}  // namespace

ScriptOrigin origin_of(IUnknown* site) {
  const auto page = service<IInternetHostSecurityManager>(site, SID_SInternetHostSecurityManager,
                                                          IID_IInternetHostSecurityManager);
  const auto manager =
      service<IInternetSecurityManager>(site, SID_SInternetSecurityManager, IID_IInternetSecurityManager);
  const std::vector<Address> addresses = addresses_at(site);
  if (!page && !manager && addresses.empty()) return ScriptOrigin::Program;
  if (!page && addresses.empty()) return ScriptOrigin::OtherPage;
  if (page && !is_trusted(zone_of_page(*page.get()))) return ScriptOrigin::OtherPage;
  for (const Address& address : addresses)
    if (!address || !is_trusted(zone_of_address(*address, manager.get()))) return ScriptOrigin::OtherPage;
  return ScriptOrigin::TrustedPage;
}

}  // namespace tabulon::activex
