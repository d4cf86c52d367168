#include "ZemsubConvert.h"

#include "FixSource.h"
#include "PlainWriter.h"
#include "SavedCopy.h"
#include "reading/MediaInput.h"
#include "reading/SourceLines.h"
#include "reading/StyledText.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace zemsubfix {

namespace {

using zemsub::tool::TextRun;

// WebVTT reads "&" and "<" as markup.
std::vector<TextRun> escapedForVtt(std::vector<TextRun> runs)
{
    for (TextRun& run : runs) {
        run.text.replace(QLatin1Char('&'), QStringLiteral("&amp;"));
        run.text.replace(QLatin1Char('<'), QStringLiteral("&lt;"));
        run.text.replace(QLatin1Char('>'), QStringLiteral("&gt;"));
    }
    return runs;
}

QString markedFor(PlainFormat format, const std::vector<TextRun>& runs)
{
    switch (format) {
    case PlainFormat::Ass:
        return zemsub::tool::markedText(runs, QStringLiteral("{\\i1}"), QStringLiteral("{\\i0}"));
    case PlainFormat::WebVtt:
        return zemsub::tool::markedText(escapedForVtt(runs), QStringLiteral("<i>"), QStringLiteral("</i>"));
    case PlainFormat::SubRip:
        break;
    }
    return zemsub::tool::markedText(runs, QStringLiteral("<i>"), QStringLiteral("</i>"));
}

// Whether FFmpeg reads the input with the demuxer of the copy's format: a plain
// file that the copy is to be in its own format.
bool sameFormat(const QString& demuxer, PlainFormat format)
{
    switch (format) {
    case PlainFormat::Ass:
        return demuxer == QLatin1String("ass");
    case PlainFormat::WebVtt:
        return demuxer == QLatin1String("webvtt");
    case PlainFormat::SubRip:
        break;
    }
    return demuxer == QLatin1String("srt");
}

// A plain file as it stands, in UTF-8 without a mark; empty when its encoding cannot be decoded.
QByteArray asItStands(const QByteArray& bytes, const QString& encoding)
{
    QString text = zemsub::tool::decodeWith(bytes, encoding);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text.toUtf8();
}

// A script track of a video as a script: the header stored beside it, then each
// event as its Dialogue line.
QByteArray scriptOfTrack(const SourceFile& source)
{
    QString text = source.scriptHeader;
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    if (!text.contains(QStringLiteral("[Events]")))
        text += QStringLiteral("\n[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, "
                               "Effect, Text\n");
    for (const SourceCaption& caption : source.captions) {
        // ReadOrder,Layer,Style,Name,MarginL,MarginR,MarginV,Effect,Text
        const int afterOrder = int(caption.event.indexOf(QLatin1Char(','))) + 1;
        const int afterLayer = int(caption.event.indexOf(QLatin1Char(','), afterOrder)) + 1;
        if (afterOrder <= 0 || afterLayer <= 0)
            continue;
        text += QStringLiteral("Dialogue: %1,%2,%3,%4\n")
                    .arg(caption.event.mid(afterOrder, afterLayer - afterOrder - 1), scriptClock(caption.start),
                         scriptClock(caption.end), caption.event.mid(afterLayer));
    }
    return text.toUtf8();
}

} // namespace

PlainFormat plainFormatForPath(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("ass") || suffix == QLatin1String("ssa"))
        return PlainFormat::Ass;
    if (suffix == QLatin1String("vtt"))
        return PlainFormat::WebVtt;
    return PlainFormat::SubRip;
}

int PlainReport::exitCode() const
{
    return readable && error.isEmpty() ? 0 : 1;
}

namespace {

PlainReport convertInput(const zemsub::tool::MediaInput& input, PlainFormat format, const PlainOptions& options)
{
    PlainReport report;
    report.format = format;
    const SourceFile source = readSource(input, QString(), options.track, options.language,
                                         options.ocrLanguage, options.pictureProgress, options.review);
    report.track = source.track;
    report.trackSummary = source.trackSummary;
    report.language = source.language;
    report.pictures = source.pictures;
    report.ocrLanguage = source.ocrLanguage;
    report.frameWidth = source.frame.width();
    report.frameHeight = source.frame.height();
    if (!source.readable) {
        report.error = source.error;
        return report;
    }
    report.readable = true;
    report.lastDisplayEnd = source.lastEnd;
    for (const SourceCaption& caption : source.captions) {
        if (options.forcedOnly && !caption.forced)
            continue;
        std::vector<TextRun> runs = caption.runs;
        if (runs.empty())
            runs.push_back(TextRun{caption.text, false});
        PlainCaption plain;
        plain.start = caption.start;
        plain.end = caption.end;
        plain.text = caption.text;
        plain.marked = markedFor(format, runs);
        plain.partlyItalic = false;
        plain.italic = true;
        for (const TextRun& run : runs) {
            plain.partlyItalic = plain.partlyItalic || run.italic;
            plain.italic = plain.italic && (run.italic || run.text.trimmed().isEmpty());
        }
        plain.italic = plain.italic && plain.partlyItalic;
        plain.alignment = caption.alignment;
        plain.forced = caption.forced;
        plain.confidence = caption.confidence;
        plain.narrowItalic = caption.narrowItalic;
        if (caption.end > caption.start && !caption.text.trimmed().isEmpty())
            report.captions.push_back(plain);
        if (options.review && caption.picture >= 0 && size_t(caption.picture) < source.shownPictures.size()) {
            QStringList why;
            if (caption.confidence < zemsub::tool::kLowConfidence)
                why << QStringLiteral("read with low confidence (%1)").arg(caption.confidence);
            if (caption.narrowItalic)
                why << QStringLiteral("italics decided by a narrow margin");
            if (!why.isEmpty())
                report.review.push_back(ReviewPicture{caption.start, caption.end,
                                                      source.shownPictures[size_t(caption.picture)].image,
                                                      plain.marked, why.join(QStringLiteral(", "))});
        }
    }
    for (const zemsub::tool::LeftOutPicture& picture : source.leftOut) {
        if (options.forcedOnly)
            continue;
        report.leftOut.push_back(LeftOutPicture{picture.start, picture.end, picture.place.x(), picture.place.y(),
                                                picture.place.width(), picture.place.height(), picture.why});
        if (options.review && size_t(picture.picture) < source.shownPictures.size())
            report.review.push_back(ReviewPicture{picture.start, picture.end,
                                                  source.shownPictures[size_t(picture.picture)].image, QString(),
                                                  QStringLiteral("left out: ") + picture.why});
    }
    std::stable_sort(report.review.begin(), report.review.end(),
                     [](const ReviewPicture& a, const ReviewPicture& b) { return a.start < b.start; });
    report.copy = writePlain(format, report.captions, source.frame);
    // Text in its own format is written as it is: a plain file as it stands, a
    // script track with its header and styles.
    if (!source.pictures && !options.forcedOnly) {
        if (sameFormat(source.demuxer, format)) {
            const QByteArray plain = asItStands(input.wholeBytes(), source.encoding);
            if (!plain.isEmpty())
                report.copy = plain;
        } else if (format == PlainFormat::Ass && !source.scriptHeader.isEmpty()) {
            report.copy = scriptOfTrack(source);
        }
    }
    return report;
}

} // namespace

PlainReport convertBuffer(const QByteArray& bytes, const QString& fileName, PlainFormat format,
                          const PlainOptions& options)
{
    return convertInput(zemsub::tool::MediaInput(bytes, fileName), format, options);
}

PlainReport convertPath(const QString& inputPath, PlainFormat format, const PlainOptions& options)
{
    QString why;
    const std::optional<zemsub::tool::MediaInput> input = zemsub::tool::MediaInput::open(inputPath, &why);
    if (!input) {
        PlainReport report;
        report.format = format;
        report.error = why;
        return report;
    }
    return convertInput(*input, format, options);
}

PlainReport convertFile(const QString& inputPath, const QString& outputPath, const PlainOptions& options)
{
    PlainReport report = convertPath(inputPath, plainFormatForPath(outputPath), options);
    if (report.readable)
        report.error = saveCopy(outputPath, report.copy);
    return report;
}

} // namespace zemsubfix
