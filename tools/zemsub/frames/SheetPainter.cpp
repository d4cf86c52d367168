#include "SheetPainter.h"

#include <QFileInfo>
#include <QFont>

#include <algorithm>

namespace zemsub::tool {

namespace {

constexpr int kTileWidth = 320;
constexpr int kMargin = 8;
constexpr int kLabelHeight = 20;
constexpr int kTitleHeight = 28;

} // namespace

SheetPainter::SheetPainter(const QString& path, QSize frameSize, int count, int columns)
    : m_columns(columns), m_tileHeight(std::max(1, frameSize.height() * kTileWidth / std::max(1, frameSize.width())))
{
    const int rows = std::max(1, (count + columns - 1) / columns);
    const int usedColumns = std::max(1, std::min(columns, count));
    m_sheet = QImage(kMargin + usedColumns * (kTileWidth + kMargin),
                     kTitleHeight + rows * (m_tileHeight + kLabelHeight + kMargin) + kMargin,
                     QImage::Format_ARGB32_Premultiplied);
    m_sheet.fill(QColor(32, 32, 32));
    m_painter.begin(&m_sheet);
    m_painter.setRenderHint(QPainter::TextAntialiasing);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter.setPen(QColor(230, 230, 230));
    m_painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    m_painter.drawText(QRect(kMargin, 0, m_sheet.width() - 2 * kMargin, kTitleHeight),
                       Qt::AlignVCenter | Qt::AlignLeft,
                       QStringLiteral("%1  (%2 tiles)").arg(QFileInfo(path).fileName()).arg(count));
    m_painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 8));
}

void SheetPainter::draw(int i, const QImage& frame, const QString& label)
{
    const int x = kMargin + (i % m_columns) * (kTileWidth + kMargin);
    const int y = kTitleHeight + (i / m_columns) * (m_tileHeight + kLabelHeight + kMargin);
    m_painter.drawImage(QRect(x, y, kTileWidth, m_tileHeight), frame);
    m_painter.drawText(QRect(x, y + m_tileHeight, kTileWidth, kLabelHeight), Qt::AlignVCenter | Qt::AlignLeft,
                       label);
}

bool SheetPainter::save(const QString& output)
{
    m_painter.end();
    return m_sheet.save(output, "PNG");
}

} // namespace zemsub::tool
