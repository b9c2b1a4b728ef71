// What is odd about the method and its commands on purpose, where no test of its subject tells it already.
#include <cmath>

#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Oddities : public ControlTest {
 protected:
  void optimise(const Parameters& problem) {
    open(problem);
    choose("mnu_optimaliseren");
  }
};

// Maximise 2 x1 + x2 with x1 - x2 <= 0, x1 <= 4, x2 <= 3: the optimum is F = 9 in (3, 3). The first row has
// right-hand side 0 and is passed over, so that x1 is made 4 without it.
TEST_F(Oddities, ADegenerateProblemCanEndInAWrongCorner) {
  optimise({{"prmNrKleinerGelijkVglen", "3"},
            {"prmSTR_DLfunctie", "-2, -1"},
            {"prmSTR_KleinerGelijkVglen", " 1, -1, 1, 0, 0, 1"},
            {"prmSTR_RL", " 0, 4, 3"}});
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), " 11");
  EXPECT_EQ(text("lblBasis", 1), "x  3");
  EXPECT_EQ(text("txtRL", 1), "-1");
}

// Maximise x1 with x1 <= 0: the optimum is 0.
TEST_F(Oddities, WhereOnlyZeroRowsCouldLeaveTheModelIsCalledWrong) {
  optimise({{"prmNrKleinerGelijkVglen", "1"},
            {"prmSTR_DLfunctie", "-1, 0"},
            {"prmSTR_KleinerGelijkVglen", " 1, 0"},
            {"prmSTR_RL", " 0"}});
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
}

// x1 <= 2 and x1 >= 4.
TEST_F(Oddities, AProblemWithoutASolutionEndsAsOptimalWithAnArtificialVariable) {
  optimise({{"prmNrKleinerGelijkVglen", "1"},
            {"prmNrGroterGelijkVglen", "1"},
            {"prmSTR_DLfunctie", "-1, 0"},
            {"prmSTR_KleinerGelijkVglen", " 1, 0"},
            {"prmSTR_GroterGelijkVglen", " 1, 0"},
            {"prmSTR_RL", " 2, 4"}});
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(text("lblBasis", 2), "q  1");
  EXPECT_EQ(text("txtRL", 2), " 2");
}

// ---- The second after a step

TEST_F(Oddities, TheSecondCountsFromBeforeTheScreenFollows) {
  open(two_products);
  choose("mnu_Automatisch_vegen");
  host.desk().key(front(), key_named("Enter"));
  host.set_now(host.now() + 0.75);  // so long the screen takes
  host.answer_all();
  host.advance(0.25);
  EXPECT_EQ(text("lblMelding"), "Kolom 2 vegen met rij 2");
}

class ClockOfADay : public platform::HeadlessHost {
  float seconds_since_midnight() override { return static_cast<float>(std::fmod(now(), 86'400)); }
};

TEST(OdditiesAtMidnight, ASecondThatBeginsJustBeforeNeverEnds) {
  ClockOfADay host;
  host.set_now(86'399.5);
  basSafeCtl model;
  TestedControl control(host.desk(), model);
  Person person(host, control);
  ASSERT_TRUE(open_control(host, control, two_products));
  person.choose("mnu_Automatisch_vegen");
  person.press("Enter");
  for (int hour = 1; hour <= 30; ++hour) host.advance(3600);
  EXPECT_EQ(person.form(), "");
  EXPECT_TRUE(host.is_busy(control));
  host.desk().abandon(control);
}

// ---- A clock that is set back during the second after a step

class ClockThatIsSetBack : public platform::HeadlessHost {
 public:
  double set_back = 0;

 private:
  float seconds_since_midnight() override { return static_cast<float>(now() - set_back); }
};

TEST(AClockSetBackDuringAPause, KeepsTheControlBusyAndLeavesAPageThatLives) {
  ClockThatIsSetBack host;
  basSafeCtl model;
  TestedControl other(host.desk(), model);
  ASSERT_TRUE(open_control(host, other, two_products));
  {
    TestedControl control(host.desk(), model);
    Person person(host, control);
    ASSERT_TRUE(open_control(host, control, two_products));
    person.choose("mnu_Automatisch_vegen");
    person.press("Enter");
    host.set_back = 3600;
    host.advance(1800);
    EXPECT_TRUE(host.is_busy(control));
    EXPECT_EQ(person.form(), "");
    EXPECT_FALSE(person.click("cmd_Help"));
    host.advance(60);  // each wait ends, and nothing but time goes by
    EXPECT_TRUE(host.is_busy(control));
  }
  Person neighbour(host, other);
  EXPECT_TRUE(neighbour.choose("mnu_optimaliseren"));
  EXPECT_EQ(neighbour.text("lblMelding"), "Optimale oplossing gevonden!");
  neighbour.press("Enter");
}

}  // namespace
}  // namespace tabulon
