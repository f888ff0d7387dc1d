#include "batch/field_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "record/design_record.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

std::vector<FieldRow> Read(std::string_view text) {
  const FieldTable table(std::string(text), "fields.csv");
  std::vector<FieldRow> fields;
  for (std::size_t i = 0; i < table.size(); ++i) {
    fields.push_back(table.Field(i));
    EXPECT_EQ(fields.back().number, table.NumberOf(i));
  }
  return fields;
}

std::string FaultOf(std::string_view text) {
  try {
    Read(text);
  } catch (const FieldTableFault& fault) {
    return fault.what();
  }
  return "";
}

TEST(FieldTable, TakesColumnsByTheirNamesInAnyOrderAndLetters) {
  const std::vector<FieldRow> fields = Read(
      "SURVEY;Name;gpm;Target_Head;survey kind;pipe kind;soil;holes;designs;Location;Date;Mil;txtDefault(5)\n"
      "a.csv;North;300;2;E;rigid;Sand;1/4 3/8|1/2;dual 1 planned;Gate 3;1/2/2030;7;10\n");
  ASSERT_EQ(fields.size(), 1U);
  const FieldRow& field = fields[0];
  EXPECT_EQ(field.number, 1);
  EXPECT_EQ(field.line, 2);
  EXPECT_EQ(field.survey, "a.csv");
  EXPECT_EQ(field.name, "North");
  EXPECT_EQ(field.gpm, "300");
  EXPECT_EQ(field.target_head, "2");
  EXPECT_EQ(field.survey_kind, "E");
  EXPECT_EQ(field.pipe, "R");
  EXPECT_EQ(field.soil, "Sand");
  EXPECT_EQ(field.location, "Gate 3");
  EXPECT_EQ(field.date, "1/2/2030");
  EXPECT_THAT(field.holes, ElementsAre("1/4", "3/8", "1/2"));
  EXPECT_THAT(field.designs, ElementsAre(kDualSlope, kPlanned));  // named twice, worked once
  EXPECT_THAT(field.preferences, ElementsAre(Pair(8, "7"), Pair(5, "10")));
  EXPECT_THAT(field.faults, IsEmpty());
}

TEST(FieldTable, NamesNoDesignsForAllSix) {
  for (const std::string_view cell : {"", "all", "ALL"}) {
    const std::vector<FieldRow> fields = Read("survey,designs\na.csv," + std::string(cell) + "\n");
    EXPECT_THAT(fields.at(0).designs, ElementsAre(1, 2, 3, 4, 5, 6)) << cell;
  }
}

TEST(FieldTable, NumbersFieldsPastEmptyLines) {
  const std::vector<FieldRow> fields = Read("survey,name\n\na.csv,A\n,\nb.csv,B\n");
  ASSERT_EQ(fields.size(), 2U);
  EXPECT_EQ(fields[0].number, 1);
  EXPECT_EQ(fields[0].line, 3);
  EXPECT_EQ(fields[1].number, 2);
  EXPECT_EQ(fields[1].line, 5);
}

// What is wrong with one field is told of that field; the others are worked.
TEST(FieldTable, TellsOfCellsWithRowAndColumn) {
  const std::vector<FieldRow> fields = Read(
      "survey,pipe kind,designs,survey layout\n"
      "a.csv,Q,planned;best,rows,more\n"
      ",L,planned,sheet\n");
  EXPECT_THAT(fields.at(0).faults,
              ElementsAre("fields.csv, row 2, column 2: the pipe is L for layflat or R for rigid, not \"Q\"",
                          "fields.csv, row 2, column 3: no design is called \"best\"",
                          "fields.csv, row 2, column 4: the layout is sheet, PNEZ or PENZ, not \"ROWS\"",
                          "fields.csv, row 2, column 5: \"more\" stands in a column without a heading"));
  EXPECT_THAT(fields.at(1).faults, ElementsAre("fields.csv, row 3: the field names no survey"));
}

TEST(FieldTable, RefusesATableThatItCantGoBy) {
  EXPECT_EQ(FaultOf(""), "fields.csv: the table is empty");
  EXPECT_EQ(FaultOf("survey,depth\n"), "fields.csv, row 1, column 2: no column of fields is called \"depth\"");
  EXPECT_EQ(FaultOf("survey,GPM,gpm\n"), "fields.csv, row 1, column 3: \"gpm\" stands in column 2 too");
  EXPECT_EQ(FaultOf("survey\n\"a"), "fields.csv, row 2, column 1: a quote is not closed");
}

// A field is known again by its cells and their headings, wherever it stands.
TEST(FieldTable, HashesWhatAFieldSays) {
  const std::uint64_t first = Read("survey,gpm,name\na.csv,300,\n").at(0).content;
  EXPECT_EQ(Read("survey,gpm\nz.csv,1\na.csv,300\n").at(1).content, first);
  EXPECT_NE(Read("survey,gpm\na.csv,301\n").at(0).content, first);
  EXPECT_NE(Read("survey,target head\na.csv,300\n").at(0).content, first);
}

TEST(FieldTable, DescribesEveryColumn) {
  std::string heading;
  for (const FieldColumnHelp& column : FieldColumns()) {
    EXPECT_FALSE(column.what.empty());
    heading += (heading.empty() ? "" : ",") + std::string(column.name);
  }
  EXPECT_EQ(FaultOf(heading + "\n"), "");
}

}  // namespace
}  // namespace torvale
