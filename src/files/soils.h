// The list of soils with their recommended furrow flows: its file, its editor, and the choice of one.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

inline constexpr std::string_view kSoilsFile = "SoilsName.txt";

// Lays out the grid of the soils editor.
void SetGrd_Soils_FurrowFlow(Program& program);

// Reads the soils file into the editor's grid, `listSoils` and `SoilFurrowFlow`. The list is not emptied: each reading
// appends the whole file to it again. Any failure: a message, the editor hidden, what was read so far kept.
void OpenSoils(Program& program);

// Opens the editor.
void mnuSoils_and_Furrow_Click(Program& program);

// A soil is chosen: `SoilName`, `RecFurrowFlow` and the caption of `lblRecFurrowFlow`. The recommendation is advice and
// does not enter the hydraulics. An index outside the tables ends it in silence with what was done so far.
void listSoils_Click(Program& program);

// The place in the soils file, from 0, of the soil that is chosen in any of the list's copies of it; -1 for none.
int ChosenSoil(const Program& program);

// Looks the text of the list up in `SoilNames`.
void Recommended_Furror_Flow(Program& program);

// Writes the editor's rows down to the first without a name, and closes it. The list and the table follow at the next
// reading. Any failure: a message, and the editor stays open.
void mnu_Save_Exit_Click(Program& program);

// Closes the editor; what was typed stays in its grid until the file is read again.
void MnuExit_Click(Program& program);

// Cut, copy and paste of the block selected in the editor's grid, through the block clipboard that it shares with the
// survey sheet.
void mnuCut_Click(Program& program);
void mnuCopy_Click(Program& program);
void mnuPaste_Click(Program& program);

// A key that carries a character, in the editor's grid ("\r" Enter, "\b" Backspace).
void Grd_Soils_KeyPress(Program& program, std::string_view character);

}  // namespace torvale
