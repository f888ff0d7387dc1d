#include "script/session.h"

#include "script/quoting.h"
#include "shell/commands.h"
#include "shell/start_up.h"

namespace torvale {

Session::Session(std::ostream& out, std::string data_folder)
    : transcript(out), host(out, std::move(data_folder)), program(host) {
  host.on_click = [this](const std::string& control) { ClickControl(*this, control); };
  StartProgram(program);
}

void ClickControl(Session& session, std::string_view name) {
  switch (Click(session.program, name)) {
    case Reach::kUsable:
      return;
    case Reach::kHidden:
      session.transcript << "refused: " << name << " is hidden\n";
      return;
    case Reach::kDisabled:
      session.transcript << "refused: " << name << " is disabled\n";
      return;
    case Reach::kUnknown:
      throw ScriptError("nothing to click: " + std::string(name));
  }
}

}  // namespace torvale
