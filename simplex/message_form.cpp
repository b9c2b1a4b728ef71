#include "simplex/message_form.h"

#include <array>

namespace tabulon {

using platform::Align;
using platform::Placement;
using platform::Twips;

namespace font = platform::font;

namespace {

constexpr std::string_view message_caption = " Tabloria", product = "Tabloria op Internet";
constexpr platform::Bounds sign_bounds{210, 270, 480, 480};

// ---- frmMelding

constexpr Twips message_width = 3600, margin = 150;

// As high as the sign, or as far above its middle as below.
constexpr platform::Bounds words_from(Twips left) {
  return {left, sign_bounds.top, message_width - left - margin, sign_bounds.height};
}
constexpr platform::Font in_words{.points = 10, .wraps = true, .middle = true};

constexpr Placement message_labels[] = {
    {"lblMelding", words_from(810), "Modelfout!", in_words},
};

struct Message {
  std::string_view text;
  Twips left;
  bool warns;
};

constexpr std::array<Message, 5> messages{{
    {"", 150, false},
    {"Invoerfout!", 810, true},
    {"Pivotelement niet gevonden!", 210, false},
    {"Optimale oplossing gevonden!", 150, false},
    {"Modelfout!", 840, true},
}};

void fill_message(MessageForm& form, const basSafeCtl& model) {
  form.set_caption(message_caption);
  if (model.MeldingNr < 0 || model.MeldingNr >= static_cast<int>(messages.size())) return;
  const Message& message = messages[static_cast<std::size_t>(model.MeldingNr)];
  form.label(0).set_text(message.text.empty() ? std::string_view(model.strMelding) : message.text);
  form.label(0).set_bounds(words_from(message.left));
  form.image().set_visible(message.warns);
}

// ---- frmFoutmelding

constexpr Placement failure_labels[] = {
    {"lblMelding", {840, sign_bounds.top - 120, 3750, sign_bounds.height + 240}, "", in_words},
};

void fill_failure(MessageForm& form, const basSafeCtl& model) {
  form.set_caption(message_caption);
  form.label(0).set_text(model.strFoutmelding);
}

// ---- frmAboutLP

constexpr Placement about_labels[] = {
    {"lblTitle", {960, 210, 4950, 285}, "", {.points = 11, .bold = true}},
    {"lblVersion", {960, 510, 4950, 240}, "© 2026 Tabulon", {.points = 9}},
    {"lblDescription",
     {960, 810, 4800, 1215},
     "Tabloria is een programma waarmee je LP-probemen volgens de Simplex-methode kunt oplossen. Het "
     "programma is geschikt voor de bovenbouw (Tweede Fase) HAVO 5 en VWO 5/6 met Wiskunde A en Economie.",
     {.points = 9, .wraps = true}},
    {"lblDisclaimer",
     {240, 2160, 4200, 900},
     "Waarschuwing: dit programma is auteursrechtelijk beschermd. Het geheel of een deel ervan kopiëren of "
     "verspreiden is alleen toegestaan zoals de licentie zegt die erbij hoort.",
     {.points = 8, .wraps = true}},
};

constexpr platform::Bounds about_lines[] = {{240, 2040, 5520, 0}, {240, 2055, 5520, 0}};

void fill_about(MessageForm& form, const basSafeCtl&) {
  form.set_caption("Over " + std::string(product));
  form.label(0).set_text(std::string(product) + " Versie 2.0.0.75");
}

}  // namespace

const MessageFormDesign frmMelding{.name = "frmMelding",
                                   .width = message_width,
                                   .height = 1560,
                                   .picture = platform::Picture::Warning,
                                   .image = {"imgWarning", sign_bounds},
                                   .labels = message_labels,
                                   .lines = {},
                                   .button = {"cmdOK", {1185, 990, 1230, 375}, "OK", font::centred},
                                   .fill = fill_message};

const MessageFormDesign frmFoutmelding{.name = "frmFoutmelding",
                                       .width = 4770,
                                       .height = 1725,
                                       .picture = platform::Picture::Warning,
                                       .image = {"imgWarning", sign_bounds},
                                       .labels = failure_labels,
                                       .lines = {},
                                       .button = {"cmdOK", {1770, 1155, 1230, 375}, "OK", font::centred},
                                       .fill = fill_failure};

const MessageFormDesign frmAboutLP{.name = "frmAboutLP",
                                   .width = 6000,
                                   .height = 3225,
                                   .picture = platform::Picture::About,
                                   .image = {"imgAbout", {240, 240, 480, 480}},
                                   .labels = about_labels,
                                   .lines = about_lines,
                                   .button = {"cmdOK", {4620, 2625, 1140, 375}, "OK", font::centred},
                                   .fill = fill_about};

MessageForm::MessageForm(Surface& owner, const MessageFormDesign& design, const basSafeCtl& model)
    : Form(owner, design.name, design.width, design.height),
      design_(design),
      model_(model),
      image_(*this, design.image.name) {
  add_labels();
  add_lines();
  platform::place(*this, std::array{design.image, design.button});
  image_.set_picture(design.picture);
  cmdOK.set_tab(1, true);
  default_button = &cmdOK;
  cancel_button = &cmdOK;
}

void MessageForm::add_labels() {
  for (const Placement& label : design_.labels) labels_.add(*this, label.name);
  platform::place(*this, design_.labels);
}

// Two lines look like a groove.
void MessageForm::add_lines() {
  constexpr std::string_view names[] = {"lineAbove", "lineBelow"};
  constexpr platform::Colour colours[] = {platform::rgb(160, 160, 160), platform::rgb(255, 255, 255)};
  for (std::size_t at = 0; at < design_.lines.size(); ++at) {
    const platform::Bounds& along = design_.lines[at];
    platform::Line& line = lines_.add(*this, names[at]);
    line.set_ends({along.left, along.top}, {along.left + along.width, along.top});
    line.set_fore_colour(colours[at]);
  }
}

platform::Task<> MessageForm::on_activate() {
  design_.fill(*this, model_);
  return {};
}

platform::Task<> MessageForm::on_click(platform::Control& control) {
  if (&control == &cmdOK) unload();
  return {};
}

}  // namespace tabulon
