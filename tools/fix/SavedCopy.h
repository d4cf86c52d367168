#ifndef ZEMSUBFIX_SAVEDCOPY_H
#define ZEMSUBFIX_SAVEDCOPY_H

#include <QByteArray>
#include <QString>

namespace zemsubfix {

// Writes bytes to path atomically (a temporary file renamed over it). Empty
// when written, else "cannot write PATH: why".
QString saveCopy(const QString& path, const QByteArray& bytes);

} // namespace zemsubfix

#endif
