#ifndef ZEMSUBFIX_FIXSOURCE_H
#define ZEMSUBFIX_FIXSOURCE_H

#include "LintCauses.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace zemsubfix {

// One caption of the original, as a modern player shows it.
struct SourceCaption
{
    int index = 0;
    int line = 0;
    long long start = 0;
    long long end = 0;
    QString text; // lines joined by "\n"
    // What the player draws besides the text, or times, that the library cannot show.
    std::vector<zemsub::tool::CauseId> notDrawn;
};

struct SourceFile
{
    bool readable = false;
    QString error;
    QString encoding;
    std::vector<SourceCaption> captions;
};

// The one place where the original is read.
SourceFile readSource(const QByteArray& bytes, const QString& fileName, const QString& forcedEncoding);

} // namespace zemsubfix

#endif
