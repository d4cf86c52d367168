// The picture path: bytes demuxed and decoded by FFmpeg's picture decoders,
// shown one display at a time, each picture's text fill found, cut into lines
// and its slant measured. The first byte picks the input's name (bits 0-1:
// .sup, .mkv, .vob, .ts). Every picture lasts, is drawn and fits its bounds;
// displays come in time order and never overlap, the pictures of one display
// share its times; a fill mask has its picture's size; lines stand at the
// reading height, and a box on a line lies on the mask. (Tesseract itself is
// not fuzzed here: it reads only the prepared lines.)
#include <QByteArray>
#include <QString>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "pictures/PictureCaptions.h"
#include "pictures/ItalicSlant.h"
#include "pictures/PicturePrep.h"

#include <cmath>

namespace {

const char* const kNames[4] = {"in.sup", "in.mkv", "in.vob", "in.ts"};
// Pictures prepared per input, so that one input stays quick.
constexpr size_t kPreparedPictures = 8;

} // namespace

int fuzz_pictures(const uint8_t* data, size_t size)
{
    using namespace zemsub::tool;
    if (size < 1)
        return 0;
    const QString name = QString::fromLatin1(kNames[data[0] & 3]);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), int(size - 1));
    const PictureCaptions decoded = readPictureCaptions(bytes, name, -1);
    if (!decoded.read) {
        FUZZ_CHECK(!decoded.failure.isEmpty());
        FUZZ_CHECK(decoded.pictures.empty());
        return 0;
    }
    FUZZ_CHECK(!decoded.codec.isEmpty());
    for (size_t i = 0; i < decoded.pictures.size(); ++i) {
        const ShownPicture& picture = decoded.pictures[i];
        FUZZ_CHECK(picture.end > picture.start);
        if (i > 0) {
            const ShownPicture& before = decoded.pictures[i - 1];
            if (before.display == picture.display)
                FUZZ_CHECK(before.start == picture.start && before.end == picture.end);
            else
                FUZZ_CHECK(before.display < picture.display && before.end <= picture.start);
        }
        FUZZ_CHECK(!picture.image.isNull());
        FUZZ_CHECK(picture.image.width() <= 8192 && picture.image.height() <= 8192);
        if (i >= kPreparedPictures)
            continue;
        const QImage mask = textFill(picture.image);
        FUZZ_CHECK(mask.size() == picture.image.size());
        for (const QImage& line : textLines(mask, 32))
            FUZZ_CHECK(line.height() == 32 + 16 && line.width() >= 1 + 16);
        for (const LineCut& cut : cutLines(mask, 0)) {
            FUZZ_CHECK(cut.image.height() >= 32 + 16 && cut.image.height() <= 48 + 16);
            FUZZ_CHECK(mask.rect().contains(cut.onMask(cut.image.rect())) || cut.onMask(cut.image.rect()).isEmpty());
            const Slant slant = measureSlant(mask, cut.box);
            FUZZ_CHECK(std::isfinite(slant.shear) && std::isfinite(slant.margin));
        }
    }
    return 0;
}
