#include "shell/safety.h"

#include <algorithm>
#include <string>

namespace tabulon {

namespace {

struct SafeInterface {
  std::string_view id;  // in upper case
  std::uint32_t option;
  bool basSafeCtl::* flag;
};

constexpr SafeInterface safe_interfaces[] = {
    // IDispatch
    {"{00020400-0000-0000-C000-000000000046}", safe_for_untrusted_caller, &basSafeCtl::SafeForScripting},
    // IPersistStorage
    {"{0000010A-0000-0000-C000-000000000046}", safe_for_untrusted_data, &basSafeCtl::SafeForInitializing},
    // IPersistStream
    {"{00000109-0000-0000-C000-000000000046}", safe_for_untrusted_data, &basSafeCtl::SafeForInitializing},
    // IPersistPropertyBag
    {"{37D84F60-42CB-11CE-8135-00AA004BB851}", safe_for_untrusted_data, &basSafeCtl::SafeForInitializing},
};

std::string upper_case(std::string_view text) {
  std::string upper(text);
  for (char& letter : upper)
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return upper;
}

const SafeInterface* find_interface(std::string_view id) {
  const auto found = std::ranges::find(safe_interfaces, upper_case(id), &SafeInterface::id);
  return found != std::end(safe_interfaces) ? found : nullptr;
}

}  // namespace

SafetyOptions safety_options(const basSafeCtl& model, std::optional<std::string_view> interface_id) {
  if (!interface_id) return {};
  const SafeInterface* const found = find_interface(*interface_id);
  if (!found) return {.answer = SafetyAnswer::NoInterface};
  return {.enabled = model.*found->flag ? found->option : 0};
}

SafetyAnswer set_safety_options(const basSafeCtl& model, std::optional<std::string_view> interface_id,
                                std::uint32_t mask, std::uint32_t enabled) {
  if (!interface_id) return SafetyAnswer::Ok;
  const SafeInterface* const found = find_interface(*interface_id);
  if (!found) return SafetyAnswer::NoInterface;
  const bool asked = (mask & enabled) == found->option;
  return asked && model.*found->flag ? SafetyAnswer::Ok : SafetyAnswer::Fail;
}

}  // namespace tabulon
