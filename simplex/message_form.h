// The forms that only tell something: frmMelding, frmFoutmelding and frmAboutLP. Each is a picture, texts and
// an OK button that Enter and Escape press too.
//
//   model.MeldingNr = 3;                      // "Optimale oplossing gevonden!"
//   MessageForm form(control, frmMelding, model);
//   co_await desk.show_modal(form);
#pragma once

#include <span>

#include "control/basSafeCtl.h"
#include "platform/layout.h"
#include "platform/surface.h"

namespace tabulon {

class MessageForm;

// What one of the forms looks like.
struct MessageFormDesign {
  std::string_view name;
  platform::Twips width, height;
  platform::Picture picture;
  platform::Placement image;
  std::span<const platform::Placement> labels;
  std::span<const platform::Bounds> lines;  // a dark one, and a light one below it
  platform::Placement button;
  void (*fill)(MessageForm& form, const basSafeCtl& model);  // when it is shown
};

// Shows message MeldingNr: 0 is the free text strMelding, 1..4 are messages of its own; any other number
// leaves the form as it was drawn.
extern const MessageFormDesign frmMelding;
// Shows strFoutmelding.
extern const MessageFormDesign frmFoutmelding;
// The About box.
extern const MessageFormDesign frmAboutLP;

class MessageForm : public platform::Form {
 public:
  MessageForm(Surface& owner, const MessageFormDesign& design, const basSafeCtl& model);

  platform::Task<> on_activate() override;
  platform::Task<> on_click(platform::Control& control) override;

  platform::Image& image() { return image_; }
  // By its place in the design, from 0.
  platform::Label& label(std::size_t at) { return labels_[at]; }

 private:
  void add_labels();
  void add_lines();

  const MessageFormDesign& design_;
  const basSafeCtl& model_;
  platform::Image image_;
  platform::ControlList<platform::Label> labels_;
  platform::ControlList<platform::Line> lines_;
  platform::CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace tabulon
