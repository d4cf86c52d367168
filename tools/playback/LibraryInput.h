#ifndef ZEMSUB_PLAYBACK_LIBRARYINPUT_H
#define ZEMSUB_PLAYBACK_LIBRARYINPUT_H

#include "LibraryView.h"

#include <memory>

namespace zemsub::tool {

// A path as the library takes it, asked once: the facts its manager looks at,
// the manager that opened it, and so what kind of input it is. What FFmpeg
// makes of the same path is reading/TrackInput.h's.
struct LibraryInput
{
    enum class Kind {
        Unreadable, // the file cannot be read: facts.failure
        Thrown,     // the wide script reader threw its int while the manager opened it: session->failure()
        Index,      // a VobSub index: the manager chooses no reader, the index reader reads it
        Played,     // the manager chose a reader; session->opened() says whether it opened the file
        Refused,    // the manager chose no reader and it is no index: only FFmpeg reads it
    };

    Kind kind = Kind::Unreadable;
    FileFacts facts;
    std::unique_ptr<ManagerSession> session; // null when Unreadable

    // Why the library reads nothing of it: facts.failure or the thrown int's reason; empty otherwise.
    QString failure() const;
    int formatCode() const { return session ? session->formatCode() : int(CodeNone); }
};

LibraryInput askLibrary(const QString& path);

} // namespace zemsub::tool

#endif
