// The panel of preferences `Frame1`: sixteen fields that the rest of the program reads directly, shown or hidden.
#pragma once

#include <string_view>

#include "input/info_fields.h"
#include "screen/program.h"

namespace torvale {

void mnuPreference_Click(Program& program);

// Fills blank fields with their factory defaults and applies the coefficients and the interval of stations.
void TakePreferences(Program& program);

// Closes the panel: takes the preferences and writes the defaults file. The status bar says when it can't be written;
// nothing else that fails is told. Also run by opening and saving a design and at the program's end.
void btnDefaultExit_Click(Program& program);

// Writes the defaults file with the fields as they stand and applies them, and leaves the panel as it is. What fails is
// told as above.
void StorePreferences(Program& program);

// Repairs the letters of fields 9 and 11 and, whichever field it is, a highest target head below half a foot; each with
// a beep.
void txtDefault_LostFocus(Program& program, int index);
// An arrow key in a field.
void txtDefault_KeyDown(Program& program, int index, FieldKeyKind key);
// A key that carries a character, before it changes the text ("\r" for Enter). True where it is swallowed: Enter goes
// on to the next field, from the last to the first; field 1 takes "+" and "-" alone, which step its hole size.
bool txtDefault_KeyPress(Program& program, int index, std::string_view character);

}  // namespace torvale
