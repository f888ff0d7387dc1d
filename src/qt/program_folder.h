#pragma once

#include <QString>

namespace torvale {

// Where the program's data files lie, for an executable in `executable_folder`, which the user may write or not. A copy
// that was unpacked or built anywhere keeps them beside the executable. An installed program, known by the folder
// ../share/torvale or by a folder that can't be written, has them in `user_folder`. What the user may change there, the
// defaults, the soils and the safe heads, is copied from the installed files the first time and then is the user's own.
// All else that is installed, as the help file and its pictures, stands there as a link to the installed file, made
// anew where the program was moved, so that an upgrade shows at once, or as a copy where the system has no links. Where
// `user_folder` can't be made, the installed files serve as they are.
QString FindProgramFolder(const QString& executable_folder, bool may_write_there, const QString& user_folder);

// Makes `copy` a copy, which can only be read, of an installed file or of all files of a folder, anew where it differs.
// A file there that can be written is the user's own and stays.
void FollowByCopies(const QString& installed, const QString& copy);

}  // namespace torvale
