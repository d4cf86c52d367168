// zemsub sheet: a contact sheet, one tile per caption or per step.
#include "Commands.h"

#include "CommandLine.h"
#include "FrameRenderer.h"
#include "LibraryView.h"
#include "TimeParser.h"

#include <QFileInfo>
#include <QFont>
#include <QPainter>

#include <algorithm>

namespace zemsub::tool {

namespace {

constexpr int kMaxTiles = 2000;
constexpr int kTileWidth = 320;
constexpr int kMargin = 8;
constexpr int kLabelHeight = 20;
constexpr int kTitleHeight = 28;

struct Tile
{
    long long time = 0;
    QString label;
};

std::vector<Tile> captionTiles(const StoredTimeline& timeline)
{
    std::vector<StoredEntry> entries;
    for (const StoredEntry& entry : timeline.entries) {
        if (!entry.text.isEmpty())
            entries.push_back(entry);
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const StoredEntry& a, const StoredEntry& b) { return a.start < b.start; });
    if (entries.size() > size_t(kMaxTiles))
        usageError(QStringLiteral("sheet: the file holds %1 captions; at most %2 tiles (use --every)")
                       .arg(entries.size())
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (const StoredEntry& entry : entries) {
        const long long middle = entry.start + (entry.end - entry.start) / 2;
        tiles.push_back(Tile{middle, QStringLiteral("#%1  %2").arg(entry.key).arg(formatTime(middle))});
    }
    return tiles;
}

std::vector<Tile> stepTiles(const StoredTimeline& timeline, long long every)
{
    long long last = 0;
    for (const StoredEntry& entry : timeline.entries)
        last = std::max(last, entry.end);
    const long long count = last / every + 1;
    if (count > kMaxTiles)
        usageError(QStringLiteral("sheet: --every %1 gives %2 tiles for this file; at most %3")
                       .arg(every)
                       .arg(count)
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (long long time = 0; time <= last; time += every)
        tiles.push_back(Tile{time, formatTime(time)});
    return tiles;
}

} // namespace

int runSheet(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("sheet"),
        QStringLiteral("A contact sheet: one tile per caption (at its middle), or one per step with "
                       "--every, each rendered through ISubTitle as a player does, with its time "
                       "under it. Progress goes to stderr for long files."));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("The PNG file to write."),
                                          QStringLiteral("SHEET.png"));
    const QCommandLineOption everyOption(
        QStringLiteral("every"),
        QStringLiteral("One tile every MS milliseconds from 0 instead of one per caption."),
        QStringLiteral("MS"));
    const QCommandLineOption columnsOption(QStringLiteral("columns"),
                                           QStringLiteral("Tiles per row (default 4)."), QStringLiteral("N"));
    line.parser().addOptions({outputOption, everyOption, columnsOption});
    StyleOptions styleOptions;
    styleOptions.addTo(line.parser());
    line.addPositional(QStringLiteral("file"), QStringLiteral("The subtitle file."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    const QString output = line.parser().value(outputOption);
    if (output.isEmpty())
        usageError(QStringLiteral("sheet: -o SHEET.png is required"));
    long long every = 0;
    if (line.parser().isSet(everyOption)) {
        const std::optional<long long> step = parseTime(line.parser().value(everyOption));
        if (!step || *step < 1)
            usageError(QStringLiteral("sheet: --every wants a positive time, not \"%1\"")
                           .arg(line.parser().value(everyOption)));
        every = *step;
    }
    int columns = 4;
    if (line.parser().isSet(columnsOption)) {
        bool ok = false;
        columns = line.parser().value(columnsOption).toInt(&ok);
        if (!ok || columns < 1 || columns > 64)
            usageError(QStringLiteral("sheet: --columns wants 1 to 64, not \"%1\"")
                           .arg(line.parser().value(columnsOption)));
    }
    const RenderStyle style = styleOptions.read(line.parser(), QStringLiteral("sheet"));

    const FileFacts facts = inspectFile(path);
    CaptionPlayer player(facts, style);
    const StoredTimeline timeline = readStoredTimeline(path, ManagerSession(path).formatCode());
    const std::vector<Tile> tiles = every > 0 ? stepTiles(timeline, every) : captionTiles(timeline);

    const int tileHeight = std::max(1, style.size.height() * kTileWidth / style.size.width());
    const int count = int(tiles.size());
    const int rows = std::max(1, (count + columns - 1) / columns);
    const int usedColumns = std::max(1, std::min(columns, count));
    QImage sheet(kMargin + usedColumns * (kTileWidth + kMargin),
                 kTitleHeight + rows * (tileHeight + kLabelHeight + kMargin) + kMargin,
                 QImage::Format_ARGB32_Premultiplied);
    sheet.fill(QColor(32, 32, 32));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(QColor(230, 230, 230));
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    painter.drawText(QRect(kMargin, 0, sheet.width() - 2 * kMargin, kTitleHeight),
                     Qt::AlignVCenter | Qt::AlignLeft,
                     QStringLiteral("%1  (%2 tiles)").arg(QFileInfo(path).fileName()).arg(count));
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 8));

    const bool progress = count > 50;
    int shown = 0;
    for (int i = 0; i < count; ++i) {
        const RenderedFrame frame = player.frameAt(tiles[size_t(i)].time);
        shown += frame.record.shown ? 1 : 0;
        const int x = kMargin + (i % columns) * (kTileWidth + kMargin);
        const int y = kTitleHeight + (i / columns) * (tileHeight + kLabelHeight + kMargin);
        painter.drawImage(QRect(x, y, kTileWidth, tileHeight), frame.image);
        QString label = tiles[size_t(i)].label;
        if (!frame.record.shown)
            label += QStringLiteral("  (nothing shown)");
        painter.drawText(QRect(x, y + tileHeight, kTileWidth, kLabelHeight), Qt::AlignVCenter | Qt::AlignLeft,
                         label);
        if (progress && ((i + 1) % 25 == 0 || i + 1 == count))
            err(QStringLiteral("sheet: %1/%2 tiles\n").arg(i + 1).arg(count));
    }
    painter.end();
    if (!sheet.save(output, "PNG"))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
    out(QStringLiteral("tiles %1\tshown %2\twrote %3\n").arg(count).arg(shown).arg(output));
    return ExitSuccess;
}

} // namespace zemsub::tool
