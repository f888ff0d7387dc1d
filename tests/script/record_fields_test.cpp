#include "record/record_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/source_folder.h"

namespace torvale {
namespace {

// The name that a member's declaration ends in: a type, the name, perhaps a first value, a semicolon. Empty for lines
// that declare none.
std::string DeclaredName(std::string line) {
  const std::size_t end = line.find(';');
  if (end == std::string::npos || line.find("//") < end) return "";
  line.resize(std::min(end, line.find(" = ")));
  if (line.find('(') != std::string::npos) return "";
  return line.substr(line.rfind(' ') + 1);
}

// The members of all structures in the headers that the record is made of.
std::vector<std::string> DeclaredFields() {
  std::vector<std::string> names;
  for (const char* file : {"src/record/hole_size_table.h", "src/record/design_record.h"}) {
    std::ifstream header(std::filesystem::path(kSourceFolder) / file);
    bool inside = false;
    for (std::string line; std::getline(header, line);) {
      if (line == "};") inside = false;
      const std::string name = inside ? DeclaredName(line) : "";
      if (!name.empty()) names.push_back(name);
      if (line.starts_with("struct ") && line.ends_with('{')) inside = true;
    }
  }
  return names;
}

TEST(RecordFields, HoldsEveryFieldOfTheRecordOnce) {
  std::vector<std::string> names;
  ForEachRecordField([&](const auto& field) { names.emplace_back(field.name); });
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(DeclaredFields()));
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
