#include "StyleOptions.h"

#include "CommandLine.h"

#include <QRegularExpression>

#include <optional>

namespace zemsub::tool {

namespace {

constexpr int kMaxSide = 16384;

int parseInt(const QString& text, bool* ok)
{
    return text.trimmed().toInt(ok, 10);
}

// 0xBBGGRR (the library's order: red in the lowest byte), a decimal number,
// or #RRGGBB as on the web.
std::optional<int> parseColour(const QString& text)
{
    bool ok = false;
    const QString value = text.trimmed();
    if (value.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        const uint parsed = value.mid(2).toUInt(&ok, 16);
        if (ok && value.size() > 2)
            return int(parsed);
        return std::nullopt;
    }
    if (value.startsWith(QLatin1Char('#'))) {
        const uint rgb = value.mid(1).toUInt(&ok, 16);
        if (!ok || value.size() != 7)
            return std::nullopt;
        const uint red = (rgb >> 16) & 0xFF, green = (rgb >> 8) & 0xFF, blue = rgb & 0xFF;
        return int(red | (green << 8) | (blue << 16));
    }
    const int parsed = value.toInt(&ok, 10);
    if (ok)
        return parsed;
    return std::nullopt;
}

} // namespace

StyleOptions::StyleOptions()
    : m_size(QStringLiteral("size"), QStringLiteral("Video size (default 480x360)."), QStringLiteral("WxH")),
      m_font(QStringLiteral("font"), QStringLiteral("Font family (default DejaVu Sans)."),
             QStringLiteral("family")),
      m_point(QStringLiteral("point"), QStringLiteral("Point size (default: a twentieth of the height)."),
              QStringLiteral("N")),
      m_style(QStringLiteral("style"),
              QStringLiteral(
                  "Style word: Regular, Italic, Bold or Bold Italic, exact case; the library leaves the "
                  "style as it was for any other word (default Regular)."),
              QStringLiteral("word")),
      m_colour(QStringLiteral("colour"),
               QStringLiteral("Text colour 0xBBGGRR (red in the lowest byte), a decimal number, or #RRGGBB "
                              "(default 0xFFFFFF)."),
               QStringLiteral("colour")),
      m_spacing(QStringLiteral("spacing"), QStringLiteral("Extra pixels between caption lines (default 2)."),
                QStringLiteral("N")),
      m_pos(QStringLiteral("pos"),
            QStringLiteral(
                "Caption position: centre x and bottom y (default: the middle, a twelfth of the height "
                "above the bottom)."),
            QStringLiteral("X,Y")),
      m_transparency(
          QStringLiteral("transparency"),
          QStringLiteral("Caption transparency in percent; the library's alpha becomes (100 - P) * 2. "
                         "Not set when not given (full opacity)."),
          QStringLiteral("P")),
      m_background(QStringLiteral("background"),
                   QStringLiteral("Frame behind the caption: a colour (name or #RRGGBB) or an image file "
                                  "(default: a synthetic frame)."),
                   QStringLiteral("colour|image"))
{
}

void StyleOptions::addTo(QCommandLineParser& parser) const
{
    parser.addOptions(
        {m_size, m_font, m_point, m_style, m_colour, m_spacing, m_pos, m_transparency, m_background});
}

RenderStyle StyleOptions::read(const QCommandLineParser& parser, const QString& command) const
{
    RenderStyle style;
    if (parser.isSet(m_size)) {
        static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$"));
        const QRegularExpressionMatch match = pattern.match(parser.value(m_size).trimmed());
        const int width = match.hasMatch() ? match.captured(1).toInt() : 0;
        const int height = match.hasMatch() ? match.captured(2).toInt() : 0;
        if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide)
            usageError(QStringLiteral("%1: --size wants WxH with sides from 1 to %2, not \"%3\"")
                           .arg(command)
                           .arg(kMaxSide)
                           .arg(parser.value(m_size)));
        style.size = QSize(width, height);
        style.sizeGiven = true;
    }
    style.pointSize = qMax(6, style.size.height() / 20);
    style.position = QPoint(style.size.width() / 2, style.size.height() - style.size.height() / 12);

    if (parser.isSet(m_font)) {
        style.family = parser.value(m_font);
        if (style.family.isEmpty())
            usageError(QStringLiteral("%1: --font wants a family name").arg(command));
    }
    bool ok = false;
    if (parser.isSet(m_point)) {
        style.pointSize = parseInt(parser.value(m_point), &ok);
        if (!ok || style.pointSize < 1 || style.pointSize > 1000)
            usageError(QStringLiteral("%1: --point wants a size from 1 to 1000, not \"%2\"")
                           .arg(command, parser.value(m_point)));
    }
    if (parser.isSet(m_style))
        style.styleWord = parser.value(m_style);
    if (parser.isSet(m_colour)) {
        const std::optional<int> colour = parseColour(parser.value(m_colour));
        if (!colour)
            usageError(QStringLiteral("%1: --colour wants 0xBBGGRR, a number or #RRGGBB, not \"%2\"")
                           .arg(command, parser.value(m_colour)));
        style.colour = *colour;
    }
    if (parser.isSet(m_spacing)) {
        style.lineSpacing = parseInt(parser.value(m_spacing), &ok);
        if (!ok)
            usageError(QStringLiteral("%1: --spacing wants a number, not \"%2\"")
                           .arg(command, parser.value(m_spacing)));
    }
    if (parser.isSet(m_pos)) {
        static const QRegularExpression pattern(QStringLiteral("^(-?\\d{1,6}),(-?\\d{1,6})$"));
        const QRegularExpressionMatch match = pattern.match(parser.value(m_pos).trimmed());
        if (!match.hasMatch())
            usageError(QStringLiteral("%1: --pos wants X,Y, not \"%2\"").arg(command, parser.value(m_pos)));
        style.position = QPoint(match.captured(1).toInt(), match.captured(2).toInt());
    }
    if (parser.isSet(m_transparency)) {
        const int percent = parseInt(parser.value(m_transparency), &ok);
        if (!ok)
            usageError(QStringLiteral("%1: --transparency wants a percentage, not \"%2\"")
                           .arg(command, parser.value(m_transparency)));
        style.transparency = percent;
    }
    if (parser.isSet(m_background)) {
        style.background = parser.value(m_background);
        if (!isColourName(style.background) && QImage(style.background).isNull())
            usageError(QStringLiteral("%1: --background \"%2\" is neither a colour nor a readable image")
                           .arg(command, style.background));
    }
    return style;
}

} // namespace zemsub::tool
