// Picture tracks as real discs and converters write them: stops at the
// format's maximum, subpictures that overlap by a few milliseconds, forced ones.
#include "TextPictures.h"
#include "pictures/PictureCaptions.h"
#include "pictures/PictureText.h"
#include "samplegen/PgsWriter.h"
#include "support/TrackFiles.h"
#include "ZemsubConvert.h"
#include "ZemsubFix.h"

#include <QFile>
#include <QList>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

QByteArray readAll(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<CaptionText> threeCaptions()
{
    std::vector<CaptionText> captions(3);
    captions[0] = {1000, 2000, QStringLiteral("Who goes there?")};
    captions[1] = {3500, 2000, QStringLiteral("A friend of the sea.")};
    captions[2] = {6000, 2000, QStringLiteral("Then come aboard!")};
    return captions;
}

// Each line of the script's listing changed by edit (the line, its number).
std::function<QByteArray(const QByteArray&)> eachLine(const std::function<QByteArray(QByteArray, int)>& edit)
{
    return [edit](const QByteArray& listing) {
        QByteArray edited;
        int number = 0;
        for (const QByteArray& line : listing.split('\n')) {
            if (!line.isEmpty())
                edited += edit(line, number++) + '\n';
        }
        return edited;
    };
}

// "START DURATION X Y FILE" with its duration replaced.
QByteArray withDuration(const QByteArray& line, const QByteArray& duration)
{
    QList<QByteArray> fields = line.split(' ');
    fields[1] = duration;
    return fields.join(' ');
}

// The captions as a VobSub pair whose every subpicture stops at 0xFFFF units.
std::string vobSubWithLongestStops(const TempDir& dir, const std::vector<CaptionText>& captions, QString* error)
{
    return makeTextVobSub(dir, captions, error, eachLine([](QByteArray line, int) { return withDuration(line, "max"); }));
}

TEST(PictureDisplays, StopsAtTheLongestTimeLastUntilTheNextSubpicture)
{
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = vobSubWithLongestStops(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    const PictureCaptions decoded = readPictureCaptions(readAll(index), QString::fromStdString(index), 0);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    ASSERT_EQ(decoded.pictures.size(), 3u);
    EXPECT_EQ(decoded.pictures[0].end, captions[1].start);
    EXPECT_EQ(decoded.pictures[0].ended, DisplayEnd::Replaced);
    EXPECT_EQ(decoded.pictures[1].end, captions[2].start);
    // Nothing tells when the last one goes (no video): its reading time.
    EXPECT_EQ(decoded.pictures[2].ended, DisplayEnd::ReadingTime);

    const PictureText read = readPictureText(readAll(index), QString::fromStdString(index), 0, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 3u);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(read.captions[i].text, captions[i].text) << i;
    EXPECT_EQ(read.captions[1].end, captions[2].start);
    EXPECT_EQ(read.captions[2].end, readingTimeEnd(captions[2].start, int(captions[2].text.size())));
}

TEST(PictureDisplays, ASubpictureStartingBeforeThePreviousStopsReplacesIt)
{
    TempDir dir;
    std::vector<CaptionText> captions = threeCaptions();
    // Each runs 6 ms into the next.
    captions[0].duration = captions[1].start - captions[0].start + 6;
    captions[1].duration = captions[2].start - captions[1].start + 6;
    QString error;
    const std::string index = makeTextVobSub(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    const PictureText read = readPictureText(readAll(index), QString::fromStdString(index), 0, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 3u);
    for (size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read.captions[i].text, captions[i].text);
        EXPECT_EQ(read.captions[i].start, captions[i].start);
        if (i + 1 < 3) {
            EXPECT_EQ(read.captions[i].end, captions[i + 1].start);
        }
    }
    EXPECT_EQ(read.captions[2].end, dvdEnd(captions[2].start, captions[2].duration));
}

TEST(PictureDisplays, ForcedSubpicturesAreKnownAsSuch)
{
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = makeTextVobSub(
        dir, captions, &error, eachLine([](QByteArray line, int number) { return number == 1 ? line + " forced" : line; }));
    ASSERT_FALSE(index.empty()) << error.toStdString();
    const PictureCaptions decoded = readPictureCaptions(readAll(index), QString::fromStdString(index), 0);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    ASSERT_EQ(decoded.pictures.size(), 3u);
    EXPECT_FALSE(decoded.pictures[0].forced);
    EXPECT_TRUE(decoded.pictures[1].forced);
    EXPECT_FALSE(decoded.pictures[2].forced);
    const PictureText read = readPictureText(readAll(index), QString::fromStdString(index), 0, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 3u);
    EXPECT_TRUE(read.captions[1].forced);
    EXPECT_FALSE(read.captions[0].forced);
}

TEST(PictureDisplays, EachDisplayIsNumberedInTimeOrder)
{
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = makeTextVobSub(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    const PictureCaptions decoded = readPictureCaptions(readAll(index), QString::fromStdString(index), 0);
    ASSERT_EQ(decoded.pictures.size(), 3u);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(decoded.pictures[size_t(i)].display, i);
    EXPECT_EQ(decoded.decoded, 3);
    EXPECT_EQ(decoded.origin, 0);
}

using zemsub::samplegen::PgsObject;
using zemsub::samplegen::PgsPicture;
using zemsub::samplegen::kBlurayFrame;

// The captions as Blu-ray pictures, bottom centre.
std::vector<PgsPicture> bluray(const std::vector<CaptionText>& captions)
{
    return zemsub::samplegen::blurayPictures(captions);
}

TEST(PictureDisplays, TwoObjectsOfOneDisplaySetAreOneCaptionReadTopToBottom)
{
    std::vector<CaptionText> lines(2);
    lines[0] = {1000, 2000, QStringLiteral("The first line")};
    lines[1] = {1000, 2000, QStringLiteral("and the second.")};
    std::vector<PgsPicture> pictures = bluray(lines);
    // The second line as a second object just below the first.
    PgsPicture display = pictures[0];
    display.position.ry() -= display.image.height() + 4;
    display.others.push_back(PgsObject{pictures[1].position, pictures[1].image});
    const QByteArray sup = zemsub::samplegen::writePgs({display}, kBlurayFrame);
    const PictureCaptions decoded = readPictureCaptions(sup, "two.sup", -1);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    ASSERT_EQ(decoded.pictures.size(), 1u);
    const PictureText read = readPictures(decoded.pictures, "eng", nullptr, kBlurayFrame);
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 1u);
    EXPECT_EQ(read.captions[0].text, "The first line\nand the second.");
    EXPECT_EQ(read.captions[0].start, 1000);
    EXPECT_EQ(read.captions[0].end, 3000);
}

TEST(PictureDisplays, PicturesAtTheTopAndTheBottomAreOneCaptionEachAtTheSameTimes)
{
    std::vector<CaptionText> texts(2);
    texts[0] = {1000, 2000, QStringLiteral("A sign at the top")};
    texts[1] = {1000, 2000, QStringLiteral("Speech at the bottom")};
    std::vector<PgsPicture> pictures = bluray(texts);
    PgsPicture display = pictures[1];
    display.others.push_back(PgsObject{QPoint(pictures[0].position.x(), 60), pictures[0].image});
    const QByteArray sup = zemsub::samplegen::writePgs({display}, kBlurayFrame);
    const PictureCaptions decoded = readPictureCaptions(sup, "apart.sup", -1);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    ASSERT_EQ(decoded.pictures.size(), 2u);
    EXPECT_EQ(decoded.pictures[0].display, decoded.pictures[1].display);
    const PictureText read = readPictures(decoded.pictures, "eng", nullptr, kBlurayFrame);
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 2u);
    EXPECT_EQ(read.captions[0].text, texts[0].text);
    EXPECT_EQ(read.captions[0].alignment, 8);
    EXPECT_EQ(read.captions[1].text, texts[1].text);
    EXPECT_EQ(read.captions[1].alignment, 2);
    for (const PictureCaption& caption : read.captions) {
        EXPECT_EQ(caption.start, 1000);
        EXPECT_EQ(caption.end, 3000);
    }
}

TEST(PictureDisplays, CaptionsAlignedLeftOrRightKeepTheirPlace)
{
    std::vector<CaptionText> texts(2);
    texts[0] = {1000, 1000, QStringLiteral("On the left")};
    texts[1] = {3000, 1000, QStringLiteral("On the right")};
    std::vector<PgsPicture> pictures = bluray(texts);
    pictures[0].position.setX(100);
    pictures[1].position.setX(kBlurayFrame.width() - 100 - pictures[1].image.width());
    const PictureCaptions decoded =
        readPictureCaptions(zemsub::samplegen::writePgs(pictures, kBlurayFrame), "sides.sup", -1);
    const PictureText read = readPictures(decoded.pictures, "eng", nullptr, kBlurayFrame);
    ASSERT_EQ(read.captions.size(), 2u);
    EXPECT_EQ(read.captions[0].alignment, 1);
    EXPECT_EQ(read.captions[1].alignment, 3);
}

TEST(PictureDisplays, AForcedCompositionIsKnownAsSuch)
{
    std::vector<PgsPicture> pictures = bluray(threeCaptions());
    pictures[2].forced = true;
    const PictureCaptions decoded =
        readPictureCaptions(zemsub::samplegen::writePgs(pictures, kBlurayFrame), "forced.sup", -1);
    ASSERT_EQ(decoded.pictures.size(), 3u);
    EXPECT_FALSE(decoded.pictures[0].forced);
    EXPECT_TRUE(decoded.pictures[2].forced);
}

TEST(PictureDisplays, ADisplaySetRepeatedGoesOnAsOneCaption)
{
    std::vector<PgsPicture> pictures = bluray(threeCaptions());
    PgsPicture again = pictures[0];
    pictures[0].end = pictures[0].start; // no clearing: the repeat replaces it
    again.start = pictures[0].start + 1000;
    pictures.insert(pictures.begin() + 1, again);
    const PictureCaptions decoded =
        readPictureCaptions(zemsub::samplegen::writePgs(pictures, kBlurayFrame), "again.sup", -1);
    ASSERT_EQ(decoded.pictures.size(), 3u);
    EXPECT_EQ(decoded.pictures[0].start, 1000);
    EXPECT_EQ(decoded.pictures[0].end, 3000);
}

// A picture of marks that are no letters: dots, or a bar.
QImage marks(bool bar)
{
    QImage image(bar ? 300 : 60, bar ? 10 : 14, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    if (bar)
        painter.drawRect(0, 0, 300, 10);
    else
        for (int x = 0; x < 60; x += 24)
            painter.drawEllipse(x, 0, 12, 12);
    return image;
}

TEST(PictureDisplays, GraphicsBetweenCaptionsAreLeftOutAndListed)
{
    std::vector<PgsPicture> pictures = bluray(threeCaptions());
    PgsPicture dots{2000, 3200, QPoint(900, 1000), marks(false), {}};
    PgsPicture bar{5100, 5900, QPoint(800, 1000), marks(true), {}};
    pictures[0].end = 2000;
    pictures[1].end = 5100;
    pictures.insert(pictures.begin() + 1, dots);
    pictures.insert(pictures.begin() + 3, bar);
    const QByteArray sup = zemsub::samplegen::writePgs(pictures, kBlurayFrame);
    const PictureText read = readPictureText(sup, "marks.sup", -1, "eng");
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), 3u);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(read.captions[i].text, threeCaptions()[i].text) << i;
    ASSERT_EQ(read.leftOut.size(), 2u);
    EXPECT_EQ(read.leftOut[0].start, 2000);
    EXPECT_EQ(read.leftOut[0].end, 3200);
    EXPECT_EQ(read.leftOut[0].place.size(), QSize(60, 14));
    EXPECT_FALSE(read.leftOut[0].why.isEmpty());
    EXPECT_EQ(read.leftOut[1].start, 5100);
}

} // namespace

namespace {

TEST(PictureDisplays, TheCheckFailsACopyThatStacksCaptionsAndPassesOneThatDoesNot)
{
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = vobSubWithLongestStops(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    // What a copy holds when every subpicture stays until its 0xFFFF stop: each caption with all before it.
    const std::string stacked = dir.write(
        "stacked.srt", "1\n00:00:01,000 --> 00:00:03,500\nWho goes there?\n\n"
                       "2\n00:00:03,500 --> 00:00:06,000\nA friend of the sea.\nWho goes there?\n\n"
                       "3\n00:00:06,000 --> 00:12:26,642\nThen come aboard!\nA friend of the sea.\nWho goes there?\n\n");
    const zemsubfix::FixReport old =
        zemsubfix::checkCopyFile(QString::fromStdString(index), QString::fromStdString(stacked), {});
    ASSERT_TRUE(old.readable) << old.error.toStdString();
    ASSERT_EQ(old.captions.size(), 3u);
    EXPECT_TRUE(old.captions[0].textShown);
    EXPECT_FALSE(old.captions[1].textShown);
    EXPECT_FALSE(old.captions[2].textShown);
    EXPECT_NE(old.exitCode(), 0);

    const QString copy = QString::fromStdString(dir.file("copy.srt"));
    const zemsubfix::FixReport fixed = zemsubfix::fixFile(QString::fromStdString(index), copy, {});
    ASSERT_TRUE(fixed.readable) << fixed.error.toStdString();
    EXPECT_EQ(fixed.exitCode(), 0);
    const zemsubfix::FixReport again = zemsubfix::checkCopyFile(QString::fromStdString(index), copy, {});
    EXPECT_EQ(again.exitCode(), 0);
    // A copy whose second caption starts late fails too.
    QByteArray shifted = fixed.copy;
    shifted.replace("00:00:03,500 -->", "00:00:03,900 -->");
    ASSERT_NE(shifted, fixed.copy);
    const std::string late = dir.write("late.srt", shifted.toStdString());
    const zemsubfix::FixReport lateReport =
        zemsubfix::checkCopyFile(QString::fromStdString(index), QString::fromStdString(late), {});
    EXPECT_FALSE(lateReport.captions.at(1).textShown);
}

} // namespace

namespace {

TEST(PictureDisplays, ABroadcastCaptureIsShownOnThePlayersClockOneDisplayAtATime)
{
    // DVB subtitles beside a video in MPEG-TS whose clock starts an hour in, as a capture's does.
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = makeTextVobSub(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    error = runFfmpeg(dir.path(), {"-f", "lavfi", "-i", "color=c=black:s=720x576:d=10:r=25", "-i",
                                   QString::fromStdString(index), "-map", "0:v", "-map", "1:s", "-c:v",
                                   "mpeg2video", "-c:s", "dvbsub", "-output_ts_offset", "3600", "-f", "mpegts",
                                   "capture.ts"});
    ASSERT_TRUE(error.isEmpty()) << error.toStdString();
    const std::string capture = dir.file("capture.ts");
    const PictureCaptions decoded = readPictureCaptions(readAll(capture), "capture.ts", 0);
    ASSERT_TRUE(decoded.read) << decoded.failure.toStdString();
    EXPECT_EQ(decoded.codec, "dvbsub");
    EXPECT_GT(decoded.origin, 3600000);
    const PictureText read = readPictures(decoded.pictures, "eng", nullptr, decoded.frame);
    ASSERT_TRUE(read.read) << read.failure.toStdString();
    ASSERT_EQ(read.captions.size(), captions.size());
    for (size_t i = 0; i < captions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read.captions[i].text, captions[i].text);
        EXPECT_NEAR(double(read.captions[i].start), double(captions[i].start), 1.0);
        EXPECT_NEAR(double(read.captions[i].end), double(dvdEnd(captions[i].start, captions[i].duration)), 1.0);
    }
}

} // namespace

namespace {

TEST(PictureDisplays, TheTrackListCountsForcedCaptions)
{
    TempDir dir;
    std::vector<PgsPicture> pictures = bluray(threeCaptions());
    pictures[0].forced = true;
    pictures[2].forced = true;
    const std::string sup = dir.write("forced.sup", zemsub::samplegen::writePgs(pictures, kBlurayFrame).toStdString());
    QString error;
    const std::vector<zemsubfix::TrackInfo> tracks = zemsubfix::listTracks(QString::fromStdString(sup), &error);
    ASSERT_EQ(tracks.size(), 1u) << error.toStdString();
    EXPECT_EQ(tracks[0].captions, 3);
    EXPECT_EQ(tracks[0].forcedCaptions, 2);
}

} // namespace

namespace {

TEST(PictureDisplays, TheReportSaysWhatEndsALastDisplayNeverCleared)
{
    TempDir dir;
    const std::vector<CaptionText> captions = threeCaptions();
    QString error;
    const std::string index = vobSubWithLongestStops(dir, captions, &error);
    ASSERT_FALSE(index.empty()) << error.toStdString();
    const zemsubfix::PlainReport plain = zemsubfix::convertFile(QString::fromStdString(index),
                                                               QString::fromStdString(dir.file("plain.srt")), {});
    ASSERT_EQ(plain.exitCode(), 0) << plain.error.toStdString();
    EXPECT_EQ(plain.lastDisplayEnd, "its reading time");
    ASSERT_EQ(plain.captions.size(), 3u);
    EXPECT_EQ(plain.captions[2].end, readingTimeEnd(captions[2].start, int(captions[2].text.size())));
    const zemsubfix::FixReport fixed =
        zemsubfix::fixFile(QString::fromStdString(index), QString::fromStdString(dir.file("fixed.srt")), {});
    EXPECT_EQ(fixed.lastDisplayEnd, "its reading time");

    // Cleared by its own stop, it says nothing.
    TempDir other;
    const std::string stopped = makeTextVobSub(other, captions, &error);
    ASSERT_FALSE(stopped.empty()) << error.toStdString();
    const zemsubfix::PlainReport clean = zemsubfix::convertFile(QString::fromStdString(stopped),
                                                               QString::fromStdString(other.file("plain.srt")), {});
    EXPECT_TRUE(clean.lastDisplayEnd.isEmpty());
}

} // namespace
