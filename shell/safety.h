// Whether a page's script may call the control, and a page's data start it: what a browser asks by COM's
// IObjectSafety. Portable, so that it is tested everywhere; the COM server turns the interface into its text
// and the answer into a result code.
//
//   const SafetyOptions options = safety_options(model, "{00020400-0000-0000-C000-000000000046}");
//   options.enabled == safe_for_untrusted_caller        // IDispatch: a script may call it
//
// The control's answer stands in the model's flags. A browser can ask, but nothing it asks changes them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "control/basSafeCtl.h"

namespace tabulon {

// The options, as bits.
inline constexpr std::uint32_t safe_for_untrusted_caller = 1;
inline constexpr std::uint32_t safe_for_untrusted_data = 2;

// How a call ends: the values are COM's result codes.
enum class SafetyAnswer : std::uint32_t { Ok = 0, NoInterface = 0x80004002, Fail = 0x80004005 };

struct SafetyOptions {
  SafetyAnswer answer = SafetyAnswer::Ok;
  std::uint32_t supported = safe_for_untrusted_caller | safe_for_untrusted_data;
  // Nothing: the caller's own value stays as it is.
  std::optional<std::uint32_t> enabled{};
};

// `interface_id` is the interface's registry text with its braces, in either case; nothing where the caller
// names no interface. NoInterface for one that neither option is about.
SafetyOptions safety_options(const basSafeCtl& model, std::optional<std::string_view> interface_id);

// Ok when exactly the option that the interface is about is asked for, and the control has it. Asking for
// the other one as well, or for none, is Fail.
SafetyAnswer set_safety_options(const basSafeCtl& model, std::optional<std::string_view> interface_id,
                                std::uint32_t mask, std::uint32_t enabled);

}  // namespace tabulon
