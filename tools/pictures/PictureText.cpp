#include "PictureText.h"

#include "OcrCorrections.h"
#include "OcrLanguage.h"
#include "PicturePrep.h"
#include "TextReader.h"

#include <QCryptographicHash>
#include <QHash>
#include <QVector>
#include <QStringList>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace zemsub::tool {

namespace {

struct Reading
{
    QString text;
    int confidence = 100;
};

Reading readPicture(TextReader& reader, const QImage& picture, const QSet<QString>* words)
{
    Reading reading;
    QStringList lines;
    for (const QImage& line : textLines(textFill(picture))) {
        const ReadLine read = reader.read(line);
        const QString text = correctReading(read.text, words);
        if (text.isEmpty())
            continue;
        lines << text;
        reading.confidence = std::min(reading.confidence, read.confidence);
    }
    reading.text = lines.join(QLatin1Char('\n'));
    if (reading.text.isEmpty())
        reading.confidence = 0;
    return reading;
}

} // namespace

PictureText readPictures(const std::vector<ShownPicture>& pictures, const QString& language,
                         const ReadingProgress& progress)
{
    PictureText result;
    result.language = language;
    result.pictures = int(pictures.size());
    if (!languageInstalled(language)) {
        result.failure = missingLanguageMessage(language);
        return result;
    }
    // An identical picture is read once.
    QHash<QByteArray, int> seen;
    std::vector<int> readingOf(pictures.size());
    std::vector<const QImage*> distinct;
    for (size_t i = 0; i < pictures.size(); ++i) {
        const QImage& image = pictures[i].image;
        // Pictures are told apart by a digest of their size, palette and pixels.
        QCryptographicHash digest(QCryptographicHash::Sha1);
        digest.addData(QByteArray::number(image.width()) + 'x' + QByteArray::number(image.height()) + ':' +
                       QByteArray::number(int(image.format())) + ':');
        const QVector<QRgb> table = image.colorTable();
        digest.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(table.constData()),
                                               int(table.size() * sizeof(QRgb))));
        digest.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(image.constBits()),
                                               int(image.sizeInBytes())));
        const QByteArray key = digest.result();
        const auto known = seen.constFind(key);
        if (known != seen.constEnd()) {
            readingOf[i] = *known;
        } else {
            readingOf[i] = int(distinct.size());
            seen.insert(key, int(distinct.size()));
            distinct.push_back(&image);
        }
    }
    result.distinct = int(distinct.size());
    // The word list helps English only.
    const QSet<QString>* words = language == QLatin1String("eng") ? &englishWords() : nullptr;

    std::vector<Reading> readings(distinct.size());
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
            for (size_t i = next++; i < distinct.size(); i = next++)
            {
                readings[i] = readPicture(reader, *distinct[i], words);
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
        const Reading& reading = readings[size_t(readingOf[i])];
        if (reading.text.isEmpty())
            continue;
        result.captions.push_back(
            PictureCaption{pictures[i].start, pictures[i].end, reading.text, reading.confidence, int(i)});
    }
    result.read = true;
    return result;
}

PictureText readPictureText(const QByteArray& bytes, const QString& fileName, int track, const QString& language,
                            const ReadingProgress& progress)
{
    const PictureCaptions decoded = readPictureCaptions(bytes, fileName, track);
    if (!decoded.read) {
        PictureText result;
        result.failure = decoded.failure;
        return result;
    }
    PictureText result = readPictures(decoded.pictures, language, progress);
    result.codec = decoded.codec;
    return result;
}

} // namespace zemsub::tool
