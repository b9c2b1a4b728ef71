#include "tests/support/tested_control.h"

#include "control/LPctrl.h"

namespace tabulon {

using platform::Task;

TestedControl::TestedControl(platform::Desk& desk, basSafeCtl& model)
    : control_(std::make_unique<LPctrl>(desk, model)) {}
TestedControl::~TestedControl() = default;

TestedControl::operator platform::Surface&() const {
  return *control_;
}

platform::Control* TestedControl::find(std::string_view name, int index) const {
  return control_->find(name, index);
}
platform::Control* TestedControl::active() const {
  return control_->active();
}
platform::Twips TestedControl::width() const {
  return control_->width();
}
platform::Twips TestedControl::height() const {
  return control_->height();
}
const std::vector<platform::Control*>& TestedControl::controls() const {
  return control_->controls();
}

Result<> TestedControl::UserControl_Initialize() {
  return control_->UserControl_Initialize();
}
Result<> TestedControl::UserControl_ReadProperties(const PropertyBag& page) {
  return control_->UserControl_ReadProperties(page);
}
Task<> TestedControl::UserControl_Show() {
  return control_->UserControl_Show();
}
void TestedControl::UserControl_Terminate() {
  control_->UserControl_Terminate();
}
std::optional<Result<>> TestedControl::set_property(std::string_view name, const PropertyValue& value) {
  return control_->set_property(name, value);
}
Result<> TestedControl::InitTableau() {
  return control_->InitTableau();
}
std::string TestedControl::strSoortGetal(std::int16_t Soort, double& Getal) const {
  return control_->strSoortGetal(Soort, Getal);
}
Result<> TestedControl::SchrijfTableau(std::string_view strFile) {
  return control_->SchrijfTableau(strFile);
}
Result<> TestedControl::LeesTableau(std::string_view strFile) {
  return control_->LeesTableau(strFile);
}
Result<> TestedControl::restore(std::string_view saved) {
  return control_->restore(saved);
}
Task<> TestedControl::ShowAboutBox() {
  return control_->ShowAboutBox();
}
Task<> TestedControl::ShowfrmMelding() {
  return control_->ShowfrmMelding();
}
Task<> TestedControl::ShowfrmFoutmelding() {
  return control_->ShowfrmFoutmelding();
}
Task<> TestedControl::ShowfrmPivotelement() {
  return control_->ShowfrmPivotelement();
}

}  // namespace tabulon
