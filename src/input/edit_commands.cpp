#include "input/edit_commands.h"

#include <string>
#include <string_view>

#include "base/numbers.h"
#include "input/block_clipboard.h"
#include "input/clipboard_text.h"
#include "input/focus.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

// The active control where it is a text field, or nullptr.
TextField* ActiveField(Program& program) {
  const std::string& focus = program.main.focus;
  return ReachOf(program, focus) == Reach::kUsable ? FindField(program, focus) : nullptr;
}

void CopyField(Program& program, const TextField& field) {
  program.host.SetClipboardText(field.SelectedText());
}

void ReplaceInField(Program& program, TextField& field, std::string_view text) {
  const std::string mark = field.control.mark;
  field.ReplaceSelected(text);
  TellMark(program, program.main.focus, mark);
}

void OfferToOthers(Program& program) {
  program.offered_cells = SelectedCells(program.main.Grid1);
  program.host.SetClipboardText(program.offered_cells);
}

// Whether the desktop's clipboard holds cells that did not come from the sheet or the results.
bool OthersOfferCells(Program& program) {
  const std::string text = ClipboardText(program);
  return text.find_first_of("\t\n") != std::string::npos &&
         text != WithLineEnds(WithClosingQuotes(program.offered_cells));
}

SpokenSentence ChangedOutOfSight(const Block& block) {
  if (block.row1 == block.row2) return words::kRowBehindResultsChanged(GeneralText(block.row1));
  return words::kRowsBehindResultsChanged(GeneralText(block.row1), GeneralText(block.row2));
}

// Cut and paste reach the sheet behind the results too. The focus, and with it what is typed next, stays on what the
// user sees then, and the status bar tells what happened out of sight.
void ShowSheet(Program& program, const Block& changed) {
  MainScreen& main = program.main;
  main.Grid1.control.visible = true;
  if (!main.Grid2.control.visible) {
    MoveFocus(program, "Grid1");
    return;
  }
  Say(program, ChangedOutOfSight(changed));
}

}  // namespace

void mnuEditCopy_Click(Program& program) {
  MainScreen& main = program.main;
  program.record.GridClipboard.Clear();
  if (const TextField* field = ActiveField(program)) {
    CopyField(program, *field);
  } else if (main.Grid2.control.visible) {
    program.offered_cells = SelectedCells(main.Grid2);
    program.host.SetClipboardText(program.offered_cells);
  } else if (main.Grid1.control.visible) {
    CopyBlock(program.record, main.Grid1);
    OfferToOthers(program);
    MoveFocus(program, "Grid1");
  }
}

void mnuEditCut_Click(Program& program) {
  if (TextField* field = ActiveField(program)) {
    CopyField(program, *field);
    ReplaceInField(program, *field, "");
    return;
  }
  OfferToOthers(program);
  DeleteSelected(program);
}

void DeleteSelected(Program& program) {
  const Block block = SelectedBlock(program.main.Grid1);
  CutBlock(program.record, program.main.Grid1);
  ShowSheet(program, block);
}

void mnuEditPaste_Click(Program& program) {
  if (TextField* field = ActiveField(program)) {
    ReplaceInField(program, *field, OnOneLine(ClipboardText(program)));
    return;
  }
  const Block block = SelectedBlock(program.main.Grid1);
  PasteBlock(program.record, program.main.Grid1);
  ShowSheet(program, block);
  if (OthersOfferCells(program)) {
    Say(program, words::kTookOwnCells);
  } else if (News(program) == words::kTookOwnCells.text()) {
    Say(program, FocusHint(program, "Grid1"));  // what was told of the paste before is over
  }
}

}  // namespace torvale
