#include "qt/native_look.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace torvale {
namespace {

QString Taken(const QString& wanted, const QStringList& there) {
  return WithoutSerifs(QFont(wanted), [&](const QString& typeface) { return there.contains(typeface); }).family();
}

TEST(NativeLook, ATypefaceThatIsThereStays) {
  EXPECT_EQ(Taken("Garamond", {"Arial", "Garamond"}), "Garamond");
  EXPECT_EQ(Taken("Segoe UI", {"Arial", "Segoe UI"}), "Segoe UI");
}

TEST(NativeLook, AMissingOneGivesWayToTheFirstWithoutSerifs) {
  EXPECT_EQ(Taken("Segoe UI", {"Garamond", "DejaVu Sans", "Arial"}), "Arial");
  EXPECT_EQ(Taken("Segoe UI", {"Garamond", "DejaVu Sans"}), "DejaVu Sans");
}

TEST(NativeLook, WithoutAnyTheToolkitChooses) {
  EXPECT_EQ(Taken("Segoe UI", {"Garamond"}), "Segoe UI");
}

TEST(NativeLook, SizeAndWeightStay) {
  QFont wanted("Segoe UI", 9, QFont::Bold);
  const QFont taken = WithoutSerifs(wanted, [](const QString& typeface) { return typeface == "Arial"; });
  EXPECT_EQ(taken.pointSize(), 9);
  EXPECT_TRUE(taken.bold());
}

}  // namespace
}  // namespace torvale
