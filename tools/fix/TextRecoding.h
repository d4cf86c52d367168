#ifndef ZEMSUBFIX_TEXTRECODING_H
#define ZEMSUBFIX_TEXTRECODING_H

#include <QByteArray>
#include <QString>

namespace zemsubfix {

struct Recoded
{
    bool ok = false;
    QByteArray bytes;
    QString error;
};

// The bytes, taken as text in the named encoding (an iconv name), as UTF-8.
Recoded toUtf8(const QByteArray& bytes, const QString& encoding);

} // namespace zemsubfix

#endif
