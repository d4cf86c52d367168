#ifndef ZEMSUB_PICTURES_SUBPICTUREDECODER_H
#define ZEMSUB_PICTURES_SUBPICTUREDECODER_H

#include "PictureCaptions.h"

#include <QByteArray>
#include <QSize>
#include <QString>

#include <array>

namespace zemsub::tool {

// One DVD subpicture as FFmpeg's decoder hands it to a player, or why there is none.
struct DecodedSubpicture
{
    bool decoded = false;
    QString failure; // why there is no picture, when not decoded
    // The picture with its place on the index's frame: the pixel codes as decoded
    // (Format_Indexed8), with the colour table the decoder built from the palette,
    // the subpicture's colour command and contrast. Its times are the index's.
    ShownPicture shown;
};

// Decodes subpicture units with FFmpeg's DVD subtitle decoder, coloured by a
// 16-entry palette (0xRRGGBB) given to the decoder as an index's "palette:" line.
// FFmpeg's own messages are silenced.
class SubpictureDecoder
{
public:
    SubpictureDecoder(const std::array<unsigned int, 16>& palette, QSize frame);

    // A fresh decoder per packet, so one packet never carries into the next.
    DecodedSubpicture decode(const unsigned char* packet, int size) const;

    // The codec's extradata: the index's "size:" and "palette:" lines.
    const QByteArray& extradata() const { return m_extradata; }

private:
    QByteArray m_extradata;
};

} // namespace zemsub::tool

#endif
