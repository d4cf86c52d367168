#include "TrackOptions.h"

namespace zemsub::tool {

TrackOptions::TrackOptions(SubcommandLine& line)
    : m_line(line),
      m_track(QStringLiteral("track"),
              QStringLiteral("Read subtitle track N (from 0, in file order; see zemsub tracks)."),
              QStringLiteral("N")),
      m_language(QStringLiteral("language"),
                 QStringLiteral("Read the subtitle track in CODE (as tagged, e.g. fre): its default one, "
                                "else its first."),
                 QStringLiteral("CODE"))
{
    m_line.parser().addOption(m_track);
    m_line.parser().addOption(m_language);
}

int TrackOptions::track() const
{
    if (!m_line.parser().isSet(m_track))
        return -1;
    if (m_line.parser().isSet(m_language))
        usageError(QStringLiteral("give --track or --language, not both"));
    const QString value = m_line.parser().value(m_track);
    bool ok = false;
    const int track = value.toInt(&ok);
    if (!ok || track < 0)
        usageError(QStringLiteral("--track takes a track number from 0, not \"%1\"").arg(value));
    return track;
}

QString TrackOptions::language() const
{
    return m_line.parser().value(m_language).trimmed();
}

void announceTrack(const QString& summary)
{
    if (!summary.isEmpty())
        err(QStringLiteral("using %1\n").arg(summary));
}

QCommandLineOption ocrLanguageOption()
{
    return QCommandLineOption(
        QStringLiteral("ocr-language"),
        QStringLiteral("Read a picture track as text in this Tesseract language (eng, fra, deu, ...); "
                       "by default the track's language, English when untagged."),
        QStringLiteral("LANG"));
}

int pictureTrackOption(SubcommandLine& line, const QCommandLineOption& option, const QString& command)
{
    if (!line.parser().isSet(option))
        return -1;
    bool ok = false;
    const int track = line.parser().value(option).toInt(&ok);
    if (!ok || track < 0)
        usageError(QStringLiteral("%1: --track wants a track number from 0, not \"%2\"")
                       .arg(command, line.parser().value(option)));
    return track;
}

} // namespace zemsub::tool
