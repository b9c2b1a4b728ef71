// The control, behind what tests use of it: tests are not built anew when one of its parts changes.
//
//   TestedControl control(host.desk(), model);
//   host.desk().call(control, control.UserControl_Show());
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/basSafeCtl.h"
#include "control/property_bag.h"
#include "platform/desk.h"
#include "platform/surface.h"

namespace tabulon {

class LPctrl;

class TestedControl {
 public:
  TestedControl(platform::Desk& desk, basSafeCtl& model);
  ~TestedControl();

  operator platform::Surface&() const;  // NOLINT(google-explicit-constructor): it is one, to who looks at it

  // ---- As a surface
  platform::Control* find(std::string_view name, int index = 0) const;
  platform::Control* active() const;
  platform::Twips width() const;
  platform::Twips height() const;
  const std::vector<platform::Control*>& controls() const;

  // ---- As LPctrl
  Result<> UserControl_Initialize();
  Result<> UserControl_ReadProperties(const PropertyBag& page);
  platform::Task<> UserControl_Show();
  void UserControl_Terminate();
  std::optional<Result<>> set_property(std::string_view name, const PropertyValue& value);
  Result<> InitTableau();
  std::string strSoortGetal(std::int16_t Soort, double& Getal) const;
  Result<> SchrijfTableau(std::string_view strFile);
  Result<> LeesTableau(std::string_view strFile);
  Result<> restore(std::string_view saved);
  platform::Task<> ShowAboutBox();
  platform::Task<> ShowfrmMelding();
  platform::Task<> ShowfrmFoutmelding();
  platform::Task<> ShowfrmPivotelement();

 private:
  std::unique_ptr<LPctrl> control_;
};

}  // namespace tabulon
