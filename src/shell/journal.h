#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/platform.h"
#include "screen/host.h"
#include "shell/inputs.h"
#include "shell/journal_text.h"

namespace torvale {

// The inputs on disk as they grow, so that a program that dies loses nothing: one file for each running program in the
// folder "journal" of the user's data, held by a lock for as long as the program lives. A journal that nobody holds is
// the last work of a program that has ended.

struct Journal {
  std::string path;
  OutputFile file;  // open while there is a journal
  InputTexts written = InputTexts(kInputPlaces);
  std::size_t size = 0;     // bytes
  bool stored = false;      // its end says that the work is in a file of its own
  bool broken = false;      // a write failed half way; the next one begins another file
  bool unflushed = false;   // something written may not be on the disk yet
  std::int64_t moment = 0;  // of the last write
};

// The folder of the journals.
std::string JournalFolder(Host& host);

// Writes what has changed since the last write, in one piece. A journal that isn't open begins with all that there is,
// unless the work is stored; one that has grown long, or that could not be written, is replaced by a new one. Gives
// back 0 or the number of the error.
int WriteJournal(Host& host, Journal& journal, const InputTexts& now, bool stored);
// Until what was written is on the disk: 0 or the number of the error.
int FlushJournal(Host& host, Journal& journal);
// Closes the journal; it stays as a lost work.
void LeaveJournal(Journal& journal);
// Closes the journal and takes it away.
void RemoveJournal(Journal& journal);

// The works that programs have left behind, the newest first, at most twenty; older ones, and journals of work that is
// stored, are taken away.
std::vector<LostWork> FindLostWork(Host& host);
// One of them is taken away; false where another program holds it.
bool RemoveLostWork(const LostWork& work);

}  // namespace torvale
