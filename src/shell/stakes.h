#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// The window of stakes: cut and fill of the crown of a slope design that is shown.

inline constexpr std::string_view kUsualStakeInterval = "100";  // feet: what the field begins with

// The fields of the window run their change handling from here on: a table is laid anew as one types. They begin with
// what the user had in them last. Call once.
void ConnectStakes(Program& program);

// Can be clicked only while a slope design is shown.
void OfferStakes(Program& program);

void mnuStakes_Click(Program& program);
void btnPrintStakes_Click(Program& program);
void btnPreviewStakes_Click(Program& program);
void btnPdfStakes_Click(Program& program);
void btnCsvStakes_Click(Program& program);
void btnCloseStakes_Click(Program& program);

}  // namespace torvale
