#include "script/runner.h"

#include "script/quoting.h"
#include "script/statements.h"
#include "script/words.h"

namespace torvale {

void ReplayScript(Session& session, std::istream& script) {
  ScriptLines lines(script);
  std::string line;
  while (lines.Next(line)) {
    try {
      RunStatement(session, line, lines);
    } catch (const ScriptError& error) {
      throw ScriptError(script_words::kAtLine(std::to_string(lines.number()), error.what()));
    }
  }
}

int RunScript(std::istream& script, std::ostream& transcript, std::ostream& errors, const std::string& data_folder) {
  Session session(transcript, data_folder);
  try {
    ReplayScript(session, script);
  } catch (const ScriptError& error) {
    errors << error.what() << '\n';
    return kScriptNotUnderstood;
  }
  return kScriptDone;
}

}  // namespace torvale
