// VobSub subpictures: the packets the index reader cuts, decoded by FFmpeg in the index's colours.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "SamplePictures.h"
#    include "ToolRunner.h"
#    include "support/TestFiles.h"
#    include "zemsub/pictures/IndexPictures.h"
#    include "pictures/SubpictureDecoder.h"

#    include <QDir>
#    include <QFile>
#    include <gtest/gtest.h>

#    include <array>
#    include <functional>
#    include <random>

using zemsub::tool::DecodedSubpicture;
using zemsub::tool::IndexPicture;
using zemsub::tool::IndexPictures;

namespace {

std::unique_ptr<IndexPictures> openIndex(const QString& path)
{
    QString why;
    std::unique_ptr<IndexPictures> pictures = IndexPictures::open(path, &why);
    EXPECT_TRUE(pictures) << why.toStdString();
    return pictures;
}

} // namespace
using zemsub::tool::SubpictureDecoder;

namespace {

QByteArray sampleBytes(const QString& name)
{
    QFile file(sample(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The subpicture unit that starts in the sector at position of a .sub file (it fits in one sector).
QByteArray unitAt(const QByteArray& sub, int position)
{
    const int payload = position + 24 + static_cast<unsigned char>(sub[position + 22]);
    const int size = (static_cast<unsigned char>(sub[payload]) << 8) | static_cast<unsigned char>(sub[payload + 1]);
    return sub.mid(payload, size);
}

std::array<unsigned int, 16> samplePalette()
{
    return {0x000000, 0xf0f0f0, 0x202020, 0xe0c020, 0x3333fa, 0x1111bb, 0xfa3333, 0xbb1111,
            0x33fa33, 0x11bb11, 0xfafa33, 0xbbbb11, 0xfa33fa, 0xbb11bb, 0x33fafa, 0x11bbbb};
}

DecodedSubpicture decode(const SubpictureDecoder& decoder, const QByteArray& unit)
{
    return decoder.decode(reinterpret_cast<const unsigned char*>(unit.constData()), int(unit.size()));
}

// Pixels of two ARGB32 images of the same size that differ.
int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

// The sample pair under other names in a folder of its own, the index text changed by edit.
QString pairIn(const TempDir& dir, const std::string& folder, const std::string& stem, const std::string& idx,
               const std::string& sub, const std::function<QByteArray(QByteArray)>& edit = nullptr)
{
    QDir(qs(dir.path())).mkpath(qs(folder));
    const std::string base = folder + "/" + stem;
    QByteArray index = sampleBytes("vobsub.idx");
    if (edit)
        index = edit(index);
    const std::string indexPath = dir.write(base + "." + idx, index.toStdString());
    if (!sub.empty())
        dir.write(base + "." + sub, sampleBytes("vobsub.sub").toStdString());
    return qs(indexPath);
}

TEST(ZemsubSubpictures, SamplePacketsDecodeToWhatTheScriptDrew)
{
    const ScriptOutput script = runSampleScript();
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    // The samples are what the script writes.
    EXPECT_EQ(script.index, sampleBytes("vobsub.idx"));
    EXPECT_EQ(script.sub, sampleBytes("vobsub.sub"));
    ASSERT_EQ(script.pictures.size(), 3u);

    const std::unique_ptr<IndexPictures> opened = openIndex(sample("vobsub.idx"));
    ASSERT_TRUE(opened);
    IndexPictures& pictures = *opened;
    EXPECT_EQ(pictures.frameSize(), QSize(720, 480));
    for (const DrawnPicture& drawn : script.pictures) {
        SCOPED_TRACE(drawn.start);
        const IndexPicture answer = pictures.at(drawn.start);
        ASSERT_TRUE(answer.packet);
        ASSERT_TRUE(answer.subpicture.decoded) << answer.subpicture.failure.toStdString();
        EXPECT_EQ(answer.subpicture.shown.position, drawn.position);
        const QImage decoded = answer.subpicture.shown.image.convertToFormat(QImage::Format_ARGB32);
        ASSERT_EQ(decoded.size(), drawn.image.size());
        EXPECT_EQ(differingPixels(decoded, drawn.image), 0);
    }
}

TEST(ZemsubSubpictures, ThePaletteColoursTheCodesThroughTheSubpicturesColourCommand)
{
    std::array<unsigned int, 16> palette{};
    for (unsigned int i = 0; i < 16; ++i)
        palette[i] = 0x100000 * i + 0x000100 * (15 - i) + i;
    const SubpictureDecoder decoder(palette, QSize(720, 480));
    EXPECT_TRUE(decoder.extradata().startsWith("size: 720x480\npalette: 000f00, 100e01, 200d02, "));
    const DecodedSubpicture picture = decode(decoder, unitAt(sampleBytes("vobsub.sub"), 0));
    ASSERT_TRUE(picture.decoded) << picture.failure.toStdString();
    EXPECT_EQ(picture.shown.image.format(), QImage::Format_Indexed8);
    ASSERT_EQ(picture.shown.image.colorCount(), 4);
    // Codes 0 to 3 take palette entries 0 to 3; code 0 has contrast 0.
    EXPECT_EQ(qAlpha(picture.shown.image.color(0)), 0);
    for (int code = 1; code < 4; ++code)
        EXPECT_EQ(picture.shown.image.color(code), 0xFF000000u | palette[size_t(code)]) << code;
    // A border of code 2 around a fill of code 1 with bars of code 3.
    EXPECT_EQ(picture.shown.image.pixelIndex(0, 0), 2);
    EXPECT_EQ(picture.shown.image.pixelIndex(1, 23), 2);
    EXPECT_EQ(picture.shown.image.pixelIndex(2, 2), 3);
    EXPECT_EQ(picture.shown.image.pixelIndex(60, 12), 1);
}

TEST(ZemsubSubpictures, CustomColoursReplaceThePaletteWhenSwitchedOn)
{
    TempDir dir;
    const QString on = pairIn(dir, "on", "movie", "idx", "sub", [](QByteArray index) {
        return index.replace("custom colors: OFF, tridx: 1000, colors: 000000, f0f0f0, 202020, e0c020",
                             "custom colors: ON, tridx: 0100, colors: 111111, 222222, 333333, 444444");
    });
    const std::unique_ptr<IndexPictures> custom = openIndex(on);
    ASSERT_TRUE(custom);
    const IndexPicture answer = custom->at(1000);
    ASSERT_TRUE(answer.subpicture.decoded) << answer.subpicture.failure.toStdString();
    const QImage& picture = answer.subpicture.shown.image;
    EXPECT_EQ(picture.color(0), 0x00111111u);
    EXPECT_EQ(picture.color(1), 0x00222222u); // tridx 0100: the second colour is transparent
    EXPECT_EQ(picture.color(2), 0xFF333333u);
    EXPECT_EQ(picture.color(3), 0xFF444444u);

    // Switched off (as in the sample), the palette colours them.
    const std::unique_ptr<IndexPictures> plain = openIndex(sample("vobsub.idx"));
    ASSERT_TRUE(plain);
    const IndexPicture off = plain->at(1000);
    ASSERT_TRUE(off.subpicture.decoded);
    EXPECT_EQ(off.subpicture.shown.image.color(1), 0xFFF0F0F0u);
    EXPECT_EQ(off.subpicture.shown.image.color(2), 0xFF202020u);
    EXPECT_EQ(off.subpicture.shown.image.color(3), 0xFFE0C020u);
}

TEST(ZemsubSubpictures, TheSubBesideIsFoundWhateverPathTheReaderForms)
{
    TempDir dir;
    const QString before = QDir::currentPath();
    // A dot in a folder name: the reader forms ".films/movie.idxsub".
    const std::unique_ptr<IndexPictures> dotted = openIndex(pairIn(dir, "my.films", "movie", "idx", "sub"));
    ASSERT_TRUE(dotted);
    const IndexPicture answer = dotted->at(4000);
    EXPECT_EQ(answer.subPath, ".films/movie.idxsub");
    EXPECT_TRUE(answer.subpicture.decoded) << answer.subpicture.failure.toStdString();
    EXPECT_EQ(answer.subpicture.shown.image.size(), QSize(120, 24));
    EXPECT_FALSE(dotted->subFile().isEmpty());

    const std::unique_ptr<IndexPictures> upper = openIndex(pairIn(dir, "upper", "MOVIE", "IDX", "SUB"));
    ASSERT_TRUE(upper);
    EXPECT_TRUE(upper->at(7500).subpicture.decoded);
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST(ZemsubSubpictures, WithoutTheSubThereIsNoPicture)
{
    TempDir dir;
    const std::unique_ptr<IndexPictures> alone = openIndex(pairIn(dir, "alone", "movie", "idx", ""));
    ASSERT_TRUE(alone);
    EXPECT_TRUE(alone->subFile().isEmpty());
    const IndexPicture answer = alone->at(1000);
    EXPECT_FALSE(answer.packet);
    EXPECT_FALSE(answer.subpicture.decoded);
    EXPECT_EQ(answer.subpicture.failure, "no packet: no .sub file beside the index");
    EXPECT_EQ(answer.filePos, 0);
    EXPECT_EQ(alone->at(4000).filePos, 0x800);
}

TEST(ZemsubSubpictures, UndecodablePacketsGiveNoPictureAndAReason)
{
    const SubpictureDecoder decoder(samplePalette(), QSize(720, 480));
    EXPECT_FALSE(decoder.decode(nullptr, 0).decoded);
    const QByteArray unit = unitAt(sampleBytes("vobsub.sub"), 0);
    ASSERT_EQ(unit.size(), 122);
    const int control = (static_cast<unsigned char>(unit[2]) << 8) | static_cast<unsigned char>(unit[3]);
    // Cut before its control sequence, a unit holds no picture.
    for (int length = 1; length < control; ++length) {
        const DecodedSubpicture picture = decode(decoder, unit.left(length));
        EXPECT_FALSE(picture.decoded) << length;
        EXPECT_FALSE(picture.failure.isEmpty()) << length;
    }
    // A control offset beyond the unit.
    QByteArray astray = unit;
    astray[2] = char(0xFF);
    astray[3] = char(0xF0);
    EXPECT_FALSE(decode(decoder, astray).decoded);

    // Damaged bytes and noise end cleanly, with a picture or a reason.
    std::mt19937 random(15);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = unit;
        if (round % 2) {
            bytes = QByteArray(int(random() % 600) + 1, '\0');
            for (char& c : bytes)
                c = char(random());
        } else {
            for (int n = 0; n < 4; ++n)
                bytes[int(random() % unsigned(bytes.size()))] = char(random());
        }
        const DecodedSubpicture picture = decode(decoder, bytes);
        if (picture.decoded)
            EXPECT_FALSE(picture.shown.image.isNull());
        else
            EXPECT_FALSE(picture.failure.isEmpty());
    }
}

} // namespace
#endif
