#ifndef ZEMSUB_TOOL_SHEETPAINTER_H
#define ZEMSUB_TOOL_SHEETPAINTER_H

#include <QImage>
#include <QPainter>
#include <QSize>
#include <QString>

namespace zemsub::tool {

// A contact sheet: a title with the file's name, then frames in rows of tiles
// 320 pixels wide, each with its label under it.
class SheetPainter
{
public:
    SheetPainter(const QString& path, QSize frameSize, int count, int columns);
    SheetPainter(const SheetPainter&) = delete;
    SheetPainter& operator=(const SheetPainter&) = delete;

    // Tile i (from 0, row by row): the frame scaled into it and its label.
    void draw(int i, const QImage& frame, const QString& label);
    // Writes the sheet as PNG; false when the file cannot be written.
    bool save(const QString& output);

private:
    int m_columns;
    int m_tileHeight;
    QImage m_sheet;
    QPainter m_painter;
};

} // namespace zemsub::tool

#endif
