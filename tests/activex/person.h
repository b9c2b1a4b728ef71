// The person at the machine: presses keys and moves the mouse through the system's input queue, so that key
// state, capture, menus and focus behave as in daily use. Works on a thread of its own, because menus, forms
// and file dialogs run modal loops on the thread that owns the windows.
//
//   Person person(container.thread());
//   person.press({'W', Person::alt});
//   person.wait_until_idle();         // the keys have been handled, and the messages that they posted
//   person.click({320, 200});         // in pixels of the screen
#pragma once

#include <windows.h>

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
  // A key going down, which is repeated for a key that is held, or up.
  void key_down(int key);
  void key_up(int key);
  // Types the text with the keys of this keyboard layout; a letter without a key is sent as Unicode input.
  void type(std::wstring_view text);
  void move(POINT to);
  void click(POINT at);
  // The left button goes down, or up, there.
  void button_down(POINT at);
  void button_up(POINT at);

  // Waits until the windows' thread has handled all input so far, and the messages that it posted; the last
  // stroke or click is done again where the system has lost it. False if that never comes.
  bool wait_until_idle();

 private:
  void repeat_what_is_lost();

  HHOOK hook_;
};

}  // namespace tabulon::activex
