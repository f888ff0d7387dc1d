// What makes a run that was broken off go on where it stood.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <unordered_map>

#include "batch/field_work.h"

namespace torvale {

// What a run has finished so far, kept in a file as it goes: one that is made again, too, does only what is missing or
// changed. Entries stay on the disk; only their places are kept in memory. An entry that was cut off is as if it had
// never been begun. A newer entry of a field takes the place of the one before it, which goes from the file when it is
// compacted.
class Journal {
 public:
  // Opens or begins the file. Throws TextFileFault.
  explicit Journal(const std::filesystem::path& path);

  // What an earlier run found for the field of this number under the same key. Nothing where there is no such entry,
  // where time ran out then, or where a file that was written isn't there any more as it was.
  std::optional<FieldOutcome> Find(int number, std::uint64_t key, const std::filesystem::path& out_folder);
  // The newest entry of a field, whatever its key.
  std::optional<FieldOutcome> Last(int number);

  // Adds what came of a field. Throws TextFileFault.
  void Add(int number, std::uint64_t key, const FieldOutcome& outcome);

  // Writes the file anew with the newest entry of each field alone, where it has others. Where that fails the file
  // stays as it is. Throws TextFileFault where it can't be opened again.
  void Compact();

 private:
  struct Entry {
    std::uint64_t key = 0;
    std::streamoff at = 0;
    std::streamoff bytes = 0;
  };
  void Open();
  void Take(int number, const Entry& entry);
  bool WriteNewest(std::ostream& out) const;
  std::optional<FieldOutcome> ReadAt(std::streamoff at);

  std::filesystem::path path_;
  std::fstream file_;
  std::unordered_map<int, Entry> entries_;
  std::streamoff end_ = 0;     // of the last whole entry
  std::streamoff newest_ = 0;  // bytes of the newest entries
};

}  // namespace torvale
