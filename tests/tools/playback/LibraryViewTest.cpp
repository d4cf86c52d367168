// The library seen from the tools answers what keeps it from reading or
// showing a file, in words the commands pass on as they are.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "playback/LibraryView.h"
#    include "support/TestFiles.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

TEST(ZemsubLibraryView, FilesThatCannotBeReadAreAnswered)
{
    TempDir dir;
    EXPECT_EQ(inspectFile(QString()).failure, QStringLiteral("cannot open: the path is empty"));
    EXPECT_EQ(inspectFile(qs(dir.path())).failure, QStringLiteral("cannot open: it is a directory"));
    EXPECT_TRUE(inspectFile(qs(dir.file("none.srt"))).failure.startsWith(QStringLiteral("cannot open: ")));

    const FileFacts facts = inspectFile(qs(dir.write("a.srt", "\xff\xfe" "1\n")));
    EXPECT_TRUE(facts.failure.isEmpty());
    EXPECT_TRUE(facts.mark);
    EXPECT_EQ(facts.extension, QStringLiteral("srt"));
}

TEST(ZemsubLibraryView, TheManagersRefusalIsItsReason)
{
    TempDir dir;
    const QString path = qs(dir.write("film.txt", "1\n00:00:01,000 --> 00:00:02,000\none\n\n"));
    const FileFacts facts = inspectFile(path);
    const ManagerSession session(path);
    EXPECT_TRUE(session.failure().isEmpty());
    EXPECT_FALSE(session.opened());
    EXPECT_EQ(session.formatCode(), int(CodeNone));
    const QString reason = notShownReason(facts, session);
    EXPECT_TRUE(reason.startsWith(QStringLiteral("not opened: "))) << reason.toStdString();
    EXPECT_TRUE(reason.contains(QStringLiteral("\"txt\""))) << reason.toStdString();
}

TEST(ZemsubLibraryView, AnOpenedFileHasNoReasonAndItsTimeline)
{
    TempDir dir;
    const QString path = qs(dir.write("film.srt", "1\n00:00:01,000 --> 00:00:02,000\none\n\n"
                                                  "2\n00:00:03,000 --> 00:00:04,000\ntwo\n\n"));
    ManagerSession session(path);
    EXPECT_TRUE(session.opened());
    EXPECT_TRUE(notShownReason(inspectFile(path), session).isEmpty());
    // As a player receives it: the reader keeps a line feed before the text.
    EXPECT_EQ(session.textAt(1500), QStringLiteral("\none"));
    ManagerSession moved(std::move(session));
    EXPECT_EQ(moved.textAt(1500), QStringLiteral("\none"));

    const StoredTimeline timeline = readStoredTimeline(path, CodeSubRip);
    EXPECT_TRUE(timeline.failure.isEmpty());
    EXPECT_TRUE(timeline.opened);
    ASSERT_EQ(timeline.entries.size(), 2u);
    EXPECT_EQ(timeline.entries[1].start, 3000);
}

TEST(ZemsubLibraryView, AFileThatDidNotOpenAnswersNothing)
{
    TempDir dir;
    // Past the SubRip reader's line limit: the manager chose its reader, which did not open the file.
    const std::string captions = "1\n00:00:01,000 --> 00:00:02,000\none\n\n"
                                 "2\n00:00:03,000 --> 00:00:04,000\ntwo\n\n";
    ManagerSession session(qs(dir.write("long.srt", captions + std::string(20000, '\n'))));
    EXPECT_EQ(session.formatCode(), CodeSubRip);
    ASSERT_FALSE(session.opened());
    EXPECT_TRUE(session.textAt(1500).isNull());
}

#endif
