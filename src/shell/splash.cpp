#include "shell/splash.h"

#include "base/version.h"
#include "display/grid_layout.h"
#include "files/file_commands.h"
#include "files/new_design.h"
#include "shell/main_form.h"

namespace torvale {
namespace {

constexpr std::string_view kDescription =
    " This program was developed to improve Distribution Uniformity in Layflat pipe.\r\n"
    "  Distribution Uniformity can be improved using TORVALE two ways.\r\n"
    "   1. Selecting correct hole diameters for head pressure.\r\n"
    "   2. Designing correct slope where layflat pipe is installed to offset head pressure.";

}  // namespace

void frmSplash_Load(Program& program) {
  static_cast<HoleSizeTable&>(program.record) = {};
  Form_Load(program);
  Default_Values(program);
  GridSet(program);
  program.splash.lblProductDescription.caption = kDescription;
  program.splash.lblVersion.caption = "Version " + ProgramVersion() + "   Jan 2012";
  OpenRecentFiles(program);
  program.splash.Form.visible = true;
}

void frmSplash_Click(Program& program) {
  program.splash.Form.visible = false;
}

}  // namespace torvale
