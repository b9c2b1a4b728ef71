#include "simplex/messages.h"

#include "platform/desk.h"
#include "platform/error_words.h"
#include "simplex/frmPivot_element.h"
#include "simplex/message_form.h"

namespace tabulon {

using platform::Task;

namespace {

std::string_view words_about_work(ErrorNumber error) {
  switch (error) {
    case ErrorNumber::Overflow:
      return "Een getal wordt te groot om mee te rekenen. Deze stap kan niet.";
    case ErrorNumber::SubscriptOutOfRange:
      return "Dit tableau is te groot. Er passen hoogstens 10 rijen en 30 kolommen in.";
    default:
      return platform::words_of(error);
  }
}

}  // namespace

Task<> Messages::show_form(const MessageFormDesign& design) {
  MessageForm form(owner_, design, model_);
  co_await owner_.desk().show_modal(form);
}

Task<> Messages::ShowAboutBox() {
  return show_form(frmAboutLP);
}

Task<> Messages::ShowfrmMelding() {
  return show_form(frmMelding);
}

Task<> Messages::ShowfrmFoutmelding() {
  return show_form(frmFoutmelding);
}

Task<> Messages::ShowfrmPivotelement() {
  frmPivot_element form(owner_, model_);
  co_await owner_.desk().show_modal(form);
}

Task<> Messages::show(std::int16_t number) {
  model_.MeldingNr = number;
  return ShowfrmMelding();
}

Task<> Messages::announce(std::string words) {
  model_.strMelding = std::move(words);
  return show(free_text);
}

Task<> Messages::show_failure(std::string words) {
  model_.strFoutmelding = std::move(words);
  return ShowfrmFoutmelding();
}

Task<> Messages::show_failure(const RunTimeError& error) {
  return show_failure(std::string(words_about_work(error.number)));
}

}  // namespace tabulon
