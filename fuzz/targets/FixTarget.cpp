// zemsubfix on any bytes. The first byte picks the input's name (bits 0-1) and
// the copy's format (bits 2-3); the rest is the file. Fix either says the file
// cannot be read or writes a copy that the library opens (unless it passes the
// line limit, which the report then names). When the original's captions
// neither overlap nor repeat, the copy, read back the same way, holds exactly
// those captions: the same texts, the same starts, ends one millisecond early.
// A caption with times outside what the library holds (0 up to the largest
// 32-bit millisecond) is cut to that range and reported "time-range", never
// moved silently. The plain copy (convert; its format from bits 4-5) reads the
// file the same way, is UTF-8, and holds only captions that last.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <vector>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "ZemsubConvert.h"
#include "ZemsubFix.h"

namespace zemsub::fuzz {
namespace {

const char* const kInputNames[4] = {"in.srt", "in.ass", "in.ssa", "in.txt"};
const zemsubfix::PlainFormat kPlainFormats[3] = {zemsubfix::PlainFormat::SubRip, zemsubfix::PlainFormat::Ass,
                                                  zemsubfix::PlainFormat::WebVtt};
const zemsubfix::CopyFormat kFormats[4] = {zemsubfix::CopyFormat::SubRip, zemsubfix::CopyFormat::Ass,
                                           zemsubfix::CopyFormat::Ssa, zemsubfix::CopyFormat::SubRip};

// One past the latest millisecond that the library's 32-bit times hold.
constexpr long long kHeldEnd = 2147483648LL;

bool hasReason(const zemsubfix::CaptionOutcome& caption, const char* code)
{
    for (const zemsubfix::Reason& reason : caption.reasons) {
        if (reason.code == QLatin1String(code))
            return true;
    }
    return false;
}

struct Caption
{
    long long start;
    long long end;
    QString text;
};

QString plain(const QString& text)
{
    QString shown = text;
    shown.remove(QChar(0x2060));
    shown.replace(QChar(0x2028), QLatin1Char('\n'));
    shown.remove(QLatin1Char('\r'));
    shown.remove(QChar(0));
    QStringList lines = shown.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.trimmed();
    return lines.join(QLatin1Char('\n'));
}

// The captions a player shows, in time order, within the times the library holds.
std::vector<Caption> shownCaptions(const zemsubfix::FixReport& report)
{
    std::vector<Caption> captions;
    for (const zemsubfix::CaptionOutcome& caption : report.captions) {
        const QString text = plain(caption.text);
        const long long start = std::clamp(caption.start, 0LL, kHeldEnd);
        const long long end = std::clamp(caption.end, 0LL, kHeldEnd);
        if (end > start && !text.trimmed().isEmpty())
            captions.push_back({start, end, text});
    }
    std::stable_sort(captions.begin(), captions.end(),
                     [](const Caption& a, const Caption& b) { return a.start < b.start; });
    return captions;
}

// Captions that a copy holds one for one: no overlaps, no touching repeats, no
// caption shorter than 2 ms (its copy lasts one millisecond less).
bool oneForOne(const std::vector<Caption>& captions)
{
    for (size_t i = 0; i < captions.size(); ++i) {
        if (captions[i].end - captions[i].start < 2 || captions[i].text.contains(QLatin1Char('<')))
            return false;
        if (i > 0 && captions[i].start < captions[i - 1].end)
            return false;
        if (i > 0 && captions[i].text == captions[i - 1].text)
            return false;
    }
    return true;
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_fix(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    if (size < 1)
        return 0;
    const char* name = kInputNames[data[0] & 3];
    zemsubfix::FixOptions options;
    options.format = kFormats[(data[0] >> 2) & 3];
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), int(size - 1));

    const zemsubfix::FixReport report = zemsubfix::fixBuffer(bytes, QString::fromLatin1(name), options);
    // The plain copy reads the same file the same way, and writes UTF-8.
    const zemsubfix::PlainFormat plainFormat = kPlainFormats[(data[0] >> 4) % 3];
    const zemsubfix::PlainReport plain = zemsubfix::convertBuffer(bytes, QString::fromLatin1(name), plainFormat, {});
    FUZZ_CHECK(plain.readable == report.readable);
    FUZZ_CHECK(plain.readable || plain.copy.isEmpty());
    FUZZ_CHECK(QString::fromUtf8(plain.copy).toUtf8() == plain.copy);
    for (const zemsubfix::PlainCaption& caption : plain.captions)
        FUZZ_CHECK(caption.end > caption.start && caption.alignment >= 1 && caption.alignment <= 9);
    if (!report.readable) {
        FUZZ_CHECK(!report.error.isEmpty());
        FUZZ_CHECK(report.copy.isEmpty());
        return 0;
    }
    FUZZ_CHECK(report.error.isEmpty());
    FUZZ_CHECK(report.copyOpens || report.copyLines > 20000);
    for (const zemsubfix::CaptionOutcome& caption : report.captions) {
        FUZZ_CHECK(caption.asWritten() || !caption.reasons.empty());
        // A script copy writes its ends in hundredths: the last whole one within 32 bits.
        const long long heldEnd = options.format == zemsubfix::CopyFormat::SubRip ? kHeldEnd : 2147483640LL;
        const bool outside = caption.end > caption.start && (caption.start < 0 || caption.end > heldEnd);
        FUZZ_CHECK(hasReason(caption, "time-range") == outside);
    }
    FUZZ_CHECK(report.exitCode() == (report.allAsWritten() ? 0 : 3));

    if (options.format != zemsubfix::CopyFormat::SubRip || !report.copyOpens)
        return 0;
    const std::vector<Caption> original = shownCaptions(report);
    if (!oneForOne(original))
        return 0;
    const zemsubfix::FixReport again = zemsubfix::fixBuffer(report.copy, QStringLiteral("copy.srt"), {});
    FUZZ_CHECK(again.readable);
    const std::vector<Caption> copy = shownCaptions(again);
    FUZZ_CHECK(copy.size() == original.size());
    for (size_t i = 0; i < copy.size() && i < original.size(); ++i) {
        FUZZ_CHECK(copy[i].start == original[i].start);
        FUZZ_CHECK(copy[i].end == original[i].end - 1);
        FUZZ_CHECK(copy[i].text == original[i].text);
    }
    return 0;
}
