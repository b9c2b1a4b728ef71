// The person at the machine: presses keys and moves the mouse as the system's own input, so that the state of
// the keys, capture, menus and focus are what they are in daily use. Works from a thread beside the one that
// has the windows, because menus, forms and file dialogs hold that one in loops of their own.
//
//   Person person(container.thread());
//   person.press({'W', Person::alt});
//   person.wait_until_idle();                  // now that thread has handled the keys, and what they posted
//   person.click({320, 200});         // in pixels of the screen
#pragma once

#include <windows.h>

#include <chrono>
#include <string_view>

#include "window_thread.h"

namespace tabulon::activex {

class Person {
 public:
  enum Modifiers : int { none = 0, shift = 1, ctrl = 2, alt = 4 };
  struct Stroke {
    int key;  // a virtual key
    int held = none;
  };

  // One at a time in a process.
  explicit Person(const WindowThread& windows);
  ~Person();
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  void press(const Stroke& stroke);
  // A key alone: down, and again for as long as it is held, and up.
  void key_down(int key);
  void key_up(int key);
  // Writes the text with the keys that it has on this keyboard; a letter without one comes as it does from a
  // pen.
  void type(std::wstring_view text);
  void move(POINT to);
  void click(POINT at);
  // The left button goes down, or up, there.
  void button_down(POINT at);
  void button_up(POINT at);

  // Until the window's thread has handled all input so far and what that posted. False where it takes longer
  // than `patience`.
  bool wait_until_idle(std::chrono::milliseconds patience = std::chrono::seconds(10));

 private:
  HHOOK hook_;
};

}  // namespace tabulon::activex
