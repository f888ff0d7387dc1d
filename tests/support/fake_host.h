// A desktop for tests: it shows nothing, keeps what it was told and gives prepared answers.
#pragma once

#include <gtest/gtest.h>

#include <cerrno>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/host.h"
#include "support/own_folder.h"

namespace torvale {

// A message box or question as it was shown.
struct Shown {
  std::string body;
  std::string title;
  bool operator==(const Shown&) const = default;
};

inline void PrintTo(const Shown& shown, std::ostream* out) {
  *out << '"' << shown.title << "\" \"" << shown.body << '"';
}

class FakeHost final : public Host {
 public:
  FakeHost() { WriteFile("SoilsName.txt", ""); }

  std::vector<Shown> messages;
  std::vector<Shown> questions;
  std::deque<bool> answers;  // to the coming questions; a question without one fails the test and gets a No
  int beeps = 0;
  std::map<std::string, std::string, std::less<>> settings;
  long yields = 0;              // made so far
  long event_at = 0;            // the yield at which `event` runs, once
  std::function<void()> event;  // what the user does during a calculation

  long Yield(long due) override {
    yields += due;
    if (!event) return kNoEventAhead;
    if (yields < event_at) return event_at - yields - 1;
    const std::function<void()> now = std::move(event);
    event = nullptr;
    now();
    return event ? event_at - yields - 1 : kNoEventAhead;
  }
  void Message(std::string_view body, std::string_view title) override {
    messages.push_back({std::string(body), std::string(title)});
  }
  bool Question(std::string_view body, std::string_view title) override {
    questions.push_back({std::string(body), std::string(title)});
    if (answers.empty()) {
      ADD_FAILURE() << "no answer was prepared for: " << body;
      return false;
    }
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void Beep() override { ++beeps; }
  std::vector<FileDialog> dialogs;               // as they were shown
  std::deque<std::optional<std::string>> paths;  // what the coming dialogs give; a dialog without one is cancelled
  std::optional<std::string> OpenDialog(const FileDialog& dialog) override {
    dialogs.push_back(dialog);
    if (paths.empty()) return std::nullopt;
    const std::optional<std::string> path = paths.front();
    paths.pop_front();
    return path;
  }
  std::optional<std::string> SaveDialog(const FileDialog& dialog) override { return OpenDialog(dialog); }
  bool has_printer = true;
  bool printer_works = true;             // the printer takes documents, the disk takes files
  std::optional<int> copies = 1;         // what the printer dialog gives; nothing for a cancel
  int printer_dialogs = 0;               // shown so far
  std::vector<Document> printed;         // copy by copy
  std::vector<Document> previewed;       // in the order shown
  std::map<std::string, Document> pdfs;  // by path
  std::function<WholeFileResult(const std::string& path)> write_file;  // what writing a report to a file comes to
  bool HasPrinter() override { return has_printer; }
  std::optional<int> PrinterDialog() override {
    ++printer_dialogs;
    return copies;
  }
  bool Print(const Document& document) override {
    if (printer_works) printed.push_back(document);
    return printer_works;
  }
  void Preview(const Document& document) override { previewed.push_back(document); }
  std::function<bool()> print_profile;                         // false for a refusal
  std::function<bool(const std::string& path)> write_profile;  // the same
  bool PrintProfile() override { return print_profile && print_profile(); }
  WholeFileResult refused_file{EIO, {}};  // what comes of a file that the disk does not take
  WholeFileResult WriteProfile(const std::string& path) override {
    return write_profile && write_profile(path) ? WholeFileResult{} : refused_file;
  }
  WholeFileResult WritePdf(const Document& document, const std::string& path) override {
    if (!printer_works) return refused_file;
    if (write_file) return write_file(path);
    pdfs[path] = document;
    return {};
  }
  std::map<std::string, Document> pictures;  // by path
  WholeFileResult WritePicture(const Document& document, const std::string& path) override {
    if (!printer_works) return refused_file;
    if (write_file) return write_file(path);
    pictures[path] = document;
    return {};
  }
  std::string clipboard;
  std::string ClipboardText() override { return clipboard; }
  void SetClipboardText(std::string_view text) override { clipboard = text; }
  std::optional<std::string> Setting(std::string_view key) override {
    const auto found = settings.find(key);
    return found == settings.end() ? std::nullopt : std::optional<std::string>(found->second);
  }
  void SaveSetting(std::string_view key, std::string_view value) override {
    settings.insert_or_assign(std::string(key), std::string(value));
  }
  std::string Today() override { return "11/21/2026"; }
  // A folder of this host's own, removed with it. It holds a list of no soils.
  std::string ProgramFolder() override { return folder_.path().string(); }

  // The user's data lie beside the program's, or in a folder that two programs share.
  std::string user_folder;
  std::string UserDataFolder() override { return user_folder.empty() ? Host::UserDataFolder() : user_folder; }
  std::int64_t now = 1'795'262'400'000;  // what the clock shows: noon of that day
  std::int64_t Clock() override { return now; }

  DiskWatch disk;  // asked before each step of writing a file, where it is set
  int BeforeDiskStep(DiskStep step, const std::filesystem::path& path) override { return disk ? disk(step, path) : 0; }

  // Writes a file, byte for byte, into the program's folder.
  void WriteFile(std::string_view name, std::string_view bytes) const {
    std::ofstream(folder_.path() / name, std::ios::binary) << bytes;
  }

 private:
  static constexpr long kNoEventAhead = 1'000'000;

  OwnFolder folder_;
};

}  // namespace torvale
