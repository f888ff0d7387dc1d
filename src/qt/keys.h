#pragma once

#include <QKeyEvent>
#include <optional>
#include <string>

#include "shell/events.h"

namespace torvale {

// A key of the toolkit as the program knows it; nothing for keys that are none of its own (function keys, Tab, Alt
// combinations). `character` holds the text that the stroke refers to.
std::optional<KeyStroke> StrokeOf(const QKeyEvent& event, std::string& character);

}  // namespace torvale
