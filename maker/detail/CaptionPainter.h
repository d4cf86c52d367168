#ifndef ZEMSUB_MAKER_DETAIL_CAPTIONPAINTER_H
#define ZEMSUB_MAKER_DETAIL_CAPTIONPAINTER_H

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

namespace zemsub::detail {

// Everything a caption is drawn with, as ZemSubtitleMaker holds it.
struct CaptionStyle
{
    QFont font;
    QColor textColor;
    QColor outlineColor;
    int alpha;          // given to both colours; not clamped by the maker
    int lineSpacing;    // extra pixels between two lines
    int captionX;       // horizontal centre of the block
    int captionY;       // the block's last row is captionY - 1
    int imageWidth;
    int imageHeight;
};

// Draws text into a transparent imageWidth x imageHeight pixmap: one leading line
// feed dropped, one line per line feed (empty lines kept), every line centred in a
// box as wide as the widest line, outlined by the 20 offsets of a two-pixel ring
// with its corners cut, then the text on top. A non-positive side gives a null pixmap.
QPixmap paintCaption(const QString& text, const CaptionStyle& style);

} // namespace zemsub::detail

#endif
