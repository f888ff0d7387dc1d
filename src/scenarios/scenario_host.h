// The desktop of a program that nobody sits at.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "screen/host.h"

namespace torvale {

// Until when a calculation may go on: until it is asked to stop, or for so long. By default for ever.
struct Until {
  std::stop_token stop;
  std::optional<std::chrono::steady_clock::time_point> deadline;

  bool Over() const;
};

// What a message or a question said; nobody was there to answer.
struct Told {
  std::string title;  // empty for the program's name
  std::string body;
  bool question = false;
  bool operator==(const Told&) const = default;
};

// A desktop with nobody at it: it answers No, prints nothing, remembers nothing from one start to the next, and keeps
// the words it was told. Nothing of it is shared, so that each thread may have one of its own.
class ScenarioHost final : public Host {
 public:
  // The defaults file and the list of soils are those of `data_folder`; without one the program starts with its own
  // defaults and no soils.
  explicit ScenarioHost(std::string data_folder = "") : folder_(std::move(data_folder)) {}

  // From here on the program finds no folder of its own: it reads and writes none of its files.
  void LeaveFolder() { folder_.clear(); }

  std::vector<Told> told;  // since it was emptied last
  std::string date;        // today, as the program shows it

  Until until;
  std::function<void()> cancel;  // what the user's Cancel does; run at a yield once the time is over
  bool cancelled = false;        // whether it was run

  // What the next dialog for a file to save gives; nothing for a cancel. Each is taken once.
  std::optional<std::string> save_as;
  // Takes the documents that are written to a file. False where it could not.
  std::function<bool(const Document& document, const std::string& path)> write_pdf;

  long Yield(long due) override;
  void Message(std::string_view body, std::string_view title) override;
  bool Question(std::string_view body, std::string_view title) override;
  void Beep() override {}
  std::optional<std::string> OpenDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  std::optional<std::string> SaveDialog(const FileDialog& dialog) override;
  bool HasPrinter() override { return false; }
  std::optional<int> PrinterDialog() override { return std::nullopt; }
  bool Print(const Document& /*document*/) override { return false; }
  void Preview(const Document& /*document*/) override {}
  WholeFileResult WritePdf(const Document& document, const std::string& path) override;
  std::string ClipboardText() override { return ""; }
  void SetClipboardText(std::string_view /*text*/) override {}
  std::optional<std::string> Setting(std::string_view /*key*/) override { return std::nullopt; }
  void SaveSetting(std::string_view /*key*/, std::string_view /*value*/) override {}
  std::string Today() override { return date; }
  std::string ProgramFolder() override;
  std::string UserDataFolder() override { return ""; }

 private:
  std::string folder_;
};

}  // namespace torvale
