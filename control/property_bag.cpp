#include "control/property_bag.h"

#include <algorithm>

#include "platform/texts.h"

namespace tabulon {

ParameterList::ParameterList(std::initializer_list<std::pair<std::string, std::string>> given) {
  for (const auto& [name, text] : given) add(name, text);
}

void ParameterList::add(std::string name, std::string text) {
  parameters_.push_back({std::move(name), std::move(text)});
}

std::optional<std::string> ParameterList::read(std::string_view key) const {
  const auto found =
      std::ranges::find_if(parameters_, [&](const Parameter& each) { return same_name(each.name, key); });
  if (found == parameters_.end()) return std::nullopt;
  found->asked_for = true;
  return found->text;
}

std::vector<std::string_view> ParameterList::not_asked_for() const {
  std::vector<std::string_view> names;
  for (const Parameter& parameter : parameters_)
    if (!parameter.asked_for) names.push_back(parameter.name);
  return names;
}

}  // namespace tabulon
