// The About box.
#pragma once

#include "platform/surface.h"

namespace tabulon {

class frmAboutLP : public platform::Form {
 public:
  explicit frmAboutLP(Surface& owner);
  void on_load() override;
  platform::Task<> on_click(platform::Control& control) override;

 private:
  platform::Image imgAbout{*this, "imgAbout"};
  platform::Label lblTitle{*this, "lblTitle"};
  platform::Label lblVersion{*this, "lblVersion"};
  platform::Label lblDescription{*this, "lblDescription"};
  platform::Line lineAbove{*this, "lineAbove"};
  platform::Line lineBelow{*this, "lineBelow"};
  platform::Label lblDisclaimer{*this, "lblDisclaimer"};
  platform::CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace tabulon
