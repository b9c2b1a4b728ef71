#include "control/parameters.h"

#include <algorithm>

#include "numbers/conversions.h"
#include "platform/desk.h"
#include "platform/texts.h"

namespace tabulon {

namespace {

constexpr int most_items = 300;
constexpr int wiped_items = 100;  // the items beyond keep what an earlier list left there

struct CountParameter {
  std::string_view name;
  std::int16_t basSafeCtl::* count;
  std::string_view if_missing;
  int rows_each, columns_each;  // that one more takes
};

constexpr CountParameter count_parameters[] = {
    {"prmNrBeslisVar", &basSafeCtl::NrBeslisVar, "2", 0, 1},
    {"prmNrKleinerGelijkVglen", &basSafeCtl::NrKleinerGelijkVglen, "2", 1, 1},
    {"prmNrGroterGelijkVglen", &basSafeCtl::NrGroterGelijkVglen, "0", 1, 2},
    {"prmNrGelijkVglen", &basSafeCtl::NrGelijkVglen, "0", 1, 1},
    {"prmBigM", &basSafeCtl::BigM, " 100", 0, 0},
};

Result<std::int16_t> to_count(const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return numbers::to_int16(*text);
  if (const auto* truth = std::get_if<bool>(&value)) return static_cast<std::int16_t>(*truth ? -1 : 0);
  return numbers::to_int16(std::get<double>(value));
}

Result<bool> to_truth(const PropertyValue& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* number = std::get_if<double>(&value)) return *number != 0;
  const std::string& text = std::get<std::string>(value);
  if (same_name(text, "true")) return true;
  if (same_name(text, "false")) return false;
  return TRY(numbers::to_int16(text)) != 0;
}

// The count with which the tableau becomes too large; nothing where no count by itself does.
std::string_view count_too_large(const basSafeCtl& model) {
  int rows = 0, columns = 0;
  for (const CountParameter& parameter : count_parameters) {
    const int count = model.*parameter.count;
    rows += parameter.rows_each * count;
    columns += parameter.columns_each * count;
    if (rows > most_rows || columns > most_columns) return parameter.name;
  }
  return {};
}

std::string to_text(const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
  return numbers::Str(std::get<double>(value));
}

void write_in_both(CellRow& current, CellRow& first, int column, const std::string& words) {
  const double value = numbers::Val(words);
  current.write(column, value, words);
  first.write(column, value, words);
}

// A list may be written over several lines of a page: a line break or tab in it is a blank.
std::string on_one_line(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(line, [](char sign) { return sign == '\n' || sign == '\r' || sign == '\t'; }, ' ');
  return line;
}

// Takes a list apart: items(k) = text for k = 1.. as long as there is room for `count` of them. An item
// between two commas that is empty is left alone. The first item is written even when count is 0.
// Error 9 when `store` refuses an item.
template <class Store>
Result<> SplitsLijst(int count, std::string_view text, Store store) {
  std::size_t begin = 0;
  int item = 1;
  do {
    const std::size_t comma = text.find(',', begin);
    if (comma == std::string_view::npos) {
      const std::string_view rest = text.substr(begin);
      return store(item, rest.empty() ? " 0" : rest);
    }
    if (comma == begin) {
      if (begin + 1 == text.size()) return {};
      ++item;
      ++begin;
    } else {
      TRY(store(item, text.substr(begin, comma - begin)));
      begin = comma;
    }
  } while (item <= count);
  return {};
}

}  // namespace

struct ListParameter {
  enum class Kind : std::uint8_t { Objective, LessEqual, GreaterEqual, Equal, RightHandSides };
  Kind kind;
  std::string_view key;       // on the page
  std::string_view property;  // for a script
  std::string_view if_missing;
  std::string ProblemParameters::* last_text;

  static const ListParameter all[];
};

const ListParameter ListParameter::all[] = {
    {Kind::Objective, "prmSTR_DLfunctie", "prmDLfunctie", " 0, 0", &ProblemParameters::m_strDLfunctie},
    {Kind::LessEqual, "prmSTR_KleinerGelijkVglen", "prmKleinerGelijkVglen", " 0, 0, 0, 0",
     &ProblemParameters::m_strKleinerGelijkVglen},
    {Kind::GreaterEqual, "prmSTR_GroterGelijkVglen", "prmGroterGelijkVglen", "",
     &ProblemParameters::m_strGroterGelijkVglen},
    {Kind::Equal, "prmSTR_GelijkVglen", "prmGelijkVglen", "", &ProblemParameters::m_strGelijkVglen},
    {Kind::RightHandSides, "prmSTR_RL", "prmRL", " 0, 0", &ProblemParameters::m_strRL},
};

namespace {

// The cells that a list of coefficients or right-hand sides fills, row by row.
struct Target {
  int first_row, rows, columns;
};

Target target_of(ListParameter::Kind kind, const basSafeCtl& model) {
  const int n = model.NrBeslisVar, a = model.NrKleinerGelijkVglen, b = model.NrGroterGelijkVglen;
  switch (kind) {
    case ListParameter::Kind::LessEqual:
      return {1, a, n};
    case ListParameter::Kind::GreaterEqual:
      return {a + 1, b, n};
    case ListParameter::Kind::Equal:
      return {a + b + 1, model.NrGelijkVglen, n};
    default:
      return {1, model.rows(), 1};
  }
}

}  // namespace

void ProblemParameters::WisLijst() {
  std::fill_n(strLijst.begin() + 1, wiped_items, " 0");
}

Result<> ProblemParameters::read(const PropertyBag& page) {
  std::array<std::int16_t, std::size(count_parameters)> before{};
  std::ranges::transform(count_parameters, before.begin(),
                         [&](const auto& each) { return model_.*each.count; });
  auto read = read_counts(page);
  if (read) read = read_lists(page);
  if (!read) {  // the page's problem cannot be shown: an empty one of the size before can
    for (std::size_t at = 0; at < before.size(); ++at) model_.*count_parameters[at].count = before[at];
    surface_.report(model_.set_derived_counts());
    surface_.report(InitTableau(model_));
  }
  grid_.redraw();
  return read;
}

Result<> ProblemParameters::read_counts(const PropertyBag& page) {
  for (const CountParameter& parameter : count_parameters) {
    const auto given = page.read(parameter.name);
    model_.*parameter.count =
        TRY(numbers::to_int16(given ? std::string_view(*given) : parameter.if_missing).about(parameter.name));
  }
  TRY(model_.set_derived_counts().about(count_too_large(model_)));
  return InitTableau(model_).about(count_too_large(model_));
}

Result<> ProblemParameters::read_lists(const PropertyBag& page) {
  for (const ListParameter& parameter : ListParameter::all) {
    const auto given = page.read(parameter.key);
    TRY(apply_list(parameter, given ? *given : parameter.if_missing).about(parameter.key));
  }
  return {};
}

std::optional<Result<>> ProblemParameters::set(std::string_view name, const PropertyValue& value) {
  for (const CountParameter& parameter : count_parameters) {
    if (!same_name(name, parameter.name)) continue;
    model_.*parameter.count = TRY(to_count(value).about(parameter.name));
    return Result<>{};
  }
  for (const ListParameter& parameter : ListParameter::all)
    if (same_name(name, parameter.property))
      return set_list(parameter, to_text(value)).about(parameter.property);
  if (same_name(name, "prmShow")) return set_prmShow(value).about("prmShow");
  return std::nullopt;
}

Result<> ProblemParameters::set_prmShow(const PropertyValue& value) {
  if (!TRY(to_truth(value))) return {};
  return show_new_problem();
}

Result<> ProblemParameters::show_new_problem() {
  TRY(problem_.start_problem().about(count_too_large(model_)));
  surface_.desk().call(surface_, problem_.show_problem());
  return {};
}

// A list is for the counts of the moment. Where the tableau is not, because a script has set other counts and
// not yet shown them, a new one comes first: else rows and columns would belong to different problems.
Result<> ProblemParameters::set_list(const ListParameter& parameter, std::string_view text) {
  if (!model_.is_laid_out()) TRY(show_new_problem());
  Result<> applied = apply_list(parameter, text);
  if (applied) applied = grid_.ToonTableau(model_.StartKolom, model_.StartRij);
  if (applied) graph_.problem_changed();
  surface_.desk().flush();
  return applied;
}

Result<> ProblemParameters::apply_list(const ListParameter& parameter, std::string_view given) {
  const std::string text = on_one_line(given);
  this->*parameter.last_text = text;
  WisLijst();
  return parameter.kind == ListParameter::Kind::Objective ? apply_objective(text)
                                                          : apply_rows(parameter, text);
}

// The items of the objective go straight into row F: an empty one keeps the text that stands there.
Result<> ProblemParameters::apply_objective(std::string_view text) {
  if (model_.NrBeslisVar > most_columns) return fail(ErrorNumber::SubscriptOutOfRange);
  CellRow& row = model_.current.row_F();
  const auto check = [](int, std::string_view words) { return numbers::fits_double(words); };
  const auto store = [&row](int item, std::string_view words) -> Result<> {
    row.write_text(item, words);
    return {};
  };
  TRY(SplitsLijst(model_.NrBeslisVar, text, check));
  TRY(SplitsLijst(model_.NrBeslisVar, text, store));
  for (int column = 1; column <= model_.NrBeslisVar; ++column)
    write_in_both(row, model_.first.row_F(), column, row.text(column));
  return {};
}

Result<> ProblemParameters::apply_rows(const ListParameter& parameter, std::string_view text) {
  const Target target = target_of(parameter.kind, model_);
  const int items = target.rows * target.columns;
  const auto store = [this](int item, std::string_view words) -> Result<> {
    if (item > most_items) return fail(ErrorNumber::SubscriptOutOfRange);
    TRY(numbers::fits_double(words));
    strLijst[static_cast<std::size_t>(item)] = words;
    return {};
  };
  TRY(SplitsLijst(items, text, store));
  if (target.rows <= 0 || target.columns <= 0) return {};
  const int last_row = target.first_row + target.rows - 1;
  if (target.first_row < 1 || last_row > most_rows || target.columns > most_columns)
    return fail(ErrorNumber::SubscriptOutOfRange);
  const bool right = parameter.kind == ListParameter::Kind::RightHandSides;
  for (int item = 1; item <= items; ++item) {
    const int row = target.first_row + (item - 1) / target.columns;
    const int column = right ? CellRow::right_hand_side : (item - 1) % target.columns + 1;
    write_in_both(model_.current.row(row), model_.first.row(row), column,
                  strLijst[static_cast<std::size_t>(item)]);
  }
  return {};
}

}  // namespace tabulon
