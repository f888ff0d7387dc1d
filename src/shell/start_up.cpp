#include "shell/start_up.h"

#include "files/preferences.h"
#include "input/info_fields.h"
#include "shell/history.h"
#include "shell/splash.h"
#include "shell/stakes.h"

namespace torvale {

void StartProgram(Program& program) {
  ConnectInfoFields(program);
  ConnectPreferences(program);
  ConnectStakes(program);
  frmSplash_Load(program);
  StartHistory(program);
}

}  // namespace torvale
