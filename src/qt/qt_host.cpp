#include "qt/qt_host.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>

#include "qt/to_qt.h"
#include "screen/main_screen.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::string_view kFolderKey = "FileFolder";

QString SettingName(std::string_view key) {
  return "Settings/" + ToQt(key);
}

QSettings Store() {
  return QSettings(ToQt(kProgramTitle), ToQt(kProgramTitle));
}

// A box breaks long lines early. A text that is set in lines keeps them, as far as the display is wide enough.
void KeepLines(const QMessageBox& box) {
  auto* label = box.findChild<QLabel*>("qt_msgbox_label");
  if (label == nullptr || !box.text().contains('\n')) return;
  int widest = 0;
  for (const QString& line : box.text().split('\n')) {
    widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
  }
  label->setMinimumWidth(std::min(widest + 1, box.screen()->availableSize().width() * 2 / 3));
}

// What the F1 key does in a box, whichever of its buttons has the focus.
class ExplainOnF1 final : public QObject {
 public:
  explicit ExplainOnF1(const std::function<void()>& explain) : explain_(explain) {}
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool asked = event->type() == QEvent::KeyPress && static_cast<QKeyEvent&>(*event).key() == Qt::Key_F1;
    if (!asked || !explain_) return QObject::eventFilter(watched, event);
    explain_();
    return true;
  }

 private:
  const std::function<void()>& explain_;
};

QMessageBox::StandardButton Show(QWidget* window, QMessageBox::Icon icon, std::string_view body, std::string_view title,
                                 QMessageBox::StandardButtons buttons, const std::function<void()>& explain) {
  QMessageBox box(icon, ToQt(title.empty() ? kProgramTitle : title), LinesToQt(body), buttons, window);
  box.setTextFormat(Qt::PlainText);
  // The box holds back the windows that it belongs to, but not the guide.
  if (window != nullptr) box.setWindowModality(Qt::WindowModal);
  ExplainOnF1 on_f1(explain);
  box.installEventFilter(&on_f1);
  KeepLines(box);
  const ArrowPointer plain;
  const int answer = box.exec();
  // Not every desktop gives the keyboard back by itself.
  if (window != nullptr) window->activateWindow();
  return static_cast<QMessageBox::StandardButton>(answer);
}

// The filters as the toolkit writes them: "Caption (pattern);;...". A caption that names its pattern keeps it once.
QStringList FiltersOf(std::string_view filters) {
  const QStringList parts = ToQt(filters).split('|');
  QStringList captions;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].left(parts[i].indexOf('(')).trimmed();
    QStringList patterns(parts[i + 1].trimmed() == "*.*" ? QString("*") : parts[i + 1].trimmed());
    // Files from other systems may be named in small letters.
    if (!patterns.contains(patterns.front().toLower())) patterns.append(patterns.front().toLower());
    captions.append(name + " (" + patterns.join(' ') + ")");
  }
  return captions;
}

// The cursor stands ahead of an extension that is all of the name.
void TypeAheadOfExtension(const QFileDialog& dialog) {
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  if (name != nullptr && name->text().startsWith('.'))
    QTimer::singleShot(0, name, [name] { name->setCursorPosition(0); });
}

std::optional<std::string> Chosen(const QString& path) {
  if (path.isEmpty()) return std::nullopt;
  return QDir::toNativeSeparators(path).toStdString();
}

}  // namespace

void QtHost::Attach(QWidget* window, std::function<void()> draw, std::function<void(const std::string&)> explain) {
  window_ = window;
  draw_ = std::move(draw);
  explain_ = std::move(explain);
}

// The window that has the user's attention: one that keeps the main window waiting stands over it.
QWidget* QtHost::Front() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr ? window_ : modal;
}

void QtHost::Draw() {
  if (draw_) draw_();
}

std::function<void()> QtHost::Explaining(std::string_view body) const {
  if (!explain_) return nullptr;
  return [this, text = std::string(body)] { explain_(text); };
}

long QtHost::Yield(long due) {
  if (pacer_.Count(due)) {
    Draw();
    QApplication::processEvents();
    pacer_.Restart();
  }
  return pacer_.Idle();
}

void QtHost::Message(std::string_view body, std::string_view title) {
  if (Closed()) return;
  Draw();
  Show(Front(), QMessageBox::Information, body, title, QMessageBox::Ok, Explaining(body));
}

bool QtHost::Question(std::string_view body, std::string_view title) {
  if (Closed()) return false;
  Draw();
  return Show(Front(), QMessageBox::Question, body, title, QMessageBox::Yes | QMessageBox::No, Explaining(body)) ==
         QMessageBox::Yes;
}

void QtHost::Beep() {
  QApplication::beep();
}

// The folder of the last file dialog, at first that of the user's documents, where there is one: a dialog takes a
// folder that is not there for the name of a file.
QString QtHost::DialogFolder() {
  const QString last = ToQt(Setting(kFolderKey).value_or(""));
  if (!last.isEmpty() && QDir(last).exists()) return last;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

void QtHost::KeepDialogFolder(const QString& chosen) {
  SaveSetting(kFolderKey, QFileInfo(chosen).absolutePath().toStdString());
}

std::optional<std::string> QtHost::OpenDialog(const FileDialog& dialog) {
  if (Closed()) return std::nullopt;
  Draw();
  const ArrowPointer plain;
  const QStringList filters = FiltersOf(dialog.filters);
  QString selected = filters.value(dialog.filter - 1);
  const QDir folder(dialog.folder.empty() ? DialogFolder() : ToQt(dialog.folder));
  const QString chosen = QFileDialog::getOpenFileName(Front(), ToQt(dialog.title), folder.filePath(ToQt(dialog.name)),
                                                      filters.join(";;"), &selected);
  if (!chosen.isEmpty()) KeepDialogFolder(chosen);
  return Chosen(chosen);
}

// Asks about a file that is there.
bool QtHost::MayReplace(QWidget* dialog, const QString& path) {
  const QFileInfo file(path);
  if (!file.exists()) return true;
  const SpokenQuestion question =
      words::kReplaceFile(file.fileName().toStdString(), QDir::toNativeSeparators(file.absolutePath()).toStdString());
  return Show(dialog, QMessageBox::Question, question.text(), question.title(), QMessageBox::Yes | QMessageBox::No,
              Explaining(question.text())) == QMessageBox::Yes;
}

// The dialog itself would ask about the name as typed, which is not yet the name that is written.
std::optional<std::string> QtHost::SaveDialog(const FileDialog& dialog) {
  if (Closed()) return std::nullopt;
  Draw();
  const ArrowPointer plain;
  const QStringList filters = FiltersOf(dialog.filters);
  const QFileInfo preset(QDir(DialogFolder()), ToQt(dialog.name));
  QFileDialog box(Front(), ToQt(dialog.title), preset.absolutePath(), filters.join(";;"));
  box.setAcceptMode(QFileDialog::AcceptSave);
  box.setFileMode(QFileDialog::AnyFile);
  box.setOption(QFileDialog::DontConfirmOverwrite);
  if (!dialog.name.empty()) box.selectFile(preset.fileName());
  if (!filters.isEmpty()) box.selectNameFilter(filters.value(dialog.filter - 1));
  TypeAheadOfExtension(box);
  while (box.exec() == QDialog::Accepted) {
    const QString chosen = box.selectedFiles().value(0);
    const std::string path = chosen.toStdString();
    if (!MayReplace(&box, dialog.written ? ToQt(dialog.written(path)) : chosen)) continue;
    KeepDialogFolder(chosen);
    return Chosen(chosen);
  }
  return std::nullopt;
}

std::string QtHost::ClipboardText() {
  return QApplication::clipboard()->text().toStdString();
}

void QtHost::SetClipboardText(std::string_view text) {
  QApplication::clipboard()->setText(ToQt(text));
}

std::optional<std::string> QtHost::Setting(std::string_view key) {
  const QVariant value = Store().value(SettingName(key));
  if (!value.isValid()) return std::nullopt;
  return value.toString().toStdString();
}

void QtHost::SaveSetting(std::string_view key, std::string_view value) {
  Store().setValue(SettingName(key), ToQt(value));
}

std::string QtHost::UserDataFolder() {
  return user_data_folder_.isEmpty() ? Host::UserDataFolder() : user_data_folder_.toStdString();
}

std::string QtHost::TimeText(std::int64_t moment) {
  return QLocale::system().toString(QDateTime::fromMSecsSinceEpoch(moment), QLocale::ShortFormat).toStdString();
}

std::string QtHost::Today() {
  return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

}  // namespace torvale
