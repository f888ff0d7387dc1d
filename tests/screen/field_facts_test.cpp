#include "screen/field_facts.h"

#include <gtest/gtest.h>

#include "record/hole_sizes.h"
#include "screen/fields.h"

namespace torvale {
namespace {

TEST(FieldFacts, AFieldIsFoundByItsControl) {
  for (int i = 0; i < 6; ++i) EXPECT_EQ(InfoIndex(NameOf(static_cast<InfoField::Index>(i))), i);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(PreferenceIndex(NameOf(static_cast<Preference::Index>(i))), i);
  for (const char* other : {"", "txtInfo", "txtInfo(", "txtInfo()", "txtInfo(6)", "txtInfo(-1)", "txtInfo(x)",
                            "txtDefault(16)", "lblDefault(3)", "Grid1"}) {
    EXPECT_EQ(InfoIndex(other), -1) << other;
    EXPECT_EQ(PreferenceIndex(other), -1) << other;
  }
}

// The rows stand in the order of the names: a row too many or too few would shift all that follow.
TEST(FieldFacts, RowsStandWhereTheirNamesSay) {
  EXPECT_EQ(kInfoFacts[InfoField::kTargetHead].name, "Target Head");
  EXPECT_EQ(kInfoFacts[InfoField::kSurveyKind].form, FieldForm::kRodsOrElevations);
  EXPECT_EQ(kPreferenceFacts[Preference::kHazenWilliamsC].factory, "140");
  EXPECT_EQ(kPreferenceFacts[Preference::kGateForm].form, FieldForm::kRectangularOrCircular);
  EXPECT_EQ(kPreferenceFacts[Preference::kOpenFilter].factory, "*.*");
}

// A blank hole size takes a name of the table: row 12, five eighths of an inch.
TEST(FieldFacts, TheFactoryHoleSizeIsListed) {
  EXPECT_EQ(HoleSizeByName(HoleSizeTable(), kPreferenceFacts[Preference::kHoleSize].factory), 12);
}

}  // namespace
}  // namespace torvale
