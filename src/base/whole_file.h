// Files that are replaced whole: at every moment, whatever fails and whenever the power goes, the former content or the
// new one stands under the name.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string_view>

namespace torvale {

enum class DiskStep { kMakeFolder, kCreate, kTakeRights, kWrite, kFlush, kRename, kFlushFolder, kRemove };

// Is told of each step before it is taken and gives back 0 to let it be taken, or the number of the error that it shall
// fail with. So a test has a disk that fails, or a program that dies, wherever it likes.
using DiskWatch = std::function<int(DiskStep step, const std::filesystem::path& path)>;

struct WholeFileResult {
  int error = 0;               // as errno has it, 0 for none
  std::filesystem::path kept;  // where the former content is, if the file itself is broken
};

// Writes `bytes` into a file of that name. The new content is written beside it, flushed to the disk and put in its
// place. Mode, owner and group of a file that is there stay, and a link goes on leading to the file. EACCES for a file
// that the user may not write, EISDIR for a folder, EOPNOTSUPP for what is no file, at once. After an error the former
// content stands as it was and nothing new beside it.
//
// A file that has further names, one whose owner can't be given to another, and one whose folder takes no new file is
// written in place: its former content is kept in `kept_folder` meanwhile, which is made where it is missing, and comes
// back from there where writing fails.
WholeFileResult WriteWhole(const std::filesystem::path& path, std::string_view bytes,
                           const std::filesystem::path& kept_folder, const DiskWatch& watch = {});

// Takes away what programs have left beside the file, or beside the one that it leads to, that ended in the middle of a
// write: files with a name as WriteWhole gives it, of no program that runs on this machine, and untouched for a day,
// since another machine may write to the same folder. What can't be taken away stays. Every write does so when it is
// done.
void RemoveLeftovers(const std::filesystem::path& file, const DiskWatch& watch = {});
// The same in a folder, where such files have been untouched for that long: zero for a folder that no other machine
// writes to.
void RemoveLeftoversIn(const std::filesystem::path& folder, std::chrono::hours untouched, const DiskWatch& watch = {});

}  // namespace torvale
