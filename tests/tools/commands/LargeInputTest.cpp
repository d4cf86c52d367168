// Inputs are read by FFmpeg as players read them, never held in memory: a file
// of more than 4 GiB is read by both Qt builds, at the memory a small one costs.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QFile>
#    include <QProcessEnvironment>
#    include <gtest/gtest.h>

#    include <string>
#    include <fcntl.h>
#    include <sys/resource.h>
#    include <sys/wait.h>
#    include <unistd.h>
#    include <vector>

namespace {

struct Measured
{
    int exitCode = -1;
    long peakKiB = -1; // the child's largest resident size
};

// Runs zemsub with args in dir, its output thrown away, and measures it.
Measured runMeasured(const std::vector<std::string>& args, const std::string& dir)
{
    std::vector<std::string> environment;
    const QProcessEnvironment tools = toolEnvironment();
    for (const QString& key : tools.keys())
        environment.push_back((key + QLatin1Char('=') + tools.value(key)).toStdString());
    std::vector<char*> argv{const_cast<char*>(ZEMSUB_TOOL_BINARY)};
    for (const std::string& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (std::string& entry : environment)
        envp.push_back(entry.data());
    envp.push_back(nullptr);

    Measured measured;
    const pid_t child = fork();
    if (child == 0) {
        if (chdir(dir.c_str()) != 0)
            _exit(127);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        dup2(null, 2);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child > 0 && wait4(child, &status, 0, &usage) == child && WIFEXITED(status)) {
        measured.exitCode = WEXITSTATUS(status);
        measured.peakKiB = usage.ru_maxrss;
    }
    return measured;
}

// A copy of the sample that ends in a hole: over 4 GiB long, hardly any of it on disk.
void writeWithHole(const std::string& path)
{
    ASSERT_TRUE(QFile::copy(sample(QStringLiteral("words.sup")), QString::fromStdString(path)));
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.resize((4LL << 30) + (256LL << 20)));
}

} // namespace

TEST(ZemsubLargeInput, FileOverFourGibibytesIsReadAtTheMemoryOfASmallOne)
{
    TempDir dir;
    ASSERT_TRUE(QFile::copy(sample(QStringLiteral("words.sup")), QString::fromStdString(dir.file("small.sup"))));
    writeWithHole(dir.file("large.sup"));

    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"tracks"}, std::vector<std::string>{"fix", "-o", "copy.srt"},
          std::vector<std::string>{"convert", "--overwrite", "-o", "plain.srt"}}) {
        std::vector<std::string> small = command;
        small.push_back("small.sup");
        std::vector<std::string> large = command;
        large.push_back("large.sup");
        const Measured smallRun = runMeasured(small, dir.path());
        const Measured largeRun = runMeasured(large, dir.path());
        SCOPED_TRACE(command.front());
        ASSERT_GE(smallRun.exitCode, 0);
        EXPECT_NE(smallRun.exitCode, 1);
        EXPECT_EQ(largeRun.exitCode, smallRun.exitCode);
        // The pages of the file are not the process's: a mapped or read-in file would add gigabytes.
        EXPECT_LT(largeRun.peakKiB, smallRun.peakKiB + 32 * 1024);
    }
}

TEST(ZemsubLargeInput, LargeFileGivesTheSameTracksAndCopy)
{
    TempDir dir;
    ASSERT_TRUE(QFile::copy(sample(QStringLiteral("words.sup")), QString::fromStdString(dir.file("small.sup"))));
    writeWithHole(dir.file("large.sup"));

    const RunResult smallTracks = runZemsub({"tracks", "small.sup"}, qs(dir.path()));
    const RunResult largeTracks = runZemsub({"tracks", "large.sup"}, qs(dir.path()));
    ASSERT_EQ(smallTracks.exitCode, 0) << smallTracks.err.toStdString();
    EXPECT_EQ(largeTracks.exitCode, 0) << largeTracks.err.toStdString();
    EXPECT_EQ(largeTracks.out.mid(largeTracks.out.indexOf(QLatin1Char(':'))),
              smallTracks.out.mid(smallTracks.out.indexOf(QLatin1Char(':'))));

    const RunResult smallFix = runZemsub({"convert", "small.sup", "-o", "small.srt"}, qs(dir.path()));
    const RunResult largeFix = runZemsub({"convert", "large.sup", "-o", "large.srt"}, qs(dir.path()));
    ASSERT_EQ(smallFix.exitCode, 0) << smallFix.err.toStdString();
    ASSERT_EQ(largeFix.exitCode, 0) << largeFix.err.toStdString();
    QFile smallCopy(qs(dir.file("small.srt")));
    QFile largeCopy(qs(dir.file("large.srt")));
    ASSERT_TRUE(smallCopy.open(QIODevice::ReadOnly));
    ASSERT_TRUE(largeCopy.open(QIODevice::ReadOnly));
    const QByteArray expected = smallCopy.readAll();
    EXPECT_FALSE(expected.isEmpty());
    EXPECT_EQ(largeCopy.readAll(), expected);
}

#endif
