#include "qt/keys.h"

#include <algorithm>

namespace torvale {
namespace {

struct NamedKey {
  int key;
  Key plain;
};

constexpr NamedKey kNamedKeys[] = {
    {Qt::Key_Return, Key::kEnter},      {Qt::Key_Enter, Key::kEnter}, {Qt::Key_Backspace, Key::kBackspace},
    {Qt::Key_Delete, Key::kDelete},     {Qt::Key_Up, Key::kUp},       {Qt::Key_Down, Key::kDown},
    {Qt::Key_Left, Key::kLeft},         {Qt::Key_Right, Key::kRight}, {Qt::Key_PageUp, Key::kPageUp},
    {Qt::Key_PageDown, Key::kPageDown}, {Qt::Key_Home, Key::kHome},   {Qt::Key_End, Key::kEnd},
    {Qt::Key_Tab, Key::kTab},           {Qt::Key_Backtab, Key::kTab}, {Qt::Key_F2, Key::kEdit},
    {Qt::Key_Escape, Key::kEscape},
};

constexpr NamedKey kControlKeys[] = {
    {Qt::Key_Home, Key::kCtrlHome}, {Qt::Key_End, Key::kCtrlEnd},     {Qt::Key_Up, Key::kCtrlUp},
    {Qt::Key_Down, Key::kCtrlDown}, {Qt::Key_Left, Key::kCtrlLeft},   {Qt::Key_Right, Key::kCtrlRight},
    {Qt::Key_Tab, Key::kCtrlTab},   {Qt::Key_Backtab, Key::kCtrlTab},
};

constexpr NamedKey kAltKeys[] = {
    {Qt::Key_Right, Key::kWiden},
    {Qt::Key_Left, Key::kNarrow},
};

struct StandardKey {
  QKeySequence::StandardKey keys;
  Key plain;
};

// Whatever keys the desktop has for them, Ctrl+C and the like among them.
constexpr StandardKey kStandardKeys[] = {
    {QKeySequence::Copy, Key::kCopy}, {QKeySequence::Cut, Key::kCut},   {QKeySequence::Paste, Key::kPaste},
    {QKeySequence::Undo, Key::kUndo}, {QKeySequence::Redo, Key::kRedo}, {QKeySequence::SelectAll, Key::kSelectAll}};

template <typename Table>
std::optional<Key> Find(const Table& table, int key) {
  const auto found = std::find_if(std::begin(table), std::end(table), [&](const NamedKey& k) { return k.key == key; });
  return found == std::end(table) ? std::nullopt : std::optional(found->plain);
}

bool IsPrintable(const QString& text) {
  return !text.isEmpty() &&
         std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

}  // namespace

std::optional<KeyStroke> StrokeOf(const QKeyEvent& event, std::string& character) {
  KeyStroke stroke;
  stroke.shift = event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
  for (const StandardKey& standard : kStandardKeys) {
    if (!event.matches(standard.keys)) continue;
    stroke.key = standard.plain;
    return stroke;
  }
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  stroke.alt = event.modifiers().testFlag(Qt::AltModifier) && !control;
  auto named = control ? Find(kControlKeys, event.key()) : Find(kNamedKeys, event.key());
  if (const auto widened = stroke.alt ? Find(kAltKeys, event.key()) : std::nullopt) named = widened;
  if (named) {
    stroke.alt = false;
    stroke.key = *named;
    return stroke;
  }
  // Some keyboards make characters with Ctrl and Alt together; what counts is whether one came out.
  if (!IsPrintable(event.text())) return std::nullopt;
  character = event.text().toStdString();
  stroke.character = character;
  return stroke;
}

}  // namespace torvale
