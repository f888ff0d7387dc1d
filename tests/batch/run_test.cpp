#include "batch/run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <optional>
#include <sstream>

#include "base/format.h"
#include "base/numbers.h"
#include "batch/csv_text.h"
#include "batch/field_inputs.h"
#include "batch/merge.h"
#include "batch/temporary_folder.h"
#include "files/code_page.h"
#include "files/design_files.h"
#include "record/hole_sizes.h"
#include "record/kinds.h"
#include "scenarios/fields_by_hand.h"
#include "screen/design_types.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Quoted(const std::string& cell) {
  std::string quoted = "\"";
  for (const char c : cell) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

// The sheet of a program as a survey file, every cell in quotes so that it comes back as it stands.
std::string SurveyFileOf(const Program& program) {
  const Grid& sheet = program.main.Grid1;
  std::string text = "Station,Elevation,Furrow Length,Spacing,Pipe Dia,Hole Size,Holes,Mil,Planted\n";
  int last = 0;
  for (int row = 1; row < sheet.rows(); ++row) {
    for (int column = 0; column < kSurveyColumns; ++column) {
      if (!sheet.Text(row, column).empty()) last = row;
    }
  }
  for (int row = 1; row <= last; ++row) {
    for (int column = 0; column < kSurveyColumns; ++column) {
      text += (column > 0 ? "," : "") + Quoted(sheet.Text(row, column));
    }
    text += '\n';
  }
  return text;
}

// What a field's line says of a program that was brought to its inputs by hand.
std::string FieldLineOf(const Program& program, const std::string& survey) {
  const MainScreen& main = program.main;
  std::string line = Quoted(survey);
  for (const TextField& field : main.txtInfo) line += "," + Quoted(field.text());
  line += "," + program.record.PipeKind + ",";
  for (int i = 0; i < main.listHolesSelected.count(); ++i) line += main.listHolesSelected.Line(i) + " ";
  for (std::size_t i = 0; i < main.txtDefault.size(); ++i) line += "," + Quoted(main.txtDefault.at(i).text());
  return line + "\n";
}

std::string FieldHeading() {
  std::string line = "survey,name,date,gpm,target head,location,survey kind,pipe kind,holes";
  for (int i = 0; i < 16; ++i) line += ",txtDefault(" + std::to_string(i) + ")";
  return line + "\n";
}

struct ByHand {
  std::ostringstream transcript;
  Session session{transcript};
  Program& program = session.program;
  HeadlessHost& host() { return session.host; }
};

// A field as a user types it: sample `index`, or from there on a random one. A new design is begun before, so that the
// defaults are those of the preferences.
void TypeByHand(int index, ByHand& hand) {
  const std::vector<std::filesystem::path> samples = SampleScripts();
  Click(hand.program, "mnuPreference");
  Click(hand.program, "btnDefaultExit");
  if (index < static_cast<int>(samples.size())) {
    // The preferences come first in a sample; with a new design they reach the first row.
    std::istringstream script(InputPartOf(samples.at(static_cast<std::size_t>(index))));
    ReplayScript(hand.session, script);
  } else {
    Click(hand.program, "mnuFileNew");
    TypeRandomField(static_cast<unsigned>(index), hand.program);
    TypeText(hand.program, "txtInfo(0)", "Field " + std::to_string(index));
  }
  if (hand.program.main.listHolesSelected.count() == 0) hand.program.main.listHolesSelected.Add("1/2");
}

// Whether a survey file can say what stands on the sheet: an empty cell in its first row leaves the preference.
bool CanBeSaid(const Program& program) {
  const Grid& sheet = program.main.Grid1;
  for (int row = 1; row < sheet.rows(); ++row) {
    for (int column = 0; column < kSurveyColumns; ++column) {
      const std::string& cell = sheet.Text(row, column);
      if (!IsUtf8(cell) || cell.find('\0') != std::string::npos) return false;
      if (row == 1 && column > kCrownColumn && cell.empty()) return false;
    }
  }
  return !program.main.txtInfo[2].text().empty();
}

// The design by hand in the same program: as the menu and the panel give it.
void DesignByHand(ByHand& hand, std::int16_t type) {
  for (const DesignKind& kind : DesignKinds()) {
    if (kind.type == type) Click(hand.program, kind.entry);
  }
  if (type == kLimitedHoles) Click(hand.program, "cmdExitHoleSelect");
}

// The holes as the table of results tells them, and the changes of size, counted furrow by furrow along the line.
struct CountedHoles {
  std::string by_size;
  int changes = 0;
};

CountedHoles CountHoles(const DesignRecord& record) {
  std::map<float, int> holes;  // of a diameter in inches
  CountedHoles counted;
  std::optional<float> before;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!(record.FurrowFlow[i] > 0)) continue;
    const float size = ChosenHoleDia(record)[i];
    holes[size] += record.HolesPerFurrow[i];
    if (before && *before != size) ++counted.changes;
    before = size;
  }
  for (const auto& [size, count] : holes) {
    const int listed = HoleSizeByValue(record, size);
    counted.by_size += counted.by_size.empty() ? "" : "; ";
    counted.by_size += (listed > 0 ? record.HoleSizeName[listed] : GeneralText(size)) + ": " + std::to_string(count);
  }
  return counted;
}

// The figures of a slope design against the sentence on the screen; no other design has them.
void ExpectSameSlope(const CsvRow& row, const Program& shown) {
  const DesignRecord& record = shown.record;
  if (!IsSlopeDesign(record)) {
    for (const std::size_t column : {12U, 13U, 14U}) EXPECT_EQ(row.Cell(column), "");
    return;
  }
  EXPECT_EQ(row.Cell(14), ShortestText(record.HighestFill));
  const double slope = std::stod(row.Cell(12));
  const std::string sentence = record.DesignType == kConstantSlope
                                   ? "Crown Slope = " + Format(slope, "##.###") + " feet per 100 feet"
                                   : "Crown Slope = " + Format(slope, "##.00") + " ft. /100 ft. from Station  0 to " +
                                         Format(std::stod(row.Cell(13)), "#######");
  EXPECT_EQ(sentence, shown.main.lblCrownSlope.caption);
}

// The tables that are written by hand against those of the batch, whose names begin with `start`.
void ExpectSameTables(ByHand& hand, const std::string& start) {
  for (const auto& [command, name] : {std::pair("mnuExportCsv", "table"), std::pair("mnuExportHoleCsv", "holes")}) {
    const TestFolder folder;
    MenuOpened(hand.program, "mnuFile");
    hand.host().Dialog(Utf8Of(folder / "by_hand.csv"));
    Click(hand.program, command);
    EXPECT_EQ(ReadTextFile(PathOf(start + " " + name + ".csv")), folder.Read("by_hand.csv"));
  }
}

// A row of results against what the screen and the record show, and its design file and tables against those that are
// written by hand, byte for byte.
void ExpectSameDesign(const CsvRow& row, ByHand& hand, const std::filesystem::path& out, const std::string& saved_as) {
  Program& shown = hand.program;
  const DesignRecord& record = shown.record;
  if (shown.main.lblActiveInactive.caption != "Active Design") {
    EXPECT_EQ(row.Cell(3), "refused");
    EXPECT_NE(row.Cell(21), "");
    return;
  }
  EXPECT_EQ(row.Cell(3), "done") << row.text;
  EXPECT_EQ(row.Cell(4), ShortestText(record.Uniformity));
  EXPECT_EQ(row.Cell(5), ShortestText(record.MaxHead));
  EXPECT_EQ(row.Cell(6), std::to_string(record.MaxHeadStation));
  EXPECT_EQ(row.Cell(7), ShortestText(record.MinHead));
  EXPECT_EQ(row.Cell(8), std::to_string(record.MinHeadStation));
  EXPECT_EQ(row.Cell(9), ShortestText(record.MaxFurrowFlow));
  EXPECT_EQ(row.Cell(10), ShortestText(record.MinFurrowFlow));
  EXPECT_EQ(row.Cell(11), ShortestText(record.AccumGPM));
  ExpectSameSlope(row, shown);
  const CountedHoles holes = CountHoles(record);
  EXPECT_EQ(row.Cell(15), holes.by_size);
  EXPECT_EQ(row.Cell(16), std::to_string(holes.changes));
  EXPECT_EQ(row.Cell(17), ShortestText(record.TotalAcres));
  EXPECT_EQ(row.Cell(18), ShortestText(record.HoursOneInch));
  EXPECT_EQ(row.Cell(19), shown.main.txtInfo[3].text());
  shown.record.DisplayFileName = saved_as;
  const std::string saved = Utf8Of(out / PathOf(saved_as));
  ExpectSameTables(hand, saved.substr(0, saved.size() - ExtensionOf(record.DesignType).size()));
  const TestFolder folder;
  shown.record.SaveFileName = Utf8Of(folder / "by_hand");
  shown.record.SaveFileName += ExtensionOf(record.DesignType);
  SaveFile(shown);
  EXPECT_EQ(ReadTextFile(PathOf(saved)), ReadTextFile(PathOf(shown.record.SaveFileName)));
}

BatchOptions Options(const TestFolder& folder, std::string_view out = "out") {
  BatchOptions options;
  options.table = folder / "fields.csv";
  options.out_folder = folder / out;
  options.progress = Progress::Kind::kNone;
  options.pool.threads = 2;
  return options;
}

struct Ran {
  int status;
  std::string out;
  std::string errors;
};

Ran RunAs(
    const BatchOptions& options, const std::function<bool()>& go_on = [] { return true; }) {
  std::ostringstream out;
  std::ostringstream errors;
  const BatchEnd end = RunBatch(options, go_on, out, errors);
  return {end.status, out.str(), errors.str()};
}

// All samples and 200 random fields, each in the six ways: the same bits as by hand, in the table of results, in
// the design files and in the tables beside them.
TEST(Batch, GivesWhatTheWindowAndTheScriptGive) {
  const TestFolder folder;
  const int fields = static_cast<int>(SampleScripts().size()) + static_cast<int>(Rounds(200));
  std::string table = FieldHeading();
  std::vector<int> said;
  for (int index = 0; index < fields; ++index) {
    ByHand hand;
    TypeByHand(index, hand);
    if (!CanBeSaid(hand.program)) continue;
    said.push_back(index);
    const std::string survey = "survey " + std::to_string(index) + ".csv";
    folder.Write(survey, SurveyFileOf(hand.program));
    table += FieldLineOf(hand.program, survey);
  }
  EXPECT_GT(static_cast<int>(said.size()), fields * 8 / 10);
  folder.Write("fields.csv", table);
  BatchOptions options = Options(folder);
  options.papers.designs = true;
  options.papers.tables = true;
  options.pool.threads = 3;
  options.pool.limit = std::chrono::hours(1);  // none runs out, however busy the machine is
  RunAs(options);
  const std::string results = folder.Read("out/results.csv");
  const std::vector<CsvRow> rows = ReadCsv(results, ',');
  ASSERT_EQ(rows.size(), said.size() * 6 + 1);
  int done = 0;
  for (std::size_t i = 0; i < said.size(); ++i) {
    for (std::size_t k = 0; k < 6; ++k) {
      const CsvRow& row = rows[i * 6 + k + 1];
      SCOPED_TRACE(std::string(row.text));
      const auto type = static_cast<std::int16_t>(k + 1);
      ByHand hand;
      TypeByHand(said[i], hand);
      FieldRow field;
      field.number = static_cast<int>(i) + 1;
      field.name = hand.program.main.txtInfo[0].text();
      DesignByHand(hand, type);
      const std::string saved = FolderOf(field) + "/" + row.Cell(2) + std::string(ExtensionOf(type));
      ExpectSameDesign(row, hand, folder / "out", saved);
      if (row.Cell(3) == "done") ++done;
    }
  }
  EXPECT_GT(done, static_cast<int>(said.size()) * 2);
}

// Four furrows of 600 feet on a level crown.
constexpr std::string_view kSurvey =
    "Station,Elevation,Furrow Length,Spacing,Pipe Dia,Hole Size,Holes,Mil,Planted\n"
    "0,100,600,20,10,1/2,1,7,20\n"
    "40,100,600,20,10,1/2,1,7,20\n"
    "60,100,600,20,10,1/2,1,7,20\n";

class BatchTest : public ::testing::Test {
 protected:
  BatchTest() { folder.Write("level.csv", kSurvey); }

  // A table of so many sound fields, that differ in their flow.
  void WriteFields(int count) {
    std::string table = "name,gpm,target head,survey kind,survey,holes,designs\n";
    for (int i = 1; i <= count; ++i) {
      table += "Field " + std::to_string(i) + "," + std::to_string(30 + i) +
               ",4,E,level.csv,1/2 3/8,planned existing limited\n";
    }
    folder.Write("fields.csv", table);
  }

  TestFolder folder;
};

TEST_F(BatchTest, WorksTheSameTableWhateverTheNumberOfThreads) {
  WriteFields(10);
  std::string first;
  for (const int threads : {1, 5}) {
    const std::string out = "out" + std::to_string(threads);
    BatchOptions options = Options(folder, out);
    options.pool.threads = threads;
    options.papers = {true, true, true, true, true};
    EXPECT_EQ(RunAs(options).status, kBatchDone);
    const std::string results = folder.Read(out + "/results.csv");
    if (first.empty()) first = results;
    EXPECT_EQ(results, first);
    EXPECT_EQ(folder.Read(out + "/00007-Field_7/limited.LHD"), folder.Read("out1/00007-Field_7/limited.LHD"));
    EXPECT_EQ(folder.Read(out + "/00007-Field_7/existing complete.pdf"),
              folder.Read("out1/00007-Field_7/existing complete.pdf"));
  }
  EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), 1 + 10 * 3);
}

// A crown that dips: the design of one slope fills it up, the planned one lays no crown.
TEST_F(BatchTest, WritesWhatTheCrewNeeds) {
  folder.Write("dip.csv",
               "0,100.00,1000,10,15,3/8,1,10,10\n50,99.90,1000,10,15,3/8,1,10,10\n"
               "100,99.97,1100,10,15,3/8,1,10,10\n");
  folder.Write("fields.csv",
               "name,gpm,target head,survey kind,survey,designs,stake interval,crown width\n"
               "<Dip>,6.6,2,E,dip.csv,planned constant,25,6\n");
  BatchOptions options = Options(folder);
  options.papers.phone = options.papers.stakes = true;
  EXPECT_EQ(RunAs(options).status, kBatchDone);
  const std::string field = "out/00001-_Dip_/";
  EXPECT_THAT(folder.Read(field + "planned phone.html"), HasSubstr("<h1>&lt;Dip&gt;</h1>"));
  EXPECT_FALSE(std::filesystem::exists(folder / (field + "planned stakes.csv")));
  const std::string stakes = folder.Read(field + "constant stakes.csv");
  EXPECT_THAT(stakes, testing::StartsWith("Station (feet),Existing Elevation (feet),"));
  EXPECT_EQ(std::count(stakes.begin(), stakes.end(), '\n'), 1 + 5);  // 0, 25, 50, 75 and 100
  EXPECT_THAT(stakes, HasSubstr("\r\n50,99.90,"));
  EXPECT_THAT(folder.Read(field + "constant stakes.pdf"), testing::StartsWith("%PDF"));
}

TEST_F(BatchTest, DoesOnlyWhatIsMissingOrChanged) {
  WriteFields(5);
  BatchOptions options = Options(folder);
  options.papers.tables = true;
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields: "));
  const std::string results = folder.Read("out/results.csv");
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields, 5 of them as they were: "));
  EXPECT_EQ(folder.Read("out/results.csv"), results);
  // A file that somebody removed, or changed.
  const std::string table = folder.Read("out/00002-Field_2/planned table.csv");
  std::filesystem::remove(folder / "out/00002-Field_2/planned table.csv");
  folder.Write("out/00003-Field_3/planned table.csv", "nothing");
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields, 3 of them as they were: "));
  EXPECT_EQ(folder.Read("out/00002-Field_2/planned table.csv"), table);
  // A field that says something else, and a survey.
  folder.Write("fields.csv",
               std::string(folder.Read("fields.csv")).replace(folder.Read("fields.csv").find(",33,"), 4, ",34,"));
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields, 4 of them as they were: "));
  EXPECT_NE(folder.Read("out/results.csv"), results);
  folder.Write("level.csv", std::string(kSurvey) + "80,100,600,20,10,1/2,1,7,20\n");
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields: "));
  // Other papers.
  options.papers.designs = true;
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields: "));
  options.fresh = true;
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("5 fields: "));
}

// Stopped after some fields, with an entry cut off in the middle as by a power cut: the next run ends where one run
// would have ended.
TEST_F(BatchTest, GoesOnWhereItWasStopped) {
  WriteFields(60);
  BatchOptions whole = Options(folder, "whole");
  RunAs(whole);
  BatchOptions options = Options(folder);
  const Ran stopped = RunAs(options, [] { return false; });
  ASSERT_EQ(stopped.status, kBatchStopped);
  EXPECT_THAT(stopped.errors, HasSubstr("the same command goes on from there"));
  EXPECT_FALSE(std::filesystem::exists(folder / "out/results.csv"));
  std::ofstream(folder / "out/results.journal", std::ios::app | std::ios::binary)
      << "field 60 0123456789abcdef 0 0 5000\n60,Field";
  EXPECT_EQ(RunAs(options).status, kBatchDone);
  EXPECT_EQ(folder.Read("out/results.csv"), folder.Read("whole/results.csv"));
}

TEST_F(BatchTest, PartsJoinedAreTheWhole) {
  WriteFields(11);
  BatchOptions options = Options(folder, "whole");
  options.papers.designs = true;
  RunAs(options);
  options.out_folder = folder / "parts";
  std::vector<std::filesystem::path> parts;
  for (int part = 1; part <= 4; ++part) {
    options.shard = {part, 4};
    EXPECT_EQ(RunAs(options).status, kBatchDone);
    parts.push_back(options.out_folder / ResultsName(options.shard));
  }
  // Killed and made again: the same files.
  std::filesystem::remove(parts[2]);
  std::filesystem::remove(folder / "parts/results-3-of-4.journal");
  options.shard = {3, 4};
  RunAs(options);
  std::reverse(parts.begin(), parts.end());
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(MergeResults(parts, folder / "joined.csv", out, errors), kBatchDone);
  EXPECT_EQ(errors.str(), "");
  EXPECT_EQ(folder.Read("joined.csv"), folder.Read("whole/results.csv"));
  EXPECT_EQ(folder.Read("parts/00007-Field_7/existing.XFD"), folder.Read("whole/00007-Field_7/existing.XFD"));

  parts.pop_back();  // part 1 of 4, fields 1, 5 and 9
  EXPECT_EQ(MergeResults(parts, folder / "joined.csv", out, errors), kBatchRefused);
  EXPECT_EQ(errors.str(), "3 fields before the last one are in none of the tables\n");
  errors.str("");
  parts.push_back(parts.front());
  EXPECT_EQ(MergeResults(parts, folder / "joined.csv", out, errors), kBatchNotUnderstood);
  EXPECT_EQ(errors.str(), "field 4 stands in more than one table\n");
  errors.str("");
  EXPECT_EQ(MergeResults({folder / "fields.csv"}, folder / "joined.csv", out, errors), kBatchNotUnderstood);
  EXPECT_THAT(errors.str(), HasSubstr("fields.csv, row 1: no table of results of this version"));
}

// A table of which every line but the last is wrong in its own way.
TEST_F(BatchTest, NothingThatIsWrongWithAFieldStopsTheRest) {
  folder.Write("garbage.csv", std::string("\x00\xFF,\"\n\n\x01", 8));
  folder.Write("cut.PFD", "\"8.2.20\"\r\n5\r\n\"North\"\r\n");
  folder.Write("fields.csv",
               "name,gpm,target head,survey kind,survey,pipe kind,soil,holes,hole size,designs\n"
               "Missing,300,4,E,none.csv,L,,,,planned\n"
               "Garbage,300,4,E,garbage.csv,L,,,,planned\n"
               "Cut,,,,cut.PFD,,,,,planned\n"
               "Pipe,300,4,E,level.csv,steel,,,,planned\n"
               "Soil,300,4,E,level.csv,L,Sand,,,planned\n"
               "Holes,300,4,E,level.csv,L,,0.5,,limited\n"
               "Size,300,4,E,level.csv,L,,,0.5,planned\n"
               "Large,1e400,4,E,level.csv,L,,,,planned\n"
               "No flow,,4,E,level.csv,L,,,,planned\n"
               "No sizes,30,4,E,level.csv,L,,,,limited\n"
               "Sound,30,4,E,level.csv,L,,,,planned\n");
  const Ran ran = RunAs(Options(folder));
  EXPECT_EQ(ran.status, kBatchRefused);
  EXPECT_THAT(ran.out, HasSubstr("11 fields, 10 with something refused: "));
  const std::string results = folder.Read("out/results.csv");
  const std::vector<CsvRow> rows = ReadCsv(results, ',');
  ASSERT_EQ(rows.size(), 12U);
  const auto because = [&](std::size_t field) { return rows.at(field).Cell(21); };
  const std::string table = Utf8Of(folder / "fields.csv");
  EXPECT_EQ(because(1), "none.csv: No such file or directory");
  EXPECT_EQ(because(2), "garbage.csv, row 1, column 2: a quote is not closed");
  EXPECT_THAT(because(3), HasSubstr("cut.PFD: Error opening file! Check location of file."));
  EXPECT_EQ(because(4), table + ", row 5, column 6: the pipe is L for layflat or R for rigid, not \"steel\"");
  EXPECT_EQ(because(5),
            "row 6 of the table: there is no list of soils to find \"Sand\" in: name its folder with --data");
  EXPECT_EQ(because(6), "row 7 of the table: \"0.5\" is no size of the hole size table");
  EXPECT_EQ(because(7), "row 8 of the table: \"0.5\" is no size of the hole size table");
  EXPECT_EQ(because(8), "row 9 of the table: \"1e400\" is a larger number than the program holds");
  EXPECT_THAT(because(9), HasSubstr("The GPM is missing: enter the pumped flow."));
  EXPECT_THAT(because(10), HasSubstr("No Holes were Selected"));
  EXPECT_EQ(rows[11].Cell(3), "done");
  EXPECT_EQ(rows[9].Cell(3), "refused");
  EXPECT_EQ(rows[1].Cell(3), "failed");
}

// The program's words name the cell; row and column stand in columns of their own, the column counted from 1.
TEST_F(BatchTest, TellsTheCellOfARefusal) {
  folder.Write("order.csv", "0,100,600,20,10,1/2,1,7,20\n40,100,600,20,10,1/2,1,7,20\n30,100,600,20,10,1/2,1,7,20\n");
  folder.Write("fields.csv", "gpm,target head,survey kind,survey,designs\n30,4,E,order.csv,planned\n");
  RunAs(Options(folder));
  const std::string results = folder.Read("out/results.csv");
  const std::vector<CsvRow> rows = ReadCsv(results, ',');
  EXPECT_THAT(rows.at(1).Cell(21), testing::EndsWith("Rows 2 and 3: the station does not rise."));
  EXPECT_EQ(rows.at(1).Cell(22), "3");
  EXPECT_EQ(rows.at(1).Cell(23), "1");
}

// The flow is read as far as its digits go, the survey's cell too, and the highest head of a limited selection is never
// below half a foot: the field is worked, and its row says so.
TEST_F(BatchTest, RemarksWhatIsReadOtherwiseThanItLooks) {
  folder.Write("letter.csv", "0,100,600,20,10,1/2,1,7,20\n40,100,60O,20,10,1/2,1,7,20\n");
  folder.Write("fields.csv",
               "gpm,target head,survey kind,survey,designs,highest head\n30x,4,e,letter.csv,planned,0.3\n");
  RunAs(Options(folder));
  const std::string results = folder.Read("out/results.csv");
  const std::vector<CsvRow> rows = ReadCsv(results, ',');
  EXPECT_EQ(rows.at(1).Cell(3), "done") << rows.at(1).text;
  const std::string table = Utf8Of(folder / "fields.csv");
  EXPECT_THAT(rows.at(1).Cell(20),
              testing::StartsWith(table + ", row 2, column 1: \"30x\" is read as 30 / row 2 of the table: \"0.3\" is "
                                          "taken as 0.5 / letter.csv, row 2, column 3: \"60O\" is read as 60"));
}

// A limit that is over at once: every field runs out of time, and is tried again by the next run.
TEST_F(BatchTest, TriesAgainWhatRanOutOfTime) {
  WriteFields(3);
  BatchOptions options = Options(folder);
  options.pool.limit = std::chrono::milliseconds(0);
  EXPECT_EQ(RunAs(options).status, kBatchRefused);
  EXPECT_THAT(folder.Read("out/results.csv"), HasSubstr("3,Field 3,limited,out of time,"));
  options.pool.limit = std::chrono::milliseconds(60'000);
  EXPECT_THAT(RunAs(options).out, testing::StartsWith("3 fields: "));
  EXPECT_THAT(folder.Read("out/results.csv"), Not(HasSubstr("out of time")));
}

TEST_F(BatchTest, SaysWhatItCantReadOrWrite) {
  EXPECT_EQ(RunAs(Options(folder)).status, kBatchNotUnderstood);
  EXPECT_THAT(RunAs(Options(folder)).errors, HasSubstr("fields.csv: No such file or directory"));
  WriteFields(1);
  folder.Write("file", "");
  const Ran ran = RunAs(Options(folder, "file"));
  EXPECT_EQ(ran.status, kBatchNotWritten);
  EXPECT_THAT(ran.errors, HasSubstr("can't be written"));
  folder.Write("fields.csv", "survey,depth\n");
  EXPECT_EQ(RunAs(Options(folder)).status, kBatchNotUnderstood);
}

}  // namespace
}  // namespace torvale
