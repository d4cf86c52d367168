#ifndef ZEMSUB_PLAYBACK_LIBRARYVIEW_H
#define ZEMSUB_PLAYBACK_LIBRARYVIEW_H

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
    QString failure;   // why the file cannot be read (missing, a directory, unreadable); empty when it can
};

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
    QString failure; // the wide script reader threw its int: why, as wideThrowReason says; empty otherwise
};

// Opens path with a fresh parser of the given code.
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
    QString failure; // the index reader threw its int; empty otherwise
};

IndexView readIndex(const QString& path);

// A subtitle manager that opened the file, as the imaging object would hold it.
class ManagerSession
{
public:
    explicit ManagerSession(const QString& path);
    ~ManagerSession();
    ManagerSession(const ManagerSession&) = delete;
    ManagerSession& operator=(const ManagerSession&) = delete;
    ManagerSession(ManagerSession&&) noexcept;

    bool opened() const { return m_opened; }
    // The wide script reader threw its int while the manager opened the file:
    // why (wideThrowReason); empty otherwise.
    const QString& failure() const { return m_failure; }
    int formatCode() const;
    bool wide() const;
    // The caption text at ms as a player receives it; a null string when none,
    // and always when the file did not open (a player asks only a file it opened).
    QString textAt(long long ms);

private:
    std::unique_ptr<xcSubtitleManager> m_manager;
    bool m_opened = false;
    QString m_failure;
};

// Why the library does not show the file (the manager's refusal or the
// reader's failed Open); empty when it opens.
QString notShownReason(const FileFacts& facts, const ManagerSession& session);

// The message for the wide script reader's thrown int 1; the count is left out when negative.
QString wideThrowReason(int entriesBefore);

} // namespace zemsub::tool

#endif
