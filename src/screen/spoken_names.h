// What readers of the screen call fields.
#pragma once

#include <span>
#include <string>

#include "screen/control_facts.h"

namespace torvale {

// A field is called what the nearest label ahead of it in its line says, among the controls of its screen, or else what
// its tool tip or its own name says.
std::string SpokenNameOf(std::span<const NamedControl> controls, const NamedControl& field);

}  // namespace torvale
