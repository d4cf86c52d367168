#include "TextPictures.h"

#include "samplegen/PgsWriter.h"
#include "support/TrackFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

using namespace zemsub::samplegen;

long long dvdEnd(long long start, long long duration)
{
    const long long units = duration * 90 / 1024;
    return start + units * 1024 / 90;
}

std::string makeTextVobSub(const TempDir& dir, const std::vector<CaptionText>& captions, QString* error,
                           const std::function<QByteArray(const QByteArray&)>& editListing)
{
    const QString folder = QString::fromStdString(dir.path());
    if (!writeDvdBitmaps(folder, captions, error))
        return std::string();
    if (editListing) {
        QFile listing(folder + QStringLiteral("/captions.txt"));
        if (!listing.open(QIODevice::ReadWrite)) {
            *error = QStringLiteral("cannot change the listing");
            return std::string();
        }
        const QByteArray edited = editListing(listing.readAll());
        listing.resize(0);
        listing.write(edited);
    }
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty()) {
        *error = QStringLiteral("python3 is not installed");
        return std::string();
    }
    QProcess script;
    script.start(python, {QStringLiteral(ZEMSUB_SOURCE_DIR "/tools/make-sample-sub.py"), QStringLiteral("--out"),
                          folder, QStringLiteral("--bitmaps"), folder + QStringLiteral("/captions.txt"),
                          QStringLiteral("--size"), QStringLiteral("720x576")});
    if (!script.waitForFinished(60000) || script.exitStatus() != QProcess::NormalExit || script.exitCode() != 0) {
        *error = QStringLiteral("the script failed: ") + QString::fromUtf8(script.readAllStandardError());
        return std::string();
    }
    QDir(folder).rename(QStringLiteral("vobsub.idx"), QStringLiteral("movie.idx"));
    QDir(folder).rename(QStringLiteral("vobsub.sub"), QStringLiteral("movie.sub"));
    return dir.file("movie.idx");
}

std::string makeTextPictureTrack(const TempDir& dir, const std::vector<CaptionText>& captions, QString* error)
{
    const std::string index = makeTextVobSub(dir, captions, error);
    return index.empty() ? std::string() : makePictureFile(dir, index, error);
}

std::string makeTextSup(const TempDir& dir, const std::vector<CaptionText>& captions)
{
    return dir.write("movie.sup", writePgs(blurayPictures(captions), kBlurayFrame).toStdString());
}
