#include "shell/about.h"

#include "base/version.h"
#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {

void mnuHelpAbout_Click(Program& program) {
  Tell(program, words::kAbout(ProgramVersion()));
}

}  // namespace torvale
