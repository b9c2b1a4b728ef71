// A surface: the control or a form, with its controls, its focus and what happens on it.
//
// A subclass declares its controls as members, or parts that own them, and overrides the handlers that it
// needs. Hosts do not call the handlers; they call the desk (platform/desk.h), which sees to the order of
// things. A surface whose handlers may wait retires in its destructor (Desk::retire), while its controls
// still are.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/form_place.h"
#include "platform/keys.h"
#include "platform/run_time_error.h"
#include "platform/task.h"

namespace tabulon::platform {

class Desk;
class Surface;

// What a surface needs of the desk on which it lies.
class SurfaceOwner {
 public:
  virtual Desk& desk() = 0;
  virtual void add(Surface& surface) = 0;
  // Stops the process when a handler of the surface is not done: its next step would touch what is gone.
  virtual void remove(Surface& surface) = 0;
  // The surface asks for the keyboard; false when the host leaves it where it is.
  virtual bool take_focus(Surface& surface) = 0;
  virtual void report(Surface& surface, const RunTimeError& error) = 0;

 protected:
  ~SurfaceOwner() = default;
};

// A pointer over a control; `x` and `y` in the units of that control, from its top left corner.
struct Pointer {
  using Action = PointerAction;
  Action action = Action::Move;
  bool left_button = false;
  double x = 0, y = 0;
};

class Surface : public ControlOwner {
 public:
  Surface(SurfaceOwner& owner, std::string_view name, Twips width, Twips height);
  ~Surface() override;

  Desk& desk() const { return owner_.desk(); }
  std::string_view name() const { return name_; }
  virtual bool is_form() const { return false; }
  Surface& surface() final { return *this; }

  Control* find(std::string_view name, int index = 0) const;

  // ---- Focus. `active` is the control that has the focus, or had it when the surface last had it.
  Control* active() const { return active_; }
  bool has_focus() const { return has_focus_; }
  // Moves the focus: the active control's Validate, which may refuse; then its LostFocus (the target is
  // active already), then the target's GotFocus. False when the move was refused or the target cannot take
  // the focus; true otherwise, also when the target's GotFocus has passed the focus on. Moving to the
  // active control raises nothing.
  Task<bool> set_focus(Control& target);
  // The next control in tab order after `from`, or before it; null at the end of the order. Without
  // `from`, the first or the last.
  Control* tab_neighbour(const Control* from, bool backward) const;

  // ---- What the desk starts for the person; each is a whole gesture with its events.
  Task<> clicked(Control& control);
  Task<> typed(TextBox& box, std::string text);
  Task<> focus_wanted(Control& control);
  Task<> pressed_key(KeyPress press, bool& used);
  Task<> scrolled(ScrollBar& bar, int value, bool dragging);
  Task<> entered();
  Task<> left();

  // Tells of an error that nobody else catches (Desk::report); does nothing where all went well.
  template <class T>
  void report(const Result<T>& result) {
    if (!result) report(result.error());
  }
  void report(const RunTimeError& error);

  // Brings properties that follow from others up to date, just before the host is handed what has changed.
  virtual void update() {}

  // ---- Handlers. `on_change` runs at once, also for changes made by code; the others may wait.
  virtual Task<> on_click(Control& control);
  virtual Task<> on_surface_click();
  void on_change(Control& control) override;
  virtual Task<> on_scroll(ScrollBar& bar);
  virtual Task<> on_got_focus(Control& control);
  virtual Task<> on_lost_focus(Control& control);
  virtual Task<> on_validate(Control& control, bool& refused);
  // Sees every key before the control that has the focus; `used` keeps the key from that control.
  virtual Task<> on_key_down(KeyPress& press, bool& used);
  virtual Task<> on_pointer(Control& control, Pointer pointer);
  virtual Task<> on_enter();
  virtual Task<> on_exit();
  // What a form that opens over the surface leaves to be seen, in twips; without a size there is nothing.
  virtual Bounds kept_free() const { return {}; }
  virtual void on_covered() {}  // a form or a menu opens over the surface
  // What the person did here has failed. By default the host is told.
  virtual Task<> on_failure(const RunTimeError& error);

 protected:
  // What a key does by itself: Tab, access keys, Enter and space on a button.
  virtual Task<> default_key(KeyPress press, bool& used);

 private:
  friend class Form;

  SurfaceOwner& owner_;
  std::string_view name_;
  Control* active_ = nullptr;
  bool has_focus_ = false;
};

// A modal form. Created when it is needed, shown with Desk::show_modal, gone with its scope.
class Form : public Surface {
 public:
  // `owner` is the surface that opens the form; the form stands over it.
  Form(Surface& owner, std::string_view name, Twips width, Twips height);
  Surface& owner() const { return opener_; }
  bool is_form() const final { return true; }

  // Where its title begins when it opens, in twips on its owner.
  Point place() const;

  const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption);
  bool unloaded() const { return unloaded_; }
  void unload() { unloaded_ = true; }

  // The buttons that Enter and Escape press from anywhere on the form; null when there is none.
  CommandButton* default_button = nullptr;
  CommandButton* cancel_button = nullptr;

  virtual void on_load() {}
  virtual Task<> on_activate();
  // The default button looks like one while Enter would press it.
  void update() override;

 protected:
  Task<> default_key(KeyPress press, bool& used) override;

 private:
  Task<> wrap_focus(bool backward, bool& used);

  Surface& opener_;
  std::string caption_;
  bool unloaded_ = false;
};

}  // namespace tabulon::platform
