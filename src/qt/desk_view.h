#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "qt/grid_view.h"
#include "qt/supply_chart_view.h"
#include "screen/program.h"

namespace torvale {

// The sections of the desk, beside the screens; it shows what `Program::desk` says. Where it stands upright the open
// sections lie one below the other, else side by side. The chart may stand on the screens themselves.
class DeskView final : public QWidget {
 public:
  // What the user does is worked on inside `run`, which brings all windows up to date afterwards. `entered` is told of
  // a control that gets the focus.
  using Run = std::function<void(const std::function<void()>&)>;
  using Entered = std::function<void(const std::string& name, Qt::FocusReason reason)>;
  DeskView(Program& program, Run run, Entered entered, QWidget* parent);

  // Applies what changed in the structure since the last call. True where the desk came or went.
  bool Sync();
  void StandUpright(bool upright);
  // Stands the chart at that place of `screens`; among the other sections where the place is empty.
  void StandChart(QWidget& screens, const QRect& place);
  // Whether a section other than the chart is open.
  bool OpenBesideChart() const;
  // Pixels that the desk wants where it lies below the screens.
  int HeightBelow() const;
  // Pixels that it wants where it stands beside them, and without which it does not.
  int WantedBeside() const;
  int NarrowestBeside() const;
  // Gives the focus to the control of that name, where it is one of these.
  void TakeFocus(const std::string& name);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Section {
    NamedControl frame;
    QWidget* widget = nullptr;
    QLabel* title = nullptr;
    QPushButton* close = nullptr;
    GridView* grid = nullptr;
    QLabel* words = nullptr;
    SupplyChartView* chart = nullptr;
    NamedControl close_control;
    const Control* words_control = nullptr;
    std::string grid_name;
    bool away = false;  // it stands on the screens
  };
  int StretchOf(const Section& section) const;
  void MakeSection(const NamedControl& frame, const std::vector<NamedControl>& controls);
  void MakeGrid(Section& section, const NamedControl& named, QBoxLayout& rows);
  void DrawLetters(const Section& section) const;

  Program& program_;
  Run run_;
  Entered entered_;
  QBoxLayout* layout_;
  QRect chart_place_;  // on the screens
  std::vector<Section> sections_;
  int drawn_zoom_ = 0;
};

}  // namespace torvale
