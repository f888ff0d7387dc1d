#include "script/record_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>

namespace torvale {
namespace {

// The names of the members as the record declares them: a type, the name, perhaps a first value.
std::vector<std::string> DeclaredFields() {
  std::ifstream header(std::filesystem::path(TORVALE_SOURCE_DIR) / "src/record/design_record.h");
  const std::regex member(R"(^  [A-Za-z_:<>0-9+, ]+[ >](\w+)( = [^;]+)?;.*$)");
  std::vector<std::string> names;
  bool inside = false;
  std::smatch found;
  for (std::string line; std::getline(header, line);) {
    if (line == "};") inside = false;
    if (inside && std::regex_match(line, found, member)) names.push_back(found[1]);
    if (line == "struct DesignRecord {") inside = true;
  }
  return names;
}

TEST(RecordFields, HoldsEveryFieldOfTheRecordInItsOrder) {
  std::vector<std::string> names;
  ForEachRecordField([&](const auto& field) { names.emplace_back(field.name); });
  EXPECT_THAT(names, testing::ElementsAreArray(DeclaredFields()));
  EXPECT_FALSE(names.empty());
}

TEST(RecordFields, FindsAFieldByItsExactName) {
  DesignRecord record;
  record.Uniformity = 93.2F;
  float found = 0;
  const auto read = [&](const auto& field) {
    if constexpr (std::is_same_v<decltype(field), const RecordField<float>&>) found = record.*field.member;
  };
  EXPECT_TRUE(WithRecordField("Uniformity", read));
  EXPECT_EQ(found, 93.2F);
  EXPECT_FALSE(WithRecordField("uniformity", read));
}

}  // namespace
}  // namespace torvale
