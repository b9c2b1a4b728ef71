// What the person is told in a form; each time in a fresh one.
//
//   co_await messages.show(Messages::optimum_found);
#pragma once

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "platform/surface.h"

namespace tabulon {

struct MessageFormDesign;

class Messages : public FailureView {
 public:
  // Messages of frmMelding by number.
  static constexpr std::int16_t free_text = 0, input_error = 1, optimum_found = 3, model_error = 4;

  Messages(platform::Surface& owner, basSafeCtl& model) : owner_(owner), model_(model) {}

  platform::Task<> ShowAboutBox();
  platform::Task<> ShowfrmMelding();
  platform::Task<> ShowfrmFoutmelding();
  platform::Task<> ShowfrmPivotelement();

  platform::Task<> show(std::int16_t number);
  platform::Task<> announce(std::string words);
  platform::Task<> show_failure(std::string words) override;
  // In words about the work, where those of the error are for who writes a script.
  platform::Task<> show_failure(const RunTimeError& error);

 private:
  platform::Task<> show_form(const MessageFormDesign& design);

  platform::Surface& owner_;
  basSafeCtl& model_;
};

}  // namespace tabulon
