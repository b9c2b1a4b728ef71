// The messages, the About box, and the commands that run the method and tell about it.
#include "tests/control/control_fixture.h"

namespace tabulon::tests {
namespace {

class Messages : public ControlTest {
 protected:
  void show(std::int16_t number, const char* free_text = "") {
    model.MeldingNr = number;
    model.strMelding = free_text;
    host.desk().call(control, control.ShowfrmMelding());
  }
};

struct Message {
  std::int16_t number;
  const char* text;
  double left;
  bool warns;
};

void PrintTo(const Message& message, std::ostream* out) {
  *out << message.text;
}

class NumberedMessages : public Messages, public testing::WithParamInterface<Message> {};

TEST_P(NumberedMessages, ShowTheirTextInItsPlace) {
  show(GetParam().number, "Basisoplossing opvragen");
  EXPECT_EQ(form(), "frmMelding");
  EXPECT_EQ(form_caption(), " Tabloria");
  EXPECT_EQ(text("lblMelding"), GetParam().text);
  EXPECT_EQ(left("lblMelding"), GetParam().left);
  EXPECT_EQ(shown("imgWarning"), GetParam().warns);
  EXPECT_EQ(text("cmdOK"), "OK");
  click("cmdOK");
  EXPECT_EQ(form(), "");
}

INSTANTIATE_TEST_SUITE_P(All, NumberedMessages,
                         testing::Values(Message{0, "Basisoplossing opvragen", 150, false},
                                         Message{1, "Invoerfout!", 810, true},
                                         Message{2, "Pivotelement niet gevonden!", 210, false},
                                         Message{3, "Optimale oplossing gevonden!", 150, false},
                                         Message{4, "Modelfout!", 840, true}));

TEST_F(Messages, AnyOtherNumberLeavesTheFormAsItWasDrawn) {
  for (const std::int16_t number :
       {std::int16_t{5}, std::int16_t{-1}, std::int16_t{32767}, std::int16_t{-32768}}) {
    show(number);
    EXPECT_EQ(form_caption(), " Tabloria") << number;
    EXPECT_EQ(text("lblMelding"), "Modelfout!") << number;
    EXPECT_EQ(left("lblMelding"), 810) << number;
    EXPECT_TRUE(shown("imgWarning")) << number;
    press("Enter");
  }
}

TEST_F(Messages, AFreeTextMayBeEmpty) {
  show(0, "");
  EXPECT_EQ(text("lblMelding"), "");
  EXPECT_FALSE(shown("imgWarning"));
}

TEST_F(Messages, EachShowingIsAFreshForm) {
  show(3);
  press("Enter");
  show(9);
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
  EXPECT_TRUE(shown("imgWarning"));
}

TEST_F(Messages, TwoCallsInARowShowTwoForms) {
  show(3);
  show(4);
  EXPECT_EQ(host.open_forms().size(), 2U);
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
  press("Enter");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_FALSE(host.is_busy(control));
}

TEST_F(Messages, EnterSpaceAndEscapeCloseThem) {
  for (const char* key : {"Enter", "Space", "Escape"}) {
    show(3);
    press(key);
    EXPECT_EQ(form(), "") << key;
  }
}

TEST_F(Messages, ACallEndsWhenItsFormHasClosed) {
  model.MeldingNr = 3;
  const auto call = host.desk().call(control, control.ShowfrmMelding());
  EXPECT_NE(call, 0);
  EXPECT_TRUE(host.ended_calls.empty());
  press("Enter");
  EXPECT_EQ(host.ended_calls, (std::vector<platform::Ticket>{call}));
}

TEST_F(Messages, AnErrorTextIsShownWithTheWarningSign) {
  model.strFoutmelding = "Bestand niet gevonden: é.tbl";
  host.desk().call(control, control.ShowfrmFoutmelding());
  EXPECT_EQ(form(), "frmFoutmelding");
  EXPECT_EQ(form_caption(), " Tabloria");
  EXPECT_EQ(text("lblMelding"), "Bestand niet gevonden: é.tbl");
  EXPECT_TRUE(shown("imgWarning"));
  click("cmdOK");
  EXPECT_EQ(form(), "");
}

TEST_F(Messages, TheAboutBoxTellsWhatThisIs) {
  open();
  choose("mnu_About");
  EXPECT_EQ(form(), "frmAboutLP");
  EXPECT_EQ(form_caption(), "Over Tabloria op Internet");
  EXPECT_EQ(text("lblTitle"), "Tabloria op Internet Versie 2.0.0.75");
  EXPECT_EQ(text("lblDescription"),
            "Tabloria is een programma waarmee je LP-probemen volgens de Simplex-methode kunt oplossen. Het "
            "programma "
            "is geschikt voor de bovenbouw (Tweede Fase) HAVO 5 en VWO 5/6 met Wiskunde A en Economie.");
  EXPECT_NE(text("lblVersion"), "");
  EXPECT_NE(text("lblDisclaimer").find("alleen toegestaan zoals de licentie zegt"), std::string::npos);
  click("cmdOK");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Messages, TheAboutBoxShowsTheLinesAboveItsWarning) {
  open();
  choose("mnu_About");
  EXPECT_TRUE(shown("lineAbove"));
  EXPECT_TRUE(shown("lineBelow"));
}

TEST_F(Messages, AScriptMayShowTheAboutBox) {
  host.desk().call(control, control.ShowAboutBox());
  EXPECT_EQ(form(), "frmAboutLP");
}

TEST_F(Messages, WhileOneIsOpenTheControlTakesNoEvent) {
  open(two_products);
  show(3);
  EXPECT_FALSE(host.desk().click(*control.find("cmd_Bestand")));
  host.desk().key(control, {'B', platform::modifier::alt});
  EXPECT_FALSE(host.desk().scroll(static_cast<platform::ScrollBar&>(*control.find("HScroll")), 2));
  EXPECT_EQ(menu(), "");
}

// ---- Optimising

class Optimising : public ControlTest {
 protected:
  // One variable that may grow for ever.
  const Parameters unbounded{
      {"prmSTR_DLfunctie", "-1, 0"}, {"prmSTR_KleinerGelijkVglen", " 0, 1, 0, 1"}, {"prmSTR_RL", " 4, 4"}};
  // One step, then unbounded.
  const Parameters unbounded_later{
      {"prmSTR_DLfunctie", "-2, -1"}, {"prmSTR_KleinerGelijkVglen", " 1, -1, 0, 0"}, {"prmSTR_RL", " 4, 4"}};
};

TEST_F(Optimising, ShowsTheOptimumAndTheClosingMessage) {
  open(two_products);
  choose("mnu_optimaliseren");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), " 36");
  EXPECT_EQ(text("lblNRTableau"), "3-e Simplex-tableau");
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_FALSE(model.DialoogOK);
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Optimising, AnOptimalTableauGetsOnlyTheMessage) {
  open({{"prmSTR_DLfunctie", " 1, 2"}});
  choose("mnu_optimaliseren");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
}

TEST_F(Optimising, AnEntryThatIsNearlyZeroIsNoReasonToGoOn) {
  open({{"prmSTR_DLfunctie", "-.00000000005, 0"}, {"prmSTR_KleinerGelijkVglen", " 1, 1, 1, 1"}});
  choose("mnu_Pivot_element");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
}

TEST_F(Optimising, AnUnboundedProblemIsAModelError) {
  open(unbounded);
  choose("mnu_optimaliseren");
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  choose("mnu_Pivot_element");
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
}

// F is to become infinite.
const Parameters beyond_doubles{{"prmSTR_DLfunctie", "-1e300, 0"},
                                {"prmSTR_KleinerGelijkVglen", " 1, 0, 0, 1"},
                                {"prmSTR_RL", " 1e300, 1"}};

TEST_F(Optimising, NumbersThatBecomeTooLargeAreToldAndTheControlGoesOnWorking) {
  open(beyond_doubles);
  for (int round = 0; round < 2; ++round) {
    choose("mnu_optimaliseren");
    EXPECT_EQ(form(), "frmFoutmelding");
    EXPECT_EQ(form_caption(), " Tabloria");
    EXPECT_EQ(text("lblMelding"), "Een getal wordt te groot om mee te rekenen. Deze stap kan niet.");
    press("Enter");
    EXPECT_EQ(form(), "");
    EXPECT_EQ(focus(), "txtFocus");
  }
  EXPECT_TRUE(host.reports.empty());
  EXPECT_FALSE(host.is_busy(control));
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  choose("mnu_Reset");
  enter_text("txtRL", 1, "4");
  enter_text("txtRij_F", 1, "-3");
  choose("mnu_optimaliseren");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
}

TEST_F(Optimising, EveryStepTellsOfNumbersThatBecomeTooLarge) {
  for (const char* command : {"mnu_Kolommen_vegen", "mnu_Automatisch_vegen"}) {
    open(beyond_doubles);
    choose(command);
    for (int pressed = 0; form() != "frmFoutmelding" && pressed < 5; ++pressed) {
      press("Enter");
      host.advance(1.1);
      host.answer_all();
    }
    EXPECT_EQ(form(), "frmFoutmelding") << command;
    press("Enter");
    EXPECT_EQ(form(), "") << command;
    EXPECT_FALSE(host.is_busy(control)) << command;
  }
}

TEST_F(Optimising, TheStepsBeforeAModelErrorStay) {
  open(unbounded_later);
  choose("mnu_optimaliseren");
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
  EXPECT_EQ(text("lblBasis", 1), "x  1");
}

TEST_F(Optimising, WithoutAStepAPivotMessageComesOnlyOnce) {
  open({{"prmSTR_DLfunctie", " 1, 2"}});
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtFocus");
}

// ---- Sweeping step by step

class StepByStep : public Optimising {
 protected:
  // Lets the second after a step go by.
  void wait() {
    host.answer_all();
    EXPECT_TRUE(host.sleeps());
    host.advance(1.0);
  }
};

TEST_F(StepByStep, TellsEachStepAndWaitsASecondAfterIt) {
  open(two_products);
  choose("mnu_Automatisch_vegen");
  EXPECT_EQ(text("lblMelding"), "Basisoplossing opvragen");
  EXPECT_FALSE(shown("imgWarning"));
  press("Enter");
  EXPECT_EQ(form(), "");
  wait();
  EXPECT_EQ(text("lblMelding"), "Kolom 2 vegen met rij 2");
  EXPECT_EQ(control.find("txtTableau", box(2, 2))->tool_tip(), " Pivotelement ");
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
  EXPECT_EQ(text("lblFRL"), " 30");
  wait();
  EXPECT_EQ(text("lblMelding"), "Kolom 1 vegen met rij 3");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), " 36");
  wait();
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_FALSE(host.is_busy(control));
  EXPECT_EQ(text("lblNRTableau"), "3-e Simplex-tableau");
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_FALSE(model.DialoogOK);
}

TEST_F(StepByStep, ThePauseLastsTheWholeSecondAndTakesNoEvent) {
  open(two_products);
  choose("mnu_Automatisch_vegen");
  press("Enter");
  host.answer_all();
  host.advance(0.5);
  EXPECT_EQ(form(), "");
  EXPECT_TRUE(host.is_busy(control));
  EXPECT_FALSE(click("txtTableau", 1));
  EXPECT_FALSE(host.desk().click(*control.find("cmd_Bestand")));
  host.advance(0.5);
  EXPECT_EQ(form(), "frmMelding");
}

TEST_F(StepByStep, TheScreenFollowsBeforeThePause) {
  open(two_products);
  choose("mnu_Automatisch_vegen");
  host.desk().key(front(), key_named("Enter"));
  EXPECT_TRUE(host.has_pending());
  EXPECT_FALSE(host.sleeps());
  host.answer_all();
  EXPECT_TRUE(host.sleeps());
}

TEST_F(StepByStep, AnOptimalTableauIsToldAfterTheBasicSolution) {
  open({{"prmSTR_DLfunctie", " 1, 2"}});
  choose("mnu_Automatisch_vegen");
  EXPECT_EQ(text("lblMelding"), "Basisoplossing opvragen");
  press("Enter");
  wait();
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
}

TEST_F(StepByStep, AnUnboundedProblemEndsInAModelErrorAfterItsSteps) {
  open(unbounded_later);
  choose("mnu_Automatisch_vegen");
  press("Enter");
  wait();
  EXPECT_EQ(text("lblMelding"), "Kolom 1 vegen met rij 1");
  press("Enter");
  wait();
  EXPECT_EQ(text("lblMelding"), "Modelfout!");
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
}

TEST_F(StepByStep, NumbersOfTwoDigitsStandAfterOneBlank) {
  Parameters page{{"prmNrBeslisVar", "12"}, {"prmNrKleinerGelijkVglen", "10"}};
  std::string objective, rows, right;
  for (int column = 1; column <= 12; ++column) objective += column == 12 ? "-1" : " 0,";
  for (int row = 1; row <= 10; ++row) {
    for (int column = 1; column <= 11; ++column) rows += " 0,";
    rows += row == 10 ? " 1" : " 0,";
    right += row == 10 ? " 5" : " 0,";
  }
  page["prmSTR_DLfunctie"] = objective;
  page["prmSTR_KleinerGelijkVglen"] = rows;
  page["prmSTR_RL"] = right;
  open(page);
  choose("mnu_Automatisch_vegen");
  press("Enter");
  wait();
  EXPECT_EQ(text("lblMelding"), "Kolom 12 vegen met rij 10");
  EXPECT_EQ(model.StartKolom, 8);
  EXPECT_EQ(model.StartRij, 4);
}

TEST_F(StepByStep, AFirstTableauOutOfCanonicalFormIsPutRightWithoutCounting) {
  Parameters page = every_kind;
  page["prmSTR_GroterGelijkVglen"] = " 1, 0, 0, 1";
  page["prmSTR_RL"] = " 9, 9, 1, 2, 0, 0";
  open(page);
  choose("mnu_Automatisch_vegen");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), "-300");
  EXPECT_EQ(text("txtRij_F", 1), "-100");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  EXPECT_TRUE(host.is_busy(control));
}

}  // namespace
}  // namespace tabulon::tests
