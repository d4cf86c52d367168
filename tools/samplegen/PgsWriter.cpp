#include "PgsWriter.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace zemsub::samplegen {

namespace {

enum Segment : unsigned char { Palette = 0x14, Object = 0x15, Composition = 0x16, Window = 0x17, End = 0x80 };

void put16(QByteArray& out, int value)
{
    out.append(char((value >> 8) & 0xFF));
    out.append(char(value & 0xFF));
}

void put32(QByteArray& out, long long value)
{
    put16(out, int((value >> 16) & 0xFFFF));
    put16(out, int(value & 0xFFFF));
}

void segment(QByteArray& out, long long ms, Segment type, const QByteArray& payload)
{
    out.append("PG", 2);
    put32(out, ms * 90); // presentation time
    put32(out, 0);       // decoding time
    out.append(char(type));
    put16(out, int(payload.size()));
    out.append(payload);
}

// The picture's colours as at most 255 palette entries (0 stays transparent):
// the grey level and the alpha are each cut to 16 steps.
struct Indexed
{
    std::vector<unsigned char> pixels;
};

Indexed indexed(const QImage& source, std::vector<QRgb>& palette, QHash<QRgb, unsigned char>& entries)
{
    const QImage image = source.convertToFormat(QImage::Format_ARGB32);
    Indexed result;
    result.pixels.reserve(size_t(image.width()) * size_t(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const int alpha = (qAlpha(pixel) + 8) / 17;
            if (alpha == 0) {
                result.pixels.push_back(0);
                continue;
            }
            const int level = (qGray(pixel) + 8) / 17;
            const QRgb key = qRgba(level * 17, level * 17, level * 17, alpha * 17);
            auto found = entries.constFind(key);
            if (found == entries.constEnd()) {
                found = entries.insert(key, (unsigned char)palette.size());
                palette.push_back(key);
            }
            result.pixels.push_back(*found);
        }
    }
    return result;
}

QByteArray runLengths(const Indexed& picture, int width, int height)
{
    QByteArray out;
    for (int y = 0; y < height; ++y) {
        const unsigned char* row = picture.pixels.data() + size_t(y) * size_t(width);
        for (int x = 0; x < width;) {
            const unsigned char colour = row[x];
            int run = 1;
            while (x + run < width && row[x + run] == colour && run < 16383)
                ++run;
            if (colour != 0 && run <= 2) {
                for (int i = 0; i < run; ++i)
                    out.append(char(colour));
            } else {
                out.append('\0');
                const int flags = (colour != 0 ? 0x80 : 0) | (run >= 64 ? 0x40 : 0);
                if (run >= 64) {
                    out.append(char(flags | (run >> 8)));
                    out.append(char(run & 0xFF));
                } else {
                    out.append(char(flags | run));
                }
                if (colour != 0)
                    out.append(char(colour));
            }
            x += run;
        }
        out.append('\0');
        out.append('\0');
    }
    return out;
}

QByteArray composition(QSize frame, int number, const std::vector<QPoint>& positions, bool forced)
{
    const bool shown = !positions.empty();
    QByteArray payload;
    put16(payload, frame.width());
    put16(payload, frame.height());
    payload.append(char(0x10)); // frame rate
    put16(payload, number);
    payload.append(char(shown ? 0x80 : 0x00)); // epoch start, or normal
    payload.append('\0');                      // no palette update
    payload.append('\0');                      // palette 0
    payload.append(char(positions.size()));
    for (size_t i = 0; i < positions.size(); ++i) {
        put16(payload, int(i));                  // object i
        payload.append(char(i));                 // window i
        payload.append(char(forced ? 0x40 : 0)); // not cropped; forced
        put16(payload, positions[i].x());
        put16(payload, positions[i].y());
    }
    return payload;
}

QByteArray windows(const std::vector<PgsObject>& objects)
{
    QByteArray payload;
    payload.append(char(objects.size()));
    for (size_t i = 0; i < objects.size(); ++i) {
        payload.append(char(i));
        put16(payload, objects[i].position.x());
        put16(payload, objects[i].position.y());
        put16(payload, objects[i].image.width());
        put16(payload, objects[i].image.height());
    }
    return payload;
}

} // namespace

QByteArray writePgs(const std::vector<PgsPicture>& pictures, QSize frame)
{
    QByteArray out;
    int number = 0;
    for (const PgsPicture& picture : pictures) {
        std::vector<PgsObject> objects{PgsObject{picture.position, picture.image}};
        objects.insert(objects.end(), picture.others.begin(), picture.others.end());
        std::vector<QPoint> positions;
        std::vector<QRgb> colourTable{qRgba(0, 0, 0, 0)};
        QHash<QRgb, unsigned char> entries;
        std::vector<Indexed> indexedObjects;
        for (const PgsObject& object : objects) {
            positions.push_back(object.position);
            indexedObjects.push_back(indexed(object.image, colourTable, entries));
        }
        segment(out, picture.start, Composition, composition(frame, number++, positions, picture.forced));
        segment(out, picture.start, Window, windows(objects));

        QByteArray palette;
        palette.append('\0'); // palette 0
        palette.append('\0'); // version 0
        for (size_t i = 0; i < colourTable.size() && i < 256; ++i) {
            const QRgb rgb = colourTable[i];
            // BT.709, limited range, as Blu-ray players decode it.
            const double r = qRed(rgb), g = qGreen(rgb), b = qBlue(rgb);
            const double luma = 16 + (0.2126 * r + 0.7152 * g + 0.0722 * b) * 219.0 / 255.0;
            const double cr = 128 + (0.5 * r - 0.4542 * g - 0.0458 * b) * 224.0 / 255.0;
            const double cb = 128 + (-0.1146 * r - 0.3854 * g + 0.5 * b) * 224.0 / 255.0;
            palette.append(char(i));
            palette.append(char(std::clamp(int(std::lround(luma)), 16, 235)));
            palette.append(char(std::clamp(int(std::lround(cr)), 16, 240)));
            palette.append(char(std::clamp(int(std::lround(cb)), 16, 240)));
            palette.append(char(qAlpha(rgb)));
        }
        segment(out, picture.start, Palette, palette);

        for (size_t o = 0; o < objects.size(); ++o) {
            const QSize size = objects[o].image.size();
            // The object's data, split over segments of at most 65535 bytes.
            const QByteArray data = runLengths(indexedObjects[o], size.width(), size.height());
            const int length = int(data.size()) + 4;
            QByteArray first;
            put16(first, size.width());
            put16(first, size.height());
            QByteArray rest = first + data;
            bool firstPart = true;
            while (firstPart || !rest.isEmpty()) {
                const int room = firstPart ? 65535 - 7 : 65535 - 4;
                const QByteArray part = rest.left(room);
                rest.remove(0, int(part.size()));
                QByteArray object;
                put16(object, int(o)); // object o
                object.append('\0');   // version 0
                object.append(char((firstPart ? 0x80 : 0) | (rest.isEmpty() ? 0x40 : 0)));
                if (firstPart) {
                    object.append(char((length >> 16) & 0xFF));
                    put16(object, length & 0xFFFF);
                }
                object.append(part);
                segment(out, picture.start, Object, object);
                firstPart = false;
            }
        }
        segment(out, picture.start, End, QByteArray());

        if (picture.end <= picture.start)
            continue;
        segment(out, picture.end, Composition, composition(frame, number++, {}, false));
        segment(out, picture.end, Window, windows(objects));
        segment(out, picture.end, End, QByteArray());
    }
    return out;
}

std::vector<PgsPicture> blurayPictures(const std::vector<CaptionText>& captions)
{
    std::vector<PgsPicture> pictures;
    for (CaptionText caption : captions) {
        caption.smooth = true;
        caption.pixelSize = caption.pixelSize * 3 / 2;
        PgsPicture picture;
        picture.start = caption.start;
        picture.end = caption.start + caption.duration;
        picture.image = drawCaption(caption);
        picture.position = QPoint((kBlurayFrame.width() - picture.image.width()) / 2,
                                  kBlurayFrame.height() - 60 - picture.image.height());
        pictures.push_back(picture);
    }
    return pictures;
}

} // namespace zemsub::samplegen
