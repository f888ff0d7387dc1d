#include "reports/hole_summary_report.h"

#include "base/format.h"
#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/hole_summary.h"
#include "reports/print_frame.h"
#include "screen/fields.h"

namespace torvale {
namespace {

constexpr double kLeft = 0.5;
constexpr double kMiddle = 3.5;
constexpr double kStep = 0.2;  // from one line to the next

void PrintFigures(DocumentWriter& writer, const Program& program) {
  const DesignRecord& record = program.record;
  const MainScreen& main = program.main;
  constexpr double kLeftRoom = 2.9;
  constexpr double kMiddleRoom = 4.4;
  writer.SetFontSize(10);
  writer.Text(kLeft, 1.0, "Saved as " + record.DisplayFileName, 7.4);
  writer.Text(kLeft, 1.2, "Name: " + TextOf(main, InfoField::kDesignName), kLeftRoom);
  writer.Text(kMiddle, 1.2, "Date: " + TextOf(main, InfoField::kDate), kMiddleRoom);
  writer.Text(kLeft, 1.4, "GPM: " + TextOf(main, InfoField::kGpm), kLeftRoom);
  writer.Text(kMiddle, 1.4, "Location: " + TextOf(main, InfoField::kLocation), kMiddleRoom);
  writer.Text(kLeft, 1.6, "Distribution Uniformity: " + Format(record.Uniformity, "###.#"), kLeftRoom);
  writer.Text(kMiddle, 1.6, "Acres: " + Format(record.TotalAcres, "####.#"), kMiddleRoom);
}

std::string HoleText(const Program& program, int i) {
  const DesignRecord& record = program.record;
  const std::string count = Format(record.HolesPerFurrow[i], "##");
  if (IsLayflat(record)) return count + " Ea. -  " + ChosenSizeName(program, i);
  const bool one_blank = record.DesignType == kComputerHoles && HasRectangularGates(program.main);
  return count + (one_blank ? " Ea. - " : " Ea. -  ") + Format(GateOpening(program, i), "#.###");
}

// Whether a run ends at row i.
bool EndsRun(const DesignRecord& record, int i) {
  return record.FurrowFlow[i] > 0 && !record.HoleSumFurrowText[i].empty();
}

// Furrow lengths at both ends of each run.
void FindRunLengths(DesignRecord& record) {
  record.HoleSumFromLength.Clear();
  record.HoleSumToLength.Clear();
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!EndsRun(record, i)) continue;
    record.HoleSumFromLength[i] = record.FurrowLength[i + 1 - record.HoleSumCount[i]];
    record.HoleSumToLength[i] = record.FurrowLength[i];
  }
}

// One line for each run of equal hole size; y moves below the last.
void PrintSizeRuns(DocumentWriter& writer, Program& program, double& y) {
  DesignRecord& record = program.record;
  FindSizeRuns(record);
  FindRunLengths(record);
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!EndsRun(record, i)) continue;
    writer.Text(kLeft, y, record.HoleSumFurrowText[i]);
    writer.Text(2.5, y, GeneralText(record.HoleSumFromLength[i]) + " - " + GeneralText(record.HoleSumToLength[i]));
    writer.Text(5, y, GeneralText(record.HoleSumCount[i]));
    writer.Text(6.5, y, HoleText(program, i));
    y += kStep;
  }
}

// Two lines for each run of equal spacing; y moves below the last.
void PrintSpacingRuns(DocumentWriter& writer, DesignRecord& record, double& y) {
  constexpr double kTextX = 1.7;
  FindSpacingRuns(record);
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!EndsRun(record, i)) continue;
    writer.Text(kLeft, y, record.HoleSumFurrowText[i]);
    writer.Text(kTextX, y, "Distance between punched holes  " + GeneralText(record.HoleSpacing[i]) + " ft. ");
    y += kStep;
    writer.Text(kLeft, y, record.HoleSumFurrowText[i]);
    writer.Text(kTextX, y, "Planted width between holes " + GeneralText(record.PlantedWidth[i]) + " ft.");
    y += kStep;
  }
}

void PrintSizeTable(DocumentWriter& writer, Program& program, double& y) {
  writer.SetFontSize(14);
  writer.Text(3, 2, kHoleSummary);
  writer.SetFontSize(12);
  writer.Text(kLeft, 2.3, "Stations");
  writer.Text(2.5, 2.3, "Furrow Lengths");
  writer.Text(4.5, 2.3, "Number of Holes");
  writer.Text(6.5, 2.3, "Hole Diameter");
  y = 2.5;
  PrintSizeRuns(writer, program, y);
}

void PrintSpacingTable(DocumentWriter& writer, DesignRecord& record, double& y) {
  y += kStep;
  writer.SetFontSize(14);
  writer.Text(3, y, "Hole Spacing Summary");
  y += kStep;
  writer.SetFontSize(12);
  writer.Text(kLeft, y, "Stations");
  writer.Text(3, y, "Hole Spacing");
  y += kStep;
  PrintSpacingRuns(writer, record, y);
}

// Below the soil, beside the last rows of the applied water and past them.
void PrintHeads(DocumentWriter& writer, const DesignRecord& record, double y) {
  const std::string lines[] = {
      "Maximum Head = " + Format(record.MaxHead, "##.00"),
      "Maximum Head Station = " + GeneralText(record.MaxHeadStation),
      "Minimum Head = " + Format(record.MinHead, "##.00"),
      "Minimum Head Station = " + GeneralText(record.MinHeadStation),
  };
  int row = 3;
  for (const std::string& line : lines) writer.Text(4, AppliedWaterRow(y, row++), line);
}

}  // namespace

Document HoleSummaryReport(Program& program) {
  DocumentWriter writer((std::string(kHoleSummary)));
  PrintTitle(writer, program.record, &DesignKind::in_hole_report);
  PrintFigures(writer, program);
  double y = 0;
  PrintSizeTable(writer, program, y);
  PrintSpacingTable(writer, program.record, y);
  writer.SetDrawWidth(2);
  y += 0.6;
  PrintAppliedWater(writer, program.record, y);
  PrintSoil(writer, program, y);
  PrintHeads(writer, program.record, y);
  return writer.Take();
}

}  // namespace torvale
