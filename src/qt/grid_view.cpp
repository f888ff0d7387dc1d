#include "qt/grid_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "qt/grid_model.h"
#include "qt/grid_painting.h"
#include "qt/keys.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr int kRowMargin = 4;  // pixels more than the letters need

}  // namespace

MouseButton ButtonOf(const QMouseEvent& event) {
  const Qt::MouseButtons buttons = event.buttons() | event.button();
  if (buttons.testFlag(Qt::LeftButton)) return MouseButton::kLeft;
  return buttons.testFlag(Qt::RightButton) ? MouseButton::kRight : MouseButton::kNone;
}

GridView::GridView(const std::string& name, Grid& grid, QWidget* parent) : QTableView(parent), grid_(grid) {
  setObjectName(ToQt(name));
  model_ = new GridModel(name, grid_, this);
  heading_ = new GridHeading(grid_, this);
  setModel(model_);
  setItemDelegate(new GridCell(grid_, this));
  setHorizontalHeader(heading_);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMouseTracking(true);
  viewport()->setMouseTracking(true);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int value) { grid_.top_row = drawn_.top_row = value + 1; });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int value) { grid_.left_column = drawn_.left_column = value; });
}

void GridView::Connect(GridEvents events) {
  events_ = std::move(events);
  if (events_.heading) {
    heading_->setSectionsClickable(true);
    connect(heading_, &QHeaderView::sectionClicked, this, [this](int column) { events_.heading(column); });
  }
  if (!events_.widen) return;
  heading_->setSectionResizeMode(QHeaderView::Interactive);
  connect(heading_, &QHeaderView::sectionResized, this, [this](int column, int /*before*/, int now) {
    if (!laying_out_) events_.widen(column, scale_.TwipsAcross(now));
  });
  connect(heading_, &QHeaderView::sectionHandleDoubleClicked, this, [this](int column) { events_.widen(column, 0); });
}

void GridView::LayOut() {
  QFont letters = font();
  letters.setPixelSize(std::max(1, scale_.Zoomed(kSheetTextPixels)));
  setFont(letters);
  const int room = height() - 2 * frameWidth();
  const int text_height = QFontMetrics(letters).height();
  int row_height = std::max(scale_.Pixels(kGridRowHeight), text_height + scale_.Zoomed(kRowMargin));
  // A small grid that all but fits is shown whole.
  if (room / std::max(1, grid_.rows()) >= text_height) row_height = std::min(row_height, room / grid_.rows());
  heading_->setMinimumSectionSize(1);
  heading_->setFixedHeight(std::max(scale_.Pixels(grid_.heading_height), row_height));
  const int line_height = QFontMetrics(letters).lineSpacing();
  row_height += (LinesOfRow(room - heading_->height(), row_height, line_height) - 1) * line_height;
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(row_height);
  const bool whole = heading_->height() + row_height * model_->rowCount() <= room;
  setVerticalScrollBarPolicy(whole ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
  SetColumnWidths(width() - 2 * frameWidth() - (whole ? 0 : verticalScrollBar()->sizeHint().width()));
  heading_->FitLetters(letters.pixelSize());
  updateGeometries();
  grid_.rows_in_view = std::max(1, viewport()->height() / row_height);
}

// As many as all rows have room for, within the grid's limits.
int GridView::LinesOfRow(int room, int row_height, int line_height) const {
  const int row_room = room / std::max(1, grid_.rows() - 1);
  return std::clamp((row_room - row_height) / line_height + 1, grid_.least_lines, grid_.most_lines);
}

// Edges are rounded on their own; the last column takes what is left, so that the columns fill the grid exactly. Where
// the user has made them wider than that they scroll.
void GridView::SetColumnWidths(int room) {
  const int count = model_->columnCount();
  const bool widened =
      std::any_of(grid_.columns.begin(), grid_.columns.end(), [](const GridColumn& c) { return c.widened > 0; });
  const bool scrolls = (widened || grid_.scrolls_sideways) && scale_.PixelsAcross(grid_.EdgeOf(count)) > room;
  setHorizontalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  laying_out_ = true;
  for (int c = 0; c < count; ++c) {
    const int right = c + 1 < count || scrolls ? scale_.PixelsAcross(grid_.EdgeOf(c + 1)) : room;
    setColumnWidth(c, std::max(1, right - scale_.PixelsAcross(grid_.EdgeOf(c))));
  }
  laying_out_ = false;
}

bool GridView::Draw(const Scale& scale) {
  bool relayout = laid_out_ != size() || drawn_.columns != grid_.columns || drawn_.rows != grid_.rows();
  if (drawn_.revision != grid_.revision()) {
    drawn_.revision = grid_.revision();
    const int columns = model_->columnCount();
    model_->Refresh();
    relayout = relayout || columns != model_->columnCount();
    heading_->FitLetters(scale.Zoomed(kSheetTextPixels));
  }
  scale_ = scale;
  JoinCells();
  if (relayout) {
    drawn_.columns = grid_.columns;
    drawn_.rows = grid_.rows();
    laid_out_ = size();
    LayOut();
  }
  if (grid_.top_row != drawn_.top_row) {
    verticalScrollBar()->setValue(grid_.top_row - 1);
    grid_.top_row = drawn_.top_row = verticalScrollBar()->value() + 1;
  }
  if (grid_.left_column != drawn_.left_column) {
    horizontalScrollBar()->setValue(grid_.left_column);
    grid_.left_column = drawn_.left_column = horizontalScrollBar()->value();
  }
  return DrawCursor();
}

void GridView::JoinCells() {
  if (drawn_.joined == grid_.joined()) return;
  drawn_.joined = grid_.joined();
  clearSpans();
  for (const auto& [row, from] : drawn_.joined) setSpan(row - 1, from, 1, grid_.column_count() - from);
}

// The view stays where it is: where it follows the cursor the structure says so.
bool GridView::DrawCursor() {
  if (const int caret = grid_.edit ? grid_.edit->caret : -1; drawn_.caret != caret) {
    drawn_.caret = caret;
    viewport()->update();
  }
  if (drawn_.row == grid_.row && drawn_.column == grid_.column && drawn_.row_sel == grid_.row_sel &&
      drawn_.column_sel == grid_.column_sel) {
    return false;
  }
  drawn_.row = grid_.row;
  drawn_.column = grid_.column;
  drawn_.row_sel = grid_.row_sel;
  drawn_.column_sel = grid_.column_sel;
  setCurrentIndex(model_->index(grid_.row - 1, grid_.column));
  viewport()->update();
  heading_->viewport()->update();
  return true;
}

QRect GridView::CursorRect() const {
  const QRect cell = visualRect(model_->index(grid_.row_sel - 1, grid_.column_sel));
  return cell.isEmpty() ? cell : cell.translated(viewport()->pos());
}

// Tab goes the way of other keys before the toolkit moves the focus by it.
bool GridView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && events_.key) {
    auto& key = static_cast<QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
      keyPressEvent(&key);
      return true;
    }
  }
  return QTableView::event(event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (!events_.menu) return event->ignore();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    const QRect cell = visualRect(model_->index(grid_.row_sel - 1, grid_.column_sel));
    return events_.menu(grid_.row_sel, grid_.column_sel, viewport()->mapToGlobal(cell.center()));
  }
  const QModelIndex cell = indexAt(viewport()->mapFromGlobal(event->globalPos()));
  if (cell.isValid()) events_.menu(cell.row() + 1, cell.column(), event->globalPos());
}

void GridView::keyPressEvent(QKeyEvent* event) {
  std::string character;
  const auto stroke = StrokeOf(*event, character);
  if (stroke && events_.key) {
    events_.key(*stroke);
  } else {
    event->ignore();
  }
}

void GridView::Point(const QMouseEvent& event, bool extend) {
  const QPoint at = event.position().toPoint();
  if (grid_.rows() < 2 || grid_.column_count() == 0 || !events_.point) return;
  // Dragging past an edge reaches the cells beyond it, which then scroll into view.
  int row = rowAt(at.y());
  if (row < 0) row = at.y() < 0 ? 0 : model_->rowCount() - 1;
  int column = columnAt(at.x());
  if (column < 0) column = at.x() < 0 ? 0 : model_->columnCount() - 1;
  if (extend && row + 1 == grid_.row_sel && column == grid_.column_sel) return;
  events_.point(row + 1, column, extend);
}

void GridView::Mouse(const QMouseEvent& event, MouseAction action) {
  if (!events_.mouse) return;
  const QPoint at = viewport()->mapTo(this, event.position().toPoint());
  events_.mouse(action, ButtonOf(event), scale_.TwipsAcross(at.x()), scale_.Twips(at.y()));
}

void GridView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Point(*event, event->modifiers().testFlag(Qt::ShiftModifier));
  Mouse(*event, MouseAction::kDown);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) Point(*event, true);
  Mouse(*event, MouseAction::kMove);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  Mouse(*event, MouseAction::kUp);
}

}  // namespace torvale
