// The page's parameters and the script's properties: what they are called, and what they do to the model.
//
//   ProblemParameters parameters(surface, model, grid, problem);
//   parameters.read(page);
//   parameters.set("prmRL", std::string(" 4, 12, 18"));
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "control/grid.h"
#include "control/property_bag.h"

namespace tabulon {

struct ListParameter;

class ProblemParameters {
 public:
  ProblemParameters(platform::Surface& surface, basSafeCtl& model, Grid& grid, GraphView& graph,
                    ProblemView& problem)
      : surface_(surface), model_(model), grid_(grid), graph_(graph), problem_(problem) {}

  // Reads the page's parameters and the tableau from them, and draws it. Errors 6, 9 and 13, the subject
  // naming the parameter; the counts are then what they were, and the tableau is a new one of that size.
  Result<> read(const PropertyBag& page);
  // Sets a write-only property. Errors 6, 9 and 13, the subject naming the property. Nothing for a name that
  // is no property.
  std::optional<Result<>> set(std::string_view name, const PropertyValue& value);

 private:
  friend struct ListParameter;

  Result<> read_counts(const PropertyBag& page);
  Result<> read_lists(const PropertyBag& page);
  Result<> set_prmShow(const PropertyValue& value);
  Result<> show_new_problem();
  Result<> set_list(const ListParameter& parameter, std::string_view text);
  Result<> apply_list(const ListParameter& parameter, std::string_view given);
  Result<> apply_objective(std::string_view text);
  Result<> apply_rows(const ListParameter& parameter, std::string_view text);
  void WisLijst();

  platform::Surface& surface_;
  basSafeCtl& model_;
  Grid& grid_;
  GraphView& graph_;
  ProblemView& problem_;

  // The last text of each list: kept for who looks at the control, nothing reads it.
  std::string m_strDLfunctie, m_strKleinerGelijkVglen, m_strGroterGelijkVglen, m_strGelijkVglen, m_strRL;
  std::array<std::string, 301> strLijst;  // items 1..300 of the list being taken apart
};

}  // namespace tabulon
