#ifndef ZEMSUB_TOOL_LINTCAUSES_H
#define ZEMSUB_TOOL_LINTCAUSES_H

#include "LintProbe.h"
#include "playback/Causes.h"
#include "reading/WrittenFile.h"
#include "playback/LibraryView.h"

#include <QString>
#include <vector>

namespace zemsub::tool {

// What lint knows of the library's side of the file.
struct LibrarySide
{
    int formatCode = CodeNone;
    bool opened = false;
    bool wide = false;
    std::vector<StoredEntry> stored; // the map right after Open
    QString locale;                  // the character-type locale the wide readers decode under
};

// What the words of a cause name, from lint's view of the file and the library.
CauseContext causeContext(const WrittenFile& file, const LibrarySide& library);

// The behaviours behind a block that does not show as written. Never empty:
// Unexplained when nothing known applies.
std::vector<CauseId> explainBlock(const WrittenFile& file, int blockIndex, const LibrarySide& library,
                                  const std::vector<Probe>& probes);

} // namespace zemsub::tool

#endif
