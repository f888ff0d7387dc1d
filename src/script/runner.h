// Scripts from their first line to their last.
#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "script/session.h"

namespace torvale {

// Exit statuses of a script.
inline constexpr int kScriptDone = 0;
inline constexpr int kScriptNotUnderstood = 2;

// Replays a script, statement by statement (statements.h), in a program that runs already. A line that can't be
// understood throws ScriptError, whose text begins with "line N: ".
void ReplayScript(Session& session, std::istream& script);

// Starts the program and replays a script. A line that can't be understood ends it with a message on `errors`; what
// came before it stands in the transcript. Gives back the exit status.
int RunScript(std::istream& script, std::ostream& transcript, std::ostream& errors,
              const std::string& data_folder = "");

}  // namespace torvale
