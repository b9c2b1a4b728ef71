// A run of many steps gives the host's thread back, and can be given up.
#include <gtest/gtest.h>

#include <cmath>

#include "control/LPctrl.h"
#include "hosts/headless/headless_host.h"

namespace tabulon {
namespace {

constexpr int variables = 8;

std::string whole(double number) {
  return " " + std::to_string(static_cast<long long>(number));
}

// Klee and Minty's problem: F = sum of 10^(n-j) x_j, where row i is 2 * sum over j < i of 10^(i-j) x_j, plus
// x_i, at most 100^(i-1). Going by the largest coefficient visits every one of its 2^n corners.
ParameterList klee_minty() {
  std::string objective, rows, right;
  for (int i = 1; i <= variables; ++i) {
    const std::string comma = i == 1 ? "" : ",";
    objective += comma + whole(-std::pow(10, variables - i));
    right += comma + whole(std::pow(100, i - 1));
    for (int j = 1; j <= variables; ++j)
      rows += (rows.empty() ? "" : ",") + whole(j < i ? 2 * std::pow(10, i - j) : j == i ? 1 : 0);
  }
  return {{"prmNrBeslisVar", std::to_string(variables)},
          {"prmNrKleinerGelijkVglen", std::to_string(variables)},
          {"prmSTR_DLfunctie", objective},
          {"prmSTR_KleinerGelijkVglen", rows},
          {"prmSTR_RL", right}};
}

class LongRun : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(control.UserControl_Initialize());
    ASSERT_TRUE(control.UserControl_ReadProperties(klee_minty()));
    desk.call(control, control.UserControl_Show());
    host.answer_all();
  }
  void TearDown() override { desk.abandon(control); }

  void optimise() {
    desk.key(control, {'W', platform::modifier::alt});
    desk.key(control, {'O'});
  }
  void expect_solved() {
    ASSERT_NE(host.top_form(), nullptr);
    EXPECT_EQ(host.top_form()->find("lblMelding")->text(), "Optimale oplossing gevonden!");
    EXPECT_EQ(model.NrTableau, 256);
    EXPECT_EQ(control.find("lblFRL")->text(), " 1.00E+14");
  }

  platform::HeadlessHost host;
  platform::Desk& desk = host.desk();
  basSafeCtl model;
  LPctrl control{desk, model};
};

TEST_F(LongRun, VisitsEveryCorner) {
  optimise();
  EXPECT_FALSE(host.has_pending());
  expect_solved();
}

TEST_F(LongRun, GivesTheThreadBackBetweenBatchesAndEndsTheSame) {
  host.yield_every = 1;
  optimise();
  int yields = 0;
  while (host.has_pending()) {
    EXPECT_TRUE(host.is_busy(control));
    EXPECT_EQ(host.top_form(), nullptr);
    const int before = model.NrTableau;
    EXPECT_TRUE(host.answer_one());
    ++yields;
    EXPECT_GT(model.NrTableau, before);
  }
  EXPECT_GE(yields, 3);
  expect_solved();
  EXPECT_FALSE(host.is_busy(control));
}

TEST_F(LongRun, HandlesNoEventBetweenBatches) {
  host.yield_every = 1;
  optimise();
  ASSERT_TRUE(host.has_pending());
  EXPECT_FALSE(desk.click(*control.find("cmd_Bewerken")));
  EXPECT_FALSE(desk.focus(*control.find("txtTableau", 1)));
  EXPECT_TRUE(desk.key(control, {'H', platform::modifier::alt}));
  EXPECT_EQ(host.open_menu(), nullptr);
  host.answer_all();
  expect_solved();
}

TEST_F(LongRun, CanBeGivenUp) {
  host.yield_every = 1;
  optimise();
  host.answer_one();
  const int reached = model.NrTableau;
  EXPECT_LT(reached, 256);
  desk.abandon(control);
  EXPECT_FALSE(host.is_busy(control));
  host.answer_all();
  EXPECT_EQ(model.NrTableau, reached);
  EXPECT_EQ(host.top_form(), nullptr);
  host.yield_every = 0;
  optimise();  // and taken up again
  expect_solved();
}

}  // namespace
}  // namespace tabulon
