#include "hosts/web/lesson/tableau_numbers.h"

#include <cstring>

namespace tabulon::web {

namespace {

class Numbers {
 public:
  explicit Numbers(std::string_view bytes) : rest_(bytes) {}

  double next() {
    double number = 0;
    if (rest_.size() < sizeof number) {
      is_whole_ = false;
      return 0;
    }
    std::memcpy(&number, rest_.data(), sizeof number);
    rest_.remove_prefix(sizeof number);
    return number;
  }
  std::int16_t count() { return static_cast<std::int16_t>(next()); }
  bool is_all() const { return is_whole_ && rest_.empty(); }

 private:
  std::string_view rest_;
  bool is_whole_ = true;
};

void read_counts(Numbers& numbers, basSafeCtl& model) {
  model.NrBeslisVar = numbers.count();
  model.NrKleinerGelijkVglen = numbers.count();
  model.NrGroterGelijkVglen = numbers.count();
  model.NrGelijkVglen = numbers.count();
  model.BigM = numbers.count();
}

void read_row(Numbers& numbers, CellRow& row, int columns) {
  for (int column = 1; column <= columns; ++column) row.write(column, numbers.next());
  row.write(CellRow::right_hand_side, numbers.next());
}

bool read(Numbers numbers, basSafeCtl& model) {
  const std::int16_t number = numbers.count();
  read_counts(numbers, model);
  model.Breuken = numbers.next() != 0;
  if (!model.set_derived_counts() || !InitTableau(model)) return false;
  model.NrTableau = number;
  for (int row = 1; row <= model.rows(); ++row) model.current.set_basis(row, numbers.count());
  read_row(numbers, model.current.row_F(), model.columns());
  for (int row = 1; row <= model.rows(); ++row) read_row(numbers, model.current.row(row), model.columns());
  return numbers.is_all();
}

}  // namespace

bool read_tableau_numbers(std::string_view bytes, basSafeCtl& model) {
  return read(Numbers(bytes), model);
}

}  // namespace tabulon::web
