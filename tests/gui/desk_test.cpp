// The desk in the window: where it stands, what it shows while the user types, and what a click on it does.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "engine/survey.h"
#include "gui/window_test.h"
#include "qt/desk_view.h"
#include "shell/events.h"

namespace torvale {
namespace {

class DeskWindowTest : public WindowTest {
 protected:
  DeskView& Desk() { return Find<DeskView>("desk"); }
  GridView& Comparison() { return *static_cast<GridView*>(&Find<QTableView>("Comparison")); }
  const DeskScreen& desk() { return program_->desk; }

  void Line() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("150", "6", "++++++++++");
  }
  bool AllTried() {
    return !desk().designs.empty() &&
           std::all_of(desk().designs.begin(), desk().designs.end(), [](const ComparedDesign& d) { return d.tried; });
  }
  // With TORVALE_PICTURES naming a folder.
  void Keep(const char* name) {
    const QByteArray folder = qgetenv("TORVALE_PICTURES");
    if (!folder.isEmpty()) window_->grab().save(QString("%1/%2.png").arg(QString(folder), name));
  }
};

TEST_F(DeskWindowTest, OpensBelowANormalWindowAndBesideAWideOne) {
  const QSize plain = window_->size();
  EXPECT_FALSE(Desk().isVisible());
  EXPECT_TRUE(Find<QWidget>("frameFirstSteps").isVisible());
  Keep("first-steps");
  Choose("mnuDesk(0)");
  QTest::qWait(50);
  EXPECT_TRUE(Desk().isVisible());
  EXPECT_EQ(window_->width(), plain.width()) << "a normal window keeps its width";
  auto* area = window_->findChild<QScrollArea*>("screens");
  EXPECT_GE(Desk().y(), area->geometry().bottom());
  window_->showMaximized();
  window_->resize(1900, 1000);
  QTest::qWait(400);
  EXPECT_GE(Desk().x(), area->geometry().right());
  Choose("mnuDesk(0)");
  EXPECT_FALSE(Desk().isVisible());
}

TEST_F(DeskWindowTest, FillsInWhileOneTypesAndMakesTheDesignOfARow) {
  Choose("mnuDesk(0)");
  Choose("mnuDesk(2)");
  Line();
  ASSERT_TRUE(QTest::qWaitFor([&] { return AllTried(); }, 20000));
  Keep("desk-input");
  QTest::mouseClick(Comparison().viewport(), Qt::LeftButton, Qt::NoModifier, PointOf(Comparison(), 1, 0));
  EXPECT_TRUE(Results().isVisible());
  EXPECT_EQ(record().DesignType, kPlanned);
  EXPECT_FALSE(desk().chart.stations.empty());
  QTest::qWait(300);
  Keep("desk-results");
}

// A large window shows more rows of both tables than a normal one.
TEST_F(DeskWindowTest, ALargeWindowShowsMoreRows) {
  const int rows = main().Grid1.rows_in_view;
  window_->showMaximized();
  window_->resize(1500, 1100);
  QTest::qWait(400);
  EXPECT_GT(main().Grid1.rows_in_view, rows + 5);
  Line();
  Key(Sheet(), Qt::Key_F5);
  EXPECT_GT(main().Grid2.rows_in_view, rows);
  Keep("large");
}

TEST_F(DeskWindowTest, AChangedFieldIsMarkedUntilReCalculated) {
  Line();
  Key(Sheet(), Qt::Key_F5);
  Info(2).setFocus();
  Info(2).selectAll();
  Type(Info(2), "380");
  EXPECT_EQ(main().txtInfo[2].control.mark, "The figures shown are for GPM 400: press Re-Calculate.");
  EXPECT_EQ(Find<QPushButton>("cmdReCalc").palette().color(QPalette::Button), ToQt(kMarkedBack));
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text(), "The figures shown are for GPM 400: press Re-Calculate.");
  Keep("stale");
  AnswerNextBox(QMessageBox::No);
  Choose("mnuPreview(0)");
  EXPECT_NE(box_text_.find("Go on with the figures as they are?"), std::string::npos);
  Press("cmdReCalc");
  EXPECT_EQ(main().cmdReCalc.mark, "");
}

// The desk at both sizes, on a light and on a dark desktop: what stands in it has room.
struct DeskLook {
  const char* name;
  bool dark;
  int zoom;
};
class DeskLookTest : public DeskWindowTest, public testing::WithParamInterface<DeskLook> {
 protected:
  void SetUp() override {
    before_ = QApplication::palette();
    if (GetParam().dark) {
      QPalette dark;
      for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(role, QColor(222, 222, 222));
      }
      dark.setColor(QPalette::Window, QColor(45, 45, 48));
      dark.setColor(QPalette::Button, QColor(45, 45, 48));
      dark.setColor(QPalette::Base, QColor(30, 30, 32));
      dark.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
      QApplication::setPalette(dark);
    }
    DeskWindowTest::SetUp();
  }
  void TearDown() override {
    DeskWindowTest::TearDown();
    QApplication::setPalette(before_);
  }

 private:
  QPalette before_;
};

TEST_P(DeskLookTest, HasRoomForWhatStandsInIt) {
  window_->showMaximized();
  window_->resize(19 * GetParam().zoom, 10 * GetParam().zoom);
  Line();
  Guarded(*program_, [this] { SetZoom(*program_, GetParam().zoom); });
  window_->Sync();
  for (const char* section : {"mnuDesk(0)", "mnuDesk(1)", "mnuDesk(2)"}) Choose(section);
  ASSERT_TRUE(QTest::qWaitFor([&] { return AllTried(); }, 60000));
  Keep((std::string("desk-input-") + GetParam().name).c_str());
  Key(Sheet(), Qt::Key_F8);
  QTest::qWait(300);
  Keep((std::string("desk-results-") + GetParam().name).c_str());
  for (const char* name : {"Comparison", "SurveyRemarks", "SupplyChart"}) {
    EXPECT_GT(Find<QWidget>(name).height(), GetParam().zoom) << name;
    EXPECT_GT(Find<QWidget>(name).width(), 2 * GetParam().zoom) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Looks, DeskLookTest,
                         testing::Values(DeskLook{"light100", false, 100}, DeskLook{"dark100", true, 100},
                                         DeskLook{"light200", false, 200}, DeskLook{"dark200", true, 200}),
                         [](const auto& look) { return std::string(look.param.name); });

// A mile with a hole every foot: 5,281 rows.
void FillLongLine(Program& program) {
  Guarded(program, [&] {
    Grid& sheet = program.main.Grid1;
    for (const int row : {1, 2}) {
      const char* cells[] = {row == 1 ? "0" : "5280", "10.00", "1320", "1", "36", "1/8", "1", "10", ".5"};
      for (int column = 0; column < 9; ++column) sheet.Set(row, column, cells[column]);
    }
  });
}

// Milliseconds that this thread has worked, however busy the machine is with other things.
double WorkedMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// 500 characters at 20 ms each, with every design worked out after each of them: all are there in the end, in their
// order. What the window itself works for a key, with the results that come meanwhile and their drawing, stays below a
// frame of a display.
TEST_F(DeskWindowTest, DropsNoKeyWhileAllDesignsAreWorkedOut) {
  TypeFields("Mile", "1500", "2");
  FillLongLine(*program_);
  window_->Sync();
  Choose("mnuDesk(0)");
  ASSERT_TRUE(QTest::qWaitFor([&] { return AllTried(); }, 120000));
  EXPECT_TRUE(desk().designs.front().made);
  Sheet().setFocus();
  std::string typed;
  std::string read;
  std::vector<double> work;
  // Five digits into each of a hundred cells below the survey, in the column of furrow lengths: each makes another
  // sheet.
  for (int cell = 0; cell < 100; ++cell) {
    GridPoint(*program_, "Grid1", 100 + cell, kFurrowLengthColumn, false);
    for (int i = 0; i < 5; ++i) {
      const char digit = static_cast<char>('1' + (cell + i) % 9);
      typed += digit;
      const double before = WorkedMilliseconds();
      QTest::keyClick(&Sheet(), digit);
      QTest::qWait(20);
      work.push_back(WorkedMilliseconds() - before);
    }
    read += main().Grid1.Text(100 + cell, kFurrowLengthColumn);
  }
  EXPECT_EQ(read, typed);
  std::sort(work.begin(), work.end());
  std::printf("work for a key: %.2f ms in the middle, %.2f ms at most\n", work[work.size() / 2], work.back());
  EXPECT_LT(work.back(), 16);
}

}  // namespace
}  // namespace torvale
