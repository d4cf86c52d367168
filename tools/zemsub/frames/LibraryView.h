#ifndef ZEMSUB_TOOL_LIBRARYVIEW_H
#define ZEMSUB_TOOL_LIBRARYVIEW_H

#include "manager/detail/FormatCodes.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

class xcSubtitleManager;

namespace zemsub::tool {

// The subtitle manager's format codes, under the tool's names.
enum FormatCode {
    CodeNone = zemsub::detail::kFormatNone,
    CodeSubRip = zemsub::detail::kFormatSrt,
    CodeScript = zemsub::detail::kFormatAss,
    CodeSubRipWide = zemsub::detail::kFormatSrtWide,
    CodeScriptWide = zemsub::detail::kFormatAssWide,
};

// What the manager looks at: the first two bytes and the text after the last ".".
struct FileFacts
{
    QString path;
    long long size = 0;
    QByteArray head;   // the first bytes, at most four
    bool mark = false; // begins with FF FE
    bool hasDot = false;
    QString extension; // after the last "." of the whole path
};

// Throws ToolError (exit 1) naming the file when it is missing, a directory, or unreadable.
FileFacts inspectFile(const QString& path);

bool isIndexPath(const FileFacts& facts); // extension "idx" in any case
QString formatName(int code);
// Why the manager chose this code (or refused the file).
QString formatReason(const FileFacts& facts, int code);

// One entry of a parser's map, in the library's own terms.
struct StoredEntry
{
    int key = 0;
    long long start = 0;
    long long end = 0;
    QString text;
    bool script = false; // layer, style, name and effect are set
    int layer = 0;
    QString style, name, effect;
};

// A parser's lines and map, read right after its Open (before any look-up adds entries).
struct StoredTimeline
{
    int formatCode = CodeNone;
    bool opened = false;
    int lines = 0;
    std::vector<StoredEntry> entries;
};

// Opens path with a fresh parser of the given code. The wide script reader's
// thrown int becomes a ToolError naming the file.
StoredTimeline readStoredTimeline(const QString& path, int formatCode);

struct IndexEntry
{
    int key = 0;
    long long time = 0;
    long long filePos = 0;
};

// A VobSub index as the narrow index reader holds it.
struct IndexView
{
    bool opened = false;
    int lines = 0;
    QString subPath;
    int customColorSwitch = 0;
    unsigned int transparencyMask = 0;
    unsigned int palette[16] = {};
    unsigned int customColors[4] = {};
    std::vector<IndexEntry> entries;
};

IndexView readIndex(const QString& path);

// A subtitle manager that opened the file, as the imaging object would hold it.
class ManagerSession
{
public:
    // Throws ToolError for the wide script reader's thrown int.
    explicit ManagerSession(const QString& path);
    ~ManagerSession();
    ManagerSession(const ManagerSession&) = delete;
    ManagerSession& operator=(const ManagerSession&) = delete;

    bool opened() const { return m_opened; }
    int formatCode() const;
    bool wide() const;
    // The caption text at ms as a player receives it; a null string when none.
    QString textAt(long long ms);

private:
    std::unique_ptr<xcSubtitleManager> m_manager;
    bool m_opened = false;
};

// Throws ToolError (exit 1) with the reason the library does not show the file:
// the manager's refusal or the reader's failed Open. Does nothing when it opens.
void requireShown(const FileFacts& facts, const ManagerSession& session);

// The message for the wide script reader's thrown int 1; the count is left out when negative.
QString wideThrowReason(int entriesBefore);

} // namespace zemsub::tool

#endif
