#include "SamplePictures.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

ScriptOutput runSampleScript(const QStringList& options)
{
    ScriptOutput output;
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty()) {
        output.failure = QStringLiteral("python3 is not installed (cmake/install-deps.sh installs it)");
        return output;
    }
    TempDir dir;
    const QString folder = QString::fromStdString(dir.path());
    QProcess process;
    const QStringList arguments{QStringLiteral(ZEMSUB_SOURCE_DIR "/tools/make-sample-sub.py"),
                                QStringLiteral("--out"), folder, QStringLiteral("--pictures"),
                                folder + QStringLiteral("/pictures")};
    process.start(python, arguments + options);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        output.failure = QStringLiteral("the script failed: ") + QString::fromUtf8(process.readAllStandardError());
        return output;
    }
    output.index = readAll(folder + QStringLiteral("/vobsub.idx"));
    output.sub = readAll(folder + QStringLiteral("/vobsub.sub"));
    const QString listing = QString::fromUtf8(readAll(folder + QStringLiteral("/pictures/pictures.txt")));
    for (const QString& line : listing.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(QLatin1Char(' '));
        if (fields.size() != 4) {
            output.failure = QStringLiteral("a malformed line in pictures.txt: ") + line;
            return output;
        }
        DrawnPicture picture;
        picture.start = fields[0].toLongLong();
        picture.position = QPoint(fields[1].toInt(), fields[2].toInt());
        picture.image = QImage(folder + QStringLiteral("/pictures/") + fields[3]).convertToFormat(QImage::Format_ARGB32);
        output.pictures.push_back(picture);
    }
    output.ran = true;
    return output;
}
