#include "LibraryChecks.h"

#include "CommandLine.h"

namespace zemsub::tool {

LibraryInput libraryInputOrExit(const QString& path)
{
    LibraryInput input = askLibrary(path);
    if (input.kind == LibraryInput::Kind::Unreadable)
        fileError(path.isEmpty() ? QStringLiteral("\"\"") : path, input.failure());
    if (input.kind == LibraryInput::Kind::Thrown)
        fileError(path, input.failure());
    return input;
}

StoredTimeline timelineOrExit(const QString& path, int formatCode)
{
    StoredTimeline timeline = readStoredTimeline(path, formatCode);
    if (!timeline.failure.isEmpty())
        fileError(path, timeline.failure);
    return timeline;
}

IndexView indexOrExit(const QString& path)
{
    IndexView index = readIndex(path);
    if (!index.failure.isEmpty())
        fileError(path, index.failure);
    return index;
}

void requireShown(const FileFacts& facts, const ManagerSession& session)
{
    const QString reason = notShownReason(facts, session);
    if (!reason.isEmpty())
        fileError(facts.path, reason);
}

} // namespace zemsub::tool
