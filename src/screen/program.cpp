#include "screen/program.h"

#include <algorithm>

#include "base/format.h"

namespace torvale {
namespace {

std::optional<NamedControl> Find(Program& program, std::string_view name) {
  for (const auto& controls : {ControlsOf(program.main), ControlsOf(program.soils), ControlsOf(program.profile),
                               ControlsOf(program.splash), ControlsOf(program.help), ControlsOf(program.versions)}) {
    for (const NamedControl& control : controls) {
      if (control.name == name) return control;
    }
  }
  return std::nullopt;
}

}  // namespace

Program::Program(Host& desktop) : host(desktop) {
  for (int row = 1; row <= kHoleSizes; ++row) main.listAllHoles.Add(record.HoleSizeName[row]);
}

Control* FindControl(Program& program, std::string_view name) {
  const auto found = Find(program, name);
  return found ? found->control : nullptr;
}

TextField* FindField(Program& program, std::string_view name) {
  const auto found = Find(program, name);
  return found ? found->field : nullptr;
}

Grid* FindGrid(Program& program, std::string_view name) {
  const auto found = Find(program, name);
  return found ? found->grid : nullptr;
}

Reach ReachOf(Program& program, std::string_view name) {
  auto found = Find(program, name);
  if (!found) return Reach::kUnknown;
  bool enabled = true;
  while (found) {
    if (!found->control->visible) return Reach::kHidden;
    enabled = enabled && found->control->enabled;
    found = found->parent.empty() ? std::nullopt : Find(program, found->parent);
  }
  return enabled ? Reach::kUsable : Reach::kDisabled;
}

long ScreenEngineHost::Yield(long due) {
  return program_.host.Yield(due);
}

void ScreenEngineHost::Message(std::string_view body, std::string_view title) {
  program_.host.Message(body, title);
}

void ScreenEngineHost::EndBusy() {
  program_.main.busy = false;
}

void ScreenEngineHost::HideCancel() {
  program_.main.cmdCancel.visible = false;
}

void ScreenEngineHost::OfferInterpolation() {
  program_.main.cmdInterpolate.visible = true;
}

void ScreenEngineHost::ShowSurvey() {
  program_.main.Grid1.control.visible = true;
}

void ScreenEngineHost::MoveSurveyCell(int row, int column) {
  program_.main.Grid1.SetCurrent(row, column);
}

void ScreenEngineHost::AlignSurveyCell(int row, int column) {
  program_.main.Grid1.SetAlign(row, column, Align::kCentreBottom);
}

void ScreenEngineHost::TotalAcresChanged() {
  program_.main.lblAcresTotal.caption = TotalAcresText(program_);
}

void ScreenEngineHost::UniformityChanged() {
  program_.main.lblEffic.back = program_.record.Uniformity >= 90 ? kBrightGreen : kYellow;
  program_.main.lblEffic.visible = true;
}

void RunFlowCalc(Program& program, int& tries) {
  ScreenEngineHost host(program);
  FlowCalc(program.record, {program.main.Grid1.cells(), program.main.txtInfo[3].text(), program.main.txtInfo[5].text()},
           host, tries);
}

std::string TotalAcresText(const Program& program) {
  return "Total Acres = " + Format(static_cast<double>(program.record.TotalAcres), "###0.0");
}

}  // namespace torvale
