// The example of the guide, worked as it stands there.
#include <gtest/gtest.h>

#include <sstream>

#include "batch/csv_text.h"
#include "batch/run.h"
#include "batch/temporary_folder.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

// What stands in the element of that id, without the line end that begins it.
std::string Element(const std::string& guide, const std::string& id) {
  const std::size_t at = guide.find("id=\"" + id + "\"");
  if (at == std::string::npos) return "";
  const std::size_t begin = guide.find('>', at) + 1;
  const std::string text = guide.substr(begin, guide.find("</", begin) - begin);
  return text.starts_with('\n') ? text.substr(1) : text;
}

TEST(GuideExample, GivesTheFiguresThatTheGuideTells) {
  const std::string guide = ReadTextFile(std::filesystem::path(kSourceFolder) / "data/TORVALEHELP.hlp");
  const TestFolder folder;
  folder.Write("fields.csv", Element(guide, "many-fields-table"));
  folder.Write("corner.csv", Element(guide, "many-fields-survey"));
  BatchOptions options;
  options.table = folder / "fields.csv";
  options.out_folder = folder / "results";
  options.progress = Progress::Kind::kNone;
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(RunBatch(
                options, [] { return true; }, out, errors)
                .status,
            kBatchDone)
      << errors.str();
  const std::string results = folder.Read("results/results.csv");
  const std::vector<CsvRow> rows = ReadCsv(results, ',');
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1].Cell(4), Element(guide, "many-fields-planned"));
  EXPECT_EQ(rows[2].Cell(4), Element(guide, "many-fields-constant"));
}

}  // namespace
}  // namespace torvale
