// A page in a browser, as a control's site tells of it: a test says what it offers.
//
//   Page page;
//   page.in_zone(URLZONE_INTERNET).with_document(L"https://les.example/oefening.html");
//   object->SetClientSite(&page);
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>
#include <servprov.h>
#include <urlmon.h>

#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tests/activex/com_double.h"

// Declared in headers of a hundred thousand lines.
extern "C" const IID IID_IHTMLDocument2, IID_IWebBrowser2, IID_IWebBrowserApp;

namespace tabulon::client {

// A document or a browser, with its address as a property; with none it fails.
class Addressed final : public DispatchDouble {
 public:
  explicit Addressed(const IID& id, const wchar_t* property) : id_(id), property_(property) {}
  std::optional<std::wstring> address;

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = 1025;
    return std::wstring_view(*names) == property_ ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                      UINT*) override {
    if (id != 1025 || !address) return E_FAIL;
    value->vt = VT_BSTR;
    value->bstrVal = SysAllocString(address->c_str());
    return S_OK;
  }

 private:
  bool is_also(REFIID id) const override { return id == id_; }

  const IID& id_;
  std::wstring_view property_;
};

// Tells a page's zone as browsers do, at the end of its security ID.
class PageManager final : public Double<IInternetHostSecurityManager> {
 public:
  std::optional<DWORD> zone;

  STDMETHODIMP GetSecurityId(BYTE* id, DWORD* size, DWORD_PTR) override {
    constexpr std::string_view scheme = "https:les.example";
    if (!zone || *size < scheme.size() + sizeof *zone) return E_FAIL;
    std::memcpy(id, scheme.data(), scheme.size());
    std::memcpy(id + scheme.size(), &*zone, sizeof *zone);
    *size = static_cast<DWORD>(scheme.size() + sizeof *zone);
    return S_OK;
  }
  STDMETHODIMP ProcessUrlAction(DWORD, BYTE*, DWORD, BYTE*, DWORD, DWORD, DWORD) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP QueryCustomPolicy(REFGUID, BYTE**, DWORD*, BYTE*, DWORD, DWORD) override { return E_NOTIMPL; }
};

class AddressManager final : public Double<IInternetSecurityManager> {
 public:
  HRESULT answer = INET_E_DEFAULT_ACTION;
  DWORD zone = URLZONE_INTERNET;

  STDMETHODIMP MapUrlToZone(LPCWSTR, DWORD* out, DWORD) override {
    *out = zone;
    return answer;
  }
  STDMETHODIMP SetSecuritySite(IInternetSecurityMgrSite*) override { return E_NOTIMPL; }
  STDMETHODIMP GetSecuritySite(IInternetSecurityMgrSite**) override { return E_NOTIMPL; }
  STDMETHODIMP GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) override { return E_NOTIMPL; }
  STDMETHODIMP ProcessUrlAction(LPCWSTR, DWORD, BYTE*, DWORD, BYTE*, DWORD, DWORD, DWORD) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD, DWORD) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP SetZoneMapping(DWORD, LPCWSTR, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetZoneMappings(DWORD, IEnumString**, DWORD) override { return E_NOTIMPL; }
};

// The container of a page: as an OLE container it is the document.
class Document final : public Double<IOleContainer> {
 public:
  Addressed* page = nullptr;

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override {
    return page && id == IID_IHTMLDocument2 ? page->QueryInterface(id, answer)
                                            : Double::QueryInterface(id, answer);
  }
  STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP EnumObjects(DWORD, IEnumUnknown**) override { return E_NOTIMPL; }
  STDMETHODIMP LockContainer(BOOL) override { return S_OK; }
};

// A site that offers what a test gives it.
class Page final : public IOleClientSite, public IServiceProvider {
 public:
  Page() { document_container.page = nullptr; }
  ~Page() { EXPECT_EQ(references, 1U) << "somebody keeps the page"; }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  ULONG references = 1;
  bool offers_page_manager = false, offers_address_manager = false, offers_browser = false;
  PageManager page_manager;
  AddressManager address_manager;
  Addressed document{IID_IHTMLDocument2, L"URL"}, browser{IID_IWebBrowser2, L"LocationURL"};
  Document document_container;
  const wchar_t* moniker = nullptr;

  Page& in_zone(std::optional<DWORD> zone) {
    offers_page_manager = true;
    page_manager.zone = zone;
    return *this;
  }
  Page& with_document(std::optional<std::wstring> address) {
    document.address = std::move(address);
    document_container.page = &document;
    return *this;
  }
  Page& in_browser(std::optional<std::wstring> address) {
    browser.address = std::move(address);
    offers_browser = true;
    return *this;
  }
  Page& named(const wchar_t* name) {
    moniker = name;
    return *this;
  }
  Page& mapping(HRESULT answer, DWORD zone) {
    offers_address_manager = true;
    address_manager.answer = answer;
    address_manager.zone = zone;
    return *this;
  }
  IUnknown* site() { return static_cast<IOleClientSite*>(this); }

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override {
    *answer = nullptr;
    if (id == IID_IServiceProvider)
      *answer = static_cast<IServiceProvider*>(this);
    else if (id == IID_IUnknown || id == IID_IOleClientSite)
      *answer = static_cast<IOleClientSite*>(this);
    if (!*answer) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP QueryService(REFGUID service, REFIID id, void** answer) override {
    *answer = nullptr;
    if (offers_page_manager && service == SID_SInternetHostSecurityManager)
      return page_manager.QueryInterface(id, answer);
    if (offers_address_manager && service == SID_SInternetSecurityManager)
      return address_manager.QueryInterface(id, answer);
    if (offers_browser && service == IID_IWebBrowserApp) return browser.QueryInterface(id, answer);
    return E_NOINTERFACE;
  }
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD which, IMoniker** out) override {
    *out = nullptr;
    if (!moniker || which != OLEWHICHMK_CONTAINER) return E_NOTIMPL;
    return std::wstring_view(moniker).contains(L"://")
               ? CreateURLMonikerEx(nullptr, moniker, out, URL_MK_UNIFORM)
               : CreateFileMoniker(moniker, out);
  }
  STDMETHODIMP GetContainer(IOleContainer** out) override {
    *out = nullptr;
    return document_container.page
               ? document_container.QueryInterface(IID_IOleContainer, reinterpret_cast<void**>(out))
               : E_NOINTERFACE;
  }
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
};

}  // namespace tabulon::client
