#include "PictureReading.h"

#include "ItalicSlant.h"
#include "OcrCorrections.h"
#include "PicturePrep.h"
#include "TextReader.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace zemsub::tool {

namespace {

bool holdsLetter(const QString& word)
{
    return std::any_of(word.begin(), word.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

// Whether each word of a line stands in italics. A word of letters enough to
// slant is measured on its own, and decides for itself where its slant is clear
// and, against a line that leans clearly the other way, very clear (digits and
// lone diagonals, as in "7" or "zoo", lean without being italic). The other
// words go with the nearest word that decided, else with the line.
std::vector<bool> italicWords(const QImage& mask, const LineCut& cut, const ReadLine& read, bool* narrow)
{
    const Slant line = measureSlant(mask, cut.box);
    const size_t count = read.words.size();
    std::vector<int> decided(count, -1); // 1 italic, 0 upright, -1 not decided
    for (size_t i = 0; i < count; ++i) {
        const ReadWord& word = read.words[i];
        int letters = 0;
        for (QChar c : word.text)
            letters += c.isLetter();
        if (letters < kLeastSlantLetters || word.box.isEmpty())
            continue;
        const Slant own = measureSlant(mask, cut.onMask(word.box));
        const bool against = own.italic != line.italic && line.margin >= kClearSlant;
        if (own.margin >= (against ? kClearSlant : kNarrowSlant))
            decided[i] = own.italic ? 1 : 0;
        else
            *narrow = true;
    }
    std::vector<bool> italic(count, line.italic);
    bool anyDecided = false;
    for (size_t i = 0; i < count; ++i) {
        anyDecided = anyDecided || decided[i] >= 0;
        // The nearest that decided: before it first, then after.
        for (size_t distance = 0; distance < count; ++distance) {
            if (i >= distance && decided[i - distance] >= 0) {
                italic[i] = decided[i - distance] == 1;
                break;
            }
            if (i + distance < count && decided[i + distance] >= 0) {
                italic[i] = decided[i + distance] == 1;
                break;
            }
        }
    }
    if (!anyDecided && count > 0 && line.margin < kNarrowSlant)
        *narrow = true;
    return italic;
}

// The words of the corrected line with the flags of the words read: one for one
// where the counts agree, else each corrected word takes the flag of the first
// read word it draws its letters from.
std::vector<bool> carryFlags(const QStringList& corrected, const std::vector<ReadWord>& read,
                             const std::vector<bool>& flags)
{
    std::vector<bool> carried(size_t(corrected.size()), false);
    if (flags.empty())
        return carried;
    if (size_t(corrected.size()) == flags.size())
        return flags;
    size_t at = 0;
    int used = 0; // letters of read[at] already taken
    for (int i = 0; i < corrected.size(); ++i) {
        carried[size_t(i)] = flags[std::min(at, flags.size() - 1)];
        int need = int(corrected[i].size());
        while (need > 0 && at < read.size()) {
            const int left = int(read[at].text.size()) - used;
            if (left > need) {
                used += need;
                need = 0;
            } else {
                need -= left;
                used = 0;
                ++at;
            }
        }
    }
    return carried;
}

void addRun(std::vector<TextRun>& runs, const QString& text, bool italic)
{
    if (!runs.empty() && runs.back().italic == italic)
        runs.back().text += text;
    else
        runs.push_back(TextRun{text, italic});
}

} // namespace

PictureReading readPicture(TextReader& reader, const QImage& picture, int frameHeight, const QString& language,
                           const QSet<QString>* words)
{
    PictureReading reading;
    reading.confidence = 100;
    const QImage mask = textFill(picture);
    const std::vector<LineCut> cuts = cutLines(mask, kReadLineHeight);
    int tallest = 0;
    for (const LineCut& cut : cuts)
        tallest = std::max(tallest, cut.box.height());
    if (cuts.empty() || tallest * kLeastLetterShare < frameHeight) {
        reading.confidence = 0;
        reading.graphic = QStringLiteral("ink too small for a letter");
        return reading;
    }
    QStringList lines;
    bool wordRead = false;
    for (const LineCut& cut : cuts) {
        const ReadLine read = reader.read(cut.image);
        const QString text = correctReading(read.text, language, words);
        if (text.isEmpty())
            continue;
        for (const ReadWord& word : read.words)
            wordRead = wordRead || (word.confidence >= kLeastWordConfidence && holdsLetter(word.text));
        const std::vector<bool> flags = italicWords(mask, cut, read, &reading.narrowItalic);
        const QStringList tokens = text.split(QLatin1Char(' '));
        const std::vector<bool> italic = carryFlags(tokens, read.words, flags);
        if (!lines.isEmpty())
            addRun(reading.runs, QStringLiteral("\n"), !reading.runs.empty() && reading.runs.back().italic &&
                                                           !italic.empty() && italic.front());
        for (int i = 0; i < tokens.size(); ++i) {
            if (i > 0)
                addRun(reading.runs, QStringLiteral(" "), italic[size_t(i - 1)] && italic[size_t(i)]);
            addRun(reading.runs, tokens[i], italic[size_t(i)]);
        }
        lines << text;
        reading.confidence = std::min(reading.confidence, read.confidence);
    }
    reading.text = lines.join(QLatin1Char('\n'));
    // Some authoring tools draw the markup itself ("<i>", "</i>"): the drawn tags say
    // what is italic, and no measured italics are added to them.
    static const QRegularExpression drawnTag(QStringLiteral("</?[ibu]>"));
    if (drawnTag.match(reading.text).hasMatch())
        reading.runs = {TextRun{reading.text, false}};
    if (reading.text.isEmpty() || !wordRead) {
        reading.graphic = QStringLiteral("nothing read as a word");
        reading.confidence = reading.text.isEmpty() ? 0 : reading.confidence;
        reading.runs.clear();
    }
    return reading;
}

} // namespace zemsub::tool
