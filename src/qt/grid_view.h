// A grid of the screen as a widget, and what a user does in it.
#pragma once

#include <QTableView>
#include <functional>
#include <map>
#include <string>

#include "qt/scale.h"
#include "screen/main_screen.h"
#include "shell/events.h"

namespace torvale {

class GridHeading;
class GridModel;

// The mouse button of an event, or one that is held down in it.
MouseButton ButtonOf(const QMouseEvent& event);

// What a user does in a grid. Rows and columns are the grid's own, positions in twips from its corner.
struct GridEvents {
  std::function<void(const KeyStroke&)> key;
  std::function<void(int row, int column, bool extend)> point;
  std::function<void(MouseAction, MouseButton, int x, int y)> mouse;
  std::function<void(int row, int column, const QPoint& at)> menu;  // `at` on the desktop
  std::function<void(int column)> heading;                          // a click on a heading
  std::function<void(int column, int width)> widen;                 // twips; 0 for the layout's own
};

// A grid of the screen. It never edits and never moves a cursor by itself: keys and clicks go to those who asked, and
// what they bring about in the structure is drawn.
class GridView final : public QTableView {
 public:
  // `name` is the grid's among the controls.
  GridView(const std::string& name, Grid& grid, QWidget* parent);

  // Tells `events` what the user does from now on.
  void Connect(GridEvents events);

  // Applies what changed in the structure since the last call. True where the current cell or the selection moved.
  bool Draw(const Scale& scale);
  // Where the moving corner of the selection stands in this widget; empty in the heading row.
  QRect CursorRect() const;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

 private:
  // What of the structure was last drawn.
  struct Drawn {
    std::uint64_t revision = 0;
    std::vector<GridColumn> columns;
    int rows = 0;
    int top_row = 1;
    int left_column = 0;
    int caret = -1;
    int row = 0;
    int column = 0;
    int row_sel = 0;
    int column_sel = 0;
    std::map<int, int> joined;
  };
  void LayOut();
  void JoinCells();
  int LinesOfRow(int room, int row_height, int line_height) const;
  void SetColumnWidths(int room);
  bool DrawCursor();
  void Point(const QMouseEvent& event, bool extend);
  void Mouse(const QMouseEvent& event, MouseAction action);

  Grid& grid_;
  GridEvents events_;
  GridModel* model_;
  GridHeading* heading_;
  Scale scale_{0};
  QSize laid_out_;
  bool laying_out_ = false;  // column widths change by our own hand
  Drawn drawn_;
};

}  // namespace torvale
