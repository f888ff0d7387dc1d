// A desktop without a window, for scripts.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <queue>
#include <string>
#include <string_view>
#include <vector>

#include "screen/host.h"

namespace torvale {

// An empty folder of its own, removed with all that is in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The same on every machine: what a user would notice goes to a transcript, settings live
// in memory, the date is always 11/21/2026, files of reports are not written. The program folder is one of its own:
// without a defaults file and with a list of no soils, so that no file of the machine changes what a script does, or a
// copy of the folder that is named.
class HeadlessHost final : public Host {
 public:
  explicit HeadlessHost(std::ostream& transcript, const std::string& data_folder = "");

  // The next question without an answer takes this one, in the order given. A question for which none was given is
  // answered No: a run is refused or a change is not made, and the transcript shows it.
  void Answer(bool yes) { answers_.push(yes); }

  // What the next file dialog gives; nothing for a cancel. A dialog for which none was given is cancelled.
  void Dialog(std::optional<std::string> path) { paths_.push(std::move(path)); }

  // What the next printer dialog gives; nothing for a cancel. A dialog for which none was given is cancelled.
  void Copies(std::optional<int> copies) { copies_.push(copies); }

  // Writes the clipboard's text as a line of the transcript.
  void ShowClipboard();

  // Writes every operation of what was printed, previewed or written to a file since the last call, and forgets it.
  void ShowPrinted();

  // The `count`th yield from now on runs a click. Several may be pending at once; those due at the same yield run in
  // the order given. One that never comes due in a calculation waits for the next.
  void OnYield(long count, std::string control);
  // What a click of `OnYield` does; set once, before the first yield.
  std::function<void(const std::string& control)> on_click;
  // Yields so far.
  long yields() const { return yields_; }

  long Yield(long due) override;
  void Message(std::string_view body, std::string_view title) override;
  bool Question(std::string_view body, std::string_view title) override;
  void Beep() override;
  std::optional<std::string> OpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> SaveDialog(const FileDialog& dialog) override;
  bool HasPrinter() override { return true; }
  std::optional<int> PrinterDialog() override;
  bool Print(const Document& document) override;
  void Preview(const Document& document) override;
  WholeFileResult WritePdf(const Document& document, const std::string& path) override;
  WholeFileResult WritePicture(const Document& document, const std::string& path) override;
  bool PrintProfile() override;
  WholeFileResult WriteProfile(const std::string& path) override;
  std::string ClipboardText() override { return clipboard_; }
  void SetClipboardText(std::string_view text) override { clipboard_ = text; }
  std::optional<std::string> Setting(std::string_view key) override;
  void SaveSetting(std::string_view key, std::string_view value) override;
  std::string Today() override;
  // Stands at noon of that day but for `Wait`.
  std::int64_t Clock() override { return clock_; }
  // Lets the clock go on.
  void Wait(std::int64_t milliseconds) { clock_ += milliseconds; }
  std::string ProgramFolder() override;

 private:
  struct PendingClick {
    long yield;
    std::string control;
  };
  // How many of the coming yields do nothing.
  long IdleYields() const;

  std::ostream& transcript_;
  TemporaryFolder folder_;
  std::queue<bool> answers_;
  std::queue<std::optional<std::string>> paths_;
  std::queue<std::optional<int>> copies_;
  std::vector<Document> printed_;
  std::vector<PendingClick> clicks_;
  std::string clipboard_;
  std::map<std::string, std::string, std::less<>> settings_;
  long yields_ = 0;
  std::int64_t clock_ = 1'795'262'400'000;  // milliseconds since the beginning of 1970
};

}  // namespace torvale
