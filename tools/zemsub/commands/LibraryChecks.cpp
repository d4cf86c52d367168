#include "LibraryChecks.h"

#include "CommandLine.h"

namespace zemsub::tool {

FileFacts inspectOrExit(const QString& path)
{
    FileFacts facts = inspectFile(path);
    if (!facts.failure.isEmpty())
        fileError(path.isEmpty() ? QStringLiteral("\"\"") : path, facts.failure);
    return facts;
}

ManagerSession sessionOrExit(const QString& path)
{
    ManagerSession session(path);
    if (!session.failure().isEmpty())
        fileError(path, session.failure());
    return session;
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
