// The names zemsub convert gives its copies.
#include "zemsub/convert/OutputPattern.h"

#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

TEST(OutputPattern, NamesCopiesAsMediaServersLookForThem)
{
    const PatternValues values{"/films/Movie (1936).mkv", "eng", 2, false};
    EXPECT_EQ(expandPattern("{dir}/{stem}.{lang}{forced}.srt", values), "/films/Movie (1936).eng.srt");
    EXPECT_EQ(expandPattern("out/{stem}.{track}.vtt", values), "out/Movie (1936).2.vtt");
    const PatternValues forced{"/films/a.b.mkv", "", 0, true};
    EXPECT_EQ(expandPattern("{dir}/{stem}.{lang}{forced}.srt", forced), "/films/a.b.und.forced.srt");
    // A plain path stays as it is.
    EXPECT_EQ(expandPattern("copy.srt", values), "copy.srt");
}

TEST(OutputPattern, TellsWhatItNeeds)
{
    EXPECT_TRUE(patternPerInput("{dir}/{stem}.srt"));
    EXPECT_FALSE(patternPerInput("{dir}/copy.srt"));
    EXPECT_TRUE(patternNeedsTrack("{stem}.{lang}.srt"));
    EXPECT_TRUE(patternNeedsTrack("{stem}.{track}.srt"));
    EXPECT_FALSE(patternNeedsTrack("{stem}{forced}.srt"));
}

} // namespace
