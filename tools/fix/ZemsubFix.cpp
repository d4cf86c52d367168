#include "ZemsubFix.h"

#include "CaptionLines.h"
#include "CopyCheck.h"
#include "FixReasons.h"
#include "FixSource.h"
#include "HeldTimes.h"
#include "PlayerScreen.h"
#include "SavedCopy.h"
#include "ScriptWriter.h"
#include "Stretch.h"
#include "SubRipWriter.h"
#include "manager/detail/FormatCodes.h"
#include "reading/MediaInput.h"
#include "reading/SubtitleTracks.h"
#include "playback/ReaderLimits.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace zemsubfix {

namespace {

using zemsub::tool::CauseId;

bool survivesLocalCodec(const QString& text)
{
    return QString::fromLocal8Bit(text.toLocal8Bit()) == text;
}

// Text between "<" and ">" in the caption or in any caption on screen with it.
bool anglePairOnScreen(const SourceCaption& caption, const std::vector<Stretch>& stretches)
{
    static const QRegularExpression angle(QStringLiteral("<[^>]*>"));
    if (angle.match(caption.text).hasMatch())
        return true;
    for (const Stretch& stretch : stretches) {
        if (stretch.start < caption.end && caption.start < stretch.end &&
            angle.match(stretch.lines.join(QLatin1Char('\n'))).hasMatch())
            return true;
    }
    return false;
}

// Why a caption did not show as written, when nothing known beforehand says so.
std::vector<CauseId> diagnose(const SourceCaption& caption, const FixReport& report, const CopyCheck& check,
                              const std::vector<Stretch>& stretches, int index)
{
    std::vector<CauseId> causes;
    const bool script = report.format != CopyFormat::SubRip;
    if (!check.opened &&
        report.copyLines >
            zemsub::tool::readerLineLimit(script ? zemsub::detail::kFormatAss : zemsub::detail::kFormatSrt))
        causes.push_back(CauseId::TooLong);
    if (!survivesLocalCodec(caption.text))
        causes.push_back(CauseId::Encoding);
    if (script) {
        if (std::find(check.missedAtZero.begin(), check.missedAtZero.end(), index) !=
            check.missedAtZero.end())
            causes.push_back(CauseId::TimeZero);
        if (caption.start % 10 != 0 || caption.end % 10 != 0)
            causes.push_back(CauseId::TimePrecision);
        if (anglePairOnScreen(caption, stretches))
            causes.push_back(CauseId::AnglePair);
    }
    if (causes.empty())
        causes.push_back(CauseId::Unexplained);
    return causes;
}

} // namespace

CopyFormat formatForPath(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("ass"))
        return CopyFormat::Ass;
    if (suffix == QLatin1String("ssa"))
        return CopyFormat::Ssa;
    return CopyFormat::SubRip;
}

QString formatExtension(CopyFormat format)
{
    switch (format) {
    case CopyFormat::Ass:
        return QStringLiteral("ass");
    case CopyFormat::Ssa:
        return QStringLiteral("ssa");
    case CopyFormat::SubRip:
        break;
    }
    return QStringLiteral("srt");
}

bool FixReport::allAsWritten() const
{
    if (!readable || !copyOpens || !shownInGaps.empty())
        return false;
    for (const CaptionOutcome& caption : captions) {
        if (!caption.asWritten())
            return false;
    }
    return true;
}

int FixReport::exitCode() const
{
    if (!readable || !error.isEmpty())
        return 1;
    return allAsWritten() ? 0 : 3;
}

namespace {

// The copy of the original, or the one given, judged through the library.
FixReport judgeCopy(const zemsub::tool::MediaInput& input, const FixOptions& options, const QByteArray* given)
{
    FixReport report;
    report.format = options.format;
    SourceFile source =
        readSource(input, options.encoding, options.track, options.language, options.ocrLanguage,
                   options.pictureProgress);
    report.track = source.track;
    report.trackReason = source.trackReason;
    report.trackSummary = source.trackSummary;
    report.ocrLanguage = source.ocrLanguage;
    if (!source.readable) {
        report.error = source.error;
        return report;
    }
    report.readable = true;
    report.encoding = source.encoding;
    report.lastDisplayEnd = source.lastEnd;
    for (const zemsub::tool::LeftOutPicture& picture : source.leftOut)
        report.leftOut.push_back(LeftOutPicture{picture.start, picture.end, picture.place.x(), picture.place.y(),
                                                picture.place.width(), picture.place.height(), picture.why});

    const std::vector<SourceCaption> held = heldCaptions(source.captions, options.format);
    const std::vector<Stretch> stretches = buildStretches(held);
    if (given) {
        report.copy = *given;
        report.copyLines = int(given->count('\n')) + (given->endsWith('\n') || given->isEmpty() ? 0 : 1);
    } else {
        const CopyText copy = options.format == CopyFormat::SubRip ? writeSubRip(stretches)
                                                                   : writeScript(stretches, source.scriptHeader);
        report.copy = copy.text.toLocal8Bit();
        report.copyLines = copy.lines;
    }

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("copy.") + formatExtension(options.format));
    QFile file(path);
    if (!dir.isValid() || !file.open(QIODevice::WriteOnly) || file.write(report.copy) != report.copy.size()) {
        report.error = QStringLiteral("cannot write a temporary copy to check it");
        return report;
    }
    file.close();
    // A picture track's SubRip copy must show what a player shows of its displays, worked out
    // from them apart from the stretches the copy was written from.
    const bool exact = options.format == CopyFormat::SubRip;
    const CopyCheck check =
        checkCopy(path, held, source.pictures && exact ? playerScreen(source.screen) : stretches, exact);
    report.copyOpens = check.opened;
    report.shownInGaps = check.shownInGaps;

    for (int i = 0; i < int(source.captions.size()); ++i) {
        const SourceCaption& caption = source.captions[size_t(i)];
        CaptionOutcome outcome;
        outcome.index = caption.index;
        outcome.line = caption.line;
        outcome.start = caption.start;
        outcome.end = caption.end;
        outcome.text = caption.text;
        outcome.confidence = caption.confidence;
        // A caption wholly outside the copy's times is not in it.
        const bool cutAway = held[size_t(i)].end <= held[size_t(i)].start && caption.end > caption.start;
        outcome.textShown = check.captionShown[size_t(i)] && !cutAway;
        for (CauseId id : caption.notDrawn)
            outcome.reasons.push_back(reasonFor(id, options.format));
        if (!outcome.textShown && !cutAway) {
            for (CauseId id : diagnose(held[size_t(i)], report, check, stretches, i))
                outcome.reasons.push_back(reasonFor(id, options.format));
        }
        report.captions.push_back(outcome);
    }
    return report;
}

} // namespace

FixReport fixBuffer(const QByteArray& bytes, const QString& fileName, const FixOptions& options)
{
    return judgeCopy(zemsub::tool::MediaInput(bytes, fileName), options, nullptr);
}

FixReport checkCopyFile(const QString& inputPath, const QString& copyPath, const FixOptions& options)
{
    FixReport report;
    report.format = options.format;
    QFile copy(copyPath);
    if (!copy.open(QIODevice::ReadOnly)) {
        report.error = QStringLiteral("cannot read %1: %2").arg(copyPath, copy.errorString());
        return report;
    }
    const QByteArray given = copy.readAll();
    const std::optional<zemsub::tool::MediaInput> input = zemsub::tool::MediaInput::open(inputPath, &report.error);
    if (!input)
        return report;
    return judgeCopy(*input, options, &given);
}

std::vector<TrackInfo> listTracks(const QString& path, QString* error)
{
    auto fail = [error](const QString& why) {
        if (error)
            *error = why;
        return std::vector<TrackInfo>();
    };
    QString why;
    const std::optional<zemsub::tool::MediaInput> input = zemsub::tool::MediaInput::open(path, &why);
    if (!input)
        return fail(why);
    const zemsub::tool::TrackList list = zemsub::tool::listSubtitleTracks(*input);
    if (!list.read)
        return fail(list.failure);
    if (list.tracks.empty())
        return fail(
            QStringLiteral("FFmpeg finds no subtitle track in it (read as %1)").arg(list.formatTitle));
    std::vector<TrackInfo> tracks;
    for (const zemsub::tool::SubtitleTrack& track : list.tracks) {
        TrackInfo info;
        info.track = track.index;
        info.codec = track.codec;
        info.picture = track.pictures;
        info.language = track.language;
        info.title = track.title;
        info.isDefault = track.isDefault;
        info.forced = track.forced;
        info.captions = track.captions;
        info.forcedCaptions = track.forcedCaptions;
        info.first = track.first;
        info.last = track.last;
        tracks.push_back(info);
    }
    if (error)
        error->clear();
    return tracks;
}

FixReport fixFile(const QString& inputPath, const QString& outputPath, const FixOptions& options)
{
    FixReport report;
    {
        QString why;
        const std::optional<zemsub::tool::MediaInput> input = zemsub::tool::MediaInput::open(inputPath, &why);
        if (!input) {
            report.format = options.format;
            report.error = why;
            return report;
        }
        report = judgeCopy(*input, options, nullptr);
    } // the input is let go before the copy may replace it
    if (report.readable && report.error.isEmpty())
        report.error = saveCopy(outputPath, report.copy);
    return report;
}

} // namespace zemsubfix
