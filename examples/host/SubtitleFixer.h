#ifndef ZEMSUB_HOST_SUBTITLEFIXER_H
#define ZEMSUB_HOST_SUBTITLEFIXER_H

#include "ZemsubFix.h"

#include <QLibrary>
#include <QString>
#include <QTemporaryDir>

// The companion library zemsubfix, loaded at run time like the library itself:
// it writes a copy of the subtitle file that the library shows as written.
class SubtitleFixer
{
public:
    explicit SubtitleFixer(const QString& file);

    bool load();
    // Fixes subtitle into a SubRip copy in a temporary directory that lives as
    // long as this object; returns the copy's path, or an empty string with
    // errorString() set.
    QString fix(const QString& subtitle);
    QString errorString() const { return m_error; }
    const zemsubfix::FixReport& report() const { return m_report; }

private:
    using FixFileFunction = zemsubfix::FixReport (*)(const QString&, const QString&,
                                                     const zemsubfix::FixOptions&);

    QLibrary m_library;
    QString m_error;
    FixFileFunction m_fixFile = nullptr;
    QTemporaryDir m_dir;
    zemsubfix::FixReport m_report;
};

#endif
