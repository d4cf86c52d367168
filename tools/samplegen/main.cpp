// zemsub-samplegen: subtitle pictures of known text, for the samples, the tests
// and the benchmark. Writes a Blu-ray .sup and the DVD bitmaps that
// tools/make-sample-sub.py turns into a VobSub pair.
#include "CaptionPictures.h"
#include "PgsWriter.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>

using namespace zemsub::samplegen;

namespace {

int fail(const QString& message)
{
    std::fprintf(stderr, "zemsub-samplegen: %s\n", message.toLocal8Bit().constData());
    return 1;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Subtitle pictures of known text."));
    parser.addHelpOption();
    const QCommandLineOption supOption(QStringLiteral("sup"), QStringLiteral("Write a Blu-ray .sup to FILE."),
                                       QStringLiteral("FILE"));
    const QCommandLineOption dvdOption(
        QStringLiteral("dvd"),
        QStringLiteral("Write DVD bitmaps and their listing (captions.txt) into DIR, for "
                       "tools/make-sample-sub.py --bitmaps."),
        QStringLiteral("DIR"));
    const QCommandLineOption textOption(QStringLiteral("text"),
                                        QStringLiteral("Write the captions as SubRip to FILE (what a reader should read)."),
                                        QStringLiteral("FILE"));
    const QCommandLineOption countOption(QStringLiteral("count"),
                                         QStringLiteral("Captions to draw (default: the sample set)."),
                                         QStringLiteral("N"));
    parser.addOptions({supOption, dvdOption, textOption, countOption});
    parser.process(app);
    const int count = parser.isSet(countOption) ? parser.value(countOption).toInt() : 0;
    if (count < 0 || count > 100000)
        return fail(QStringLiteral("--count wants 0 to 100000"));
    const std::vector<CaptionText> captions = sampleCaptions(count);

    if (parser.isSet(supOption)) {
        if (!writeFile(parser.value(supOption), writePgs(blurayPictures(captions), kBlurayFrame)))
            return fail(QStringLiteral("cannot write %1").arg(parser.value(supOption)));
    }
    if (parser.isSet(dvdOption)) {
        QString error;
        if (!writeDvdBitmaps(parser.value(dvdOption), captions, &error))
            return fail(error);
    }
    if (parser.isSet(textOption)) {
        QByteArray srt;
        auto time = [](long long ms) {
            return QStringLiteral("%1:%2:%3,%4")
                .arg(ms / 3600000, 2, 10, QLatin1Char('0'))
                .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
                .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'))
                .arg(ms % 1000, 3, 10, QLatin1Char('0'));
        };
        for (size_t i = 0; i < captions.size(); ++i) {
            // Italic captions as SubRip marks them, line by line.
            QString text = captions[i].text;
            if (captions[i].italic)
                text = QStringLiteral("<i>") + text.replace(QLatin1Char('\n'), QStringLiteral("</i>\n<i>")) +
                       QStringLiteral("</i>");
            srt += QStringLiteral("%1\n%2 --> %3\n%4\n\n")
                       .arg(i + 1)
                       .arg(time(captions[i].start), time(captions[i].start + captions[i].duration), text)
                       .toUtf8();
        }
        if (!writeFile(parser.value(textOption), srt))
            return fail(QStringLiteral("cannot write %1").arg(parser.value(textOption)));
    }
    return 0;
}
