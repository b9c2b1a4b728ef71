#include "hosts/web/page_parameters.h"

#include <algorithm>

namespace tabulon::web {

namespace {

bool same_name(std::string_view one, std::string_view other) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter;
  };
  return std::ranges::equal(one, other, {}, lower, lower);
}

// Cuts off what stands before the next NUL.
std::string next_text(std::string_view& listing) {
  const std::size_t end = std::min(listing.find('\0'), listing.size());
  const std::string text(listing.substr(0, end));
  listing.remove_prefix(std::min(end + 1, listing.size()));
  return text;
}

}  // namespace

PageParameters::PageParameters(std::string_view listing) {
  while (!listing.empty()) {
    std::string name = next_text(listing);
    parameters_.push_back({std::move(name), next_text(listing)});
  }
}

std::optional<std::string> PageParameters::read(std::string_view key) const {
  const auto found =
      std::ranges::find_if(parameters_, [&](const Parameter& each) { return same_name(each.name, key); });
  if (found == parameters_.end()) return std::nullopt;
  found->asked_for = true;
  return found->text;
}

std::string PageParameters::not_asked_for() const {
  std::string names;
  for (const Parameter& parameter : parameters_)
    if (!parameter.asked_for) names += parameter.name + '\0';
  return names;
}

}  // namespace tabulon::web
