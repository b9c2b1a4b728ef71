// A program with the control in a window, hosted by the system's own ATL library like in any other program.
// Its frame has a text box of its own.
//
//   Container container({.order = Container::Order::LoadFirst});
//   container.show({{"prmNrBeslisVar", "3"}});      // S_OK, or the error that the page's parameters made
//   container.run();                                // its message loop, until close()
//
// It belongs to the thread that creates it; other threads may only call close() and use the windows.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <wrl/client.h>

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "window_thread.h"

namespace tabulon::activex {

class Container {
 public:
  // Whether the control is shown before it loads the page's parameters, or after.
  enum class Order { ShowFirst, LoadFirst };
  struct Options {
    Order order = Order::ShowFirst;
    // Whether the message loop offers every key to the control before dispatching it.
    bool offers_keys = false;
  };
  using Parameters = std::vector<std::pair<std::string, std::string>>;
  using Value = std::variant<double, bool, std::string>;

  explicit Container(const Options& options);
  ~Container();
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  void run();
  void close() { PostMessageW(frame_, WM_CLOSE, 0, 0); }

  // Creates the control and loads the page's parameters. Answers the result of loading; the control is shown
  // even if that is an error. Another error of the system if there is no control.
  HRESULT show(const Parameters& parameters);
  // Sets a property as a script does. DISP_E_UNKNOWNNAME if there is none of that name.
  HRESULT set(std::string_view property, const Value& value);
  // Calls a method as a script does; a file name is passed by reference. Returns when the method does.
  HRESULT call(std::string_view method, const std::string* file = nullptr);

  WindowThread& thread() { return thread_; }
  HWND frame() const { return frame_; }
  HWND own_box() const { return own_box_; }
  HWND surface() const;  // the control's window; null before it is shown
  IUnknown* control() const { return control_.Get(); }

 private:
  HRESULT load_and_show(const Parameters& parameters);
  HRESULT show_and_load(const Parameters& parameters);
  HRESULT load(const Parameters& parameters);
  HRESULT invoke(std::string_view name, WORD how, DISPPARAMS& given);
  bool offer_key(MSG& message);

  Options options_;
  WindowThread thread_;
  HWND frame_, place_, own_box_;
  Microsoft::WRL::ComPtr<IUnknown> control_;
};

}  // namespace tabulon::activex
