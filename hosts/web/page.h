// What the page does for the module: the module's only imports. page.ts has the other side.
//
// Surfaces are named by the numbers that WebHost gives them. A record or text is lent for the call alone.
// What these functions do to the page is done when the module has returned, so that nothing of the page's
// own runs in between.
#pragma once

#include <cstddef>
#include <cstdint>

#define TABULON_PAGE(function) [[clang::import_module("tabulon"), clang::import_name(#function)]]

namespace tabulon::web::page {

extern "C" {

// ---- What is seen
TABULON_PAGE(open_surface) void open_surface(const std::uint8_t* record, std::size_t size);
TABULON_PAGE(close_surface) void close_surface(int surface);
TABULON_PAGE(mirror) void mirror(const std::uint8_t* record, std::size_t size);
TABULON_PAGE(show_menu) void show_menu(const std::uint8_t* record, std::size_t size);
TABULON_PAGE(close_menu) void close_menu();
TABULON_PAGE(set_busy) void set_busy(int surface, bool busy);
TABULON_PAGE(take_focus) bool take_focus(int surface);

// ---- Time
TABULON_PAGE(seconds_since_midnight) float seconds_since_midnight();
TABULON_PAGE(yield_due) bool yield_due();
TABULON_PAGE(wake_after) void wake_after(double milliseconds, int ticket);
TABULON_PAGE(wake_after_repaint) void wake_after_repaint(int ticket);
TABULON_PAGE(wake_after_events) void wake_after_events(int ticket);

// ---- Capabilities
TABULON_PAGE(beep) void beep();
TABULON_PAGE(show_file_dialog)
void show_file_dialog(const std::uint8_t* record, std::size_t size, int ticket);
TABULON_PAGE(write_file) void write_file(const std::uint8_t* record, std::size_t size);
TABULON_PAGE(clear_clipboard) void clear_clipboard();
TABULON_PAGE(copy_picture) void copy_picture(const std::uint8_t* record, std::size_t size, int ticket);

// ---- Reports
TABULON_PAGE(report) void report(int surface, int number, const char* subject, std::size_t size);
TABULON_PAGE(call_ended) void call_ended(int call);
}

}  // namespace tabulon::web::page

#undef TABULON_PAGE
