#include "script/statements.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>

#include "script/arguments.h"
#include "script/keys.h"
#include "script/named.h"
#include "script/quoting.h"
#include "script/show.h"
#include "script/words.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/history.h"
#include "shell/panel_drag.h"
#include "shell/recovery.h"

namespace torvale {
namespace {

constexpr std::size_t kAnyCount = 1000;

void Type(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(2, 2);
  const std::string& name = arguments.Word(0);
  NamedField(session.program, name);
  if (ReachOf(session.program, name) == Reach::kDisabled) return Refused(session, name, Reach::kDisabled);
  TypeUnseen(session.program, name, arguments.Text(1));
}

void WriteCell(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(4, 4);
  Grid& grid = NamedGrid(session.program, arguments.Word(0));
  const int row = arguments.Number(1);
  const int column = arguments.Number(2);
  NeedCell(grid, row, column);
  const std::string& text = arguments.Text(3);
  Guarded(session.program, [&] {
    NameCause(session.program, "cell");
    grid.Set(row, column, text);
  });
}

void FillRow(Grid& grid, int row, int column, std::string_view line) {
  for (;; ++column) {
    const std::size_t tab = line.find('\t');
    NeedCell(grid, row, column);
    grid.Set(row, column, line.substr(0, tab));
    if (tab == std::string_view::npos) return;
    line.remove_prefix(tab + 1);
  }
}

void Fill(Session& session, const Arguments& arguments, ScriptLines& lines) {
  arguments.Need(3, 3);
  Grid& grid = NamedGrid(session.program, arguments.Word(0));
  int row = arguments.Number(1);
  std::string line;
  const int column = arguments.Number(2);
  for (bool more = lines.Next(line); more; more = lines.Next(line)) {
    if (line != "end") {
      FillRow(grid, row++, column, line);
      continue;
    }
    Guarded(session.program, [&] { NameCause(session.program, "fill"); });
    return;
  }
  throw ScriptError(script_words::kFillWithoutEnd);
}

void ClickStatement(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  ClickControl(session, arguments.Word(0));
}

void Keys(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(2, kAnyCount);
  for (std::size_t i = 1; i < arguments.count(); ++i) {
    PressKeys(session.program, arguments.Word(0), arguments.Any(i));
  }
}

void At(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(3, 5);
  if (arguments.count() == 4) throw ScriptError(script_words::kNotComplete);
  const std::string& name = arguments.Word(0);
  const Grid& grid = NamedGrid(session.program, name);
  NeedCell(grid, arguments.Number(1), arguments.Number(2));
  GridPoint(session.program, name, arguments.Number(1), arguments.Number(2), false);
  if (arguments.count() == 3) return;
  NeedCell(grid, arguments.Number(3), arguments.Number(4));
  GridPoint(session.program, name, arguments.Number(3), arguments.Number(4), true);
}

// The line of a list that a text names, or an index from 0.
int LineOf(const ListBox& list, const Token& line) {
  if (!line.quoted) {
    const int index = WholeNumber(line.text);
    if (index < 0 || index >= list.count()) throw ScriptError(script_words::kNoLine(line.text));
    return index;
  }
  for (int i = 0; i < list.count(); ++i) {
    if (list.Line(i) == line.text) return i;
  }
  throw ScriptError(script_words::kNoLine(line.text));
}

void Choose(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(2, kAnyCount);
  const std::string& name = arguments.Word(0);
  const ListBox& list = NamedList(session.program, name);
  std::vector<int> lines;
  for (std::size_t i = 1; i < arguments.count(); ++i) lines.push_back(LineOf(list, arguments.Any(i)));
  const Reach reach = SelectLines(session.program, name, lines);
  if (reach != Reach::kUsable) Refused(session, name, reach);
}

void DoubleClick(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(2, 2);
  const std::string& name = arguments.Word(0);
  const int line = LineOf(NamedList(session.program, name), arguments.Any(1));
  const Reach reach = DoubleClickLine(session.program, name, line);
  if (reach != Reach::kUsable) Refused(session, name, reach);
}

void Focus(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  if (FindControl(session.program, arguments.Word(0)) == nullptr) {
    throw ScriptError(script_words::kNoControl(arguments.Word(0)));
  }
  FocusGained(session.program, arguments.Word(0));
}

void Mouse(Session& session, const Arguments& arguments, ScriptLines&) {
  constexpr std::array kActions = {MouseAction::kDown, MouseAction::kMove, MouseAction::kUp};
  constexpr std::array kButtons = {MouseButton::kNone, MouseButton::kLeft, MouseButton::kRight};
  arguments.Need(5, 5);
  constexpr std::string_view kSurfaces[] = {"Grid2", "frmMainForm", "Frame1", "frameHoleSelection", "nothing"};
  constexpr std::string_view kActionWords[] = {"down", "move", "up"};
  constexpr std::string_view kButtonWords[] = {"none", "left", "right"};
  const std::string& name = arguments.Word(0);
  const std::size_t surface = arguments.OneOf(0, kSurfaces);
  const MouseAction action = kActions[arguments.OneOf(1, kActionWords)];
  const MouseButton button = kButtons[arguments.OneOf(2, kButtonWords)];
  if (surface == 0) {
    ResultMouse(session.program, action, button, arguments.Number(3), arguments.Number(4));
  } else {
    ScreenMouse(session.program, surface == 4 ? "" : name, action, button, arguments.Number(3), arguments.Number(4));
  }
}

void Select(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(3, 3);
  const std::string& name = arguments.Word(0);
  NamedField(session.program, name);
  SelectText(session.program, name, {arguments.Number(1), arguments.Number(2)});
}

void Clipboard(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  session.host.SetClipboardText(arguments.Text(0));
}

void Answer(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  constexpr std::string_view kAnswers[] = {"No", "Yes"};
  session.host.Answer(arguments.OneOf(0, kAnswers) == 1);
}

// `dialog cancel` cancels; a path of that name stands in quotes.
void Dialog(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  const Token& path = arguments.Any(0);
  session.host.Dialog(path.quoted || path.text != "cancel" ? std::optional<std::string>(path.text) : std::nullopt);
}

void Copies(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  if (arguments.Word(0) == "cancel") {
    session.host.Copies(std::nullopt);
    return;
  }
  if (arguments.Number(0) < 1) throw ScriptError(script_words::kNoCopies);
  session.host.Copies(arguments.Number(0));
}

void OnYield(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(4, 4);
  constexpr std::string_view kYield[] = {"yield"};
  constexpr std::string_view kClick[] = {"click"};
  arguments.OneOf(0, kYield);
  arguments.OneOf(2, kClick);
  if (arguments.Number(1) < 1) throw ScriptError(script_words::kNoYield);
  if (!HasCommand(arguments.Word(3))) throw ScriptError(script_words::kNothingToClick(arguments.Word(3)));
  session.host.OnYield(arguments.Number(1), arguments.Word(3));
}

void ShowStatement(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, kAnyCount);
  for (std::size_t i = 0; i < arguments.count(); ++i) {
    const bool all = arguments.Word(i) == "all";
    const bool at = arguments.Word(i) == "at";
    const bool view = arguments.Word(i) == "view";
    if ((all || at || view) && ++i == arguments.count()) throw ScriptError(script_words::kNotComplete);
    if (arguments.Word(i) == "printed") {
      session.host.ShowPrinted();
    } else if (arguments.Word(i) == "clipboard") {
      session.host.ShowClipboard();
    } else if (at) {
      ShowCurrentCell(session.transcript, session.program, arguments.Word(i));
    } else if (view) {
      ShowView(session.transcript, session.program, arguments.Word(i));
    } else {
      Show(session.transcript, session.program, arguments.Word(i), all ? Elements::kAll : Elements::kInUse);
    }
  }
}

// Time passes, in seconds.
void Wait(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(1, 1);
  if (arguments.Number(0) < 0) throw ScriptError(script_words::kTimeGoesBack);
  session.host.Wait(std::int64_t{arguments.Number(0)} * 1000);
  Idle(session.program);
}

void Kill(Session& session, const Arguments& arguments, ScriptLines&) {
  arguments.Need(0, 0);
  KillAndStart(session);
}

struct Statement {
  std::string_view word;
  void (*run)(Session&, const Arguments&, ScriptLines&);
};

constexpr Statement kStatements[] = {{"type", Type},
                                     {"cell", WriteCell},
                                     {"fill", Fill},
                                     {"click", ClickStatement},
                                     {"key", Keys},
                                     {"at", At},
                                     {"choose", Choose},
                                     {"doubleclick", DoubleClick},
                                     {"focus", Focus},
                                     {"mouse", Mouse},
                                     {"answer", Answer},
                                     {"dialog", Dialog},
                                     {"copies", Copies},
                                     {"on", OnYield},
                                     {"show", ShowStatement},
                                     {"select", Select},
                                     {"clipboard", Clipboard},
                                     {"wait", Wait},
                                     {"kill", Kill}};

}  // namespace

bool ScriptLines::Next(std::string& line) {
  if (!std::getline(source_, line)) return false;
  ++number_;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

std::vector<std::string_view> StatementWords() {
  std::vector<std::string_view> words;
  for (const Statement& statement : kStatements) words.push_back(statement.word);
  return words;
}

void RunStatement(Session& session, const std::string& line, ScriptLines& lines) {
  const std::vector<Token> tokens = Tokens(line);
  if (tokens.empty()) return;
  const auto statement = std::find_if(std::begin(kStatements), std::end(kStatements), [&](const Statement& s) {
    return !tokens.front().quoted && s.word == tokens.front().text;
  });
  if (statement == std::end(kStatements)) throw ScriptError(script_words::kNoStatement(tokens.front().text));
  statement->run(session, Arguments(std::span(tokens).subspan(1)), lines);
  session.comparison.Settle();
}

}  // namespace torvale
