#pragma once

#include "screen/program.h"

namespace torvale {

// Ask for a file and write the crew's sheet of the design that is shown to it. A file that can't be written is told of.
void mnuExportPhone_Click(Program& program);    // a page for a phone
void mnuExportPicture_Click(Program& program);  // a picture

}  // namespace torvale
