// The members of the control by their numbers, as Tabulon.idl has them.
//
//   property_name(member::prmBigM);       // "prmBigM"
//   argument_count(member::LeesTableau);  // 1
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <olectl.h>

#include <optional>
#include <string_view>

namespace tabulon::activex {

namespace member {
enum : DISPID {
  first_property = 1,
  prmNrBeslisVar = first_property,
  prmNrKleinerGelijkVglen,
  prmNrGroterGelijkVglen,
  prmNrGelijkVglen,
  prmBigM,
  prmShow,
  prmDLfunctie,  // the first of the lists
  prmKleinerGelijkVglen,
  prmGroterGelijkVglen,
  prmGelijkVglen,
  prmRL,
  last_property = prmRL,
  InitTableau,
  strSoortGetal,
  ShowAboutBox = DISPID_ABOUTBOX,
  ShowfrmMelding = 15,
  ShowfrmFoutmelding,
  ShowfrmPivotelement,
  SchrijfTableau,
  LeesTableau,
};
}  // namespace member

inline bool is_property(DISPID id) {
  return id >= member::first_property && id <= member::last_property;
}
inline bool is_list(DISPID property) {
  return property >= member::prmDLfunctie;
}
std::string_view property_name(DISPID property);
// How many arguments a method takes, or 1 for a property; nothing if there is no such member.
std::optional<UINT> argument_count(DISPID member);

}  // namespace tabulon::activex
