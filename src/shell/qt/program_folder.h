#pragma once

#include <QString>

namespace torvale {

// Where the program's data files lie, for an executable in `executable_folder`. A copy that was unpacked or built
// anywhere keeps them beside the executable. An installed program, known by the folder ../share/torvale or by a folder
// that can't be written, has them in `user_folder`, which is filled from the installed files the first time; files that
// are there already stay as they are.
QString FindProgramFolder(const QString& executable_folder, const QString& user_folder);

}  // namespace torvale
