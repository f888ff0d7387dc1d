// The desktop that the program runs on, by the toolkit.
#pragma once

#include <QApplication>
#include <QBuffer>
#include <QPrinter>
#include <QSettings>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "qt/yield_pacer.h"
#include "screen/host.h"

namespace torvale {

// A box waits for the user, so the pointer over it is the plain one.
struct ArrowPointer {
  ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;
};

// The desktop that the program runs on.
class QtHost : public Host {
 public:
  // Without a folder for the user's data they lie beside the program's.
  explicit QtHost(QString program_folder, QString user_data_folder = {})
      : program_folder_(std::move(program_folder)), user_data_folder_(std::move(user_data_folder)) {}

  // Messages and dialogs stand over `window`, or over a window of it that keeps it waiting; `draw` brings it up to date
  // before they do and at each yield, and `explain` opens the guide at what it says of a message. Once the window is
  // closed there is nobody left to tell: messages are passed over, questions count as answered No.
  void Attach(QWidget* window, std::function<void()> draw,
              std::function<void(const std::string& body)> explain = nullptr);

  long Yield(long due) override;
  void Message(std::string_view body, std::string_view title) override;
  bool Question(std::string_view body, std::string_view title) override;
  void Beep() override;
  std::optional<std::string> OpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> SaveDialog(const FileDialog& dialog) override;
  bool HasPrinter() override;
  std::optional<int> PrinterDialog() override;
  bool Print(const Document& document) override;
  void Preview(const Document& document) override;
  WholeFileResult WritePdf(const Document& document, const std::string& path) override;
  WholeFileResult WritePicture(const Document& document, const std::string& path) override;
  bool PrintProfile() override;
  WholeFileResult WriteProfile(const std::string& path) override;
  std::string ClipboardText() override;
  void SetClipboardText(std::string_view text) override;
  std::optional<std::string> Setting(std::string_view key) override;
  void SaveSetting(std::string_view key, std::string_view value) override;
  std::string Today() override;
  std::string TimeText(std::int64_t moment) override;
  std::string ProgramFolder() override { return program_folder_.toStdString(); }
  std::string UserDataFolder() override;

 private:
  bool Closed() const { return window_ != nullptr && window_->isHidden(); }
  void Draw();
  QWidget* Front() const;
  QString DialogFolder();
  void KeepDialogFolder(const QString& chosen);
  bool MayReplace(QWidget* dialog, const QString& path);
  std::function<void()> Explaining(std::string_view body) const;
  QPrinter& ChosenPrinter();
  WholeFileResult WriteBuffer(const QBuffer& buffer, const std::string& path);

  QString program_folder_;
  QString user_data_folder_;
  QWidget* window_ = nullptr;
  std::function<void()> draw_;
  std::function<void(const std::string&)> explain_;
  YieldPacer pacer_;
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace torvale
