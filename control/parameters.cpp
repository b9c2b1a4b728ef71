// The page's parameters and the script's properties.
#include <algorithm>
#include <span>

#include "control/LPctrl.h"
#include "numbers/conversions.h"

namespace tabulon {

namespace {

constexpr int most_items = 300;
constexpr int wiped_items = 100;  // the items beyond keep what an earlier list left there

struct CountParameter {
  std::string_view name;
  std::int16_t basSafeCtl::* count;
  std::string_view if_missing;
};

constexpr CountParameter count_parameters[] = {
    {"prmNrBeslisVar", &basSafeCtl::NrBeslisVar, "2"},
    {"prmNrKleinerGelijkVglen", &basSafeCtl::NrKleinerGelijkVglen, "2"},
    {"prmNrGroterGelijkVglen", &basSafeCtl::NrGroterGelijkVglen, "0"},
    {"prmNrGelijkVglen", &basSafeCtl::NrGelijkVglen, "0"},
    {"prmBigM", &basSafeCtl::BigM, " 100"},
};

struct ListParameter {
  LPctrl::ListKind kind;
  std::string_view key;       // on the page
  std::string_view property;  // for a script
  std::string_view if_missing;
};

constexpr ListParameter list_parameters[] = {
    {LPctrl::objective, "prmSTR_DLfunctie", "prmDLfunctie", " 0, 0"},
    {LPctrl::less_equal, "prmSTR_KleinerGelijkVglen", "prmKleinerGelijkVglen", " 0, 0, 0, 0"},
    {LPctrl::greater_equal, "prmSTR_GroterGelijkVglen", "prmGroterGelijkVglen", ""},
    {LPctrl::equal, "prmSTR_GelijkVglen", "prmGelijkVglen", ""},
    {LPctrl::right_hand_sides, "prmSTR_RL", "prmRL", " 0, 0"},
};

bool same_name(std::string_view one, std::string_view other) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter;
  };
  return std::ranges::equal(one, other, {}, lower, lower);
}

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
  const auto number = numbers::to_int16(text);
  if (!number) return std::unexpected(number.error());
  return *number != 0;
}

std::string to_text(const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
  return numbers::Str(std::get<double>(value));
}

// Says which parameter an error is about.
RunTimeError about(RunTimeError error, std::string_view name) {
  error.subject = name;
  return error;
}

// The cells that a list of coefficients or right-hand sides fills, row by row.
struct Target {
  int first_row, rows, columns;
};

Target target_of(LPctrl::ListKind kind, const basSafeCtl& model) {
  const int n = model.NrBeslisVar, a = model.NrKleinerGelijkVglen, b = model.NrGroterGelijkVglen;
  switch (kind) {
    case LPctrl::less_equal:
      return {1, a, n};
    case LPctrl::greater_equal:
      return {a + 1, b, n};
    case LPctrl::equal:
      return {a + b + 1, model.NrGelijkVglen, n};
    default:
      return {1, model.rows(), 1};
  }
}

void write_in_both(CellRow& current, CellRow& first, int column, const std::string& words) {
  const double value = numbers::Val(words);
  current.write(column, value, words);
  first.write(column, value, words);
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
      if (auto stored = store(item, text.substr(begin, comma - begin)); !stored) return stored;
      begin = comma;
    }
  } while (item <= count);
  return {};
}

}  // namespace

void LPctrl::WisLijst() {
  std::fill_n(strLijst_.begin() + 1, wiped_items, " 0");
}

Result<> LPctrl::UserControl_ReadProperties(const PropertyBag& page) {
  std::array<std::int16_t, std::size(count_parameters)> before{};
  std::ranges::transform(count_parameters, before.begin(),
                         [&](const auto& each) { return model_.*each.count; });
  auto read = read_counts(page);
  if (read) read = read_lists(page);
  if (!read) {  // the page's problem cannot be shown: an empty one of the size before can
    for (std::size_t at = 0; at < before.size(); ++at) model_.*count_parameters[at].count = before[at];
    report(model_.set_derived_counts());
    report(InitTableau());
  }
  redraw();
  return read;
}

Result<> LPctrl::read_counts(const PropertyBag& page) {
  for (const CountParameter& parameter : count_parameters) {
    const auto given = page.read(parameter.name);
    const auto number = numbers::to_int16(given ? std::string_view(*given) : parameter.if_missing);
    if (!number) return std::unexpected(about(number.error(), parameter.name));
    model_.*parameter.count = *number;
  }
  if (auto counted = model_.set_derived_counts(); !counted) return counted;
  return InitTableau();
}

Result<> LPctrl::read_lists(const PropertyBag& page) {
  for (const ListParameter& parameter : list_parameters) {
    const auto given = page.read(parameter.key);
    const auto applied = apply_list(parameter.kind, given ? *given : parameter.if_missing);
    if (!applied) return std::unexpected(about(applied.error(), parameter.key));
  }
  return {};
}

std::optional<Result<>> LPctrl::set_property(std::string_view name, const PropertyValue& value) {
  for (const CountParameter& parameter : count_parameters) {
    if (!same_name(name, parameter.name)) continue;
    const auto number = to_count(value);
    if (!number) return std::unexpected(about(number.error(), parameter.name));
    model_.*parameter.count = *number;
    return Result<>{};
  }
  for (const ListParameter& parameter : list_parameters) {
    if (!same_name(name, parameter.property)) continue;
    auto applied = apply_list(parameter.kind, to_text(value));
    if (applied) applied = ToonTableau(model_.StartKolom, model_.StartRij);
    desk().flush();
    if (!applied) return std::unexpected(about(applied.error(), parameter.property));
    return Result<>{};
  }
  if (same_name(name, "prmShow")) return set_prmShow(value);
  return std::nullopt;
}

Result<> LPctrl::set_prmShow(const PropertyValue& value) {
  const auto wanted = to_truth(value);
  if (!wanted) return std::unexpected(about(wanted.error(), "prmShow"));
  if (!*wanted) return {};
  const auto built = UserControl_Initialize();
  if (!built) return std::unexpected(about(built.error(), "prmShow"));
  desk().call(*this, UserControl_Show());
  return {};
}

Result<> LPctrl::apply_list(ListKind kind, std::string_view text) {
  lists_[kind] = text;
  WisLijst();
  return kind == objective ? apply_objective(text) : apply_rows(kind, text);
}

// The items of the objective go straight into row F: an empty one keeps the text that stands there.
Result<> LPctrl::apply_objective(std::string_view text) {
  if (model_.NrBeslisVar > most_columns) return fail(ErrorNumber::SubscriptOutOfRange);
  CellRow& row = model_.current.row_F();
  const auto store = [&row](int item, std::string_view words) -> Result<> {
    row.write_text(item, words);
    return {};
  };
  if (auto split = SplitsLijst(model_.NrBeslisVar, text, store); !split) return split;
  for (int column = 1; column <= model_.NrBeslisVar; ++column)
    write_in_both(row, model_.first.row_F(), column, row.text(column));
  return {};
}

Result<> LPctrl::apply_rows(ListKind kind, std::string_view text) {
  const Target target = target_of(kind, model_);
  const int items = target.rows * target.columns;
  const auto store = [this](int item, std::string_view words) -> Result<> {
    if (item > most_items) return fail(ErrorNumber::SubscriptOutOfRange);
    strLijst_[static_cast<std::size_t>(item)] = words;
    return {};
  };
  if (auto split = SplitsLijst(items, text, store); !split) return split;
  if (target.rows <= 0 || target.columns <= 0) return {};
  const int last_row = target.first_row + target.rows - 1;
  if (target.first_row < 1 || last_row > most_rows || target.columns > most_columns)
    return fail(ErrorNumber::SubscriptOutOfRange);
  for (int item = 1; item <= items; ++item) {
    const int row = target.first_row + (item - 1) / target.columns;
    const int column = kind == right_hand_sides ? CellRow::right_hand_side : (item - 1) % target.columns + 1;
    write_in_both(model_.current.row(row), model_.first.row(row), column,
                  strLijst_[static_cast<std::size_t>(item)]);
  }
  return {};
}

}  // namespace tabulon
