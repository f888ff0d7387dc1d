#include "shell/splash.h"

#include "base/version.h"
#include "display/grid_layout.h"
#include "files/file_commands.h"
#include "files/new_design.h"
#include "shell/main_form.h"

namespace torvale {

void frmSplash_Load(Program& program) {
  static_cast<HoleSizeTable&>(program.record) = {};
  Form_Load(program);
  Default_Values(program);
  GridSet(program);
  program.splash.lblVersion.caption = "Version " + ProgramVersion() + "   Jan 2012";
  OpenRecentFiles(program);
  program.splash.Form.visible = true;
}

void frmSplash_Click(Program& program) {
  program.splash.Form.visible = false;
}

}  // namespace torvale
