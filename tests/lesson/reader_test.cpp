#include "lesson/reader.h"

#include <gtest/gtest.h>

#include "lesson/printer.h"

namespace tabulon::lesson {
namespace {

// What a text is read as, as words again; its mistakes where it cannot be read.
std::string read_as(std::string_view text) {
  const Reading reading = read_problem(text);
  if (reading.problem) return print_problem(*reading.problem);
  std::string mistakes;
  for (const Finding& each : reading.mistakes) mistakes += spoken(each) + "\n";
  return mistakes;
}

// One line as the only constraint of a problem in x and y.
std::string row_as(std::string_view row) {
  const std::string read = read_as("max F = x + y\n" + std::string(row));
  if (read.starts_with("Regel")) return read.substr(0, read.size() - 1);
  const std::size_t begin = read.find('\n') + 1;
  return read.substr(begin, read.find('\n', begin) - begin);
}

std::string notes_on(std::string_view text) {
  std::string notes;
  for (const Finding& each : read_problem(text).notes) notes += spoken(each) + "\n";
  return notes;
}

TEST(ProblemInWords, IsReadAsATeacherTypesIt) {
  EXPECT_EQ(read_as("max F = 3x + 5y\n"
                    "onder de voorwaarden:\n"
                    "x <= 4; 2y ≤ 12   # twee op een regel\n"
                    "hout: 3x + 2y <= 18  // per dag\n"
                    "x, y >= 0\n"),
            "max F = 3x + 5y\nx <= 4\n2y <= 12\nhout: 3x + 2y <= 18\nx, y >= 0\n");
  EXPECT_EQ(read_as("Minimaliseer K = 4 brood + 2,50 kaas\nbrood + kaas ⩾ 10"),
            "min K = 4 brood + 2.5 kaas\nbrood + kaas >= 10\nbrood, kaas >= 0\n");
  EXPECT_EQ(read_as("max: 2x₁ + x₂\r\nx₁ + x₂ =< 3\r\n"), "max F = 2x₁ + x₂\nx₁ + x₂ <= 3\nx₁, x₂ >= 0\n");
}

TEST(ProblemInWords, NeedsNoNameForItsGoalAndFindsOneThatIsFree) {
  EXPECT_EQ(read_as("max x\nx <= 1"), "max F = x\nx <= 1\nx >= 0\n");
  EXPECT_EQ(read_as("max F + G\nF <= 1"), "max F_ = F + G\nF <= 1\nF, G >= 0\n");
}

TEST(ProblemInWords, MayHaveANameThatBeginsAsAWordOfItsOwn) {
  EXPECT_EQ(row_as("max3 + minimaal_1 <= 5"), "max3 + minimaal_1 <= 5");
}

TEST(ProblemInWords, TakesM) {
  const Reading reading = read_problem("max x\nx = 3\nM = 1000");
  ASSERT_TRUE(reading.problem);
  EXPECT_EQ(reading.problem->big_m, 1000);
  EXPECT_EQ(read_as("max x + M\nM = 3\n"), "max F = x + M\nM = 3\nx, M >= 0\n");
  EXPECT_EQ(read_as("max x\nM = 40000"),
            "Regel 2, plaats 5: M is een geheel getal van 1 tot en met 32767.\n");
}

TEST(ProblemInWords, IsSortedAsTheControlWantsAndKeepsWhereEachRowCameFrom) {
  const Reading reading = read_problem("max x + y\nx + y = 5\n  x >= 1; y <= 7\nx <= 9");
  ASSERT_TRUE(reading.problem);
  const std::vector<ProblemRow>& rows = reading.problem->rows;
  ASSERT_EQ(rows.size(), 4);
  EXPECT_EQ(print_problem(*reading.problem), "max F = x + y\ny <= 7\nx <= 9\nx >= 1\nx + y = 5\nx, y >= 0\n");
  EXPECT_EQ(rows[0].from.line, 3);
  EXPECT_EQ(rows[0].from.column, 11);
  EXPECT_EQ(rows[1].from.line, 4);
  EXPECT_EQ(rows[2].from.column, 3);
  EXPECT_EQ(rows[3].from.line, 2);
}

TEST(ProblemInWords, TurnsARowWithANegativeRightHandSideAndSaysSo) {
  const Reading reading = read_problem("max x + y\nx - y >= -3\nx - 2 = y - 4");
  ASSERT_TRUE(reading.problem);
  EXPECT_EQ(print_problem(*reading.problem), "max F = x + y\n-x + y <= 3\n-x + y = 2\nx, y >= 0\n");
  EXPECT_TRUE(reading.problem->rows[0].turned);
  ASSERT_EQ(reading.notes.size(), 2);
  EXPECT_EQ(spoken(reading.notes[0]),
            "Regel 2, plaats 1: rechts stond een negatief getal; beide kanten zijn met −1 vermenigvuldigd, "
            "en daarmee draait het teken om.");
}

TEST(ProblemInWords, SaysThatAMinimumBecomesAMaximum) {
  EXPECT_EQ(
      notes_on("min K = x\nx >= 2"),
      "Regel 1, plaats 5: het minimum van K is min het maximum van −K; in het tableau staat daarom −K.\n");
}

TEST(ProblemInWords, SaysThatALooseNumberIsNotInTheTableau) {
  EXPECT_EQ(notes_on("max F = x + 10\nx <= 2"),
            "Regel 1, plaats 5: het losse getal 10 staat niet in het tableau; tel het bij F op.\n");
}

TEST(ProblemInWords, AsksAboutANameThatLooksLikeASlip) {
  const std::string notes = notes_on("max brood + 2 kaas\nbrood + kaas <= 4\nbroood <= 3\nkaas >= 1");
  EXPECT_EQ(notes, "Regel 3, plaats 1: broood komt maar één keer voor; bedoelt u brood?\n");
  EXPECT_EQ(notes_on("max x1 + x2\nx1 + x2 <= 4\nx1 + x3 <= 3"), "");
  EXPECT_EQ(notes_on("max x + y\nX + y <= 4\nx <= 2"),
            "Regel 2, plaats 1: X komt maar één keer voor; bedoelt u x?\n");
}

TEST(ProblemInWords, NeedsNoWordThatVariablesAreNotNegative) {
  EXPECT_EQ(row_as("x, y >= 0\nx <= 3"), "x <= 3");
  EXPECT_EQ(row_as("0 <= x\nx <= 3"), "x <= 3");
  EXPECT_EQ(row_as("x,y>=0;x<=3"), "x <= 3");
}

TEST(ProblemInWords, MakesARowOfEachPartOfAListOrADoubleInequality) {
  EXPECT_EQ(read_as("max x + y\nx, y <= 7\n0 <= x <= 40\n10 >= x + y >= 2"),
            "max F = x + y\nx <= 7\ny <= 7\nx <= 40\nx + y <= 10\nx + y >= 2\nx, y >= 0\n");
}

// ---- Sums and numbers

TEST(SumInWords, TakesTermsAndNumbersOnBothSides) {
  EXPECT_EQ(row_as("3x + 2 <= 2x + y + 7"), "x - y <= 5");
  EXPECT_EQ(row_as("2(x + 3y) - (x - y) <= 4 * 2"), "x + 7y <= 8");
  EXPECT_EQ(row_as("5 >= x"), "x <= 5");
  EXPECT_EQ(row_as("x + x + x <= 3"), "3x <= 3");
}

TEST(SumInWords, TakesFractionsDecimalsAndExpressionsOfTheCells) {
  EXPECT_EQ(row_as("1/2x + 3/4 y <= 1"), "0.5x + 0.75y <= 1");
  EXPECT_EQ(row_as("1/3x <= 2/3"), "1/3 x <= 2/3");
  EXPECT_EQ(row_as("x/4 + 3x*2 <= 2^10"), "6.25x <= 1024");
  EXPECT_EQ(row_as("2,5x + .5y + 0.125x <= 2.5E3"), "2.625x + 0.5y <= 2500");
  EXPECT_EQ(row_as("sqrt(2) x <= 2pi"), "1.4142135623731x <= 6.28318530717958");
  EXPECT_EQ(row_as("-2^2 x <= SQRT(16)/(1+1)"), "-4x <= 2");
  EXPECT_EQ(row_as("x <= 1/2(4)"), "x <= 0.125");
  EXPECT_EQ(row_as("0.1^32 x <= 1/3^30"), "1E-32 x <= 1/205891132094649");
  EXPECT_EQ(row_as("2·x − 3×y ≤ 4⁄5"), "2x - 3y <= 0.8");
}

TEST(SumInWords, HasEAsANameLikeAnyOther) {
  EXPECT_EQ(read_as("max a + b + c + d + e\n2e <= 3E2"),
            "max F = a + b + c + d + e\n2e <= 300\na, b, c, d, e >= 0\n");
}

struct Refusal {
  const char* row;
  const char* sentence;  // behind "Regel 2, "
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.row;
}

class RefusedRow : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedRow, IsToldWithItsPlaceAndWhatWasMeant) {
  EXPECT_EQ(row_as(GetParam().row), "Regel 2, plaats " + std::string(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedRow,
    testing::Values(
        Refusal{"x < 5", "3: \"<\" kan hier niet; bedoelt u <= ?"},
        Refusal{"x * y <= 5",
                "3: hier staan x en y met elkaar vermenigvuldigd; een lineair probleem kent dat niet."},
        Refusal{"x² <= 5", "2: een macht van een variabele is niet lineair."},
        Refusal{"5/x <= 5", "2: delen door een variabele is niet lineair."},
        Refusal{"x/0 <= 5", "2: delen door 0 kan niet."},
        Refusal{"sqrt(x) <= 5", "1: sqrt van een variabele is niet lineair."},
        Refusal{"sqrt(-1) x <= 5", "1: sqrt bestaat niet voor dit getal, of is te groot."},
        Refusal{"sqrt 4 <= x", "6: na sqrt ontbreekt een haakje: sqrt(...)."},
        Refusal{"0^0 x <= 5", "2: deze macht bestaat niet, of is te groot."},
        Refusal{"x + y", "6: hier ontbreekt <=, >= of =, met wat erachter hoort."},
        Refusal{"x + <= 5", "5: hier ontbreekt een getal of een naam, vóór \"<=\"."},
        Refusal{"x <=", "5: hier ontbreekt nog een getal of een naam."},
        Refusal{"(x <= 5", "1: dit haakje wordt niet gesloten."},
        Refusal{"x) <= 5", "2: bij dit haakje is er geen dat opent."},
        Refusal{"3 <= 5", "3: aan geen van beide kanten staat een variabele."},
        Refusal{"x <= 1.000,50",
                "6: \"1.000,50\" heeft meer dan één komma of punt; schrijf duizendtallen zonder: "
                "1000,50."},
        Refusal{"x <= 1.000.000",
                "6: \"1.000.000\" heeft meer dan één komma of punt; schrijf duizendtallen zonder: "
                "1000000."},
        Refusal{"x <= 1 000", "8: tussen 1 en 000 ontbreekt een teken; is het één getal, schrijf dan 1000."},
        Refusal{"grote tafels <= 5",
                "7: tussen grote en tafels ontbreekt een teken; is het één naam, schrijf dan "
                "grote_tafels."},
        Refusal{"x 1 <= 5", "3: na x staat een getal; hoort het bij de naam, schrijf dan x1, en anders 1x."},
        Refusal{"x + min <= 5", "5: min heeft hier een eigen betekenis en kan geen variabele heten."},
        Refusal{"max x", "5: er is al een doelfunctie, in regel 1."},
        Refusal{"1 <= x >= 3", "8: in een dubbele ongelijkheid staat tweemaal hetzelfde teken."},
        Refusal{"x <= 5 5", "8: tussen 5 en 5 ontbreekt een teken; is het één getal, schrijf dan 55."},
        Refusal{"x <= 5 ! 3", "8: \"!\" hoort niet in een probleem in woorden."},
        Refusal{"x <= [5]", "6: gebruik ronde haakjes: ( en )."},
        Refusal{"x <= √5", "6: schrijf een wortel als sqrt(...)."},
        Refusal{"x <= \xff", "6: dit teken hoort niet in een probleem in woorden."},
        Refusal{"x <= 1E99", "6: dit getal is te lang of te groot: neem ten hoogste 80 cijfers."},
        Refusal{"x <= 10^30*10^30", "11: het getal hiervoor is te lang of te groot."}));

TEST(ProblemInWords, IsRefusedWithoutAnObjectiveOrAVariable) {
  EXPECT_EQ(read_as(""),
            "Regel 1, plaats 1: de doelfunctie ontbreekt; begin een regel met max of min, bijvoorbeeld "
            "max F = 3x + 5y.\n");
  EXPECT_EQ(read_as("3x + 5y"), "Regel 1, plaats 8: is dit de doelfunctie? Begin dan met max of min.\n");
  EXPECT_EQ(read_as("max F = 3"), "Regel 1, plaats 5: er is geen variabele.\n");
  EXPECT_EQ(read_as("max F = 3x <= 5"),
            "Regel 1, plaats 12: een doelfunctie is een som; zet een beperking op een eigen regel.\n");
  EXPECT_EQ(read_as("max K = 3x\nK <= 5"),
            "Regel 2, plaats 1: K is de naam van de doelfunctie en kan geen variabele zijn.\n");
  EXPECT_EQ(read_as("max 3x\nM = 5\nx + M <= 3"),
            "Regel 2, plaats 1: M is hier ook een variabele; geef die een andere naam.\n");
}

TEST(ProblemInWords, TellsTheMistakeOfEveryLine) {
  EXPECT_EQ(read_as("max 3x +\nx < 3\n"),
            "Regel 1, plaats 9: hier ontbreekt nog een getal of een naam.\n"
            "Regel 2, plaats 3: \"<\" kan hier niet; bedoelt u <= ?\n");
}

TEST(ProblemInWords, CountsPlacesInCharacters) {
  EXPECT_EQ(read_as("max één\nééé ≤ 3; één < 3"),
            "Regel 2, plaats 14: \"<\" kan hier niet; bedoelt u <= ?\n");
}

TEST(ProblemInWords, HasAtMostTenRows) {
  std::string text = "max x\n";
  for (int row = 1; row <= 10; ++row) text += "x <= " + std::to_string(row) + "\n";
  EXPECT_TRUE(read_problem(text).problem);
  EXPECT_EQ(read_as(text + "\nx <= 11"),
            "Regel 13, plaats 1: dit is de 11e beperking; in het tableau passen er 10.\n");
}

std::string sum_of(int variables) {
  std::string sum = "x1";
  for (int i = 2; i <= variables; ++i) sum += " + x" + std::to_string(i);
  return sum;
}

TEST(ProblemInWords, HasAtMostThirtyColumns) {
  EXPECT_TRUE(read_problem("max " + sum_of(28) + "\nx1 >= 1").problem);
  EXPECT_EQ(
      read_as("max " + sum_of(29) + "\nx1 >= 1"),
      "Regel 1, plaats 5: dit probleem heeft 31 kolommen nodig (29 variabelen, 0 spelings-, 1 surplus- en 1 "
      "kunstmatige); in het tableau passen er 30.\n");
  EXPECT_TRUE(read_problem("max " + sum_of(29) + "\nx1 >= -1").problem);
  EXPECT_EQ(read_as("max " + sum_of(31)).substr(0, 60),
            "Regel 1, plaats 176: x31 is de 31e variabele; in het tableau");
}

TEST(ProblemInWords, IsNotLongerThanAnybodyTypes) {
  EXPECT_EQ(read_as(std::string(20001, '#')),
            "Regel 1, plaats 1: deze tekst is te lang: neem ten hoogste 20000 tekens.\n");
}

TEST(NumberInWords, ThatMayHaveBeenMeantOtherwiseIsToldOf) {
  EXPECT_EQ(notes_on("max x\nx <= 1.500"),
            "Regel 2, plaats 6: 1.500 is gelezen als een getal met drie decimalen; "
            "schrijf 1500 als u duizendtallen bedoelt.\n");
  EXPECT_EQ(notes_on("max x\nx <= 0.125"), "");
  EXPECT_EQ(notes_on("max x\n2E+3x <= 1"),
            "Regel 2, plaats 1: 2E+3 is gelezen als een getal met een macht van tien.\n");
}

}  // namespace
}  // namespace tabulon::lesson
