#include "script/record_fields.h"

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
  for (const RecordField& field : RecordFields()) names.emplace_back(field.name);
  EXPECT_EQ(names, DeclaredFields());
  EXPECT_FALSE(names.empty());
}

TEST(RecordFields, FindsAFieldByItsExactName) {
  const RecordField* field = FindRecordField("Uniformity");
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(std::get<float DesignRecord::*>(field->member), &DesignRecord::Uniformity);
  EXPECT_EQ(FindRecordField("uniformity"), nullptr);
}

}  // namespace
}  // namespace torvale
