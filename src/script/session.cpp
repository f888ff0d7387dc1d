#include "script/session.h"

#include <memory>

#include "script/quoting.h"
#include "script/words.h"
#include "shell/commands.h"
#include "shell/start_up.h"

namespace torvale {

Session::Session(std::ostream& out, const std::string& data_folder)
    : transcript(out), host(out, data_folder), program(host) {
  host.on_click = [this](const std::string& control) { ClickControl(*this, control); };
  StartProgram(program);
}

void KillAndStart(Session& session) {
  std::destroy_at(&session.program);
  std::construct_at(&session.program, session.host);
  StartProgram(session.program);
}

void Refused(Session& session, std::string_view name, Reach reach) {
  session.transcript << "refused: " << name << " is " << (reach == Reach::kHidden ? "hidden" : "disabled") << '\n';
}

void ClickControl(Session& session, std::string_view name) {
  const Reach reach = Click(session.program, name);
  switch (reach) {
    case Reach::kUsable:
      return;
    case Reach::kHidden:
    case Reach::kDisabled:
      Refused(session, name, reach);
      return;
    case Reach::kUnknown:
      throw ScriptError(script_words::kNothingToClick(name));
  }
}

}  // namespace torvale
