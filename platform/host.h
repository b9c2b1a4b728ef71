// What the control needs from where it runs. Each host implements it; hosts/headless has the doubles.
//
// Whatever takes time is asked for with a ticket, and answered through Desk::wake or Desk::answer with
// that ticket; a ticket that is no longer waited for is ignored there, so a late answer does no harm.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/display_list.h"
#include "platform/enums.h"
#include "platform/run_time_error.h"
#include "platform/text_file.h"

namespace tabulon::platform {

class Form;
class MenuSession;
class Surface;

using Ticket = int;

struct FileDialog {
  using Purpose = FilePurpose;
  Purpose purpose = Purpose::Open;
  std::string_view title;
  std::string_view filter;     // description, "|", pattern
  std::string_view file_name;  // what the dialog starts with, and what cancelling leaves
};

// A drawing to put on the clipboard as a picture: the list, its user scale, and its size in twips.
struct ClipboardPicture {
  DisplayList drawing;
  Scale scale;
  Twips width = 0, height = 0;
};

// What a host answers for a picture that it has saved as a file, because its page may not use the clipboard.
inline constexpr std::string_view saved_instead = "saved instead";

class Host {
 public:
  virtual ~Host() = default;

  // ---- What is seen
  virtual void mirror(Surface& surface) = 0;  // takes the marked properties of the surface's controls
  virtual void open_form(Form& form) = 0;
  virtual void close_form(Form& form) = 0;
  virtual void open_menu(const MenuSession& menu) = 0;
  virtual void update_menu(const MenuSession& menu) = 0;
  virtual void close_menu() = 0;
  virtual void set_busy(Surface& surface, bool busy) = 0;
  // The surface asks for the keyboard; false when the host leaves it where it is.
  virtual bool take_focus(Surface& surface) = 0;

  // ---- Time
  virtual float seconds_since_midnight() = 0;
  virtual void wake_after(double milliseconds, Ticket ticket) = 0;
  virtual void wake_after_repaint(Ticket ticket) = 0;
  virtual void wake_after_events(Ticket ticket) = 0;  // as soon as the host's waiting events are handled
  // Whether the running handler has held the host's thread for as long as a person would not notice.
  virtual bool yield_due() = 0;

  // ---- Capabilities
  virtual void beep() = 0;
  virtual void show_file_dialog(const FileDialog& dialog, Ticket ticket) = 0;  // answered with the name
  virtual FileStore& files() = 0;
  virtual void clear_clipboard() = 0;
  // Answered with why it is not on the clipboard, or with nothing.
  virtual void copy_picture(const ClipboardPicture& picture, Ticket ticket) = 0;

  // ---- Reports
  virtual void report(Surface& surface, const RunTimeError& error) = 0;  // nobody else caught it
  virtual void call_ended(Ticket call) = 0;
};

}  // namespace tabulon::platform
