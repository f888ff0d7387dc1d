// The list of earlier versions on the screen: see earlier_versions.h.
#pragma once

#include "screen/program.h"

namespace torvale {

// Shows the list, the versions of the open design's file ahead.
void mnuFileEarlier_Click(Program& program);
// Opens the version of the current row as a copy: its names are of its own, so that no save goes over the file.
void btnOpenVersion_Click(Program& program);
void btnCloseVersions_Click(Program& program);
// The cursor of the list has moved.
void ShowVersionPath(Program& program);

}  // namespace torvale
