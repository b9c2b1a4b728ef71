// The parameters that a page gives to one element.
//
//   PageParameters parameters("prmNrBeslisVar\0" "3\0" "prmBigM\0" "50\0"sv);
//   parameters.read("PRMBIGM");    // "50"
//   parameters.not_asked_for();    // "prmNrBeslisVar"
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "control/LPctrl.h"

namespace tabulon::web {

class PageParameters : public PropertyBag {
 public:
  // `listing`: name, NUL, text, NUL, for each.
  explicit PageParameters(std::string_view listing);

  std::optional<std::string> read(std::string_view key) const override;
  // The names that nobody has read, each followed by NUL: the page's author has misspelt them.
  std::string not_asked_for() const;

 private:
  struct Parameter {
    std::string name, text;
    mutable bool asked_for = false;
  };
  std::vector<Parameter> parameters_;
};

}  // namespace tabulon::web
