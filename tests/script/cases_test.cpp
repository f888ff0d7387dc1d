#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "files/preferences.h"
#include "record/record_fields.h"
#include "script/quoting.h"
#include "script/session.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

std::vector<fs::path> CaseFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(kSourceFolder) / "tests/cases")) {
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// The factory defaults. The fields were worked out in a program that starts with them: it takes the survey for rod
// readings until the first letter is typed, which the headings of a result table that is never filled still show.
constexpr const char* kFactoryDefaults =
    "100\r\n7/16\r\n.65\r\n140\r\n1.2\r\n15\r\n6.0\r\n1\r\n7\r\nR\r\n2.0\r\nR\r\n1.2\r\n2\r\n.2\r\n*.*\r\n\r\n\r\n";

void TypeAll(Program& program, const std::string& field, const Json& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string name = field + "(" + std::to_string(i) + ")";
    TextField* found = FindField(program, name);
    ASSERT_NE(found, nullptr) << name;
    found->Set(texts[i].get<std::string>());
  }
}

void WriteSurvey(Grid& sheet, const Json& rows) {
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    const Json& cells = rows[static_cast<std::size_t>(r)];
    for (int c = 0; c < static_cast<int>(cells.size()); ++c) {
      sheet.Set(r + 1, c, cells[static_cast<std::size_t>(c)].get<std::string>());
    }
  }
}

// Selects one size of the panel and adds it by itself.
void AddSize(Program& program, const std::string& size) {
  const ListBox& all = program.main.listAllHoles;
  for (int i = 0; i < all.count(); ++i) {
    if (all.Line(i) == size) {
      ASSERT_EQ(SelectLines(program, "listAllHoles", {i}), Reach::kUsable);
    }
  }
  ASSERT_EQ(Click(program, "cmdADDtoSelected"), Reach::kUsable);
}

void Replay(Session& session, const Json& input) {
  ASSERT_EQ(session.program.main.txtDefault[9].text(), "R");
  ASSERT_NO_FATAL_FAILURE(TypeAll(session.program, "txtDefault", input["defaults"]));
  ASSERT_NO_FATAL_FAILURE(TypeAll(session.program, "txtInfo", input["info"]));
  if (input["pipe"] == "R") {
    ASSERT_EQ(Click(session.program, "mnuRigidPipe"), Reach::kUsable);
  }
  WriteSurvey(session.program.main.Grid1, input["survey"]);
  for (const Json& answer : input.value("answers", Json::array())) session.host.Answer(answer == "Yes");
  std::vector<std::string> sizes = input.value("limited", std::vector<std::string>());
  for (const Json& command : input["commands"]) {
    ASSERT_EQ(Click(session.program, command.get<std::string>()), Reach::kUsable) << command;
    if (command != "mnuManHoleSelection") continue;
    for (const std::string& size : sizes) AddSize(session.program, size);
    sizes.clear();  // the list is filled once
  }
}

bool Same(bool actual, const Json& expected) {
  return expected == actual;
}
bool Same(std::int16_t actual, const Json& expected) {
  return expected == actual;
}
bool Same(float actual, const Json& expected) {
  return actual == static_cast<float>(expected.get<double>());
}
bool Same(const FreeValue& actual, const Json& expected) {
  return expected.is_null() ? !actual : actual && *actual == expected.get<double>();
}
bool Same(const std::string& actual, const Json& expected) {
  return expected == actual;
}
bool Same(unsigned char actual, const Json& expected) {
  return expected == actual;
}
// `Head` alone is a list of 64-bit numbers.
bool Same(double actual, const Json& expected) {
  const double value = expected.get<double>();
  return std::abs(actual - value) <= 1e-9 * std::max(1.0, std::abs(value));
}

// Compares one field of the record, whatever its type.
struct FieldCheck {
  const DesignRecord& record;
  const Json& expected;

  template <typename T>
  void operator()(const RecordField<T>& field) const {
    const T& actual = record.*field.member;
    EXPECT_TRUE(Same(actual, expected)) << field.name << " is " << testing::PrintToString(actual) << ", expected "
                                        << expected;
  }

  void operator()(const RecordField<TextGrid>& field) const { ADD_FAILURE() << "no case tells of " << field.name; }

  template <typename T, int Last>
  void operator()(const RecordField<BoundedArray<T, Last>>& field) const {
    const int first = Last == kLastRow ? 1 : 0;
    if (Last == kLastRow) {
      ASSERT_EQ(static_cast<int>(expected.size()), record.HoleRows) << field.name;
    }
    int wrong = 0;
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
      const T& actual = (record.*field.member)[first + i];
      const Json& value = expected[static_cast<std::size_t>(i)];
      if (Same(actual, value)) continue;
      // The first few tell enough.
      if (++wrong <= 3) {
        ADD_FAILURE() << field.name << "[" << first + i << "] is " << testing::PrintToString(actual) << ", expected "
                      << value;
      }
    }
    EXPECT_EQ(wrong, 0) << field.name;
  }
};

void CheckGrid(const Grid& grid, const Json& expected) {
  for (int r = 0; r < grid.rows(); ++r) {
    const Json cells = expected.value(std::to_string(r), Json::array());
    for (int c = 0; c < grid.column_count(); ++c) {
      const auto i = static_cast<std::size_t>(c);
      EXPECT_EQ(grid.Text(r, c), i < cells.size() ? cells[i].get<std::string>() : "")
          << "Grid2[" << r << "," << c << "]";
    }
  }
}

void CheckMessages(const std::string& transcript, const Json& expected) {
  std::vector<std::pair<std::string, std::string>> said;
  std::istringstream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    const std::vector<Token> tokens = Tokens(line);
    if (tokens[0].text == "message" || tokens[0].text == "question") said.emplace_back(tokens[1].text, tokens[2].text);
  }
  std::vector<std::pair<std::string, std::string>> wanted;
  for (const Json& message : expected) {
    wanted.emplace_back(message["title"].is_null() ? std::string(kProgramTitle) : message["title"].get<std::string>(),
                        message["body"].get<std::string>());
  }
  EXPECT_EQ(said, wanted);
}

class CaseTest : public testing::TestWithParam<fs::path> {};

TEST_P(CaseTest, GivesTheExpectedState) {
  std::ifstream file(GetParam());
  const Json field = Json::parse(file);
  const TemporaryFolder folder;
  std::ofstream(folder.path() / kDefaultsFile, std::ios::binary) << kFactoryDefaults;
  std::ostringstream transcript;
  Session session(transcript, folder.path().string());
  ASSERT_NO_FATAL_FAILURE(Replay(session, field["input"]));
  for (const auto& [name, expected] : field["expected"].items()) {
    if (name == "messages") {
      CheckMessages(transcript.str(), expected);
    } else if (name == "Grid2") {
      CheckGrid(session.program.main.Grid2, expected);
    } else if (const TextField* typed = FindField(session.program, name)) {
      EXPECT_EQ(typed->text(), expected.get<std::string>()) << name;
    } else {
      EXPECT_TRUE(WithRecordField(name, FieldCheck{session.program.record, expected})) << name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Fields, CaseTest, testing::ValuesIn(CaseFiles()),
                         [](const auto& info) { return info.param.stem().string(); });

}  // namespace
}  // namespace torvale
