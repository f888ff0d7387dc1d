// What a script is replayed on.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "scenarios/comparison.h"
#include "screen/program.h"
#include "script/headless_host.h"

namespace torvale {

// The program, started on a headless host, and the transcript of what is done with it.
struct Session {
  // Without a data folder the program starts with no defaults file: the preference fields hold their start-up values,
  // and a script types those that it needs. So a script gives the same transcript everywhere.
  explicit Session(std::ostream& out, const std::string& data_folder = "");

  std::ostream& transcript;
  HeadlessHost host;
  Program program;
  LiveComparison comparison{program};
};

// The program ends as if its power had gone, without a word or a write, and starts anew with what is on the disk.
void KillAndStart(Session& session);

// Writes that the user can't reach a control: `refused: cmdCancel is hidden`.
void Refused(Session& session, std::string_view name, Reach reach);

// A click as the user makes it. Of a control that is hidden or disabled the transcript tells so. Throws ScriptError
// where no click can go to that name.
void ClickControl(Session& session, std::string_view name);

}  // namespace torvale
