// The files of tests/fuzz/corpus, which the fuzzer found to lead down different ways of the reader, and the largest
// designs: each opens or is refused, soon and in little memory, and what opened can be saved and opened again.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "file_program.h"
#include "files/design_format.h"
#include "files/fields.h"
#include "files/file_fault.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr long kMostMemory = 100L * 1024;  // kilobytes
constexpr unsigned kMostSeconds = 20;      // far more than a file takes on a machine with other work

// What a child ends with.
constexpr int kGood = 0;
constexpr int kRefused = 1;
constexpr int kBad = 2;

// Opens the file in a program of its own, as a user does; saves what came of it, and opens that.
int OpenAndSave(const std::string& path) {
  FileProgram p;
  p.FillPreferences();
  p.main.listSoils.Add("Sand");
  const std::string message = p.Open(path);
  if (!message.empty()) return message.starts_with(kOpeningFailed) ? kRefused : kGood;
  if (!p.Save(p.Path("again")).empty()) return kBad;
  return p.Open(p.record.SaveFileName).starts_with(kOpeningFailed) ? kBad : kGood;
}

struct Used {
  int end = kBad;
  long kilobytes = 0;
};

Used OpenAside(const std::string& path) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::alarm(kMostSeconds);
    ::_exit(OpenAndSave(path));
  }
  int status = 0;
  rusage used{};
  if (::wait4(child, &status, 0, &used) != child) return {};
  return {WIFEXITED(status) ? WEXITSTATUS(status) : kBad, used.ru_maxrss};
}

// The memory of a program under the address sanitizer says nothing.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMeasures = false;
#else
constexpr bool kMeasures = true;
#endif

TEST(Corpus, EveryFileOpensOrIsRefusedInLittleMemory) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(std::string(kSourceFolder) + "/tests/fuzz/corpus")) {
    files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  ASSERT_GE(files.size(), 20U);
  int good = 0;
  for (const std::string& file : files) {
    const Used used = OpenAside(file);
    EXPECT_NE(used.end, kBad) << file;
    if (kMeasures) {
      EXPECT_LT(used.kilobytes, kMostMemory) << file;
    }
    good += used.end == kGood ? 1 : 0;
  }
  EXPECT_GT(good, 5);
  EXPECT_LT(good, static_cast<int>(files.size()));
}

// A design of that many hole rows, its result cells this long.
std::string LongDesign(int rows, std::size_t cell) {
  FileProgram p;
  p.TypeSurvey();
  mnuDesignField_Click(p.program);
  DesignRecord& record = p.record;
  for (int i = record.HoleRows + 1; i <= rows; ++i) {
    record.Station[i] = static_cast<float>(i);
    record.Head[i] = 2;
    record.FurrowFlow[i] = 6;
    record.RequiredFlow[i] = 6;
    record.PipeDia[i] = record.PipeDia[1];
    record.HoleDia[i] = record.HoleDia[1];
    record.SurveyHoleDia[i] = record.SurveyHoleDia[1];
    record.HolesPerFurrow[i] = 1;
    record.FurrowNumber[i] = static_cast<float>(i);
    record.PlantedWidth[i] = 10;
    record.MilText[i] = "10";
  }
  record.HoleRows = static_cast<std::int16_t>(rows);
  p.main.Grid2.Resize(rows + 1, p.main.Grid2.column_count());
  for (int i = 1; i <= rows; ++i) {
    for (int c = 0; c < 11; ++c) p.main.Grid2.Set(i, c, std::string(cell, '7'));
  }
  return WriteDesign(p.program);
}

TEST(Corpus, TheLongestDesignsOpenInLittleMemory) {
  FakeHost host;
  constexpr std::size_t kLargestFile = std::size_t{8} << 20U;
  for (const std::size_t cell : {6U, 110U}) {
    const std::string text = LongDesign(5280, cell);
    ASSERT_LT(text.size(), kLargestFile);
    ASSERT_GT(text.size(), 5280U * 11 * cell);
    host.WriteFile("long.PFD", text);
    const Used used = OpenAside(host.ProgramFolder() + "/long.PFD");
    EXPECT_EQ(used.end, kGood) << cell;
    if (kMeasures) {
      EXPECT_LT(used.kilobytes, kMostMemory) << cell;
    }
    RecordProperty("kilobytes" + std::to_string(cell), std::to_string(used.kilobytes));
  }
}

}  // namespace
}  // namespace torvale
