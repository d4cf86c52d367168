// Picture tracks read as text: captions drawn from known text, muxed into
// Matroska as DVD subtitles, decoded by FFmpeg and read by Tesseract.
#include "TextPictures.h"
#include "ZemsubFix.h"
#include "pictures/PictureCaptions.h"
#include "pictures/PictureText.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

QByteArray readAll(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<TextPicture> knownCaptions()
{
    std::vector<TextPicture> captions(6);
    captions[0] = {1000, 2000, "Hello, world!"};
    captions[1] = {3500, 1500, "Where are you going?"};
    captions[2] = {5500, 3000, "- Home, I think.\n- Wait for me!"};
    captions[3] = {9000, 2000, "It's ten o'clock."};
    captions[4] = {11500, 2500, "Nobody knows the answer."};
    captions[4].family = "DejaVu Serif";
    captions[4].pixelSize = 36;
    captions[5] = {14500, 2000, "Look at the sky."};
    captions[5].italic = true;
    captions[5].pixelSize = 26;
    return captions;
}

class PictureText : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QString error;
        m_captions = knownCaptions();
        m_file = makeTextPictureTrack(m_dir, m_captions, &error);
        ASSERT_FALSE(m_file.empty()) << error.toStdString();
    }

    TempDir m_dir;
    std::vector<TextPicture> m_captions;
    std::string m_file;
};

TEST_F(PictureText, PicturesAreShownFromTheirStartToTheirStop)
{
    const PictureCaptions decoded = readPictureCaptions(readAll(m_file), "pictures.mkv", 0);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    EXPECT_EQ(decoded.codec, "dvdsub");
    ASSERT_EQ(decoded.pictures.size(), m_captions.size());
    for (size_t i = 0; i < m_captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(decoded.pictures[i].start, m_captions[i].start);
        EXPECT_EQ(decoded.pictures[i].end, dvdEnd(m_captions[i].start, m_captions[i].duration));
        // The decoder trims the transparent ground: the drawn pixels, where they were drawn.
        const QImage drawn = drawTextPicture(m_captions[i]);
        QRect box;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x)
                if (qAlpha(drawn.pixel(x, y)) == 255)
                    box |= QRect(x, y, 1, 1);
        EXPECT_EQ(decoded.pictures[i].image.size(), box.size());
        EXPECT_EQ(decoded.pictures[i].position.y() + box.height(), 540 - drawn.height() + box.bottom() + 1);
    }
}

TEST_F(PictureText, CleanPicturesAreReadExactly)
{
    const zemsub::tool::PictureText read = readPictureText(readAll(m_file), "pictures.mkv", 0, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    EXPECT_EQ(read.language, "eng");
    EXPECT_EQ(read.pictures, int(m_captions.size()));
    ASSERT_EQ(read.captions.size(), m_captions.size());
    for (size_t i = 0; i < m_captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read.captions[i].text, m_captions[i].text);
        EXPECT_EQ(read.captions[i].start, m_captions[i].start);
        EXPECT_EQ(read.captions[i].end, dvdEnd(m_captions[i].start, m_captions[i].duration));
        EXPECT_GE(read.captions[i].confidence, kLowConfidence);
    }
}

TEST_F(PictureText, IdenticalPicturesAreReadOnce)
{
    const QByteArray bytes = readAll(m_file);
    PictureCaptions decoded = readPictureCaptions(bytes, "pictures.mkv", 0);
    ASSERT_TRUE(decoded.read);
    std::vector<ShownPicture> twice = decoded.pictures;
    for (ShownPicture picture : decoded.pictures) {
        picture.start += 60000;
        picture.end += 60000;
        twice.push_back(picture);
    }
    const zemsub::tool::PictureText read = readPictures(twice, "eng");
    ASSERT_TRUE(read.read);
    EXPECT_EQ(read.pictures, int(twice.size()));
    EXPECT_EQ(read.distinct, int(decoded.pictures.size()));
    ASSERT_EQ(read.captions.size(), twice.size());
    EXPECT_EQ(read.captions.back().text, read.captions[decoded.pictures.size() - 1].text);
    EXPECT_EQ(read.captions.back().start, 60000 + m_captions.back().start);
}

TEST_F(PictureText, AMissingLanguageNamesItsPackage)
{
    const zemsub::tool::PictureText read = readPictureText(readAll(m_file), "pictures.mkv", 0, "zzz");
    EXPECT_FALSE(read.read);
    EXPECT_TRUE(read.failure.contains("tesseract-ocr-zzz")) << read.failure.toStdString();
}

TEST_F(PictureText, AFixedCopyOfThePictureTrackShowsEveryCaption)
{
    zemsubfix::FixOptions options;
    options.track = 0;
    const QString copy = QString::fromStdString(m_dir.file("copy.srt"));
    const zemsubfix::FixReport report = zemsubfix::fixFile(QString::fromStdString(m_file), copy, options);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.ocrLanguage, "eng"); // the track is tagged "en"
    EXPECT_EQ(report.exitCode(), 0);
    ASSERT_EQ(report.captions.size(), m_captions.size());
    for (size_t i = 0; i < m_captions.size(); ++i) {
        EXPECT_EQ(report.captions[i].text, m_captions[i].text);
        EXPECT_TRUE(report.captions[i].asWritten());
        EXPECT_GE(report.captions[i].confidence, 0);
    }
    const QByteArray written = readAll(copy.toStdString());
    EXPECT_TRUE(written.startsWith("1\n00:00:01,000 --> ")) << written.toStdString();
    EXPECT_TRUE(written.contains("\n- Home, I think.\n- Wait for me!\n")) << written.toStdString();
}

TEST_F(PictureText, TheOcrLanguageOptionOverridesTheTag)
{
    zemsubfix::FixOptions options;
    options.track = 0;
    options.ocrLanguage = "zzz";
    const zemsubfix::FixReport report =
        zemsubfix::fixFile(QString::fromStdString(m_file), QString::fromStdString(m_dir.file("x.srt")), options);
    EXPECT_FALSE(report.readable);
    EXPECT_EQ(report.ocrLanguage, "zzz");
    EXPECT_TRUE(report.error.startsWith("no Tesseract data for zzz")) << report.error.toStdString();
}

TEST(PictureTextInput, BytesThatAreNoVideoSayWhy)
{
    const PictureCaptions decoded = readPictureCaptions(QByteArray("not a video at all"), "x.bin", -1);
    EXPECT_FALSE(decoded.read);
    EXPECT_FALSE(decoded.failure.isEmpty());
    // Named .sup, the bytes hold no picture.
    const PictureCaptions sup = readPictureCaptions(QByteArray("not a video at all"), "x.sup", -1);
    EXPECT_TRUE(sup.pictures.empty());
}

} // namespace
