// A file handed to the tools is mapped, not read into memory: a film of
// gigabytes costs no more memory than a subtitle file.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "reading/FileBytes.h"
#    include "support/TestFiles.h"

#    include <QFile>
#    include <gtest/gtest.h>

#    include <fstream>
#    include <string>
#    include <unistd.h>

using zemsub::tool::FileBytes;

namespace {

// The process's memory that is not a file's pages, in KiB (RssAnon in /proc/self/status).
long anonymousKiB()
{
    std::ifstream status("/proc/self/status");
    std::string key;
    long value = -1;
    while (status >> key) {
        if (key == "RssAnon:") {
            status >> value;
            break;
        }
    }
    return value;
}

TEST(ZemsubFileBytes, LargeFileIsMappedNotRead)
{
    TempDir dir;
    const std::string path = dir.file("film.mkv");
    const long long size = 256LL << 20;
    {
        std::ofstream out(path, std::ios::binary);
        out << "head";
    }
    ASSERT_EQ(truncate(path.c_str(), size), 0);
    // The last byte, so that a reading of the whole file would have to touch it all.
    {
        std::fstream out(path, std::ios::binary | std::ios::in | std::ios::out);
        out.seekp(size - 4);
        out << "tail";
    }
    const long before = anonymousKiB();
    ASSERT_GT(before, 0);
    const FileBytes file(QString::fromStdString(path));
    ASSERT_TRUE(file.opened()) << file.error().toStdString();
    ASSERT_EQ(file.bytes().size(), size);
    EXPECT_TRUE(file.bytes().startsWith("head"));
    EXPECT_TRUE(file.bytes().endsWith("tail"));
    // Far below the file's 256 MiB.
    EXPECT_LT(anonymousKiB() - before, 32L * 1024);
}

TEST(ZemsubFileBytes, SmallEmptyAndMissingFiles)
{
    TempDir dir;
    const FileBytes small(
        QString::fromStdString(dir.write("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nx\n")));
    ASSERT_TRUE(small.opened());
    EXPECT_EQ(small.bytes(), QByteArray("1\n00:00:01,000 --> 00:00:02,000\nx\n"));
    const FileBytes empty(QString::fromStdString(dir.write("empty.srt", "")));
    ASSERT_TRUE(empty.opened());
    EXPECT_TRUE(empty.bytes().isEmpty());
    const FileBytes missing(QString::fromStdString(dir.file("none.srt")));
    EXPECT_FALSE(missing.opened());
    EXPECT_TRUE(missing.error().startsWith(QStringLiteral("cannot open: "))) << missing.error().toStdString();
}

} // namespace
#endif
