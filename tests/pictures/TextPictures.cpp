#include "TextPictures.h"

#include "support/TrackFiles.h"

#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QProcess>
#include <QStandardPaths>

#include <cmath>

QImage drawTextPicture(const TextPicture& picture)
{
    QFont font(picture.family);
    font.setPixelSize(picture.pixelSize);
    font.setItalic(picture.italic);
    const QFontMetrics metrics(font);
    const QStringList lines = picture.text.split(QLatin1Char('\n'));
    QPainterPath path;
    int width = 0;
    for (int i = 0; i < lines.size(); ++i)
        width = std::max(width, metrics.horizontalAdvance(lines[i]));
    for (int i = 0; i < lines.size(); ++i) {
        const int x = (width - metrics.horizontalAdvance(lines[i])) / 2;
        path.addText(x, metrics.ascent() + i * metrics.lineSpacing(), font, lines[i]);
    }
    const int margin = picture.outline + 4;
    QImage image(width + 2 * margin, int(lines.size()) * metrics.lineSpacing() + 2 * margin,
                 QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.translate(margin, margin);
    if (picture.outline > 0) {
        painter.setPen(QPen(Qt::black, 2 * picture.outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::black);
        painter.drawPath(path);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(path);
    painter.end();
    return image;
}

long long dvdEnd(long long start, long long duration)
{
    const long long units = duration * 90 / 1024;
    return start + units * 1024 / 90;
}

namespace {

// The picture's pixels as codes: 0 ground, 1 fill, 2 outline.
QByteArray codes(const QImage& image)
{
    QByteArray pgm = QStringLiteral("P5\n%1 %2\n3\n").arg(image.width()).arg(image.height()).toLatin1();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            pgm.append(char(qAlpha(pixel) < 128 ? 0 : (qGray(pixel) > 127 ? 1 : 2)));
        }
    }
    return pgm;
}

} // namespace

std::string makeTextPictureTrack(const TempDir& dir, const std::vector<TextPicture>& captions, QString* error)
{
    const QString folder = QString::fromStdString(dir.path());
    QString listing;
    for (size_t i = 0; i < captions.size(); ++i) {
        const QImage image = drawTextPicture(captions[i]);
        const std::string name = "caption-" + std::to_string(i) + ".pgm";
        dir.write(name, codes(image).toStdString());
        // Centred near the bottom of a 720x576 frame.
        listing += QStringLiteral("%1 %2 %3 %4 %5\n")
                       .arg(captions[i].start)
                       .arg(captions[i].duration)
                       .arg(std::max(0, (720 - image.width()) / 2))
                       .arg(std::max(0, 540 - image.height()))
                       .arg(QString::fromStdString(name));
    }
    dir.write("captions.txt", listing.toStdString());
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
    return makePictureFile(dir, dir.file("movie.idx"), error);
}
