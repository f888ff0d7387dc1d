// What the desktop prints, shows and writes of documents.
#include <QAction>
#include <QBuffer>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QScreen>
#include <cerrno>

#include "files/file_store.h"
#include "qt/document_painter.h"
#include "qt/qt_host.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

// The preview's own entries for another paper: a document is laid out for letter paper, upright.
const QStringList kPaperEntries = {"Portrait", "Landscape", "Page setup"};

// A page in sight whole, and large enough to be read.
void SetUpPreview(QPrintPreviewDialog& dialog) {
  const QSize desktop = dialog.screen()->availableSize();
  dialog.resize(desktop.width() * 2 / 3, desktop.height() * 9 / 10);
  for (QAction* action : dialog.findChildren<QAction*>()) {
    if (kPaperEntries.contains(action->text())) action->setVisible(false);
  }
}

}  // namespace

QPrinter& QtHost::ChosenPrinter() {
  if (printer_ == nullptr) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

bool QtHost::HasPrinter() {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

std::optional<int> QtHost::PrinterDialog() {
  if (Closed()) return std::nullopt;
  Draw();
  QPrinter& printer = ChosenPrinter();
  UseLetterPaper(printer);
  printer.setCopyCount(1);
  QPrintDialog dialog(&printer, Front());
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  // The toolkit's own dialog leaves its choice of pages all the same; a report is printed whole.
  if (auto* pages = dialog.findChild<QWidget*>("gbPrintRange")) pages->setEnabled(false);
  const ArrowPointer plain;
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const int copies = printer.copyCount();
  // Each copy is a document of its own.
  printer.setCopyCount(1);
  return copies;
}

bool QtHost::Print(const Document& document) {
  QPrinter& printer = ChosenPrinter();
  printer.setFullPage(true);
  UseLetterPaper(printer);
  printer.setDocName(ToQt(document.title));
  return PaintDocument(printer, document);
}

void QtHost::Preview(const Document& document) {
  if (Closed()) return;
  Draw();
  QPrinter printer(QPrinter::HighResolution);
  printer.setFullPage(true);
  UseLetterPaper(printer);
  printer.setDocName(ToQt(document.title));
  QPrintPreviewDialog dialog(&printer, Front());
  dialog.setWindowTitle(ToQt(document.title));
  SetUpPreview(dialog);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, [&](QPrinter* onto) {
    onto->setFullPage(true);
    PaintDocument(*onto, document);
  });
  const ArrowPointer plain;
  dialog.exec();
}

WholeFileResult QtHost::WritePdf(const Document& document, const std::string& path) {
  QBuffer buffer;
  buffer.open(QBuffer::WriteOnly);
  bool painted = false;
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfDotsPerInch);
    writer.setTitle(ToQt(document.title));
    UseLetterPaper(writer);
    painted = PaintDocument(writer, document);
  }
  if (!painted) return {EIO, {}};
  return WriteBuffer(buffer, path);
}

WholeFileResult QtHost::WritePicture(const Document& document, const std::string& path) {
  QBuffer buffer;
  buffer.open(QBuffer::WriteOnly);
  if (!PictureOf(document).save(&buffer, "PNG")) return {EIO, {}};
  return WriteBuffer(buffer, path);
}

WholeFileResult QtHost::WriteBuffer(const QBuffer& buffer, const std::string& path) {
  const QByteArray& bytes = buffer.data();
  const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  return WriteQuietly(*this, path, view);
}

}  // namespace torvale
