#ifndef ZEMSUB_TOOL_LIBRARYCHECKS_H
#define ZEMSUB_TOOL_LIBRARYCHECKS_H

#include "playback/LibraryInput.h"
#include "playback/LibraryView.h"

#include <QString>

namespace zemsub::tool {

// The library's answers as the commands take them: what keeps a file from
// being read or shown ends the command with exit 1, naming the file.
LibraryInput libraryInputOrExit(const QString& path);
StoredTimeline timelineOrExit(const QString& path, int formatCode);
IndexView indexOrExit(const QString& path);
// Exit 1 with the reason when the library does not show the file.
void requireShown(const FileFacts& facts, const ManagerSession& session);

} // namespace zemsub::tool

#endif
