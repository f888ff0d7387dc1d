#include "base/whole_file.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "base/paths.h"
#include "base/platform.h"
#include "base/utf8.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{32} << 10U;
constexpr std::size_t kLongestTail = 200;  // bytes of a kept file's name
constexpr int kMostLinks = 40;
constexpr std::chrono::hours kOldEnough{24};

// Errors by which a folder or a system says that a file can't be replaced there, though it might be written.
constexpr std::array<int, 6> kNotBeside = {EACCES, EPERM, EROFS, EBUSY, EXDEV, ENAMETOOLONG};

bool IsNotBeside(int error) {
  return std::find(kNotBeside.begin(), kNotBeside.end(), error) != kNotBeside.end();
}

// The steps of one file's writing, each after a word with the watch.
class Disk {
 public:
  explicit Disk(const DiskWatch& watch) : watch_(watch) {}

  template <typename Work>
  int Take(DiskStep step, const fs::path& path, const Work& work) const {
    const int error = watch_ ? watch_(step, path) : 0;
    return error != 0 ? error : work();
  }

  int Write(OutputFile& file, const fs::path& path, std::string_view bytes) const {
    for (std::size_t at = 0; at < bytes.size(); at += kBlock) {
      const int error = Take(DiskStep::kWrite, path, [&] { return file.Write(bytes.substr(at, kBlock)); });
      if (error != 0) return error;
    }
    return 0;
  }

  // The rest of what stands at `from`.
  int Copy(OutputFile& file, const fs::path& path, const fs::path& from) const {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> source(OpenToRead(from), &std::fclose);
    if (!source) return EIO;
    std::string block(kBlock, '\0');
    for (;;) {
      const std::size_t count = std::fread(block.data(), 1, block.size(), source.get());
      if (std::ferror(source.get()) != 0) return EIO;
      if (count == 0) return 0;
      const int error = Write(file, path, std::string_view(block).substr(0, count));
      if (error != 0) return error;
    }
  }

  // Until all is on the disk and the file is closed.
  int Finish(OutputFile& file, const fs::path& path) const {
    const int error = Take(DiskStep::kFlush, path, [&] { return file.Flush(); });
    const int closed = file.Close();
    return error != 0 ? error : closed;
  }

  int Remove(const fs::path& path) const {
    return Take(DiskStep::kRemove, path, [&] {
      std::error_code error;
      fs::remove(path, error);
      return NumberOf(error);
    });
  }

  int MakeFolder(const fs::path& path) const {
    FileFacts facts;
    if (LookAt(path, facts) == 0 && facts.is_folder) return 0;
    return Take(DiskStep::kMakeFolder, path, [&] {
      std::error_code error;
      fs::create_directories(path, error);
      if (!error) fs::permissions(path, fs::perms::owner_all, error);
      return NumberOf(error);
    });
  }

 private:
  const DiskWatch& watch_;
};

// A number that no other file of this program, and of another that runs, has in its name.
std::string OwnNumber() {
  static std::atomic<unsigned> count = 0;
  return std::to_string(ProcessNumber()) + "-" + std::to_string(++count);
}

constexpr std::string_view kBeside = ".torvale-";

// Short, so that it finds room wherever the file's own name does.
fs::path NameBeside(const fs::path& target) {
  return target.parent_path() / (std::string(kBeside) + OwnNumber());
}

// The number of the program that gave a file such a name; nothing for any other name.
std::optional<std::uint64_t> WriterOf(std::string_view name) {
  if (!name.starts_with(kBeside)) return std::nullopt;
  name.remove_prefix(kBeside.size());
  std::uint64_t writer = 0;
  std::uint64_t count = 0;
  const char* const end = name.data() + name.size();
  const auto dash = std::from_chars(name.data(), end, writer);
  if (dash.ec != std::errc() || dash.ptr == end || *dash.ptr != '-') return std::nullopt;
  const auto rest = std::from_chars(dash.ptr + 1, end, count);
  if (rest.ec != std::errc() || rest.ptr != end) return std::nullopt;
  return writer;
}

bool IsLeftover(const fs::directory_entry& entry, std::chrono::hours untouched) {
  const auto writer = WriterOf(Utf8Of(entry.path().filename()));
  if (!writer || ProcessRuns(*writer)) return false;
  std::error_code error;
  if (!fs::is_regular_file(entry.symlink_status(error))) return false;
  const fs::file_time_type touched = entry.last_write_time(error);
  return !error && fs::file_time_type::clock::now() - touched >= untouched;
}

// The file that a path leads to, also where it isn't there yet.
int FollowLinks(fs::path& path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks; ++i) {
    if (!fs::is_symlink(fs::symlink_status(path, error))) return 0;
    const fs::path next = fs::read_symlink(path, error);
    if (error) return NumberOf(error);
    path = path.parent_path() / next;
  }
  return ELOOP;
}

// A new file under a name that is free: an earlier program of the same number may have left one.
int CreateFree(const Disk& disk, OutputFile& file, fs::path& path, bool for_user_alone,
               fs::path (*name)(const fs::path&), const fs::path& target) {
  constexpr int kMostTries = 100;
  int error = EEXIST;
  for (int i = 0; i < kMostTries && error == EEXIST; ++i) {
    path = name(target);
    error = disk.Take(DiskStep::kCreate, path, [&] { return file.Create(path, for_user_alone); });
  }
  return error;
}

int FillBeside(const Disk& disk, OutputFile& file, const fs::path& beside, std::string_view bytes,
               const FileFacts& former) {
  if (former.is_there) {
    const int error = disk.Take(DiskStep::kTakeRights, beside, [&] { return file.TakeRights(former); });
    if (error != 0) return error;
  }
  const int error = disk.Write(file, beside, bytes);
  return error != 0 ? error : disk.Finish(file, beside);
}

int WriteBeside(const Disk& disk, const fs::path& target, std::string_view bytes, const FileFacts& former) {
  OutputFile file;
  fs::path beside;
  int error = CreateFree(disk, file, beside, former.is_there, NameBeside, target);
  if (error != 0) return error;
  error = FillBeside(disk, file, beside, bytes, former);
  if (error == 0) error = disk.Take(DiskStep::kRename, target, [&] { return RenameOver(beside, target); });
  if (error != 0) {
    file.Close();
    disk.Remove(beside);
    return error;
  }
  // The file is whole under its name, be it the former one that a failure of the power brings back.
  disk.Take(DiskStep::kFlushFolder, target, [&] { return FlushFolder(target.parent_path()); });
  return 0;
}

// The tail of a name tells the most: number and extension stand there.
std::string TailOf(const std::string& name) {
  std::size_t at = name.size() > kLongestTail ? name.size() - kLongestTail : 0;
  while (at < name.size() && ContinuesCharacter(name[at])) ++at;
  return name.substr(at);
}

// Copies the target's content to a new file in `kept_folder`, whose name it gives back.
int Keep(const Disk& disk, const fs::path& target, const fs::path& kept_folder, fs::path& kept) {
  int error = disk.MakeFolder(kept_folder);
  if (error != 0) return error;
  OutputFile file;
  const auto name = [](const fs::path& wanted) {
    return wanted.parent_path() / PathOf(OwnNumber() + "-" + TailOf(Utf8Of(wanted.filename())));
  };
  error = CreateFree(disk, file, kept, true, name, kept_folder / target.filename());
  if (error != 0) return error;
  error = disk.Copy(file, kept, target);
  if (error == 0) error = disk.Finish(file, kept);
  if (error == 0) error = disk.Take(DiskStep::kFlushFolder, kept, [&] { return FlushFolder(kept_folder); });
  if (error == 0) return 0;
  file.Close();
  disk.Remove(kept);
  return error;
}

// Fills the file that is there, from its beginning to a new end.
template <typename Content>
int Refill(const Disk& disk, const fs::path& target, const Content& content) {
  OutputFile file;
  int error = file.OpenAsItIs(target);
  if (error == 0) error = content(file);
  if (error == 0) error = disk.Take(DiskStep::kWrite, target, [&] { return file.EndHere(); });
  return error != 0 ? error : disk.Finish(file, target);
}

WholeFileResult WriteInPlace(const Disk& disk, const fs::path& target, std::string_view bytes,
                             const fs::path& kept_folder) {
  fs::path kept;
  const int not_kept = Keep(disk, target, kept_folder, kept);
  if (not_kept != 0) return {not_kept, {}};
  const int error = Refill(disk, target, [&](OutputFile& file) { return disk.Write(file, target, bytes); });
  if (error != 0) {
    const int broken = Refill(disk, target, [&](OutputFile& file) { return disk.Copy(file, target, kept); });
    if (broken != 0) return {error, kept};
  }
  disk.Remove(kept);
  return {error, {}};
}

int WhyNot(const FileFacts& facts) {
  if (!facts.is_there) return 0;
  if (facts.is_folder) return EISDIR;
  if (!facts.is_regular) return EOPNOTSUPP;
  return facts.is_writable ? 0 : EACCES;
}

}  // namespace

WholeFileResult WriteWhole(const fs::path& path, std::string_view bytes, const fs::path& kept_folder,
                           const DiskWatch& watch) {
  const Disk disk(watch);
  fs::path target = path;
  FileFacts former;
  int error = FollowLinks(target);
  if (error == 0) error = LookAt(target, former);
  if (error == 0) error = WhyNot(former);
  if (error != 0) return {error, {}};
  bool in_place = former.links > 1;
  if (!in_place) {
    error = WriteBeside(disk, target, bytes, former);
    in_place = error != 0 && former.is_there && IsNotBeside(error);
  }
  WholeFileResult result{error, {}};
  if (in_place) result = WriteInPlace(disk, target, bytes, kept_folder);
  if (result.error == 0) RemoveLeftovers(target, watch);
  return result;
}

void RemoveLeftovers(const fs::path& file, const DiskWatch& watch) {
  fs::path target = file;
  if (FollowLinks(target) != 0) return;
  RemoveLeftoversIn(target.has_parent_path() ? target.parent_path() : ".", kOldEnough, watch);
}

void RemoveLeftoversIn(const fs::path& folder, std::chrono::hours untouched, const DiskWatch& watch) {
  std::vector<fs::path> leftovers;
  std::error_code end;
  for (fs::directory_iterator entry(folder, end); !end && entry != fs::directory_iterator(); entry.increment(end)) {
    if (IsLeftover(*entry, untouched)) leftovers.push_back(entry->path());
  }
  const Disk disk(watch);
  for (const fs::path& leftover : leftovers) disk.Remove(leftover);
}

}  // namespace torvale
