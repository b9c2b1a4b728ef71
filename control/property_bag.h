// What a page or a script gives to the control.
//
//   ParameterList page;
//   page.add("prmNrBeslisVar", "3");
//   page.read("PRMNRBESLISVAR");     // "3"
//   page.not_asked_for();            // {}
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tabulon {

// The page's saved parameters, read once.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  // The parameter's text; nothing when the page does not give it. Names are compared without case.
  virtual std::optional<std::string> read(std::string_view key) const = 0;
};

// What a script gives to a property.
using PropertyValue = std::variant<double, bool, std::string>;

// Parameters in the order in which they were given; of two with one name the first counts.
class ParameterList : public PropertyBag {
 public:
  ParameterList() = default;
  ParameterList(std::initializer_list<std::pair<std::string, std::string>> given);

  void add(std::string name, std::string text);
  std::optional<std::string> read(std::string_view key) const override;
  // The names that nobody has read: the page's author has misspelt them.
  std::vector<std::string_view> not_asked_for() const;

 private:
  struct Parameter {
    std::string name, text;
    mutable bool asked_for = false;
  };
  std::vector<Parameter> parameters_;
};

}  // namespace tabulon
