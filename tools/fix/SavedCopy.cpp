#include "SavedCopy.h"

#include <QSaveFile>

namespace zemsubfix {

QString saveCopy(const QString& path, const QByteArray& bytes)
{
    QSaveFile output(path);
    if (output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size() && output.commit())
        return QString();
    return QStringLiteral("cannot write %1: %2").arg(path, output.errorString());
}

} // namespace zemsubfix
