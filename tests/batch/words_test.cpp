// Every complaint of the front end is one that somebody can come to: wrong tables, surveys and command lines are worked
// through, and what comes back is held against the table of words, row by row.
#include "batch/words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "batch/command_line.h"
#include "batch/field_table.h"
#include "batch/field_work.h"
#include "batch/merge.h"
#include "batch/result_rows.h"
#include "batch/survey_table.h"
#include "batch/temporary_folder.h"
#include "support/complaints.h"

namespace torvale {
namespace {

using ::testing::IsEmpty;

// What the program has said, piece by piece.
class Said {
 public:
  void Take(const std::string& text) { texts_.push_back(text); }
  void Take(const std::vector<std::string>& texts) { texts_.insert(texts_.end(), texts.begin(), texts.end()); }
  // Rows of a table of results, whose cells double the quotes in them.
  void TakeRows(std::string rows) {
    for (std::size_t at = rows.find("\"\""); at != std::string::npos; at = rows.find("\"\"", at + 1)) rows.erase(at, 1);
    Take(rows);
  }
  const std::vector<std::string>& texts() const { return texts_; }

  void TakeTable(const std::string& table) {
    try {
      const FieldTable fields(table, "fields.csv");
      for (std::size_t i = 0; i < fields.size(); ++i) Take(fields.Field(i).faults);
    } catch (const FieldTableFault& fault) {
      Take(fault.what());
    }
  }
  void TakeSurvey(const std::string& survey, std::string_view layout = "") {
    try {
      Take(ReadSurveyTable(survey, layout, "survey.csv").remarks);
    } catch (const SurveyTableFault& fault) {
      Take(fault.what());
    }
  }
  void TakeCommand(std::vector<std::string> arguments, const std::function<bool()>& go_on) {
    arguments.insert(arguments.begin(), "torvale_batch");
    std::vector<const char*> argv;
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    std::ostringstream out;
    std::ostringstream errors;
    RunCommandLine(static_cast<int>(argv.size()), argv.data(), false, go_on, out, errors);
    Take(errors.str());
  }
  void TakeMerge(const TestFolder& folder, const std::string& part) {
    folder.Write("part.csv", part);
    std::ostringstream out;
    std::ostringstream errors;
    MergeResults({folder / "part.csv"}, folder / "joined.csv", out, errors);
    Take(errors.str());
  }

 private:
  std::vector<std::string> texts_;
};

void WrongTables(Said& said) {
  said.TakeTable("");
  said.TakeTable("survey\n\"a.csv");
  said.TakeTable("survey\n\"a.csv\" and more");
  said.TakeTable("survey,depth\n");
  said.TakeTable("survey,gpm,GPM\n");
  said.TakeTable("survey,pipe kind,survey layout,designs\n,steel,sideways,perfect,stray\n");
}

void WrongSurveys(Said& said) {
  said.TakeSurvey("");
  said.TakeSurvey("Station,Elevation,Rod\n");
  said.TakeSurvey("Where,Elevation\n");
  said.TakeSurvey("Station,Depth\n");
  said.TakeSurvey("0,10O,1e400x,6,12,0.5\n");
  said.TakeSurvey("1,1000,500,high\n2,0,0,0\n", "PNEZ");
  said.TakeSurvey("1,1000,500,100\n2,x,500,100\n", "PNEZ");
  said.TakeSurvey("1,-1e308,0,100\n2,1e308,0,100\n", "PNEZ");
  std::string long_survey;
  for (int row = 0; row < 320; ++row) long_survey += std::to_string(row) + ",100\n";
  said.TakeSurvey(long_survey);
}

// The rows of a field with a sound survey and one wrong wish.
void WrongWishes(const TestFolder& folder, Said& said) {
  folder.Write("data/SoilsName.txt", "\"Clay\",\"10\"\r\n");
  folder.Write("level.csv", "0,100,600,20,10,1/2,1,7,20\n40,100,600,20,10,1/2,1,7,20\n");
  const FieldTable fields(
      "survey,gpm,target head,survey kind,soil,hole size,highest head,designs\n"
      "level.csv,1e400,4,E,,,,planned\n"
      "level.csv,300,4,E,,0.5,,planned\n"
      "level.csv,300,4,E,Sand,,,planned\n"
      "level.csv,300,4,E,,,,planned\n"
      "level.csv,300,4,E,,,0.1,planned\n",
      "fields.csv");
  for (const std::string& data : {std::string(), Utf8Of(folder / "data")}) {
    QuietProgram quiet(data);
    const FieldTask task{folder.path(), folder / "out", data, {}, 0};
    const Until at_once{{}, std::chrono::steady_clock::now()};
    for (std::size_t i = 0; i < fields.size(); ++i) {
      said.TakeRows(WorkField(quiet, task, fields.Field(i), i == 3 ? at_once : Until{}).rows);
    }
  }
  said.TakeRows(GivenUpField(fields.Field(0)).rows);
}

void WrongRuns(const TestFolder& folder, Said& said) {
  const std::string table = Utf8Of(folder / "fields.csv");
  const std::string out = Utf8Of(folder / "out");
  std::string fields = "survey,gpm,target head,survey kind\n";
  for (int i = 0; i < 100; ++i) fields += "level.csv,300,4,E\n";
  folder.Write("fields.csv", fields);
  const auto go_on = [] { return true; };
  said.TakeCommand({table, "--out", out, "--shard", "5/4"}, go_on);
  said.TakeCommand({table, "--out", out, "--progress", "none", "--threads", "1"}, [] { return false; });
  folder.Write("file", "");
  said.TakeCommand({table, "--out", Utf8Of(folder / "file"), "--progress", "none"}, go_on);
}

void WrongMerges(const TestFolder& folder, Said& said) {
  const std::string heading = ResultHeading();
  said.TakeMerge(folder, "Field\n1\n");
  said.TakeMerge(folder, heading + "first,\n");
  said.TakeMerge(folder, heading + "1,\n2,\n1,\n");
  said.TakeMerge(folder, heading + "1,\n3,\n");
  said.TakeMerge(folder, heading + "1,\n4,\n");
}

TEST(BatchWords, AreAllSaid) {
  const TestFolder folder;
  std::filesystem::create_directory(folder / "data");
  Said said;
  WrongTables(said);
  WrongSurveys(said);
  WrongWishes(folder, said);
  WrongRuns(folder, said);
  WrongMerges(folder, said);
  const auto rows = ComplaintRows("batch/words.h");
  EXPECT_GT(rows.size(), 30U);
  EXPECT_THAT(Unsaid(rows, said.texts()), IsEmpty());
}

}  // namespace
}  // namespace torvale
