// The window of the earlier versions as plain data.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "screen/control_facts.h"
#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// What a file held before a save.
struct EarlierVersion {
  std::string stored;       // path of its content
  std::string file;         // path of the file that held it
  std::int64_t moment = 0;  // of the save, as Host::Clock tells time
  std::string name;         // of the design
  std::string type;
  std::string uniformity;  // percent
};

// The list of earlier versions in a window of its own.
struct EarlierVersionsScreen {
  EarlierVersionsScreen();
  static std::span<const ControlRow<EarlierVersionsScreen>> Rows();

  Control frmEarlierVersions;  // the window itself: its caption is the title
  Grid Grd_EarlierVersions;    // a row for each version
  Control lblVersionFile;      // the whole path of the file that the current row speaks of
  Control btnOpenVersion, btnCloseVersions;
  std::vector<EarlierVersion> versions;  // in the order of the rows
};

}  // namespace torvale
