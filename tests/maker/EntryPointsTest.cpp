// createSubtitle, destroySubtitle and sub_open as the host calls them.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

#include "ISubTitle.h"
#include "maker/ZemSubtitleMaker.h"
#include "manager/xcSubtitleManager.h"
#include "support/TestFiles.h"

#include "MakerTestSupport.h"

TEST(CreateSubtitle, ReturnsAFreshMakerBehindTheInterface)
{
    ISubTitle* subtitle = createSubtitle();
    ASSERT_NE(subtitle, nullptr);
    auto* maker = dynamic_cast<ZemSubtitleMaker*>(subtitle);
    ASSERT_NE(maker, nullptr);
    EXPECT_EQ(maker->manager(), nullptr);
    EXPECT_FALSE(subtitle->isOpened());
    destroySubtitle(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
}

TEST(CreateSubtitle, EveryCallGivesItsOwnObject)
{
    ISubTitle* first = createSubtitle();
    ISubTitle* second = createSubtitle();
    EXPECT_NE(first, second);
    destroySubtitle(&first);
    destroySubtitle(&second);
}

TEST(DestroySubtitle, NullArgumentDoesNothing)
{
    destroySubtitle(nullptr);
    SUCCEED();
}

TEST(DestroySubtitle, PointerToNullPointerStaysNull)
{
    ISubTitle* subtitle = nullptr;
    destroySubtitle(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
}

TEST(DestroySubtitle, ClearsTheCallersPointer)
{
    ISubTitle* subtitle = createSubtitle();
    ISubTitle* alias = subtitle;
    ASSERT_NE(subtitle, nullptr);
    destroySubtitle(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
    EXPECT_NE(alias, nullptr);  // only the pointer handed in is cleared
}

// The maker's destructor is not run: a manager that close() did not delete is left
// behind, alive and still holding its file.
TEST(DestroySubtitle, LeavesTheManagerOfAnUnclosedObjectAlive)
{
    TempDir dir;
    const std::string path = dir.write("a.srt", makertest::twoCaptionSrt());
    ISubTitle* subtitle = createSubtitle();
    ASSERT_TRUE(subtitle->open(path.c_str()));
    xcSubtitleManager* manager = static_cast<ZemSubtitleMaker*>(subtitle)->manager();
    ASSERT_NE(manager, nullptr);

    destroySubtitle(&subtitle);
    EXPECT_EQ(subtitle, nullptr);

    EXPECT_TRUE(manager->IsOpen());
    const char* text = manager->GetSubTitle(1500);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "\nHello");
    delete manager;  // what the host lost; released here so leak checkers stay quiet
}

TEST(DestroySubtitle, AfterCloseLeavesNothingOpen)
{
    TempDir dir;
    const std::string path = dir.write("a.srt", makertest::twoCaptionSrt());
    ISubTitle* subtitle = createSubtitle();
    ASSERT_TRUE(subtitle->open(path.c_str()));
    EXPECT_TRUE(subtitle->close());
    EXPECT_EQ(static_cast<ZemSubtitleMaker*>(subtitle)->manager(), nullptr);
    destroySubtitle(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
}

TEST(SubOpen, OpensAnExistingFileInTheGivenMode)
{
    TempDir dir;
    const std::string path = dir.write("data.bin", std::string("AB\0C", 4));
    char mode[] = "rb";
    FILE* file = sub_open(path.c_str(), mode);
    ASSERT_NE(file, nullptr);
    char buffer[8] = {};
    EXPECT_EQ(std::fread(buffer, 1, sizeof buffer, file), 4u);
    EXPECT_EQ(std::memcmp(buffer, "AB\0C", 4), 0);
    std::fclose(file);
    EXPECT_STREQ(mode, "rb");  // the mode is only passed on
}

TEST(SubOpen, MissingFileGivesNull)
{
    TempDir dir;
    char mode[] = "rb";
    EXPECT_EQ(sub_open(dir.file("missing.srt").c_str(), mode), nullptr);
}

TEST(SubOpen, WriteModeCreatesTheFile)
{
    TempDir dir;
    const std::string path = dir.file("new.txt");
    char mode[] = "wb";
    FILE* file = sub_open(path.c_str(), mode);
    ASSERT_NE(file, nullptr);
    EXPECT_GE(std::fputs("x", file), 0);
    std::fclose(file);
    char readMode[] = "rb";
    FILE* again = sub_open(path.c_str(), readMode);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(std::fgetc(again), 'x');
    std::fclose(again);
}

TEST(SubOpen, LeavesNoDescriptorBehindWhenItFails)
{
    TempDir dir;
    const int before = openDescriptorCount();
    char mode[] = "rb";
    EXPECT_EQ(sub_open(dir.file("missing").c_str(), mode), nullptr);
    EXPECT_EQ(openDescriptorCount(), before);
}
