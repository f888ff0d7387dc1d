// The commands of the file menu that choose names, run the file dialogs and keep the list of recent files. A cancelled
// dialog ends a command in silence.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

inline constexpr std::string_view kRecentFile = "RecentTORVALEFileName.Dat";

void mnuFileOpen_Click(Program& program);
void mnuFileSave_Click(Program& program);
void mnuFileSaveAs_Click(Program& program);
void mnuFileList_Click(Program& program, int index);
// The file menu drops down: printing needs results on the screen.
void mnuFile_Click(Program& program);
// Lets the user print, preview and export, or not.
void EnablePrinting(MainScreen& main, bool enabled);

// Opens the named design as Open does, without a dialog.
void OpenNamedFile(Program& program, std::string_view path);

// The list of recent files, out of its file in the program's folder, which every command that opens or saves keeps. The
// status bar says when it can't be written, or is there and can't be read; nothing else that fails is told.
void OpenRecentFiles(Program& program);

}  // namespace torvale
