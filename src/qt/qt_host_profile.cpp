// The picture of the crown profile, on paper and in files.
#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <cerrno>

#include "qt/document_painter.h"
#include "qt/profile_window.h"
#include "qt/qt_host.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr char kTitle[] = "Crown Profile";  // of the document
constexpr double kMargin = 0.5;             // inches
constexpr QSize kPictureSize(2000, 1300);
constexpr int kPictureMargin = 24;

void UseLandscape(QPagedPaintDevice& device) {
  UseLetterPaper(device);
  device.setPageOrientation(QPageLayout::Landscape);
  device.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Inch);
}

ProfileWindow* ProfileOf(const QWidget* window) {
  if (window == nullptr) return nullptr;
  return dynamic_cast<ProfileWindow*>(window->findChild<QWidget*>(ProfileWindow::kName));
}

bool PaintProfile(ProfileWindow& profile, QPaintDevice& device, const QRect& room) {
  QCPPainter painter;
  if (!painter.begin(&device)) return false;
  painter.setMode(QCPPainter::pmVectorized);
  painter.translate(room.topLeft());
  profile.PaintOnPaper(painter, room.size());
  return painter.end();
}

// The sheet within its margins, where a printer's own origin lies.
QRect RoomOn(const QPagedPaintDevice& device, int resolution) {
  return {QPoint(), device.pageLayout().paintRectPixels(resolution).size()};
}

bool WriteProfilePdf(ProfileWindow& profile, QBuffer& buffer) {
  QPdfWriter writer(&buffer);
  writer.setResolution(kPdfDotsPerInch);
  writer.setTitle(kTitle);
  UseLandscape(writer);
  return PaintProfile(profile, writer, RoomOn(writer, kPdfDotsPerInch));
}

bool WriteProfilePicture(ProfileWindow& profile, QBuffer& buffer) {
  QImage picture(kPictureSize, QImage::Format_RGB32);
  picture.fill(Qt::white);
  const QRect room = picture.rect().marginsRemoved({kPictureMargin, kPictureMargin, kPictureMargin, kPictureMargin});
  return PaintProfile(profile, picture, room) && picture.save(&buffer, "PNG");
}

}  // namespace

bool QtHost::PrintProfile() {
  ProfileWindow* profile = ProfileOf(window_);
  if (profile == nullptr) return false;
  Draw();
  QPrinter& printer = ChosenPrinter();
  printer.setDocName(kTitle);
  printer.setFullPage(false);
  UseLandscape(printer);
  const bool painted = PaintProfile(*profile, printer, RoomOn(printer, printer.resolution()));
  UseLetterPaper(printer);
  return painted;
}

WholeFileResult QtHost::WriteProfile(const std::string& path) {
  ProfileWindow* profile = ProfileOf(window_);
  if (profile == nullptr) return {EIO, {}};
  QBuffer buffer;
  buffer.open(QBuffer::WriteOnly);
  const bool as_document = ToQt(path).endsWith(".pdf", Qt::CaseInsensitive);
  const bool painted = as_document ? WriteProfilePdf(*profile, buffer) : WriteProfilePicture(*profile, buffer);
  if (!painted) return {EIO, {}};
  return WriteBuffer(buffer, path);
}

}  // namespace torvale
