// fix's check and lint ask the library at the same moments (playback/CaptionProbes.h):
// on every sample and every file of the quirk set, and on fix's copies of them, they
// find the same captions not shown as written.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "fix/ZemsubFix.h"
#    include "support/TestFiles.h"

#    include <QDir>
#    include <QFileInfo>
#    include <QProcess>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

#    include <set>
#    include <string>

namespace {

// The samples lint reads as text, then the quirk set written by tools/make-quirk-set.py.
QStringList filesToJudge(const TempDir& dir)
{
    QStringList files;
    const QDir samples(sample(QString()));
    for (const QFileInfo& file :
         samples.entryInfoList({"*.srt", "*.ass", "*.ssa"}, QDir::Files, QDir::Name))
        files << file.filePath();
    QProcess make;
    make.start(QStringLiteral("python3"),
               {QStringLiteral(ZEMSUB_SOURCE_DIR "/tools/make-quirk-set.py"), qs(dir.path())});
    make.waitForFinished(60000);
    EXPECT_EQ(make.exitCode(), 0) << make.readAllStandardError().toStdString();
    for (const QFileInfo& file : QDir(qs(dir.path())).entryInfoList(QDir::Files, QDir::Name))
        files << file.filePath();
    return files;
}

struct Verdict
{
    bool read = false;
    std::set<int> notShown;       // captions, from 1 in the file's order
    std::set<std::string> causes; // the codes named for them
};

Verdict lintVerdict(const QString& path)
{
    const RunResult run = runZemsub({"lint", "--json", path});
    Verdict verdict;
    verdict.read = run.exitCode == 0 || run.exitCode == 3;
    if (!verdict.read)
        return verdict;
    const nlohmann::json report = nlohmann::json::parse(run.out.toStdString());
    for (const auto& finding : report["findings"]) {
        verdict.notShown.insert(finding["caption"].get<int>());
        for (const auto& cause : finding["causes"])
            verdict.causes.insert(cause["code"].get<std::string>());
    }
    return verdict;
}

// Captions on screen together: the check holds them to the stacked lines a
// player shows, lint each to its own text, so they may name different ones.
std::set<int> overlapping(const zemsubfix::FixReport& report)
{
    std::set<int> found;
    for (const auto& a : report.captions)
        for (const auto& b : report.captions)
            if (a.index != b.index && a.start < b.end && b.start < a.end && a.end > a.start && b.end > b.start)
                found.insert(a.index);
    return found;
}

TEST(ProbeAgreement, FixsCheckOfAFileAndLintFindTheSameCaptionsNotShown)
{
    TempDir dir;
    int compared = 0;
    for (const QString& path : filesToJudge(dir)) {
        SCOPED_TRACE(path.toStdString());
        // The check opens a copy under its format's name; the library goes by the name.
        if (!QStringList{"srt", "ass", "ssa"}.contains(QFileInfo(path).suffix()))
            continue;
        const Verdict lint = lintVerdict(path);
        zemsubfix::FixOptions options;
        options.format = zemsubfix::formatForPath(path);
        const zemsubfix::FixReport check = zemsubfix::checkCopyFile(path, path, options);
        ASSERT_EQ(check.readable, lint.read) << check.error.toStdString();
        if (!lint.read)
            continue;
        const std::set<int> together = overlapping(check);
        std::set<int> checkNotShown;
        for (const zemsubfix::CaptionOutcome& caption : check.captions) {
            if (!caption.textShown && caption.end > caption.start && !caption.text.trimmed().isEmpty() &&
                !together.count(caption.index))
                checkNotShown.insert(caption.index);
        }
        std::set<int> lintNotShown;
        for (int caption : lint.notShown) {
            if (!together.count(caption))
                lintNotShown.insert(caption);
        }
        EXPECT_EQ(checkNotShown, lintNotShown);
        compared += int(check.captions.size() - together.size());
    }
    EXPECT_GT(compared, 5000);
}

// fix's verdict on its copy, and lint's on that copy: the same causes, apart from
// those of times the copy cannot carry as the original has them (lint of the copy
// sees only the copy's own times).
TEST(ProbeAgreement, FixsCopiesShowForLintWhatFixSaysTheyShow)
{
    TempDir dir;
    TempDir copies;
    const std::set<std::string> timesNotCarried = {"time-range", "time-precision"};
    int judged = 0;
    for (const QString& path : filesToJudge(dir)) {
        for (const char* format : {"srt", "ass"}) {
            SCOPED_TRACE(path.toStdString() + " as " + format);
            const QString copy = qs(copies.file(std::string("copy.") + format));
            QFile::remove(copy);
            const RunResult fix = runZemsub({"fix", "--json", path, "-o", copy});
            if (fix.exitCode == 1)
                continue; // not read: no copy
            ASSERT_TRUE(fix.exitCode == 0 || fix.exitCode == 3) << fix.err.toStdString();
            const nlohmann::json report = nlohmann::json::parse(fix.out.toStdString());
            std::set<std::string> fixCauses;
            for (const auto& outcome : report["outcomes"]) {
                if (outcome["textShown"].get<bool>())
                    continue;
                for (const auto& reason : outcome["reasons"]) {
                    if (!timesNotCarried.count(reason["code"].get<std::string>()))
                        fixCauses.insert(reason["code"].get<std::string>());
                }
            }
            const Verdict lint = lintVerdict(copy);
            ASSERT_TRUE(lint.read);
            EXPECT_EQ(fixCauses, lint.causes);
            EXPECT_EQ(fixCauses.empty(), lint.notShown.empty());
            ++judged;
        }
    }
    EXPECT_GT(judged, 60);
}

} // namespace

#endif
