// A control that is hidden and shown again, or loaded a second time, while a button of its graph has the
// focus.
#include <gtest/gtest.h>

#include <wrl/client.h>

#include <string>
#include <string_view>

#include "bags.h"
#include "com_player.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::string_view reset_button_has_focus =
    "press Alt+O G\nsee frmGrafiek shown\npress Escape\npress Tab\nsee focus cmdReset";

class SecondShowInAContainer : public testing::Test {
 protected:
  // Plays the script before and after what the container does to the control.
  template <class Act>
  static void around(std::string_view before, Act act, std::string_view after) {
    on_stage({}, [&](Container& container, Person& person) {
      ComPlayer player(container, person, {});
      const auto play = [&](std::string_view lines) {
        for (const auto& command : scenarios::read_scenario(lines)) player.play(command);
      };
      play("show");
      play(before);
      EXPECT_TRUE(container.thread().run([&] { act(container); }));
      play(after);
      player.end();
      for (const std::string& failure : player.failures()) ADD_FAILURE() << failure;
    });
  }
};

TEST_F(SecondShowInAContainer, LeavesNoFocusOnAButtonThatIsHidden) {
  const auto hide_and_show = [](Container& container) {
    ComPtr<IOleObject> object;
    ASSERT_HRESULT_SUCCEEDED(container.control()->QueryInterface(IID_PPV_ARGS(&object)));
    ComPtr<IOleClientSite> site;
    object->GetClientSite(&site);
    for (const LONG verb : {OLEIVERB_HIDE, OLEIVERB_SHOW})
      EXPECT_HRESULT_SUCCEEDED(object->DoVerb(verb, nullptr, site.Get(), 0, container.frame(), nullptr));
  };
  around(reset_button_has_focus, hide_and_show,
         "see frmGrafiek hidden\nclick lblNRTableau\nsee focus txtFocus\npress Enter\nsee frmGrafiek hidden");
}

TEST_F(SecondShowInAContainer, AProblemOfThreeVariablesThatIsLoadedHasNoGraphToOpenByEnter) {
  const auto load = [](Container& container) {
    ComPtr<IPersistPropertyBag> persistent;
    ASSERT_HRESULT_SUCCEEDED(container.control()->QueryInterface(IID_PPV_ARGS(&persistent)));
    EXPECT_HRESULT_SUCCEEDED(persistent->Load(client::Bag::of({{L"prmNrBeslisVar", L"3"}}).Get(), nullptr));
  };
  around(reset_button_has_focus, load,
         "see lblKolom 3 \"x  3\"\nsee focus txtFocus\npress Enter Space\nsee frmGrafiek hidden");
}

}  // namespace
}  // namespace tabulon::activex
