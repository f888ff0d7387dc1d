// The editor of soils: a window of its own beside the main one.
#include "gui/window_test.h"

namespace torvale {
namespace {

class SoilsWindowTest : public WindowTest {
 protected:
  QWidget& Editor() { return *Grid().window(); }
  QTableView& Grid() { return Find<QTableView>("Grd_Soils_FurrowFlow"); }
};

TEST_F(SoilsWindowTest, OpensFromTheMenuAndTakesKeys) {
  EXPECT_FALSE(Editor().isVisible());
  Choose("mnuSoils_and_Furrow");
  ASSERT_TRUE(Editor().isVisible());
  EXPECT_EQ(Editor().windowTitle(), "Soils and Recommended Furrow Flow Editor");
  const std::string first = program_->soils.Grd_Soils_FurrowFlow.Text(1, 0);
  EXPECT_FALSE(first.empty());
  EXPECT_EQ(Grid().model()->index(0, 0).data().toString().toStdString(), first);
  QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(Grid().model()->index(0, 0)).center());
  Type(Grid(), "x7");
  EXPECT_EQ(program_->soils.Grd_Soils_FurrowFlow.Text(1, 0), first + "x7");
  EXPECT_EQ(Grid().model()->index(0, 0).data().toString().toStdString(), first + "x7");
}

TEST_F(SoilsWindowTest, ClosingHidesItAndTheProgramGoesOn) {
  Choose("mnuSoils_and_Furrow");
  Editor().close();
  EXPECT_FALSE(Editor().isVisible());
  EXPECT_FALSE(program_->soils.visible);
  EXPECT_FALSE(main().closed);
  Choose("mnuSoils_and_Furrow");
  Key(Find<QTableView>("Grd_Soils_FurrowFlow"), Qt::Key_Escape);
  EXPECT_FALSE(Editor().isVisible());
  EXPECT_FALSE(program_->soils.visible);
  Choose("mnuSoils_and_Furrow");
  EXPECT_TRUE(Editor().isVisible());
  window_->close();
  EXPECT_FALSE(Editor().isVisible());
}

TEST_F(SoilsWindowTest, ASoilIsChosenFromTheList) {
  auto& soils = Find<QComboBox>("listSoils");
  ASSERT_GT(soils.count(), 1);
  EXPECT_EQ(soils.currentIndex(), -1);
  soils.setFocus();
  Key(soils, Qt::Key_Down, 2);
  EXPECT_EQ(main().listSoils.Current(), 1);
  EXPECT_EQ(record().RecFurrowFlow, record().SoilFurrowFlow[2]);
  EXPECT_EQ(Find<QLabel>("lblRecFurrowFlow").text().toStdString(), main().lblRecFurrowFlow.caption);
  EXPECT_TRUE(Find<QLabel>("lblRecFurrowFlow").text().startsWith("Recommended Furrow Flow = "));
}

}  // namespace
}  // namespace torvale
