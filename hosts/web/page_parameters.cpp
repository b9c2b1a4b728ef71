#include "hosts/web/page_parameters.h"

#include <algorithm>

namespace tabulon::web {

namespace {

// Cuts off what stands before the next NUL.
std::string next_text(std::string_view& listing) {
  const std::size_t end = std::min(listing.find('\0'), listing.size());
  const std::string text(listing.substr(0, end));
  listing.remove_prefix(std::min(end + 1, listing.size()));
  return text;
}

}  // namespace

ParameterList parameters_in(std::string_view listing) {
  ParameterList parameters;
  while (!listing.empty()) {
    std::string name = next_text(listing);
    parameters.add(std::move(name), next_text(listing));
  }
  return parameters;
}

std::string not_asked_for(const ParameterList& parameters) {
  std::string names;
  for (const std::string_view name : parameters.not_asked_for()) (names += name) += '\0';
  return names;
}

}  // namespace tabulon::web
