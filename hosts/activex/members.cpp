#include "hosts/activex/members.h"

namespace tabulon::activex {

namespace {

constexpr std::string_view property_names[] = {"prmNrBeslisVar",
                                               "prmNrKleinerGelijkVglen",
                                               "prmNrGroterGelijkVglen",
                                               "prmNrGelijkVglen",
                                               "prmBigM",
                                               "prmShow",
                                               "prmDLfunctie",
                                               "prmKleinerGelijkVglen",
                                               "prmGroterGelijkVglen",
                                               "prmGelijkVglen",
                                               "prmRL"};

}  // namespace

std::string_view property_name(DISPID property) {
  return property_names[property - member::first_property];
}

std::optional<UINT> argument_count(DISPID member) {
  if (is_property(member)) return 1;
  switch (member) {
    case member::InitTableau:
    case member::ShowAboutBox:
    case member::ShowfrmMelding:
    case member::ShowfrmFoutmelding:
    case member::ShowfrmPivotelement:
      return 0;
    case member::SchrijfTableau:
    case member::LeesTableau:
      return 1;
    case member::strSoortGetal:
      return 2;
    default:
      return std::nullopt;
  }
}

}  // namespace tabulon::activex
