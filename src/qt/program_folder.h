#pragma once

#include <QString>

namespace torvale {

// Where the program's data files lie, for an executable in `executable_folder`. A copy that was unpacked or built
// anywhere keeps them beside the executable. An installed program, known by the folder ../share/torvale or by a folder
// that can't be written, has them in `user_folder`. What the program writes there, the defaults and the soils, is
// copied from the installed files the first time and then is the user's own. All else that is installed, as the help
// file and its pictures, stands there as a link to the installed file, made anew where the program was moved, so that
// an upgrade shows at once. Where `user_folder` can't be made, the installed files serve as they are.
QString FindProgramFolder(const QString& executable_folder, const QString& user_folder);

}  // namespace torvale
