#pragma once

#include <string>
#include <string_view>

#include "screen/field_facts.h"
#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// What is wrong with the text of a field, as the field's mark: a number that won't be read as it was typed, a letter
// that means nothing. What is read, and how, stays as it is.

// What is wrong with a text, as a sentence; nothing where it is taken as it stands. An empty text is.
SpokenSentence WrongWith(std::string_view text, FieldForm form);

// Gives the field its mark, or takes it away.
void MarkField(TextField& field, FieldForm form);

// The number of a field on its way into a 32-bit place, with the field's mark. A number beyond that place leaves it as
// it is and is a RunTimeFault (kOverflow), but only once, until the field holds another number: what it brings stands
// in its mark.
void TakeNumber(TextField& field, float& place);

}  // namespace torvale
