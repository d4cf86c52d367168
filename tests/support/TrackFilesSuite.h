#ifndef ZEMSUB_TESTS_TRACKFILESSUITE_H
#define ZEMSUB_TESTS_TRACKFILESSUITE_H

#include "support/TrackFiles.h"

#include <gtest/gtest.h>

#include <memory>

// A test suite whose tests share one set of track files (makeTrackFiles),
// muxed once for the suite; each test fails first when ffmpeg could not make them.
class TrackFilesSuite : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        dir = std::make_unique<TempDir>();
        files = makeTrackFiles(*dir);
    }
    static void TearDownTestSuite() { dir.reset(); }

    void SetUp() override { ASSERT_TRUE(files.error.isEmpty()) << files.error.toStdString(); }

    inline static std::unique_ptr<TempDir> dir;
    inline static TrackFiles files;
};

#endif
