// What an operating system must do itself. Each system has a file of its own behind this header: platform_posix.cpp,
// platform_windows.cpp. What can fail gives back 0 or the number of the error, as errno has it. Paths follow links
// where nothing else is said.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace torvale {

// What stands at a path.
struct FileFacts {
  bool is_there = false;
  bool is_regular = false;  // a file with content, no folder, pipe or device
  bool is_folder = false;
  bool is_writable = false;  // the user may write it, and it isn't marked as one that only is read
  std::uint64_t links = 0;   // names that lead to it
  std::uint32_t mode = 0;    // permissions, owner and group, where the system has them
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
};

// Paths from their root on. Folders of other machines are named as the system names them, as in \\machine\folder, which
// std::filesystem takes for a folder of the current disk in GCC's library for Windows.
bool IsWholePath(const std::filesystem::path& path);
// The path as it is where it can't be told.
std::filesystem::path WholePath(const std::filesystem::path& path);
// Without ".", ".." and doubled separators, for a user to read.
std::filesystem::path ReadablePath(const std::filesystem::path& path);
// With all links followed, as far as something stands there: one path for one file.
std::filesystem::path ResolvedPath(const std::filesystem::path& path);

// A path at which nothing stands is no error.
int LookAt(const std::filesystem::path& path, FileFacts& facts);

// A file to be read, its bytes as they are. Null, and the error in errno, where it can't be opened.
std::FILE* OpenToRead(const std::filesystem::path& path);

// A file that is open for writing. It closes at its end; only `Close` tells of what could not be written by then.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile() { Close(); }
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // A file that isn't there yet; EEXIST where it is. With the rights of a new file of the user's, or for the user
  // alone.
  int Create(const std::filesystem::path& path, bool for_user_alone);
  // A file that is there, its content as it stands, the next write at its beginning.
  int OpenAsItIs(const std::filesystem::path& path);

  // Gives the file the mode, owner and group of another.
  int TakeRights(const FileFacts& other) const;
  // Holds the file for this program alone, until it is closed or the program ends: EWOULDBLOCK (or EACCES at opening)
  // where another one does.
  int Hold() const;
  // All of the bytes.
  int Write(std::string_view bytes) const;
  // Cuts off what stands behind the last write.
  int EndHere() const;
  // Until what was written is on the disk.
  int Flush() const;
  int Close();
  bool IsOpen() const { return handle_ != kNone; }

 private:
  static constexpr std::intptr_t kNone = -1;
  std::intptr_t handle_ = kNone;
};

// Gives a file another name in the same folder, in one step, in the place of a file of that name.
int RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

// Until a folder's names are on the disk, where the system can tell.
int FlushFolder(const std::filesystem::path& folder);

// Whether somebody sits before what the program writes to its standard error.
bool ErrorsGoToTerminal();

// A number that no other running program of this machine has.
std::uint64_t ProcessNumber();
// Whether a program of that number runs on this machine.
bool ProcessRuns(std::uint64_t number);

// The folder for what the program keeps for its user and the user doesn't look for: recovery, former contents of
// files. It may not be there yet. Empty where the user has no folder at all.
std::filesystem::path UserDataFolder();

// What stands behind the program's name on its command line, as UTF-8.
std::vector<std::string> ArgumentsOf(int argc, char** argv);

// Lets the standard streams carry bytes as they are, where a system would change line ends.
void KeepStandardStreamsAsBytes();

}  // namespace torvale
