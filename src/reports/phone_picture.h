#pragma once

#include "reports/crew_sheet.h"
#include "screen/document.h"

namespace torvale {

// The crew's sheet as a picture for a phone: one page of large letters, as long as it takes. Of very many runs the
// last ones are left out, and the picture says how many.
Document PhonePicture(const CrewSheet& sheet);

}  // namespace torvale
