// Picture tracks read as text: captions drawn from known text, muxed into
// Matroska as DVD subtitles, decoded by FFmpeg and read by Tesseract.
#include "TextPictures.h"
#include "ZemsubFix.h"
#include "pictures/PictureCaptions.h"
#include "pictures/OcrLanguage.h"
#include "pictures/PictureText.h"
#include "samplegen/PgsWriter.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

QByteArray readAll(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PictureText : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QString error;
        m_captions = zemsub::samplegen::sampleCaptions();
        m_file = makeTextPictureTrack(m_dir, m_captions, &error);
        ASSERT_FALSE(m_file.empty()) << error.toStdString();
    }

    TempDir m_dir;
    std::vector<CaptionText> m_captions;
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
        const QImage drawn = zemsub::samplegen::drawCaption(m_captions[i]);
        QRect box;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x)
                if (qAlpha(drawn.pixel(x, y)) == 255)
                    box |= QRect(x, y, 1, 1);
        EXPECT_EQ(decoded.pictures[i].image.size(), box.size());
        EXPECT_EQ(decoded.pictures[i].position,
                  zemsub::samplegen::dvdPosition(drawn.size()) + box.topLeft());
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
    // The italic caption shows its words, upright: the library draws no italics.
    EXPECT_EQ(report.exitCode(), 3);
    ASSERT_EQ(report.captions.size(), m_captions.size());
    for (size_t i = 0; i < m_captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(report.captions[i].text, m_captions[i].text);
        EXPECT_TRUE(report.captions[i].textShown);
        if (m_captions[i].italic) {
            ASSERT_EQ(report.captions[i].reasons.size(), 1u);
            EXPECT_EQ(report.captions[i].reasons[0].code, "italics");
        } else {
            EXPECT_TRUE(report.captions[i].asWritten());
        }
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

TEST(PictureTextFormats, VobSubPairIsReadExactlyFromItsIndex)
{
    TempDir dir;
    const std::vector<CaptionText> captions = zemsub::samplegen::sampleCaptions();
    QString error;
    const std::string index = makeTextVobSub(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    // FFmpeg finds the .sub beside the index by its path.
    const zemsub::tool::PictureText read =
        readPictureText(readAll(index), QString::fromStdString(index), 0, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    EXPECT_EQ(read.codec, "dvdsub");
    ASSERT_EQ(read.captions.size(), captions.size());
    for (size_t i = 0; i < captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read.captions[i].text, captions[i].text);
        EXPECT_EQ(read.captions[i].start, captions[i].start);
        EXPECT_EQ(read.captions[i].end, dvdEnd(captions[i].start, captions[i].duration));
    }
}

TEST(PictureTextFormats, BlurayPicturesAreReadExactlyAndEndAtTheirClearing)
{
    TempDir dir;
    const std::vector<CaptionText> captions = zemsub::samplegen::sampleCaptions();
    const std::string sup = makeTextSup(dir, captions);
    const PictureCaptions decoded = readPictureCaptions(readAll(sup), "movie.sup", -1);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    EXPECT_EQ(decoded.codec, "pgssub");
    EXPECT_EQ(decoded.pictures.size(), captions.size());
    const zemsub::tool::PictureText read = readPictureText(readAll(sup), "movie.sup", -1, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), captions.size());
    for (size_t i = 0; i < captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read.captions[i].text, captions[i].text);
        EXPECT_EQ(read.captions[i].start, captions[i].start);
        EXPECT_EQ(read.captions[i].end, captions[i].start + captions[i].duration);
    }
}

TEST(PictureTextFormats, APictureWithoutAClearingEndsAtTheNext)
{
    // Two pictures whose first is never cleared: it ends where the second shows.
    TempDir dir;
    std::vector<CaptionText> captions = zemsub::samplegen::sampleCaptions();
    captions.resize(2);
    std::vector<zemsub::samplegen::PgsPicture> pictures = zemsub::samplegen::blurayPictures(captions);
    QByteArray first = zemsub::samplegen::writePgs({pictures[0]}, zemsub::samplegen::kBlurayFrame);
    // Drop the clearing display set: composition, window and end segments at its end.
    int clearing = 0;
    for (int at = 0, seen = 0; at + 13 <= first.size();) {
        const int size = (static_cast<unsigned char>(first[at + 11]) << 8) | static_cast<unsigned char>(first[at + 12]);
        if (static_cast<unsigned char>(first[at + 10]) == 0x80 && ++seen == 1) {
            clearing = at + 13 + size;
            break;
        }
        at += 13 + size;
    }
    ASSERT_GT(clearing, 0);
    first.truncate(clearing);
    const QByteArray bytes = first + zemsub::samplegen::writePgs({pictures[1]}, zemsub::samplegen::kBlurayFrame);
    const PictureCaptions decoded = readPictureCaptions(bytes, "movie.sup", -1);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    ASSERT_EQ(decoded.pictures.size(), 2u);
    EXPECT_EQ(decoded.pictures[0].end, captions[1].start);
    EXPECT_EQ(decoded.pictures[1].end, captions[1].start + captions[1].duration);
}

TEST(PictureTextFormats, LettersBeyondAsciiAreReadInTheirLanguage)
{
    // French captions, read with the French data (tesseract-ocr-fra, as a track tagged "fre" is).
    std::vector<CaptionText> captions(3);
    captions[0] = {1000, 2000, QString::fromUtf8("Caf\u00e9 \u00e0 Paris, d\u00e9j\u00e0 vu.")};
    captions[1] = {4000, 2000, QString::fromUtf8("Un c\u0153ur, une \u0153uvre.")};
    captions[2] = {7000, 2000, QString::fromUtf8("\u00c9t\u00e9 comme hiver,\nla for\u00eat est l\u00e0.")};
    std::vector<ShownPicture> shown;
    for (const zemsub::samplegen::PgsPicture& picture : zemsub::samplegen::blurayPictures(captions))
        shown.push_back(ShownPicture{picture.start, picture.end, picture.position, picture.image});
    ASSERT_EQ(zemsub::tool::tesseractLanguage("fre"), "fra");
    const zemsub::tool::PictureText read = readPictures(shown, "fra");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), captions.size());
    for (size_t i = 0; i < captions.size(); ++i)
        EXPECT_EQ(read.captions[i].text, captions[i].text) << i;
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
