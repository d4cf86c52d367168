#include "FrameRenderer.h"

#include "ISubTitle.h"
#include "LibraryFrames.h"

#include <QColor>
#include <QFile>
#include <QLinearGradient>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

namespace zemsub::tool {

namespace {

QImage syntheticFrame(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, QColor(24, 40, 72));
    gradient.setColorAt(1, QColor(40, 88, 96));
    painter.fillRect(image.rect(), gradient);
    painter.setPen(QColor(255, 255, 255, 24));
    const int step = qMax(16, size.height() / 12);
    for (int x = 0; x < size.width(); x += step)
        painter.drawLine(x, 0, x, size.height());
    for (int y = 0; y < size.height(); y += step)
        painter.drawLine(0, y, size.width(), y);
    return image;
}

} // namespace

bool isColourName(const QString& text)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 4, 0)
    return QColor::isValidColorName(text);
#else
    return QColor::isValidColor(text);
#endif
}


QImage makeBackground(const RenderStyle& style)
{
    if (style.background.isEmpty())
        return syntheticFrame(style.size);
    QImage frame(style.size, QImage::Format_ARGB32_Premultiplied);
    if (isColourName(style.background)) {
        frame.fill(QColor(style.background));
        return frame;
    }
    const QImage picture =
        QImage(style.background).scaled(style.size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    frame.fill(Qt::black);
    QPainter painter(&frame);
    painter.drawImage(
        QPoint((style.size.width() - picture.width()) / 2, (style.size.height() - picture.height()) / 2),
        picture);
    return frame;
}

std::unique_ptr<CaptionPlayer> CaptionPlayer::open(const LibraryInput& input, const RenderStyle& style,
                                                  QString* failure)
{
    std::unique_ptr<CaptionPlayer> player(new CaptionPlayer(style));
    const QString why = player->load(input);
    if (failure)
        *failure = why;
    if (!why.isEmpty())
        return nullptr;
    return player;
}

CaptionPlayer::CaptionPlayer(const RenderStyle& style) : m_subtitle(createSubtitle()), m_style(style)
{
}

QString CaptionPlayer::load(const LibraryInput& input)
{
    const RenderStyle& style = m_style;
    m_subtitle->setVideoSize(style.size.width(), style.size.height());
    const QByteArray family = style.family.toUtf8();
    const QByteArray word = style.styleWord.toLatin1();
    m_subtitle->setFontInfo(family.constData(), style.colour, style.pointSize, word.constData(),
                            style.lineSpacing);
    m_subtitle->setSubtitlePos(style.position.x(), style.position.y());
    if (style.transparency)
        m_subtitle->setTrasparency(*style.transparency);

    const QByteArray name = QFile::encodeName(input.facts.path);
    bool opened = false;
    try {
        opened = m_subtitle->open(name.constData());
    } catch (int) {
        m_subtitle->close();
        destroySubtitle(&m_subtitle);
        return wideThrowReason(-1);
    }
    if (!opened) {
        m_subtitle->close();
        destroySubtitle(&m_subtitle);
        if (!input.failure().isEmpty())
            return input.failure();
        const QString reason = input.session ? notShownReason(input.facts, *input.session) : QString();
        return reason.isEmpty() ? QStringLiteral("not opened") : reason;
    }
    return QString();
}

CaptionPlayer::~CaptionPlayer()
{
    if (m_subtitle) {
        m_subtitle->close();
        destroySubtitle(&m_subtitle);
    }
}

namespace {

// The middle of each stored caption with text, in time order.
std::vector<SourceCaption> middlesOf(const std::vector<StoredEntry>& stored)
{
    std::vector<StoredEntry> entries;
    for (const StoredEntry& entry : stored) {
        if (!entry.text.isEmpty())
            entries.push_back(entry);
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const StoredEntry& a, const StoredEntry& b) { return a.start < b.start; });
    std::vector<SourceCaption> captions;
    for (const StoredEntry& entry : entries)
        captions.push_back(SourceCaption{entry.key, entry.start + (entry.end - entry.start) / 2});
    return captions;
}

long long lastEnd(const std::vector<StoredEntry>& stored)
{
    long long last = 0;
    for (const StoredEntry& entry : stored)
        last = std::max(last, entry.end);
    return last;
}

// The frames hold the player that plays them.
struct HeldPlayer
{
    std::unique_ptr<CaptionPlayer> player;
};

class PlayedFrames : private HeldPlayer, public LibraryFrames
{
public:
    PlayedFrames(std::unique_ptr<CaptionPlayer> held, const std::vector<StoredEntry>& stored)
        : HeldPlayer{std::move(held)},
          LibraryFrames(player->subtitle(), player->style().size,
                        [background = makeBackground(player->style())](long long) { return background; },
                        middlesOf(stored), lastEnd(stored))
    {
    }
};

} // namespace

std::unique_ptr<FrameSource> playedFrames(std::unique_ptr<CaptionPlayer> player,
                                          std::optional<StoredTimeline> timeline)
{
    static const std::vector<StoredEntry> none;
    return std::make_unique<PlayedFrames>(std::move(player), timeline ? timeline->entries : none);
}

} // namespace zemsub::tool
