#include "shell/about.h"

#include "base/version.h"

namespace torvale {

void mnuHelpAbout_Click(Program& program) {
  program.host.Message("Version " + ProgramVersion() +
                           "\rRevised January 2012"
                           "\rBy the TORVALE developers"
                           "\rNew versions come from where you got this one, with their source"
                           "\rAlthough TORVALE program has been tested by its developers, NO warranty,"
                           "\r&expressed or implied, is made as to the accuracy and functionality of"
                           "\rthe program and related program material nor shall the fact of distribution"
                           "\rconstitute any such warranty, and NO responsibility is assumed by the developers"
                           "\rin connection therewith.",
                       "");
}

}  // namespace torvale
