#include "hosts/activex/reader_names.h"

#include <utility>

#include "hosts/activex/text.h"

namespace tabulon::activex {

namespace {

// The system's own numbers for the service and the property; its libraries to link to do not have them.
constexpr GUID service_class = {0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID service_interface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID name_property = {0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

void ReaderNames::set(HWND window, std::string_view words) {
  if (words.empty()) return forget(window);
  if (!std::exchange(asked_, true))
    CoCreateInstance(service_class, nullptr, CLSCTX_INPROC_SERVER, service_interface,
                     reinterpret_cast<void**>(&service_));
  if (!service_) return;
  service_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, name_property,
                           wide(words).c_str());
  named_.insert(window);
}

void ReaderNames::forget(HWND window) {
  if (named_.erase(window) != 0)
    service_->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &name_property, 1);
}

}  // namespace tabulon::activex
