// A program may compute in its own way: with fewer digits, another rounding, or traps. The control computes
// as ever, and leaves the program's way alone.
#include <xmmintrin.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/activex/com.h"
#include "tests/activex/com_player.h"
#include "tests/activex/stage.h"

namespace tabulon::client {
namespace {

namespace fs = std::filesystem;

// Of the old arithmetic the control word, of the vectors' what stands for it.
struct Arithmetic {
  std::uint16_t old_way;
  std::uint32_t vectors;
  friend bool operator==(const Arithmetic&, const Arithmetic&) = default;
};

Arithmetic now() {
  Arithmetic found{};
  __asm__ volatile("fnstcw %0" : "=m"(found.old_way));
  found.vectors = _mm_getcsr() & ~0x3FU;  // without the flags of what happened
  return found;
}

void compute_as(const Arithmetic& way) {
  __asm__ volatile("fnclex\n fldcw %0" : : "m"(way.old_way));
  _mm_setcsr(way.vectors);
}

constexpr Arithmetic usual{0x037F, 0x1F80}, of_53_bits{0x027F, 0x1F80}, of_24_bits{0x007F, 0x1F80},
    upwards{0x0B7F, 0x5F80}, flushing{0x0F7F, 0xFFC0}, with_traps{0x0340, 0x0000};

class OtherArithmetic : public ComTest {
 protected:
  void SetUp() override { fs::create_directories(folder_); }
  void TearDown() override {
    compute_as(before_);
    fs::remove_all(folder_);
  }

  // The file of a problem with powers and logarithms, optimised while the container's thread computes that
  // way.
  std::string solved(const Arithmetic& way) {
    const fs::path file = folder_ / "a.tbl";
    activex::on_stage({}, [&](activex::Container& container, activex::Person& person) {
      activex::ComPlayer player(
          container, person, {.dumps = {}, .folder = folder_.string() + "\\", .project = {}, .pictures = {}});
      const auto play = [&](std::string_view text) {
        for (const auto& command : scenarios::read_scenario(text)) player.play(command);
      };
      const auto on_thread = [&](auto act) { EXPECT_TRUE(container.thread().run(act)); };
      play(
          "page\n  prmSTR_DLfunctie = -3,-5\n  prmSTR_KleinerGelijkVglen = 1,2,3,7\n  prmSTR_RL = "
          "4,18\nshow\n");
      on_thread([way] { compute_as(way); });
      play(
          "click txtTableau 1\ntype exp(1.7)^0.3\npress Tab\ntype log(7.3)\npress Tab\ntype 1.1^3.3\npress "
          "Tab\n");
      play("click cmd_Bewerken\nchoose mnu_optimaliseren\nsee form frmMelding\nclick cmdOK\nsee no form\n");
      Arithmetic left{};
      on_thread([&left] { left = now(); });
      EXPECT_EQ(left, way);
      on_thread([] { compute_as(usual); });
      play("call SchrijfTableau = " + (folder_ / "a.tbl").string() + "\nsee idle\n");
      player.end();
      for (const std::string& failure : player.failures()) ADD_FAILURE() << failure;
    });
    std::ifstream bytes(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(bytes), {}};
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("tabulon-rekenen-" + std::to_string(GetCurrentProcessId()));
  const Arithmetic before_ = now();
};

TEST_F(OtherArithmetic, OfTheContainerChangesNoNumberInAContainer) {
  const std::string expected = solved(usual);
  ASSERT_GT(expected.size(), 200U);
  for (const Arithmetic& way : {of_53_bits, of_24_bits, upwards, flushing}) {
    SCOPED_TRACE(way.old_way);
    EXPECT_EQ(solved(way), expected);
  }
}

TEST_F(OtherArithmetic, OfAScriptIsLeftAsItWasAndTrapsNothing) {
  const ComPtr<ILPctrl> control = make_as<ILPctrl>();
  ASSERT_TRUE(control);
  for (const Arithmetic& way : {of_24_bits, upwards, flushing, with_traps}) {
    double number = 1.0 / 3;
    BSTR text = nullptr;
    compute_as(way);
    const HRESULT answer = control->strSoortGetal(VARIANT_TRUE, &number, &text);
    const Arithmetic left = now();
    compute_as(usual);
    EXPECT_EQ(code(answer), code(S_OK));
    EXPECT_EQ(left, way) << way.old_way;
    EXPECT_STREQ(static_cast<const wchar_t*>(_bstr_t(text, false)), L" 1/3");
  }
}

}  // namespace
}  // namespace tabulon::client
