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

// A letter may be small, and its word or the beginning of that will do, as they stand in other people's tables. What
// is no such word is told, since it would be worked as the other kind.
TEST(FieldTable, TakesTheLettersOfWords) {
  const std::vector<FieldRow> fields = Read(
      "survey,survey kind,pipe kind,default survey kind,gate shape\n"
      "a.csv,e,layflat,Elev,circ\n"
      "a.csv,Rod Readings,rig,R,r\n"
      "a.csv, elevation ,,rod,\n"
      "a.csv,Q,x,1,oval\n");
  EXPECT_EQ(fields.at(0).survey_kind, "E");
  EXPECT_EQ(fields.at(0).pipe, "L");
  EXPECT_THAT(fields.at(0).preferences, ElementsAre(Pair(9, "E"), Pair(11, "C")));
  EXPECT_EQ(fields.at(1).survey_kind, "R");
  EXPECT_EQ(fields.at(1).pipe, "R");
  EXPECT_THAT(fields.at(1).preferences, ElementsAre(Pair(9, "R"), Pair(11, "R")));
  EXPECT_EQ(fields.at(2).survey_kind, "E");
  EXPECT_EQ(fields.at(2).pipe, "");
  for (int i = 0; i < 3; ++i) EXPECT_THAT(fields.at(static_cast<std::size_t>(i)).faults, IsEmpty());
  const std::string place = "fields.csv, row 5, column ";
  EXPECT_THAT(fields.at(3).faults,
              ElementsAre(place + "2: the survey kind is R for rod readings or E for elevations, not \"Q\"",
                          place + "3: the pipe is L for layflat or R for rigid, not \"x\"",
                          place + "4: the survey kind is R for rod readings or E for elevations, not \"1\"",
                          place + "5: the gate shape is R for rectangular or C for circular, not \"oval\""));
}

// The program reads a number as far as it goes; a reader of the results is told where that is less than it looks.
TEST(FieldTable, RemarksNumbersThatAreReadOtherwiseThanTheyLook) {
  const std::vector<FieldRow> fields = Read(
      "survey;gpm;target head;name;pipe diameter;hole size\n"
      "a.csv;60x;2,5;6O;1O;1/2\n"
      "a.csv; 60 ;2.5;6O;10;5/8\n");
  EXPECT_THAT(fields.at(0).remarks, ElementsAre("fields.csv, row 2, column 2: \"60x\" is read as 60",
                                                "fields.csv, row 2, column 3: \"2,5\" is read as 2",
                                                "fields.csv, row 2, column 5: \"1O\" is read as 1"));
  EXPECT_EQ(fields.at(0).gpm, "60x");
  EXPECT_THAT(fields.at(0).faults, IsEmpty());
  EXPECT_THAT(fields.at(1).remarks, IsEmpty());
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
