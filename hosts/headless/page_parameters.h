// The parameters of a page, for a control without a page.
//
//   const PageParameters page{{"prmNrBeslisVar", "3"}, {"prmSTR_DLfunctie", " 1, 2, 3"}};
//   control.UserControl_ReadProperties(page);
#pragma once

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/LPctrl.h"

namespace tabulon {

class PageParameters : public PropertyBag {
 public:
  PageParameters() = default;
  PageParameters(std::initializer_list<std::pair<std::string, std::string>> given) : given_(given) {}

  void add(std::string key, std::string text) { given_.emplace_back(std::move(key), std::move(text)); }

  std::optional<std::string> read(std::string_view key) const override {
    const auto found = std::ranges::find_if(given_, [&](const auto& each) { return same(each.first, key); });
    return found != given_.end() ? std::optional(found->second) : std::nullopt;
  }

 private:
  static char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
  }
  static bool same(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lower, lower);
  }
  std::vector<std::pair<std::string, std::string>> given_;
};

}  // namespace tabulon
