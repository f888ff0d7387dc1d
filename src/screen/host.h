// What the program asks of the desktop that it runs on.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/whole_file.h"
#include "screen/document.h"

namespace torvale {

// What a file dialog starts with.
struct FileDialog {
  std::string title;
  std::string filters;  // pairs of a caption and a pattern, all separated by "|"; empty for none
  int filter = 1;       // the one selected at first, from 1
  std::string name;     // preset file name
  // Saving: the file that will be written for a name that is chosen, which is the one to ask about where it is there.
  // Without it, the one chosen.
  std::function<std::string(const std::string& chosen)> written = {};
  std::string folder = {};  // to begin in; empty for that of the last dialog
};

// The services of a windowing desktop that the program needs. The windows implement them with a toolkit, the script
// runner without one.
class Host {
 public:
  virtual ~Host() = default;

  // The event yield: see EngineHost::Yield.
  virtual long Yield(long due) = 0;

  // Shows a message with an OK button and waits for it. An empty title stands for the program's name.
  virtual void Message(std::string_view body, std::string_view title) = 0;
  // Asks with Yes and No; true for Yes. An empty title stands for the program's name.
  virtual bool Question(std::string_view body, std::string_view title) = 0;
  virtual void Beep() = 0;

  // The path that the user chose, UTF-8; nothing where the dialog was cancelled. Saving over a file asks first.
  virtual std::optional<std::string> OpenDialog(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> SaveDialog(const FileDialog& dialog) = 0;

  // Whether there is a printer to ask for or to print on.
  virtual bool HasPrinter() = 0;
  // The desktop's printer dialog: the number of copies; nothing where it was cancelled. The printer chosen is kept.
  virtual std::optional<int> PrinterDialog() = 0;
  // Prints one copy on the printer chosen last, at first the desktop's own. False where the printer refused.
  virtual bool Print(const Document& document) = 0;
  // Shows the document as it will come out of the printer and waits until the user has looked at it.
  virtual void Preview(const Document& document) = 0;
  // Writes the document to a file, whole (WriteWhole). EIO where it could not be drawn.
  virtual WholeFileResult WritePdf(const Document& document, const std::string& path) = 0;

  // One copy of the picture of the window `CrownProfile`, in landscape on the printer chosen last, or written to a
  // file: a document where the path ends in ".pdf", else a PNG picture. False where the printer refused, EIO where
  // nothing could be drawn, as on a desktop without windows.
  virtual bool PrintProfile() { return false; }
  virtual WholeFileResult WriteProfile(const std::string& path);

  // Writes the first page of the document to a file as a PNG picture, as wide as the sheet and as long as what stands
  // on it. EIO on a desktop that draws nothing.
  virtual WholeFileResult WritePicture(const Document& document, const std::string& path);

  // The desktop's clipboard as text, UTF-8, with line ends as the desktop has them; empty where it holds no text.
  virtual std::string ClipboardText() = 0;
  // Puts text on the clipboard in the place of what is there; an empty text empties it.
  virtual void SetClipboardText(std::string_view text) = 0;

  // Per-user settings by key; nothing where the key was never saved.
  virtual std::optional<std::string> Setting(std::string_view key) = 0;
  virtual void SaveSetting(std::string_view key, std::string_view value) = 0;

  // Today's date as the user's desktop writes it in short.
  virtual std::string Today() = 0;
  // The time: milliseconds since the beginning of 1970.
  virtual std::int64_t Clock();
  // A moment of that clock as the user's desktop writes date and time in short.
  virtual std::string TimeText(std::int64_t moment);
  // The folder of the program's data files (defaults, soils, help), without a separator at its end.
  virtual std::string ProgramFolder() = 0;
  // The folder for what the program keeps for its user unasked, as former contents of files, without a separator at its
  // end; it may not be there yet. A desktop that knows no user keeps it beside the data files. Empty where nothing is
  // to be kept.
  virtual std::string UserDataFolder() { return ProgramFolder() + "/user"; }

  // The word with the disk before each step of writing a file: see DiskWatch.
  virtual int BeforeDiskStep(DiskStep /*step*/, const std::filesystem::path& /*path*/) { return 0; }
};

}  // namespace torvale
