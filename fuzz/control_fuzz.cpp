// A page with two controls, whatever its parameters are and whatever happens then: keys, mouse, menus,
// answers, scripts, and controls that come and go. What must hold after every event is checked by require().
//
//   prmNrBeslisVar=3          lines up to an empty one: what the page gives to both controls
//
//   kW$kO aa                  events: a letter of the table below with what it takes; other bytes are skipped

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "control/LPctrl.h"
#include "fuzz/require.h"
#include "hosts/headless/headless_host.h"
#include "numbers/conversions.h"
#include "numbers/display.h"

namespace {

using namespace tabulon;
using fuzz::require;
using platform::Control;
using platform::Kind;
using platform::Surface;

// An input, read from its beginning; behind its end there are zeros and empty lines.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  bool ended() const { return rest_.empty(); }
  char letter() {
    const char first = ended() ? '\0' : rest_.front();
    rest_.remove_prefix(ended() ? 0 : 1);
    return first;
  }
  int number() { return static_cast<unsigned char>(letter()); }
  std::string line() {
    const std::size_t end = rest_.find('\n');
    std::string text(rest_.substr(0, end));
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    return text;
  }

 private:
  std::string_view rest_;
};

class Page {
 public:
  explicit Page(Input& input) : input_(input) {
    host_.yield_every = 1;
    for (std::string line = input_.line(); !line.empty(); line = input_.line()) {
      const auto [name, text] = halves(line);
      parameters_.add(std::string(name), std::string(text));
    }
    for (auto& control : controls_) make(control);
  }
  ~Page() {
    for (auto& control : controls_) host_.desk().abandon(*control);
    host_.answer_all();
    require(host_.open_forms().empty() && !host_.open_menu());
  }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  void happen(char letter);

 private:
  using Event = void (Page::*)();

  // ---- The person
  void press_key() {
    const int code = input_.number();
    host_.desk().key(front(), {code, input_.number() % 8});
  }
  void click() { host_.desk().click(control_of_front()); }
  void focus() { host_.desk().focus(control_of_front()); }
  void type() {
    Control* const box = front().active();
    std::string text = input_.line();
    if (box && box->kind() == Kind::TextBox)
      host_.desk().type(static_cast<platform::TextBox&>(*box), std::move(text));
  }
  void scroll() {
    Control& bar = control_of_front();
    const int value = input_.number() - 8;
    if (bar.kind() == Kind::HScrollBar || bar.kind() == Kind::VScrollBar)
      host_.desk().scroll(static_cast<platform::ScrollBar&>(bar), value, input_.number() % 2 != 0);
  }
  void point() {
    Control& control = control_of_front();
    const auto action = static_cast<platform::Pointer::Action>(input_.number() % 4);
    const double x = input_.number() * 20.0 - 200, y = input_.number() * 20.0 - 200;
    host_.desk().pointer(control,
                         {.action = action, .left_button = input_.number() % 2 != 0, .x = x, .y = y});
  }
  void use_menu() {
    const auto* const open = host_.open_menu();
    const int use = input_.number(), at = input_.number();
    if (!open) return;
    const auto& items = open->open().back()->items();
    platform::Menu& item = *items[static_cast<std::size_t>(at) % items.size()];
    use % 3 == 0   ? host_.desk().menu_dismiss()
    : use % 3 == 1 ? host_.desk().menu_choose(item)
                   : host_.desk().menu_point_at(item);
  }
  void enter() { host_.desk().enter(control()); }
  void leave() { host_.desk().leave(control()); }
  void answer() {
    if (!host_.answer_one()) host_.advance(input_.number() / 50.0);
  }
  void answer_file() {
    std::string name = input_.line();
    name.empty() ? host_.cancel_file_dialog() : host_.answer_file_dialog(std::move(name));
  }

  // ---- The page and its script
  void set_property() {
    const std::string line = input_.line();
    const auto [name, text] = halves(line);
    PropertyValue value = std::string(text);
    if (text == "True") value = true;
    if (text.starts_with('#')) value = numbers::Val(text.substr(1));
    if (const auto done = control().set_property(name, value); done && !*done) check(done->error());
    host_.desk().flush();
  }
  void call_method();
  void write_number() {
    const auto mode = static_cast<std::int16_t>(input_.number() % 4 - 2);
    double number = 1 / (1.0 + input_.number());
    const bool written = mode == numbers::kDecimals || mode == numbers::kFractions;
    require(control().strSoortGetal(mode, number).empty() != written);
  }
  void other_control() { other_ = !other_; }
  void make_anew() { make(controls_[other_]); }
  void abandon() { host_.desk().abandon(control()); }

  void make(std::unique_ptr<LPctrl>& control) {
    control.reset();
    control = std::make_unique<LPctrl>(host_.desk(), model_);
    static_cast<void>(control->UserControl_Initialize());  // the page decides what is laid out
    if (const auto read = control->UserControl_ReadProperties(parameters_); !read) check(read.error());
    host_.desk().call(*control, control->UserControl_Show());
  }

  // ---- Whom it concerns
  LPctrl& control() const { return *controls_[other_]; }
  Surface& front() const {
    if (platform::Form* const form = host_.top_form()) return *form;
    return control();
  }
  Control& control_of_front() {
    const auto& controls = front().controls();
    return *controls[static_cast<std::size_t>(input_.number()) % controls.size()];
  }
  static std::pair<std::string_view, std::string_view> halves(std::string_view line) {
    const std::size_t equals = std::min(line.find('='), line.size());
    return {line.substr(0, equals), line.substr(std::min(equals + 1, line.size()))};
  }

  // ---- What must hold
  static void check(const RunTimeError& error) {
    require(error.number == ErrorNumber::Overflow || error.number == ErrorNumber::SubscriptOutOfRange ||
            error.number == ErrorNumber::TypeMismatch);
  }
  void check_all() {
    for (const auto& report : host_.reports) check(report.error);
    host_.reports.clear();
    fuzz::require_finite(model_);
    for (const auto& control : controls_)
      if (host_.desk().accepts(*control)) require(control->active() && control->active()->can_take_focus());
    host_.forget_mirrored();
    host_.history.clear();
    host_.ended_calls.clear();
  }

  Input& input_;
  platform::HeadlessHost host_;
  basSafeCtl model_;
  ParameterList parameters_;
  std::unique_ptr<LPctrl> controls_[2];
  bool other_ = false;
};

void Page::call_method() {
  const int method = input_.number() % 8;
  if (host_.open_forms().size() >= 4) return;
  const auto show = [this](platform::Task<> form) { host_.desk().call(control(), std::move(form)); };
  switch (method) {
    case 0:
      return show(control().ShowAboutBox());
    case 1:
      model_.MeldingNr = static_cast<std::int16_t>(input_.number() - 1);
      return show(control().ShowfrmMelding());
    case 2:
      return show(control().ShowfrmFoutmelding());
    case 3:
      return show(control().ShowfrmPivotelement());
    case 4:
      return static_cast<void>(control().InitTableau());
    case 5:
      return static_cast<void>(control().SchrijfTableau(input_.line()));
    case 6:
      return static_cast<void>(control().LeesTableau(input_.line()));
    default:
      return write_number();
  }
}

void Page::happen(char letter) {
  static constexpr std::pair<char, Event> events[] = {
      {'k', &Page::press_key},   {'c', &Page::click},         {'f', &Page::focus},
      {'t', &Page::type},        {'s', &Page::scroll},        {'p', &Page::point},
      {'m', &Page::use_menu},    {'e', &Page::enter},         {'l', &Page::leave},
      {'a', &Page::answer},      {'n', &Page::answer_file},   {'=', &Page::set_property},
      {'x', &Page::call_method}, {'o', &Page::other_control}, {'r', &Page::make_anew},
      {'g', &Page::abandon},
  };
  const auto* const found = std::ranges::find(events, letter, [](const auto& event) { return event.first; });
  if (found == std::end(events)) return;
  (this->*found->second)();
  check_all();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  Page page(input);
  while (!input.ended()) page.happen(input.letter());
  return 0;
}
