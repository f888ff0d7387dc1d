// A desktop on which nothing happens, for tests and benchmarks that want none: no dialog gives anything, no printer is
// there, nothing is remembered. What it does all the same at a yield, at a message or for an answer is given to it.
#pragma once

#include <cerrno>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "screen/host.h"

namespace torvale {

class SilentHost final : public Host {
 public:
  std::function<long(long due)> on_yield;  // see Host::Yield; without it no coming yield does anything
  std::function<void(std::string_view body, std::string_view title)> on_message;
  std::function<bool()> on_question;  // without it every answer is No
  int messages = 0;                   // shown so far
  std::string folder;                 // of the program

  long Yield(long due) override { return on_yield ? on_yield(due) : 1'000'000; }
  void Message(std::string_view body, std::string_view title) override {
    ++messages;
    if (on_message) on_message(body, title);
  }
  bool Question(std::string_view /*body*/, std::string_view /*title*/) override { return on_question && on_question(); }
  void Beep() override {}
  std::optional<std::string> OpenDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  std::optional<std::string> SaveDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  bool HasPrinter() override { return false; }
  std::optional<int> PrinterDialog() override { return std::nullopt; }
  bool Print(const Document& /*document*/) override { return false; }
  void Preview(const Document& /*document*/) override {}
  WholeFileResult WritePdf(const Document& /*document*/, const std::string& /*path*/) override { return {EIO, {}}; }
  std::string ClipboardText() override { return ""; }
  void SetClipboardText(std::string_view /*text*/) override {}
  std::optional<std::string> Setting(std::string_view /*key*/) override { return std::nullopt; }
  void SaveSetting(std::string_view /*key*/, std::string_view /*value*/) override {}
  std::string Today() override { return "1/1/2030"; }
  std::string ProgramFolder() override { return folder; }
  std::string UserDataFolder() override { return ""; }
};

}  // namespace torvale
