// What a file held before each save, in the folder "versions" of the user's data: a folder for each file, with the
// file's path in "path.txt" and each former content under the moment of the save.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// How much is kept. Of a file: the last `of_one_file` saves; of those older than a day the last of each day, of those
// older than a month the last of each week. Where all files together come to more than `bytes`, the oldest go.
struct VersionLimits {
  std::size_t of_one_file = 20;
  std::size_t bytes = std::size_t{200} << 20U;
};

// The name that a file is kept under: its own, wherever it is called from, so that one file has one folder.
std::string TruePath(const std::string& path);

// A save is about to put `bytes` into the file: keeps what the file holds, unless it holds the same. Gives back a
// sentence for the status bar where there is something to say: that the file held a design of another name, or that
// its content could not be kept; else nothing. The save goes on in any case.
SpokenSentence KeepEarlierVersion(Program& program, const std::string& path, std::string_view bytes,
                                  const VersionLimits& limits = {});

// Every version that is kept, file by file, the file that was saved last ahead, the newest version first. What can't be
// read is left out. A version whose file isn't known any more, its "path.txt" being gone or damaged, counts as one of a
// file of the design's name in the user's data folder.
std::vector<EarlierVersion> EarlierVersions(Host& host);

}  // namespace torvale
