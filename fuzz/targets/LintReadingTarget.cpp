// lint's whole reading of a file: FFmpeg's demuxing and decoding from memory,
// uchardet's guess, the line facts and the joining of the two. The first byte
// picks the file name FFmpeg probes with and an encoding to force; the rest is
// the file. Every input must be read or refused with a reason, in bounded time,
// and what is read must hold together.
#include <QByteArray>
#include <QString>

#include <chrono>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "reading/ReadWrittenFile.h"

namespace {

const char* const kNames[] = {"in.srt", "in.ass", "in.ssa", "in.vtt", "in.sub", "in.txt"};
// Empty: detected. The others are forced, an unknown name among them.
const char* const kEncodings[] = {"", "", "", "", "WINDOWS-1252", "UTF-16LE", "ISO-8859-7", "NO-SUCH-CODE"};

// Far above what any input of the fuzzer's sizes takes, also under the sanitizers.
constexpr auto kTimeLimit = std::chrono::seconds(10);

} // namespace

int fuzz_lint_reading(const uint8_t* data, size_t size)
{
    using namespace zemsub::tool;
    const uint8_t selector = size > 0 ? data[0] : 0;
    const QString name = QString::fromLatin1(kNames[selector % 6]);
    const QString encoding = QString::fromLatin1(kEncodings[(selector / 6) % 8]);
    const QByteArray bytes =
        size > 1 ? QByteArray(reinterpret_cast<const char*>(data + 1), int(size - 1)) : QByteArray();

    const auto started = std::chrono::steady_clock::now();
    const WrittenFile file = readWrittenFile(bytes, name, encoding);
    FUZZ_CHECK(std::chrono::steady_clock::now() - started < kTimeLimit);

    if (file.failed()) {
        FUZZ_CHECK(!file.failure.isEmpty());
        FUZZ_CHECK(file.kind == WrittenKind::Unknown);
        FUZZ_CHECK(file.blocks.empty());
        return 0;
    }
    FUZZ_CHECK(file.kind != WrittenKind::Unknown);
    FUZZ_CHECK(file.refusedEvents >= 0);
    FUZZ_CHECK(!file.pictures || file.blocks.empty());
    int previousLine = 0;
    for (size_t i = 0; i < file.blocks.size(); ++i) {
        const WrittenBlock& block = file.blocks[i];
        FUZZ_CHECK(block.index == int(i) + 1);
        // Override blocks are gone, and an unclosed one hides the rest.
        FUZZ_CHECK(!block.text.contains(QLatin1Char('{')));
        if (block.sourceFound) {
            FUZZ_CHECK(block.line >= 1 && block.line <= file.lineCount);
            FUZZ_CHECK(block.line > previousLine); // file order, one event per line
            previousLine = block.line;
        } else {
            FUZZ_CHECK(block.line == 0);
        }
    }
    return 0;
}
