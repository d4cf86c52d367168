#include "PictureText.h"

#include "OcrCorrections.h"
#include "OcrLanguage.h"
#include "TextReader.h"
#include "reading/TrackInput.h"

#include <QCryptographicHash>
#include <QHash>
#include <QVector>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace zemsub::tool {

namespace {

const QSize kLeastFrame(720, 480);

// Pictures are told apart by a digest of their size, palette and pixels.
QByteArray digestOf(const QImage& image)
{
    QCryptographicHash digest(QCryptographicHash::Sha1);
    digest.addData(QByteArray::number(image.width()) + 'x' + QByteArray::number(image.height()) + ':' +
                   QByteArray::number(int(image.format())) + ':');
    const QVector<QRgb> table = image.colorTable();
    digest.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(table.constData()),
                                           int(table.size() * sizeof(QRgb))));
    digest.addData(
        QByteArray::fromRawData(reinterpret_cast<const char*>(image.constBits()), int(image.sizeInBytes())));
    return digest.result();
}

QSize frameOf(const std::vector<ShownPicture>& pictures, QSize frame)
{
    if (!frame.isEmpty())
        return frame;
    QSize reached = kLeastFrame;
    for (const ShownPicture& picture : pictures)
        reached = reached.expandedTo(QSize(picture.position.x() + picture.image.width(),
                                           picture.position.y() + picture.image.height()));
    return reached;
}

} // namespace

bool PictureCaption::italic() const
{
    return !runs.empty() && std::all_of(runs.begin(), runs.end(), [](const TextRun& run) {
        return run.italic || run.text.trimmed().isEmpty();
    });
}

bool PictureCaption::partlyItalic() const
{
    return std::any_of(runs.begin(), runs.end(), [](const TextRun& run) { return run.italic; });
}

int alignmentOf(const QRect& place, QSize frame)
{
    const int row = place.bottom() < frame.height() / 2 ? 7 : 1;
    const int offset = place.center().x() - frame.width() / 2;
    const int column = offset < -frame.width() / 10 ? 0 : offset > frame.width() / 10 ? 2 : 1;
    return row + column;
}

PictureText readPictures(const std::vector<ShownPicture>& pictures, const QString& language,
                         const ReadingProgress& progress, QSize frame)
{
    PictureText result;
    result.language = language;
    result.pictures = int(pictures.size());
    result.frame = frameOf(pictures, frame);
    if (!languageInstalled(language)) {
        result.failure = missingLanguageMessage(language);
        return result;
    }
    // An identical picture is read once.
    QHash<QByteArray, int> seen;
    std::vector<int> readingOf(pictures.size());
    std::vector<const QImage*> distinct;
    for (size_t i = 0; i < pictures.size(); ++i) {
        const QByteArray key = digestOf(pictures[i].image);
        const auto known = seen.constFind(key);
        if (known != seen.constEnd()) {
            readingOf[i] = *known;
        } else {
            readingOf[i] = int(distinct.size());
            seen.insert(key, int(distinct.size()));
            distinct.push_back(&pictures[i].image);
        }
    }
    result.distinct = int(distinct.size());
    const QSet<QString>* words = &wordList(language);

    std::vector<PictureReading> readings(distinct.size());
    std::atomic<size_t> next{0};
    std::mutex progressLock;
    int done = 0;
    auto told = std::chrono::steady_clock::now();
    auto tell = [&] {
        if (!progress)
            return;
        const std::lock_guard<std::mutex> lock(progressLock);
        ++done;
        const auto now = std::chrono::steady_clock::now();
        if (done == int(distinct.size()) || now - told >= std::chrono::milliseconds(100)) {
            told = now;
            progress(done, int(distinct.size()));
        }
    };
    std::atomic<bool> failed{false};
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    const unsigned workers = unsigned(std::min<size_t>(cores, std::max<size_t>(1, distinct.size())));
    std::vector<std::thread> threads;
    for (unsigned w = 0; w < workers; ++w) {
        threads.emplace_back([&] {
            TextReader reader;
            if (!reader.open(language)) {
                failed = true;
                return;
            }
            for (size_t i = next++; i < distinct.size(); i = next++) {
                readings[i] = readPicture(reader, *distinct[i], result.frame.height(), language, words);
                tell();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    if (failed) {
        result.failure = QStringLiteral("Tesseract cannot load its data for %1 (in %2)")
                             .arg(language, languageDataFolder());
        return result;
    }
    for (size_t i = 0; i < pictures.size(); ++i) {
        const ShownPicture& picture = pictures[i];
        const PictureReading& reading = readings[size_t(readingOf[i])];
        const QRect place(picture.position, picture.image.size());
        long long end = picture.end;
        if (picture.ended == DisplayEnd::ReadingTime)
            end = readingTimeEnd(picture.start, int(reading.text.size()));
        if (!reading.graphic.isEmpty()) {
            result.leftOut.push_back(LeftOutPicture{picture.start, end, place, reading.graphic, int(i)});
            continue;
        }
        PictureCaption caption;
        caption.start = picture.start;
        caption.end = end;
        caption.text = reading.text;
        caption.confidence = reading.confidence;
        caption.picture = int(i);
        caption.display = picture.display;
        caption.forced = picture.forced;
        caption.runs = reading.runs;
        caption.narrowItalic = reading.narrowItalic;
        caption.place = place;
        caption.alignment = alignmentOf(place, result.frame);
        caption.ended = picture.ended;
        result.captions.push_back(caption);
    }
    result.read = true;
    return result;
}

PictureText readPictureText(const QByteArray& bytes, const QString& fileName, int track, const QString& language,
                            const ReadingProgress& progress, std::vector<ShownPicture>* pictures)
{
    const TrackInput input = openTrack(MediaInput(bytes, fileName), TrackRequest{track, QString(), true});
    if (!input.chosen()) {
        PictureText refused;
        refused.failure = chosenTrackFailure(input);
        return refused;
    }
    return readPictureText(*input.demuxed, input.choice.index, language, progress, pictures);
}

PictureText readPictureText(DemuxedInput& input, int track, const QString& language,
                            const ReadingProgress& progress, std::vector<ShownPicture>* pictures)
{
    PictureCaptions decoded = readPictureCaptions(input, track);
    if (!decoded.read) {
        PictureText result;
        result.failure = decoded.failure;
        return result;
    }
    QSize frame = decoded.frame;
    if (decoded.codec == QLatin1String("pgssub") && frame.isEmpty())
        frame = QSize(1920, 1080);
    PictureText result = readPictures(decoded.pictures, language, progress, frame);
    result.codec = decoded.codec;
    if (pictures)
        *pictures = std::move(decoded.pictures);
    return result;
}

} // namespace zemsub::tool
