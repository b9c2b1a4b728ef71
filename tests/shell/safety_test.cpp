// What the control tells a browser about its safety.
#include "shell/safety.h"

#include <gtest/gtest.h>

#include <string>

namespace tabulon {
namespace {

constexpr std::string_view dispatch = "{00020400-0000-0000-C000-000000000046}";
constexpr std::string_view persist_storage = "{0000010A-0000-0000-C000-000000000046}";
constexpr std::string_view persist_stream = "{00000109-0000-0000-C000-000000000046}";
constexpr std::string_view persist_property_bag = "{37D84F60-42CB-11CE-8135-00AA004BB851}";
constexpr std::string_view unknown = "{00000000-0000-0000-C000-000000000046}";

void expect_options(const SafetyOptions& options, SafetyAnswer answer, std::optional<std::uint32_t> enabled) {
  EXPECT_EQ(options.answer, answer);
  EXPECT_EQ(options.supported, 3U);
  EXPECT_EQ(options.enabled, enabled);
}

class SafetyOfData : public testing::TestWithParam<std::string_view> {
 protected:
  basSafeCtl model;
};

std::string name_of(const testing::TestParamInfo<std::string_view>& instance) {
  constexpr const char* names[] = {"IPersistStorage", "IPersistStream", "IPersistPropertyBag"};
  return names[instance.index];
}

INSTANTIATE_TEST_SUITE_P(Interfaces, SafetyOfData,
                         testing::Values(persist_storage, persist_stream, persist_property_bag), name_of);

TEST_P(SafetyOfData, BothAreSupportedAndThatForDataIsEnabled) {
  expect_options(safety_options(model, GetParam()), SafetyAnswer::Ok, 2);
}

TEST_P(SafetyOfData, IsNotEnabledWhereTheControlIsNotSafeForIt) {
  model.SafeForInitializing = false;
  expect_options(safety_options(model, GetParam()), SafetyAnswer::Ok, 0);
  EXPECT_EQ(set_safety_options(model, GetParam(), 2, 2), SafetyAnswer::Fail);
}

TEST_P(SafetyOfData, DoesNotDependOnThatForCallers) {
  model.SafeForScripting = false;
  expect_options(safety_options(model, GetParam()), SafetyAnswer::Ok, 2);
  EXPECT_EQ(set_safety_options(model, GetParam(), 2, 2), SafetyAnswer::Ok);
}

TEST_P(SafetyOfData, OnlyExactlyItsOwnBitCanBeAskedFor) {
  for (std::uint32_t mask = 0; mask < 8; ++mask)
    for (std::uint32_t enabled = 0; enabled < 8; ++enabled)
      EXPECT_EQ(set_safety_options(model, GetParam(), mask, enabled),
                (mask & enabled) == 2 ? SafetyAnswer::Ok : SafetyAnswer::Fail)
          << "mask " << mask << ", enabled " << enabled;
}

TEST(SafetyOfCalls, BothAreSupportedAndThatForCallersIsEnabled) {
  expect_options(safety_options(basSafeCtl{}, dispatch), SafetyAnswer::Ok, 1);
}

TEST(SafetyOfCalls, IsNotEnabledWhereTheControlIsNotSafeForIt) {
  basSafeCtl model;
  model.SafeForScripting = false;
  expect_options(safety_options(model, dispatch), SafetyAnswer::Ok, 0);
  EXPECT_EQ(set_safety_options(model, dispatch, 1, 1), SafetyAnswer::Fail);
}

TEST(SafetyOfCalls, DoesNotDependOnThatForData) {
  basSafeCtl model;
  model.SafeForInitializing = false;
  expect_options(safety_options(model, dispatch), SafetyAnswer::Ok, 1);
  EXPECT_EQ(set_safety_options(model, dispatch, 1, 1), SafetyAnswer::Ok);
}

TEST(SafetyOfCalls, OnlyExactlyItsOwnBitCanBeAskedFor) {
  const basSafeCtl model;
  for (std::uint32_t mask = 0; mask < 8; ++mask)
    for (std::uint32_t enabled = 0; enabled < 8; ++enabled)
      EXPECT_EQ(set_safety_options(model, dispatch, mask, enabled),
                (mask & enabled) == 1 ? SafetyAnswer::Ok : SafetyAnswer::Fail)
          << "mask " << mask << ", enabled " << enabled;
}

TEST(Safety, AnUnknownInterfaceIsRefusedAndStillToldWhatIsSupported) {
  expect_options(safety_options(basSafeCtl{}, unknown), SafetyAnswer::NoInterface, std::nullopt);
  EXPECT_EQ(set_safety_options(basSafeCtl{}, unknown, 1, 1), SafetyAnswer::NoInterface);
  EXPECT_EQ(set_safety_options(basSafeCtl{}, unknown, 2, 2), SafetyAnswer::NoInterface);
}

TEST(Safety, NoInterfaceAtAllIsNoFailureAndChangesNothing) {
  expect_options(safety_options(basSafeCtl{}, std::nullopt), SafetyAnswer::Ok, std::nullopt);
  EXPECT_EQ(set_safety_options(basSafeCtl{}, std::nullopt, 3, 3), SafetyAnswer::Ok);
}

TEST(Safety, TheCaseOfTheLettersDoesNotMatterAndEverythingElseDoes) {
  const basSafeCtl model;
  expect_options(safety_options(model, "{37d84f60-42cb-11ce-8135-00aa004bb851}"), SafetyAnswer::Ok, 2);
  for (const std::string_view almost :
       {"", "{}", "00020400-0000-0000-C000-000000000046", "{00020400-0000-0000-C000-000000000046",
        " {00020400-0000-0000-C000-000000000046}", "{00020400-0000-0000-C000-000000000046} "})
    EXPECT_EQ(safety_options(model, almost).answer, SafetyAnswer::NoInterface) << almost;
}

TEST(Safety, ARequestLeavesTheFlagsAsTheyAre) {
  basSafeCtl model;
  set_safety_options(model, dispatch, 1, 0);
  set_safety_options(model, persist_stream, 2, 0);
  EXPECT_TRUE(model.SafeForScripting);
  EXPECT_TRUE(model.SafeForInitializing);
}

TEST(Safety, TheAnswersAreTheResultCodesOfCOM) {
  EXPECT_EQ(static_cast<std::uint32_t>(SafetyAnswer::Ok), 0U);
  EXPECT_EQ(static_cast<std::uint32_t>(SafetyAnswer::NoInterface), 0x80004002U);
  EXPECT_EQ(static_cast<std::uint32_t>(SafetyAnswer::Fail), 0x80004005U);
}

}  // namespace
}  // namespace tabulon
