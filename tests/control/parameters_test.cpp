#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

// ---- What a page gives, by name

TEST(ParameterLists, TellWhatNobodyHasAskedFor) {
  const ParameterList page{{"prmBigM", "50"}, {"prmBigN", "60"}};
  EXPECT_EQ(page.not_asked_for(), (std::vector<std::string_view>{"prmBigM", "prmBigN"}));
  EXPECT_EQ(page.read("prmbigm"), "50");
  EXPECT_EQ(page.read("prmNrBeslisVar"), std::nullopt);
  EXPECT_EQ(page.not_asked_for(), std::vector<std::string_view>{"prmBigN"});
}

// ---- The page's parameters

class PageParameters : public ControlTest {};

TEST_F(PageParameters, APageWithoutAnyGetsTwoVariablesAndTwoRowsOfZeros) {
  open();
  EXPECT_EQ(model.NrBeslisVar, 2);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 2);
  EXPECT_EQ(model.NrGroterGelijkVglen, 0);
  EXPECT_EQ(model.NrGelijkVglen, 0);
  EXPECT_EQ(model.BigM, 100);
  for (int row = 1; row <= 2; ++row)
    for (int column = 1; column <= 2; ++column) EXPECT_EQ(cell(row, column), " 0");
  EXPECT_EQ(text("txtRij_F", 2), " 0");
  EXPECT_EQ(text("txtRL", 2), " 0");
}

TEST_F(PageParameters, TheDerivedCountsFollow) {
  open({{"prmNrKleinerGelijkVglen", "3"}, {"prmNrGroterGelijkVglen", " 2"}, {"prmNrGelijkVglen", "1 "}});
  EXPECT_EQ(model.NrSpelingsVar, 3);
  EXPECT_EQ(model.NrSurplusVar, 2);
  EXPECT_EQ(model.NrKunstmatigeVar, 3);
}

TEST_F(PageParameters, TheObjectiveIsShownAndUsedAsGiven) {
  open({{"prmSTR_DLfunctie", " 3, 5"}});
  EXPECT_EQ(text("txtRij_F", 1), " 3");
  EXPECT_EQ(text("txtRij_F", 2), " 5");
  EXPECT_EQ(model.current.row_F().value(1), 3);
  EXPECT_EQ(model.current.row_F().value(2), 5);
  EXPECT_EQ(model.first.row_F().value(2), 5);
  EXPECT_EQ(model.first.row_F().text(2), " 5");
}

TEST_F(PageParameters, TheItemsFillTheRowsInOrder) {
  open({{"prmSTR_KleinerGelijkVglen", " 1, 2, 3, 4"}, {"prmSTR_RL", " 5, 6"}});
  EXPECT_EQ(cell(1, 1), " 1");
  EXPECT_EQ(cell(1, 2), " 2");
  EXPECT_EQ(cell(2, 1), " 3");
  EXPECT_EQ(cell(2, 2), " 4");
  EXPECT_EQ(text("txtRL", 1), " 5");
  EXPECT_EQ(text("txtRL", 2), " 6");
  EXPECT_EQ(model.first.row(2).value(1), 3);
  EXPECT_EQ(model.first.row(2).right(), 6);
}

TEST_F(PageParameters, EachKindOfConstraintHasItsOwnListAndRows) {
  Parameters page = every_kind;
  page["prmSTR_KleinerGelijkVglen"] = " 1, 2, 3, 4";
  page["prmSTR_GroterGelijkVglen"] = " 5, 6, 7, 8";
  page["prmSTR_GelijkVglen"] = " 9, 10, 11, 12";
  page["prmSTR_RL"] = " 21, 22, 23, 24, 25, 26";
  open(page);
  EXPECT_EQ(cell(3, 1), " 5");
  EXPECT_EQ(cell(4, 2), " 8");
  EXPECT_EQ(cell(5, 1), " 9");
  EXPECT_EQ(cell(6, 2), " 12");
  EXPECT_EQ(text("txtRL", 6), " 26");
}

TEST_F(PageParameters, ListsLeaveTheOtherColumnsAlone) {
  Parameters page = every_kind;
  page["prmSTR_GroterGelijkVglen"] = " 5, 6, 7, 8";
  page["prmBigM"] = "-5";
  open(page);
  EXPECT_EQ(model.current.row(3).text(5), "-1");
  EXPECT_EQ(model.current.row(3).text(7), " 1");
  EXPECT_EQ(model.current.row_F().text(7), "-5");
  EXPECT_EQ(model.current.row_F().value(10), -5);
  EXPECT_EQ(model.current.row_F().text(6), " 0");
}

TEST_F(PageParameters, ABlankBeforeANumberIsPartOfWhatIsShown) {
  open({{"prmSTR_DLfunctie", "3,   5"}});
  EXPECT_EQ(text("txtRij_F", 1), "3");
  EXPECT_EQ(text("txtRij_F", 2), "   5");
}

TEST_F(PageParameters, AnItemIsALeadingNumberAndNoExpression) {
  open({{"prmSTR_DLfunctie", "1/2, -.5E1x"}, {"prmSTR_RL", "abc, 3.5"}});
  EXPECT_EQ(text("txtRij_F", 1), "1/2");
  EXPECT_EQ(model.current.row_F().value(1), 1);
  EXPECT_EQ(model.current.row_F().value(2), -5);
  EXPECT_EQ(text("txtRL", 1), "abc");
  EXPECT_EQ(model.current.row(1).right(), 0);
  EXPECT_EQ(model.current.row(2).right(), 3.5);
}

struct Split {
  const char* list;
  std::array<std::string, 3> items;
};

void PrintTo(const Split& split, std::ostream* out) {
  *out << '"' << split.list << '"';
}

class ListOfThree : public PageParameters, public testing::WithParamInterface<Split> {};

TEST_P(ListOfThree, IsTakenApartAtItsCommas) {
  open({{"prmNrKleinerGelijkVglen", "3"}, {"prmSTR_RL", GetParam().list}});
  for (int row = 1; row <= 3; ++row)
    EXPECT_EQ(text("txtRL", row), GetParam().items[static_cast<std::size_t>(row - 1)]) << "row " << row;
}

INSTANTIATE_TEST_SUITE_P(Lists, ListOfThree,
                         testing::Values(Split{" 1, 2, 3", {" 1", " 2", " 3"}},
                                         Split{" 1,, 3", {" 1", " 0", " 3"}},
                                         Split{" 1, 2,", {" 1", " 2", " 0"}},
                                         Split{", 2", {" 0", " 2", " 0"}}, Split{",,", {" 0", " 0", " 0"}},
                                         Split{",", {" 0", " 0", " 0"}}, Split{"", {" 0", " 0", " 0"}},
                                         Split{"1,2,3,4,5", {"1", "2", "3"}},
                                         Split{"1,,,4", {"1", " 0", " 0"}}, Split{" , ,", {" ", " ", " 0"}},
                                         Split{"7", {"7", " 0", " 0"}}));

struct BadCount {
  const char* name;
  const char* text;
  int error;
};

void PrintTo(const BadCount& bad, std::ostream* out) {
  *out << bad.name << " = \"" << bad.text << '"';
}

class BadCounts : public PageParameters, public testing::WithParamInterface<BadCount> {};

TEST_P(BadCounts, AreRefusedWithTheirNumberAndAnEmptyTableauOfTheSizeBeforeIsShown) {
  const auto read = try_open({{"prmSTR_RL", " 7, 8"}, {GetParam().name, GetParam().text}});
  ASSERT_FALSE(read);
  EXPECT_EQ(static_cast<int>(read.error().number), GetParam().error);
  EXPECT_EQ(read.error().subject, GetParam().name);
  EXPECT_EQ(model.NrBeslisVar, 2);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 2);
  EXPECT_EQ(model.NrGroterGelijkVglen, 0);
  EXPECT_EQ(model.BigM, 100);
  EXPECT_EQ(text("lblKolom", 4), "x  4");
  EXPECT_EQ(text("txtRL", 1), " 0");
  EXPECT_TRUE(shown("txtTableau", 7));
}

INSTANTIATE_TEST_SUITE_P(Counts, BadCounts,
                         testing::Values(BadCount{"prmNrBeslisVar", "drie", 13},
                                         BadCount{"prmNrBeslisVar", "", 13},
                                         BadCount{"prmNrKleinerGelijkVglen", "2.5", 13},
                                         BadCount{"prmNrGroterGelijkVglen", "32768", 6},
                                         BadCount{"prmNrGelijkVglen", "-32769", 6},
                                         BadCount{"prmBigM", "1E5", 6}, BadCount{"prmBigM", "veel", 13}));

TEST_F(PageParameters, CountsBeyondTheStorageAreError9) {
  const auto too_many_rows = try_open({{"prmNrKleinerGelijkVglen", "11"}});
  ASSERT_FALSE(too_many_rows);
  EXPECT_EQ(too_many_rows.error().number, ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 2);
  EXPECT_EQ(model.NrSpelingsVar, 2);
  const auto too_many_columns = try_open({{"prmNrBeslisVar", "29"}});
  ASSERT_FALSE(too_many_columns);
  EXPECT_EQ(too_many_columns.error().number, ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(text("lblKolom", 3), "x  3");
}

TEST_F(PageParameters, ArtificialCountsBeyond16BitsAreError6) {
  const auto read = try_open({{"prmNrGroterGelijkVglen", "20000"}, {"prmNrGelijkVglen", "20000"}});
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().number, ErrorNumber::Overflow);
  EXPECT_EQ(model.NrGelijkVglen, 0);
}

struct TooLarge {
  const char* culprit;
  Parameters page;
};

void PrintTo(const TooLarge& each, std::ostream* out) {
  *out << each.culprit;
}

class CountsTooLarge : public PageParameters, public testing::WithParamInterface<TooLarge> {};

TEST_P(CountsTooLarge, AreRefusedInTheNameOfTheOneThatIs) {
  const auto read = try_open(GetParam().page);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().subject, GetParam().culprit);
  for (const auto& [name, text] : GetParam().page) set(name, text);
  const auto shown_by_script = set("prmShow", true);
  ASSERT_FALSE(*shown_by_script);
  EXPECT_EQ(shown_by_script->error().subject, GetParam().culprit);
}

INSTANTIATE_TEST_SUITE_P(
    Counts, CountsTooLarge,
    testing::Values(TooLarge{"prmNrBeslisVar", {{"prmNrBeslisVar", "31"}}},
                    TooLarge{"prmNrKleinerGelijkVglen", {{"prmNrKleinerGelijkVglen", "11"}}},
                    TooLarge{"prmNrGroterGelijkVglen",
                             {{"prmNrBeslisVar", "20"}, {"prmNrGroterGelijkVglen", "5"}}},
                    TooLarge{"prmNrGelijkVglen", {{"prmNrGelijkVglen", "9"}}},
                    TooLarge{"prmNrGroterGelijkVglen",
                             {{"prmNrGroterGelijkVglen", "20000"}, {"prmNrGelijkVglen", "20000"}}}));

TEST_F(PageParameters, AListMayBeWrittenOverSeveralLines) {
  open({{"prmSTR_DLfunctie", " 3,\t5"}, {"prmSTR_RL", " 4,\r\n 12"}});
  EXPECT_EQ(text("txtRij_F", 2), " 5");
  EXPECT_EQ(model.current.row_F().value(2), 5);
  EXPECT_EQ(text("txtRL", 2), "   12");
  EXPECT_EQ(model.current.row(2).right(), 12);
}

TEST_F(PageParameters, ANumberTooLargeForADoubleIsError6) {
  for (const char* list : {"prmSTR_DLfunctie", "prmSTR_RL"}) {
    const auto read = try_open({{list, " 1,-1e400 euro"}});
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error(), (RunTimeError{ErrorNumber::Overflow, list}));
    EXPECT_EQ(text("txtRL", 1), " 0");
  }
  EXPECT_TRUE(try_open({{"prmSTR_RL", " 1, 1.7E308, 1e400"}})) << "the third item is not asked for";
}

TEST_F(PageParameters, TheLargestProblemFits) {
  ASSERT_TRUE(try_open(
      {{"prmNrBeslisVar", "10"}, {"prmNrGroterGelijkVglen", "10"}, {"prmNrKleinerGelijkVglen", "0"}}));
  EXPECT_EQ(model.columns(), 30);
  scroll("HScroll", 26);
  EXPECT_EQ(text("lblKolom", 5), "q  10");
}

// ---- What a script sets

class ScriptProperties : public ControlTest {};

TEST_F(ScriptProperties, CountsAloneChangeNothingThatIsSeen) {
  open(two_products);
  EXPECT_EQ(error_of("prmNrKleinerGelijkVglen", 1.0), 0);
  EXPECT_EQ(error_of("prmNrBeslisVar", 3.0), 0);
  EXPECT_EQ(error_of("prmNrGroterGelijkVglen", 1.0), 0);
  EXPECT_EQ(error_of("prmNrGelijkVglen", 1.0), 0);
  EXPECT_EQ(error_of("prmBigM", 50.0), 0);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 1);
  EXPECT_EQ(model.NrSpelingsVar, 3);
  EXPECT_EQ(model.NrSurplusVar, 0);
  EXPECT_EQ(model.NrKunstmatigeVar, 0);
  EXPECT_EQ(model.BigM, 50);
  EXPECT_TRUE(cell_shown(3, 1));
  EXPECT_EQ(text("lblKolom", 3), "x  3");
  EXPECT_FALSE(shown("HScroll"));
}

TEST_F(ScriptProperties, ShowBuildsTheNewProblem) {
  open(two_products);
  set("prmNrBeslisVar", 3.0);
  set("prmNrKleinerGelijkVglen", 1.0);
  set("prmNrGroterGelijkVglen", 1.0);
  set("prmBigM", -7.0);
  EXPECT_EQ(error_of("prmShow", true), 0);
  EXPECT_EQ(model.NrSpelingsVar, 1);
  EXPECT_EQ(model.columns(), 6);
  EXPECT_EQ(cell(1, 1), " 0");
  EXPECT_EQ(cell(2, 5), "-1");
  EXPECT_FALSE(cell_shown(3, 1));
  EXPECT_TRUE(shown("HScroll"));
  scroll("HScroll", 2);
  EXPECT_EQ(text("txtRij_F", 5), "-7");
}

TEST_F(ScriptProperties, ShowFalseDoesNothing) {
  open(two_products);
  set("prmNrBeslisVar", 3.0);
  EXPECT_EQ(error_of("prmShow", false), 0);
  EXPECT_EQ(cell(3, 1), " 3");
  EXPECT_EQ(text("lblKolom", 3), "x  3");
}

TEST_F(ScriptProperties, ListsAreShownAtOnce) {
  open();
  set("prmDLfunctie", std::string(" 3, 5"));
  set("prmKleinerGelijkVglen", std::string(" 1, 2, 3, 4"));
  set("prmRL", std::string(" 8, 9"));
  EXPECT_EQ(text("txtRij_F", 2), " 5");
  EXPECT_EQ(cell(2, 1), " 3");
  EXPECT_EQ(text("txtRL", 2), " 9");
  choose("mnu_Reset");
  EXPECT_EQ(cell(2, 1), " 3");
}

TEST_F(ScriptProperties, GreaterAndEqualListsFillTheirRows) {
  open(every_kind);
  set("prmGroterGelijkVglen", std::string(" 5, 6, 7, 8"));
  set("prmGelijkVglen", std::string(" 9, 10, 11, 12"));
  EXPECT_EQ(cell(3, 1), " 5");
  EXPECT_EQ(cell(4, 2), " 8");
  EXPECT_EQ(cell(6, 2), " 12");
}

TEST_F(ScriptProperties, NamesAreFoundInAnyCase) {
  open();
  EXPECT_EQ(error_of("PRMNRBESLISVAR", 4.0), 0);
  EXPECT_EQ(error_of("prmdlfunctie", std::string("1,2")), 0);
  EXPECT_EQ(error_of("PrmShow", true), 0);
  EXPECT_EQ(text("lblKolom", 4), "x  4");
}

TEST_F(ScriptProperties, ThePagesNamesOfListsAreNoProperties) {
  open();
  EXPECT_EQ(error_of("prmSTR_DLfunctie", std::string(" 1")), -1);
  EXPECT_EQ(error_of("prmSTR_RL", std::string(" 1")), -1);
  EXPECT_EQ(error_of("NrBeslisVar", 2.0), -1);
}

TEST_F(ScriptProperties, NumbersComeInManyForms) {
  open();
  EXPECT_EQ(error_of("prmNrBeslisVar", std::string(" 4 ")), 0);
  EXPECT_EQ(model.NrBeslisVar, 4);
  EXPECT_EQ(error_of("prmNrBeslisVar", 2.5), 0);
  EXPECT_EQ(model.NrBeslisVar, 2);
  EXPECT_EQ(error_of("prmBigM", true), 0);
  EXPECT_EQ(model.BigM, -1);
  EXPECT_EQ(error_of("prmShow", 1.0), 0);
  EXPECT_EQ(error_of("prmShow", std::string("True")), 0);
  EXPECT_EQ(error_of("prmShow", std::string("0")), 0);
  set("prmRL", 7.5);
  EXPECT_EQ(text("txtRL", 1), " 7.5");
}

TEST_F(ScriptProperties, WrongNumbersAreRefusedAndChangeNothing) {
  open();
  EXPECT_EQ(error_of("prmNrBeslisVar", std::string("twee")), 13);
  EXPECT_EQ(error_of("prmNrBeslisVar", 40000.0), 6);
  EXPECT_EQ(error_of("prmBigM", std::string("32768")), 6);
  EXPECT_EQ(error_of("prmShow", std::string("misschien")), 13);
  EXPECT_EQ(model.NrBeslisVar, 2);
  EXPECT_EQ(model.BigM, 100);
}

TEST_F(ScriptProperties, AnErrorNamesItsProperty) {
  open();
  EXPECT_EQ(set("PRMBIGM", std::string("x"))->error().subject, "prmBigM");
}

TEST_F(ScriptProperties, ShowRefusesCountsBeyondTheStorageAndKeepsTheGrid) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 11.0);
  EXPECT_EQ(error_of("prmShow", true), 9);
  EXPECT_EQ(cell(3, 1), " 3");
  set("prmNrGroterGelijkVglen", 32767.0);
  set("prmNrGelijkVglen", 32767.0);
  EXPECT_EQ(error_of("prmShow", true), 6);
  EXPECT_EQ(cell(3, 1), " 3");
}

TEST_F(ScriptProperties, AListForARowBeyondTheStorageIsError9) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 11.0);
  EXPECT_EQ(error_of("prmKleinerGelijkVglen", std::string(" 1, 2")), 9);
  EXPECT_EQ(error_of("prmRL", std::string(" 1, 2")), 9);
  EXPECT_EQ(model.current.row(1).right(), 4);
  EXPECT_EQ(model.current.row(3).value(1), 3);
}

TEST_F(ScriptProperties, AnObjectiveBeyondTheStorageIsError9AndWritesNothing) {
  open(two_products);
  set("prmNrBeslisVar", 31.0);
  EXPECT_EQ(error_of("prmDLfunctie", std::string(" 8, 9")), 9);
  std::string long_list = " 8";
  for (int item = 2; item <= 400; ++item) long_list += ", 8";
  EXPECT_EQ(error_of("prmDLfunctie", long_list), 9);
  EXPECT_EQ(model.current.row_F().text(1), "-3");
  EXPECT_EQ(model.current.row_F().text(2), " -5");
  EXPECT_EQ(model.current.row_F().value(1), -3);
}

TEST_F(ScriptProperties, AnObjectiveWithANumberTooLargeForADoubleWritesNothing) {
  open(two_products);
  EXPECT_EQ(error_of("prmDLfunctie", std::string(" 8, 1e400")), 6);
  EXPECT_EQ(model.current.row_F().text(1), "-3");
  EXPECT_EQ(model.current.row_F().value(1), -3);
}

TEST_F(ScriptProperties, ItemsBeyondTheCountAreIgnoredHoweverMany) {
  open();
  std::string list = " 1";
  for (int item = 2; item <= 400; ++item) list += ", " + std::to_string(item);
  EXPECT_EQ(error_of("prmKleinerGelijkVglen", list), 0);
  EXPECT_EQ(cell(2, 2), " 4");
  EXPECT_EQ(model.current.row(2).text(3), " 0");
  EXPECT_EQ(error_of("prmDLfunctie", list), 0);
  EXPECT_EQ(text("txtRij_F", 2), " 2");
  EXPECT_EQ(text("txtRij_F", 3), " 0");
}

TEST_F(ScriptProperties, AListOfMoreThan300ItemsThatAreWantedIsError9) {
  open();
  set("prmNrBeslisVar", 40.0);
  set("prmNrKleinerGelijkVglen", 10.0);
  std::string list = " 1";
  for (int item = 2; item <= 400; ++item) list += ", 1";
  EXPECT_EQ(error_of("prmKleinerGelijkVglen", list), 9);
  EXPECT_EQ(model.current.row(1).text(1), " 0");
}

TEST_F(ScriptProperties, CountsBelowZeroLeaveListsWithoutTarget) {
  open(two_products);
  set("prmNrBeslisVar", -1.0);
  set("prmNrKleinerGelijkVglen", -1.0);
  EXPECT_EQ(error_of("prmKleinerGelijkVglen", std::string(" 9, 9, 9")), 0);
  EXPECT_EQ(error_of("prmRL", std::string(" 9, 9, 9")), 0);
  EXPECT_EQ(model.current.row(1).text(1), " 1");
  EXPECT_EQ(model.current.row(1).right(), 4);
}

TEST_F(ScriptProperties, RowsThatWouldStandBeforeTheFirstAreError9) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", -2.0);
  set("prmNrGroterGelijkVglen", 2.0);
  EXPECT_EQ(error_of("prmGroterGelijkVglen", std::string(" 9, 9, 9, 9")), 9);
  EXPECT_EQ(model.current.row(1).text(1), " 1");
}

// ---- What a list leaves for the next

class ListQuirks : public ControlTest {};

// 8 rows of 15: 120 items.
constexpr int long_columns = 15, long_rows = 8;

TEST_F(ListQuirks, ItemsBeyond100KeepWhatAnEarlierListLeft) {
  open(numbered(long_columns, long_rows));
  set("prmKleinerGelijkVglen", std::string(" 5"));
  EXPECT_EQ(model.current.row(1).text(1), " 5");
  EXPECT_EQ(model.current.row(1).text(2), " 0");
  EXPECT_EQ(model.current.row(7).text(10), " 0");    // item 100
  EXPECT_EQ(model.current.row(7).text(11), " 711");  // item 101
  EXPECT_EQ(model.current.row(7).value(11), 711);
  EXPECT_EQ(model.first.row(8).text(15), " 815");  // item 120
}

TEST_F(ListQuirks, ItemsBeyond100AreEmptyBeforeAnyListReachedThem) {
  open({{"prmNrBeslisVar", "15"}, {"prmNrKleinerGelijkVglen", "8"}});
  EXPECT_EQ(model.current.row(7).text(10), " 0");
  EXPECT_EQ(model.current.row(7).text(11), "");
  EXPECT_EQ(model.current.row(7).value(11), 0);
}

TEST_F(ListQuirks, AnotherKindOfListUsesTheSameItems) {
  open(numbered(long_columns, long_rows));
  set("prmNrKleinerGelijkVglen", 0.0);
  set("prmNrGelijkVglen", 8.0);
  set("prmShow", true);
  set("prmGelijkVglen", std::string(" 5"));
  EXPECT_EQ(model.current.row(7).text(11), " 711");
}

TEST_F(ListQuirks, EachControlHasItsOwnItems) {
  open(numbered(long_columns, long_rows));
  TestedControl other(host.desk(), model);
  ASSERT_TRUE(other.set_property("prmKleinerGelijkVglen", std::string(" 5")).value());
  EXPECT_EQ(model.current.row(7).text(11), "");
}

TEST_F(ListQuirks, AnEmptyItemOfTheObjectiveKeepsTheTextThatStandsThere) {
  open(numbered(3, 2));
  set("prmDLfunctie", std::string(" 7,, 9"));
  EXPECT_EQ(text("txtRij_F", 1), " 7");
  EXPECT_EQ(text("txtRij_F", 2), " 2");
  EXPECT_EQ(text("txtRij_F", 3), " 9");
  set("prmDLfunctie", std::string(" 4"));
  EXPECT_EQ(text("txtRij_F", 1), " 4");
  EXPECT_EQ(text("txtRij_F", 3), " 9");
  set("prmDLfunctie", std::string(""));
  EXPECT_EQ(text("txtRij_F", 1), " 0");
  EXPECT_EQ(text("txtRij_F", 2), " 2");
}

TEST_F(ListQuirks, AKeptTextOfTheObjectiveGetsItsLeadingNumberAsValue) {
  open(numbered(3, 2));
  enter_text("txtRij_F", 2, "1/2");
  press("Tab");
  EXPECT_EQ(model.current.row_F().value(2), 0.5);
  set("prmDLfunctie", std::string(" 7,, 9"));
  EXPECT_EQ(text("txtRij_F", 2), "1/2");
  EXPECT_EQ(model.current.row_F().value(2), 1);
}

TEST_F(ListQuirks, WithCountZeroTheFirstItemIsWrittenAllTheSame) {
  open(two_products);
  set("prmNrBeslisVar", 0.0);
  set("prmDLfunctie", std::string(" 7, 8"));
  EXPECT_EQ(model.current.row_F().text(1), " 7");
  EXPECT_EQ(model.current.row_F().value(1), 0);
  EXPECT_EQ(model.current.row_F().text(2), " 0");
}

// ---- A script that forgets to show what it has counted

class ListsWithoutShow : public ControlTest {};

// What is seen belongs together: so many rows and columns, with the names and the unit columns of that
// problem.
TEST_F(ListsWithoutShow, ShowTheProblemOfTheCountsThatWereSet) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 2.0);
  set("prmNrGelijkVglen", 2.0);
  set("prmKleinerGelijkVglen", std::string(" 1, 2, 3, 4"));
  set("prmGelijkVglen", std::string(" 5, 6, 7, 8"));
  set("prmRL", std::string(" 10, 20, 30, 40"));
  const std::string names[] = {"x  3", "x  4", "r  1", "r  2"};
  for (int row = 1; row <= 4; ++row) {
    const auto of_row = [](int number) { return " " + std::to_string(number); };
    EXPECT_EQ(text("lblBasis", row), names[row - 1]);
    EXPECT_EQ(cell(row, 1), of_row(2 * row - 1));
    EXPECT_EQ(cell(row, 2), of_row(2 * row));
    EXPECT_EQ(text("txtRL", row), of_row(10 * row));
    EXPECT_EQ(cell(row, 3), row == 1 ? " 1" : " 0");
  }
  EXPECT_FALSE(shown("txtRL", 5));
  EXPECT_EQ(text("lblKolom", 5), "r  1");
  EXPECT_EQ(bar("HScroll").max(), 2);  // of six columns
  EXPECT_EQ(model.columns(), 6);
}

TEST_F(ListsWithoutShow, ShowTheProblemThatAScriptHasLaidOutItself) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 4.0);
  EXPECT_TRUE(control.InitTableau().has_value());
  set("prmRL", std::string(" 10, 20, 30, 40"));
  EXPECT_EQ(model.columns(), 6);
  EXPECT_EQ(text("txtRL", 4), " 40");
  EXPECT_EQ(text("lblBasis", 4), "x  6");
  EXPECT_EQ(text("lblKolom", 5), "x  5");
  EXPECT_EQ(cell(3, 5), " 1");
  EXPECT_EQ(bar("HScroll").max(), 2);
}

TEST_F(ListsWithoutShow, ThatGiveMoreVariablesMoveTheSlackColumns) {
  open(two_products);
  set("prmNrBeslisVar", 3.0);
  set("prmDLfunctie", std::string(" 1, 2, 3"));
  EXPECT_EQ(text("txtRij_F", 3), " 3");
  EXPECT_EQ(text("lblBasis", 1), "x  4");
  EXPECT_EQ(cell(1, 3), " 0");
  EXPECT_EQ(cell(1, 4), " 1");
  EXPECT_FALSE(enabled("mnu_Grafiek"));
}

// Only the first list after the counts lays out: the others would wipe what it has filled in.
TEST_F(ListsWithoutShow, KeepWhatTheListsBeforeHaveFilledIn) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 2.0);
  set("prmDLfunctie", std::string("-7, -8"));
  set("prmRL", std::string(" 5, 6"));
  EXPECT_EQ(text("txtRij_F", 1), "-7");
  set("prmNrKleinerGelijkVglen", 2.0);  // as it is
  set("prmKleinerGelijkVglen", std::string(" 1, 1, 1, 1"));
  EXPECT_EQ(text("txtRL", 2), " 6");
}

TEST_F(ListsWithoutShow, BeyondTheStorageAreRefusedAndTheTableauStays) {
  open(two_products);
  set("prmNrKleinerGelijkVglen", 11.0);
  EXPECT_EQ(error_of("prmRL", std::string(" 1")), 9);
  EXPECT_EQ(cell(3, 1), " 3");
}

TEST_F(ListsWithoutShow, OfMoreRowsThan16BitsCountAreRefusedAsShowIs) {
  open(two_products);
  set("prmNrGroterGelijkVglen", 32767.0);
  set("prmNrGelijkVglen", 32767.0);
  EXPECT_EQ(error_of("prmRL", std::string(" 1")), 6);
  EXPECT_EQ(cell(3, 1), " 3");
}

// ---- A script that comes at a bad moment

class ScriptAtABadMoment : public ControlTest {};

TEST_F(ScriptAtABadMoment, ShowWhileACellIsEditedDrawsTheNewTableau) {
  open(two_products);
  enter_text("txtTableau", 1, "9");
  set("prmNrBeslisVar", 3.0);
  EXPECT_EQ(error_of("prmShow", true), 0);
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(text("lblKolom", 3), "x  3");
  EXPECT_EQ(cell(1, 1), model.current.row(1).text(1));
  EXPECT_EQ(cell(2, 2), " 0");
}

TEST_F(ScriptAtABadMoment, ShowWhileACellIsEditedLeavesNothingOfTheEntryInTheNewProblem) {
  for (const char* half_typed : {"99", "9/", ""}) {
    open(two_products);
    enter_text("txtTableau", 1, half_typed);
    EXPECT_EQ(error_of("prmShow", true), 0);
    EXPECT_EQ(form(), "") << half_typed;
    EXPECT_EQ(cell(1, 1), " 0") << half_typed;
    EXPECT_EQ(model.current.row(1).value(1), 0) << half_typed;
    EXPECT_EQ(model.first.row(1).value(1), 0) << half_typed;
    EXPECT_EQ(focus(), "txtFocus") << half_typed;
    EXPECT_TRUE(host.reports.empty());
  }
}

TEST_F(ScriptAtABadMoment, ShowWhileBadInputIsBeingRefusedLeavesNothingOfItInTheNewProblem) {
  open(two_products);
  enter_text("txtTableau", 1, "9/");
  press("Tab");
  ASSERT_EQ(text("lblMelding"), "Invoerfout!");
  EXPECT_EQ(error_of("prmShow", true), 0);
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(cell(1, 1), " 0");
  EXPECT_TRUE(press("Tab"));
  EXPECT_EQ(form(), "");
}

TEST_F(ScriptAtABadMoment, AListReplacesWhatIsBeingTyped) {
  open(two_products);
  enter_text("txtTableau", 1, "9/");
  set("prmKleinerGelijkVglen", std::string(" 6, 5, 4, 3, 2, 1"));
  EXPECT_EQ(cell(1, 1), " 6");
  press("Tab");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtTableau 2");
}

TEST_F(ScriptAtABadMoment, ACellThatANewProblemHidesGivesTheFocusAway) {
  open(two_products);
  enter_text("txtTableau", box(3, 1), "9/");
  set("prmNrKleinerGelijkVglen", 1.0);
  set("prmShow", true);
  EXPECT_EQ(form(), "");
  EXPECT_FALSE(cell_shown(3, 1));
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(model.first.row(3).text(1), " 3");
}

TEST_F(ScriptAtABadMoment, ACellThatAListHidesGivesTheFocusAway) {
  open(two_products);
  enter_text("txtTableau", box(3, 1), "9/");
  set("prmNrKleinerGelijkVglen", 1.0);
  set("prmRL", std::string(" 1"));
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(ScriptAtABadMoment, ShowWhileADialogIsOpenLeavesTheDialogOpen) {
  open(two_products);
  choose("mnu_Kolommen_vegen");
  set("prmNrBeslisVar", 4.0);
  EXPECT_EQ(error_of("prmShow", true), 0);
  EXPECT_EQ(form(), "frmKolommen_vegen");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(model.NrTableau, 2);
  EXPECT_TRUE(host.reports.empty());
}

TEST_F(ScriptAtABadMoment, CountsChangedWhileADialogIsOpenAreCheckedWhenItCloses) {
  open(two_products);
  choose("mnu_Kolommen_vegen");
  set("prmNrKleinerGelijkVglen", 11.0);
  press("Enter");
  EXPECT_EQ(form(), "frmFoutmelding");
  EXPECT_EQ(text("lblMelding"), "Dit tableau is te groot. Er passen hoogstens 10 rijen en 30 kolommen in.");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_TRUE(host.reports.empty());
  EXPECT_EQ(cell(3, 1), " 3");
}

TEST_F(ScriptAtABadMoment, EveryCommandTellsThePupilOfCountsThatWereSetBeyondTheStorage) {
  for (const char* command : {"mnu_optimaliseren", "mnu_Pivot_element", "mnu_Basisoplossing", "mnu_Reset",
                              "mnu_Breuken", "mnu_Tableau_Invullen", "mnu_Grafiek"}) {
    open(two_products);
    set("prmNrKleinerGelijkVglen", 11.0);
    choose(command);
    EXPECT_EQ(form(), "frmFoutmelding") << command;
    press("Enter");
    EXPECT_EQ(form(), "") << command;
    EXPECT_TRUE(host.reports.empty()) << command;
    EXPECT_EQ(cell(3, 1), " 3") << command;
    set("prmNrKleinerGelijkVglen", 3.0);
  }
}

}  // namespace
}  // namespace tabulon
