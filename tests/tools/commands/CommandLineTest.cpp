// zemsub's command line: help, version, usage errors (exit 2), unreadable files (exit 1).
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QFile>
#    include <gtest/gtest.h>

#    include <cstring>
#    include <sys/stat.h>
#    include <unistd.h>

namespace {

const QStringList kCommands = {"info", "at", "dump", "render", "sheet", "lint"};

// The arguments that make each command open path.
QStringList argsFor(const QString& command, const QString& path)
{
    if (command == "at")
        return {command, path, "1000"};
    if (command == "render")
        return {command, path, "1000", "-o", path + ".png"};
    if (command == "sheet")
        return {command, path, "-o", path + ".png"};
    return {command, path};
}

TEST(ZemsubCommandLine, NoCommandIsAUsageError)
{
    const RunResult result = runZemsub({});
    ASSERT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains("no command given")) << result.err.toStdString();
    EXPECT_TRUE(result.out.isEmpty());
}

TEST(ZemsubCommandLine, UnknownCommandIsAUsageError)
{
    const RunResult result = runZemsub({"play", sample("film.srt")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains("unknown command \"play\""));
}

TEST(ZemsubCommandLine, GeneralHelpListsEveryCommandAndTheExitCodes)
{
    const RunResult result = runZemsub({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    for (const QString& command : kCommands)
        EXPECT_TRUE(result.out.contains("  " + command + " ")) << command.toStdString();
    EXPECT_TRUE(result.out.contains("3 (lint) the file does not show as written"));
}

TEST(ZemsubCommandLine, VersionIsTheLibraryVersion)
{
    const RunResult result = runZemsub({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "zemsub 0.1.0\n");
}

TEST(ZemsubCommandLine, EverySubcommandAnswersHelpAndVersion)
{
    for (const QString& command : kCommands) {
        const RunResult help = runZemsub({command, "--help"});
        EXPECT_EQ(help.exitCode, 0) << command.toStdString();
        EXPECT_TRUE(help.out.startsWith("Usage: zemsub " + command + " [options]")) << help.out.toStdString();
        EXPECT_TRUE(help.out.contains("--version"));
        const RunResult version = runZemsub({command, "--version"});
        EXPECT_EQ(version.exitCode, 0) << command.toStdString();
        EXPECT_EQ(version.out, "zemsub 0.1.0\n");
    }
}

TEST(ZemsubCommandLine, RenderAndSheetHelpListTheStyleOptions)
{
    for (const QString& command : {QStringLiteral("render"), QStringLiteral("sheet")}) {
        const RunResult help = runZemsub({command, "--help"});
        for (const char* option : {"--size", "--font", "--point", "--style", "--colour", "--pos",
                                   "--transparency", "--background", "-o, --output"})
            EXPECT_TRUE(help.out.contains(option)) << command.toStdString() << " " << option;
    }
}

TEST(ZemsubCommandLine, UnknownOptionIsAUsageError)
{
    for (const QString& command : kCommands) {
        QStringList args = argsFor(command, sample("film.srt"));
        args << "--bogus";
        const RunResult result = runZemsub(args);
        EXPECT_EQ(result.exitCode, 2) << command.toStdString();
        EXPECT_TRUE(result.err.contains("bogus")) << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, MissingArgumentsAreUsageErrors)
{
    EXPECT_EQ(runZemsub({"info"}).exitCode, 2);
    EXPECT_EQ(runZemsub({"dump"}).exitCode, 2);
    EXPECT_EQ(runZemsub({"lint"}).exitCode, 2);
    EXPECT_EQ(runZemsub({"at", sample("film.srt")}).exitCode, 2);
    EXPECT_EQ(runZemsub({"render", sample("film.srt")}).exitCode, 2);
    const RunResult noOutput = runZemsub({"render", sample("film.srt"), "1000"});
    EXPECT_EQ(noOutput.exitCode, 2);
    EXPECT_TRUE(noOutput.err.contains("-o OUT.png is required"));
    EXPECT_EQ(runZemsub({"sheet", sample("film.srt")}).exitCode, 2);
}

TEST(ZemsubCommandLine, ExtraArgumentsAreUsageErrors)
{
    const RunResult result = runZemsub({"info", sample("film.srt"), "more"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains("unexpected argument \"more\""));
    EXPECT_EQ(runZemsub({"render", sample("film.srt"), "1000", "2000", "-o", "x.png"}).exitCode, 2);
}

TEST(ZemsubCommandLine, MalformedTimesAreUsageErrors)
{
    for (const char* time : {"soon", "1:2:3:4", "00:61:00", "00:00:60,000", "1,5"}) {
        const RunResult result = runZemsub({"at", sample("film.srt"), time});
        EXPECT_EQ(result.exitCode, 2) << time;
        EXPECT_TRUE(result.err.contains("is not a time")) << time;
        EXPECT_TRUE(result.out.isEmpty());
    }
}

TEST(ZemsubCommandLine, MalformedStyleValuesAreUsageErrors)
{
    TempDir dir;
    const QString out = QString::fromStdString(dir.file("x.png"));
    const QStringList base = {"render", sample("film.srt"), "2000", "-o", out};
    const QList<QStringList> bad = {
        {"--size", "0x100"},        {"--size", "wide"},   {"--size", "100x99999"},
        {"--colour", "red"},        {"--colour", "0xZZ"}, {"--pos", "10"},
        {"--pos", "a,b"},           {"--point", "0"},     {"--transparency", "half"},
        {"--background", "nosuch"}, {"--spacing", "x"}};
    for (const QStringList& option : bad) {
        const RunResult result = runZemsub(base + option);
        EXPECT_EQ(result.exitCode, 2) << option.join(' ').toStdString();
        EXPECT_TRUE(result.err.contains(option.first())) << result.err.toStdString();
    }
    EXPECT_FALSE(QFile::exists(out));
}

TEST(ZemsubCommandLine, MissingFileExitsOneNamingTheFileAndTheReason)
{
    TempDir dir;
    const QString missing = QString::fromStdString(dir.file("missing.srt"));
    for (const QString& command : kCommands) {
        const RunResult result = runZemsub(argsFor(command, missing));
        EXPECT_EQ(result.exitCode, 1) << command.toStdString();
        EXPECT_TRUE(result.err.contains(missing + ": cannot open: No such file or directory"))
            << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, DirectoryExitsOneNamingIt)
{
    TempDir dir;
    const QString folder = QString::fromStdString(dir.path()) + "/folder.srt";
    ASSERT_EQ(::mkdir(folder.toLocal8Bit().constData(), 0700), 0);
    for (const QString& command : kCommands) {
        const RunResult result = runZemsub(argsFor(command, folder));
        EXPECT_EQ(result.exitCode, 1) << command.toStdString();
        EXPECT_TRUE(result.err.contains(folder + ": cannot open: it is a directory"))
            << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, UnreadableFileExitsOneWithTheSystemsReason)
{
    TempDir dir;
    const std::string path = dir.write("locked.srt", "1\n00:00:01,000 --> 00:00:02,000\nA\n");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    if (::access(path.c_str(), R_OK) == 0)
        GTEST_SKIP()
            << "this user reads files without read permission (root); the directory test covers exit 1";
    for (const QString& command : kCommands) {
        const RunResult result = runZemsub(argsFor(command, qs(path)));
        EXPECT_EQ(result.exitCode, 1) << command.toStdString();
        EXPECT_TRUE(result.err.contains(qs(path) + ": cannot open: Permission denied"))
            << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, FileShorterThanTwoBytesIsNotOpened)
{
    TempDir dir;
    for (const char* bytes : {"", "1"}) {
        const QString path =
            qs(dir.write(std::string("short") + std::to_string(std::strlen(bytes)) + ".srt", bytes));
        for (const QString& command :
             {QStringLiteral("at"), QStringLiteral("dump"), QStringLiteral("render")}) {
            const RunResult result = runZemsub(argsFor(command, path));
            EXPECT_EQ(result.exitCode, 1) << command.toStdString();
            EXPECT_TRUE(result.err.contains(path + ": not opened: the file is shorter than two bytes"))
                << result.err.toStdString();
        }
    }
}

TEST(ZemsubCommandLine, UnknownExtensionIsRefusedWithTheManagersReason)
{
    TempDir dir;
    const QString path = qs(dir.write("film.srt.txt", "1\n00:00:01,000 --> 00:00:02,000\nA\n"));
    for (const QString& command : {QStringLiteral("info"), QStringLiteral("at"), QStringLiteral("dump"),
                                   QStringLiteral("render"), QStringLiteral("sheet")}) {
        const RunResult result = runZemsub(argsFor(command, path));
        EXPECT_EQ(result.exitCode, 1) << command.toStdString();
        EXPECT_TRUE(result.err.contains("extension \"txt\" (after the last \".\") is not srt, ass or ssa"))
            << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, WideScriptReadersThrownIntBecomesExitOneNamingTheFile)
{
    TempDir dir;
    const QString path =
        qs(dir.write("broken.ass", withMark("[Script Info]\nScriptType: v4.00+\nPlayResX:\n"
                                            "[Events]\nDialogue: 0,0:00:01.00,0:00:02.00,Default,,"
                                            "0,0,0,,A\n")));
    for (const QString& command : kCommands) {
        const RunResult result = runZemsub(argsFor(command, path));
        EXPECT_TRUE(result.finished) << command.toStdString();
        EXPECT_EQ(result.exitCode, 1) << command.toStdString();
        EXPECT_TRUE(result.err.contains(path + ": cannot parse: the wide ASS/SSA reader threw the int 1"))
            << result.err.toStdString();
    }
}

TEST(ZemsubCommandLine, ImageThatCannotBeWrittenExitsOne)
{
    const RunResult result =
        runZemsub({"render", sample("film.srt"), "2000", "-o", "/nonexistent-dir/frame.png"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains("/nonexistent-dir/frame.png: cannot write the image"));
}

} // namespace
#endif
