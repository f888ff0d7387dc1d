#include "screen/help_screen.h"

namespace torvale {
namespace {

constexpr ControlRow<HelpScreen> kRows[] = {
    rows::Frame<&HelpScreen::frmHelp>("frmHelp", {}, "TORVALE Help", {.visible = false}),
};

}  // namespace

std::span<const ControlRow<HelpScreen>> HelpScreen::Rows() {
  return kRows;
}

HelpScreen::HelpScreen() {
  TakeFacts(*this);
}

}  // namespace torvale
