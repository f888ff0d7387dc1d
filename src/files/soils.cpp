#include "files/soils.h"

#include <cctype>
#include <cstdint>
#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "files/code_page.h"
#include "files/fields.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "input/block_clipboard.h"
#include "input/sheet.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr int kEditorRows = 100;
constexpr int kEditorColumns = 2;
constexpr int kNameColumn = 0;
constexpr int kFlowColumn = 1;
constexpr int kMostSaved = 200;

void ReadSoils(Program& program) {
  FieldReader reader(ReadText(InProgramFolder(program.host, kSoilsFile)));
  Grid& grid = program.soils.Grd_Soils_FurrowFlow;
  program.soils.copies.push_back(program.main.listSoils.count());
  for (int i = 1; !reader.OnlyBlanksLeft(); ++i) {
    const std::string name = reader.Text();
    const std::string flow = reader.Text();
    std::int16_t& recommended = program.record.SoilFurrowFlow[i];
    if (i < grid.rows()) {  // the table holds one soil more than the editor shows
      grid.Set(i, kNameColumn, name);
      grid.Set(i, kFlowColumn, flow);
    }
    program.main.listSoils.Add(name);
    recommended = StoreInt16(Val(flow));
  }
}

// The records of the editor's rows. A table that fills every row runs past the grid's last one and faults.
std::string SoilsText(const Grid& grid) {
  FieldWriter writer;
  for (int i = 1; i <= kMostSaved; ++i) {
    if (grid.Text(i, kNameColumn).empty()) break;
    writer.Text(grid.Text(i, kNameColumn)).Text(grid.Text(i, kFlowColumn)).EndRecord();
  }
  return writer.text();
}

bool IsTyped(std::string_view character) {
  return character.size() == 1 && std::isalnum(static_cast<unsigned char>(character.front())) != 0;
}

void Append(Grid& grid, std::string_view character) {
  grid.Set(grid.row, grid.column, grid.CurrentText() + std::string(character));
}

// From the last column there is none to go to.
void NextColumn(Program& program) {
  Grid& grid = program.soils.Grd_Soils_FurrowFlow;
  if (grid.column + 1 < grid.column_count()) {
    grid.SetCurrent(1, grid.column + 1);
  } else {
    program.host.Beep();
  }
}

}  // namespace

void SetGrd_Soils_FurrowFlow(Program& program) {
  Grid& grid = program.soils.Grd_Soils_FurrowFlow;
  grid.Resize(kEditorRows, kEditorColumns);
  grid.heading_height = 1100;
  grid.fixed_back = kTeal;
  grid.fixed_fore = kWhite;
  grid.Set(0, kNameColumn, "Soil Name and Texture (i.e. C, Sil)");
  grid.columns[kNameColumn].width = 3000;
  grid.Set(0, kFlowColumn, "Rec Furrow Flow");
  grid.columns[kFlowColumn].width = 2000;
  for (int row = 1; row < kEditorRows; ++row) {
    for (int column = 0; column < kEditorColumns; ++column) grid.SetAlign(row, column, Align::kCentreBottom);
  }
}

void OpenSoils(Program& program) {
  const int error = ErrorOf([&] { ReadSoils(program); });
  if (error == 0) return;
  Tell(program, words::kSoilsNotOpened(GeneralText(error)));
  program.soils.visible = false;
}

void mnuSoils_and_Furrow_Click(Program& program) {
  SetGrd_Soils_FurrowFlow(program);
  OpenSoils(program);
  // Without a file, too: then the table stands ready to be filled in.
  program.soils.visible = true;
}

int ChosenSoil(const Program& program) {
  const int chosen = program.main.listSoils.Current();
  int begin = 0;
  for (const int copy : program.soils.copies) {
    if (copy <= chosen) begin = copy;
  }
  return chosen - begin;
}

void listSoils_Click(Program& program) {
  DesignRecord& record = program.record;
  const int chosen = program.main.listSoils.Current();
  try {
    record.SoilName = record.SoilNames[chosen];
    record.RecFurrowFlow = record.SoilFurrowFlow[chosen + 1];
    program.main.lblRecFurrowFlow.caption =
        "Recommended Furrow Flow = " + GeneralText(static_cast<int>(record.RecFurrowFlow)) + " GPM";
  } catch (const RunTimeFault&) {
    return;  // a soil beyond the tables has no recommendation
  }
}

void Recommended_Furror_Flow(Program& program) {
  DesignRecord& record = program.record;
  const ListBox& list = program.main.listSoils;
  const std::string& text = list.Line(list.Current());
  for (int i = 0; i <= kSoils; ++i) {
    if (record.SoilNames[i] != text) continue;
    record.RecFurrowFlow = record.SoilFurrowFlow[i];
    record.SoilName = record.SoilNames[i];
  }
}

void mnu_Save_Exit_Click(Program& program) {
  ForgetNews(program);
  const int error = ErrorOf([&] {
    WriteBytes(program, InProgramFolder(program.host, kSoilsFile),
               ToCodePage(SoilsText(program.soils.Grd_Soils_FurrowFlow)));
  });
  if (error != 0) {
    Tell(program, words::kSoilsNotSaved(GeneralText(error)));
    SayToo(program, words::kSoilsNotWritten(WhyNotWritten(error)));
    return;
  }
  program.soils.visible = false;
}

void MnuExit_Click(Program& program) {
  program.soils.visible = false;
}

void mnuCut_Click(Program& program) {
  CutBlock(program.record, program.soils.Grd_Soils_FurrowFlow);
}

void mnuCopy_Click(Program& program) {
  program.record.GridClipboard.Clear();
  CopyBlock(program.record, program.soils.Grd_Soils_FurrowFlow);
}

void mnuPaste_Click(Program& program) {
  PasteBlock(program.record, program.soils.Grd_Soils_FurrowFlow);
}

void Grd_Soils_KeyPress(Program& program, std::string_view character) {
  Grid& grid = program.soils.Grd_Soils_FurrowFlow;
  const bool control = character.size() == 1 && static_cast<unsigned char>(character.front()) < ' ';
  if (character == "*") {
    NextColumn(program);
  } else if (character == "\r") {
    if (grid.column == kFlowColumn && grid.row > 1 && grid.CurrentText().empty()) {
      grid.Set(grid.row, grid.column, std::string(grid.Text(grid.row - 1, grid.column)));
    }
  } else if (character == "\b") {
    grid.Set(grid.row, grid.column, WithoutLastCharacter(grid.CurrentText()));
  } else if (character == " " || IsTyped(character)) {
    Append(grid, character);
  } else if (!control) {
    program.host.Beep();
  }
}

}  // namespace torvale
