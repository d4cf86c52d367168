// What kind of input a path is to the library, asked once: unreadable, a file
// the wide script reader throws on, a VobSub index, one the manager took, or
// one it leaves to FFmpeg.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "playback/LibraryInput.h"
#    include "support/TestFiles.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

namespace {

const std::string kTwoCaptions = "1\n00:00:01,000 --> 00:00:02,000\none\n\n"
                                 "2\n00:00:03,000 --> 00:00:04,000\ntwo\n";

} // namespace

TEST(ZemsubLibraryInput, AFileThatCannotBeReadHasNoSession)
{
    TempDir dir;
    const LibraryInput missing = askLibrary(qs(dir.file("none.srt")));
    EXPECT_EQ(missing.kind, LibraryInput::Kind::Unreadable);
    EXPECT_FALSE(missing.session);
    EXPECT_TRUE(missing.failure().startsWith(QStringLiteral("cannot open: "))) << missing.failure().toStdString();
    EXPECT_EQ(missing.failure(), missing.facts.failure);
    EXPECT_EQ(missing.formatCode(), CodeNone);
    EXPECT_EQ(askLibrary(qs(dir.path())).kind, LibraryInput::Kind::Unreadable);
}

TEST(ZemsubLibraryInput, AFileTheManagerTakesIsPlayedWhetherItsReaderOpensItOrNot)
{
    TempDir dir;
    const LibraryInput opened = askLibrary(qs(dir.write("film.srt", kTwoCaptions)));
    EXPECT_EQ(opened.kind, LibraryInput::Kind::Played);
    ASSERT_TRUE(opened.session);
    EXPECT_TRUE(opened.session->opened());
    EXPECT_EQ(opened.formatCode(), CodeSubRip);
    EXPECT_TRUE(opened.failure().isEmpty());

    // Past the SubRip reader's line limit its Open fails, and the manager's choice stands.
    const LibraryInput refused = askLibrary(qs(dir.write("long.srt", kTwoCaptions + std::string(20000, '\n'))));
    EXPECT_EQ(refused.kind, LibraryInput::Kind::Played);
    ASSERT_TRUE(refused.session);
    EXPECT_FALSE(refused.session->opened());
    EXPECT_EQ(refused.formatCode(), CodeSubRip);
    EXPECT_TRUE(refused.failure().isEmpty());

    // Shorter than the two bytes the manager reads: no reader is chosen.
    EXPECT_EQ(askLibrary(qs(dir.write("short.srt", "1"))).kind, LibraryInput::Kind::Refused);
}

TEST(ZemsubLibraryInput, TheWideScriptReadersThrowIsItsFailure)
{
    TempDir dir;
    // Behind FF FE, a PlayResX without a value: the wide script reader throws the int 1 while it opens.
    const LibraryInput thrown = askLibrary(qs(dir.write("throw.ass", "\xFF\xFE[Script Info]\nPlayResX:\n")));
    EXPECT_EQ(thrown.kind, LibraryInput::Kind::Thrown);
    ASSERT_TRUE(thrown.session);
    EXPECT_EQ(thrown.failure(), thrown.session->failure());
    EXPECT_EQ(thrown.failure(), wideThrowReason(-1));
}

TEST(ZemsubLibraryInput, AnIndexIsTheIndexReadersAndAnythingElseTheManagerRefusesIsFfmpegs)
{
    TempDir dir;
    const LibraryInput index = askLibrary(qs(dir.write("film.IDX", "# VobSub index file, v7\n")));
    EXPECT_EQ(index.kind, LibraryInput::Kind::Index);
    EXPECT_EQ(index.formatCode(), CodeNone);
    EXPECT_TRUE(index.failure().isEmpty());
    // An index behind FF FE is still an index: the manager weighs the mark only beside srt, ass and ssa.
    EXPECT_EQ(askLibrary(qs(dir.write("wide.idx", "\xFF\xFE#\n"))).kind, LibraryInput::Kind::Index);

    for (const char* name : {"film.vtt", "film.mkv", "film.sup", "film"}) {
        const LibraryInput refused = askLibrary(qs(dir.write(name, kTwoCaptions)));
        EXPECT_EQ(refused.kind, LibraryInput::Kind::Refused) << name;
        ASSERT_TRUE(refused.session) << name;
        EXPECT_FALSE(refused.session->opened()) << name;
        EXPECT_TRUE(refused.failure().isEmpty()) << name;
    }
}

#endif
