// zemsub tracks, and the track fix and lint take from Matroska and MP4 files made by ffmpeg.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TrackFilesSuite.h"

#    include <QFile>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>


namespace {

class TracksCommand : public TrackFilesSuite
{
protected:
    static nlohmann::json json(const RunResult& result)
    {
        return nlohmann::json::parse(result.out.toStdString(), nullptr, false);
    }

    static std::string readFile(const std::string& path)
    {
        QFile file(QString::fromStdString(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }
};

TEST_F(TracksCommand, ListsMatroskaTracksInFileOrderWithTheirTagsFlagsCountsAndTimes)
{
    const RunResult result = runZemsub({QStringLiteral("tracks"), qs(files.mkv), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const auto doc = nlohmann::ordered_json::parse(result.out.toStdString(), nullptr, false);
    ASSERT_FALSE(doc.is_discarded()) << result.out.toStdString();
    std::vector<std::string> top;
    for (auto it = doc.begin(); it != doc.end(); ++it)
        top.push_back(it.key());
    EXPECT_EQ(top, (std::vector<std::string>{"file", "tracks"}));
    EXPECT_EQ(doc["file"], files.mkv);
    ASSERT_EQ(doc["tracks"].size(), 3u);
    const nlohmann::ordered_json& eng = doc["tracks"][0];
    const nlohmann::ordered_json& fre = doc["tracks"][1];
    const nlohmann::ordered_json& none = doc["tracks"][2];
    // Exactly these keys, in this order.
    std::vector<std::string> keys;
    for (auto it = eng.begin(); it != eng.end(); ++it)
        keys.push_back(it.key());
    const std::vector<std::string> expectedKeys = {"track",   "codec",  "kind",     "language", "title",
                                                   "default", "forced", "captions", "first",    "last"};
    EXPECT_EQ(keys, expectedKeys);

    EXPECT_EQ(eng["track"], 0);
    EXPECT_EQ(eng["codec"], "subrip");
    EXPECT_EQ(eng["kind"], "text");
    EXPECT_EQ(eng["language"], "eng");
    EXPECT_EQ(eng["title"], "");
    EXPECT_EQ(eng["default"], false);
    EXPECT_EQ(eng["forced"], false);
    EXPECT_EQ(eng["captions"], 3);
    EXPECT_EQ(eng["first"], 500);
    EXPECT_EQ(eng["last"], 4750);

    EXPECT_EQ(fre["track"], 1);
    EXPECT_EQ(fre["language"], "fre");
    EXPECT_EQ(fre["title"], "Fran\u00e7ais");
    EXPECT_EQ(fre["default"], true);
    EXPECT_EQ(fre["captions"], 2);
    EXPECT_EQ(fre["first"], 1000);
    EXPECT_EQ(fre["last"], 6789);

    EXPECT_EQ(none["track"], 2);
    EXPECT_EQ(none["language"], "");
    EXPECT_EQ(none["default"], false);
    EXPECT_EQ(none["captions"], 1);
    EXPECT_EQ(none["first"], 10000);
    EXPECT_EQ(none["last"], 11000);
}

TEST_F(TracksCommand, ListsMp4TimedTextTracks)
{
    const RunResult result = runZemsub({QStringLiteral("tracks"), qs(files.mp4), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const nlohmann::json doc = json(result);
    ASSERT_EQ(doc["tracks"].size(), 2u);
    EXPECT_EQ(doc["tracks"][0]["codec"], "mov_text");
    EXPECT_EQ(doc["tracks"][0]["language"], "eng");
    EXPECT_EQ(doc["tracks"][0]["captions"], 3);
    EXPECT_EQ(doc["tracks"][0]["first"], 500);
    EXPECT_EQ(doc["tracks"][0]["last"], 4750);
    EXPECT_EQ(doc["tracks"][1]["language"], "fre");
    EXPECT_EQ(doc["tracks"][1]["default"], false);
    EXPECT_EQ(doc["tracks"][1]["captions"], 2);
    EXPECT_EQ(doc["tracks"][1]["first"], 1000);
    EXPECT_EQ(doc["tracks"][1]["last"], 6789);
}

TEST_F(TracksCommand, APlainSubtitleFileIsOneTrack)
{
    const RunResult result =
        runZemsub({QStringLiteral("tracks"), qs(dir->file("eng.srt")), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const nlohmann::json doc = json(result);
    ASSERT_EQ(doc["tracks"].size(), 1u);
    EXPECT_EQ(doc["tracks"][0]["codec"], "subrip");
    EXPECT_EQ(doc["tracks"][0]["captions"], 3);

    const RunResult text = runZemsub({QStringLiteral("tracks"), qs(dir->file("eng.srt"))});
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_TRUE(text.out.contains(QStringLiteral("0: subrip (text)"))) << text.out.toStdString();
}

TEST_F(TracksCommand, ACaptionBeforeZeroIsCountedWithItsTime)
{
    // FFmpeg reads negative hours: the first caption starts an hour before 0.
    const std::string path = dir->write("early.srt", "1\n-1:00:00,000 --> 00:00:02,000\nEarly\n\n"
                                                     "2\n00:00:03,000 --> 00:00:04,000\nLater\n\n");
    const RunResult result = runZemsub({QStringLiteral("tracks"), qs(path), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const nlohmann::json doc = json(result);
    ASSERT_EQ(doc["tracks"].size(), 1u);
    EXPECT_EQ(doc["tracks"][0]["captions"], 2);
    EXPECT_EQ(doc["tracks"][0]["first"], -3600000);
    EXPECT_EQ(doc["tracks"][0]["last"], 4000);
    const RunResult text = runZemsub({QStringLiteral("tracks"), qs(path)});
    EXPECT_TRUE(text.out.contains(QStringLiteral("2 captions, -01:00:00,000 --> 00:00:04,000")))
        << text.out.toStdString();
}

TEST_F(TracksCommand, NoSubtitleTrackOrAnUnreadableFileIsExitOneNamingTheFile)
{
    const RunResult audio = runZemsub({QStringLiteral("tracks"), qs(files.audio)});
    EXPECT_EQ(audio.exitCode, 1);
    EXPECT_TRUE(audio.err.contains(qs(files.audio) + QStringLiteral(": no subtitle tracks")))
        << audio.err.toStdString();
    EXPECT_TRUE(audio.out.isEmpty());

    const std::string junk = dir->write("junk.mkv", std::string("\x1a\x45\xdf\xa3\x01\x02", 6));
    const RunResult unread = runZemsub({QStringLiteral("tracks"), qs(junk), QStringLiteral("--json")});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_TRUE(unread.err.contains(qs(junk) + QStringLiteral(": "))) << unread.err.toStdString();
    EXPECT_TRUE(unread.out.isEmpty());

    const RunResult missing = runZemsub({QStringLiteral("tracks"), qs(dir->file("absent.mkv"))});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains(QStringLiteral("absent.mkv: no such file")));
}

TEST_F(TracksCommand, FixTakesTheDefaultTrackAndKeepsItsUtf8TextByteForByte)
{
    const std::string copy = dir->file("default.srt");
    const RunResult result =
        runZemsub({QStringLiteral("fix"), qs(files.mkv), QStringLiteral("-o"), qs(copy)});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString() << result.out.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("using track 1 (fre, default): subrip")))
        << result.err.toStdString();
    const std::string bytes = readFile(copy);
    EXPECT_NE(bytes.find(std::string("00:00:01,000 --> ") + "00:00:02,499\n" + kFrenchFirst + "\n"),
              std::string::npos)
        << bytes;
    EXPECT_NE(bytes.find(std::string("00:00:05,123 --> ") + "00:00:06,788\n" + kFrenchSecond + "\n"),
              std::string::npos)
        << bytes;
}

TEST_F(TracksCommand, FixJsonSaysTheTrackAndWhyAndTheCaptionsToTheMillisecond)
{
    const RunResult result =
        runZemsub({QStringLiteral("fix"), qs(files.mkv), QStringLiteral("-o"), qs(dir->file("lang.srt")),
                   QStringLiteral("--language"), QStringLiteral("eng"), QStringLiteral("--json"),
                   QStringLiteral("--encoding"), QStringLiteral("WINDOWS-1252")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const nlohmann::json doc = json(result);
    EXPECT_EQ(doc["track"]["index"], 0);
    EXPECT_EQ(doc["track"]["reason"], "first of its language");
    EXPECT_EQ(doc["encoding"], "UTF-8");
    ASSERT_EQ(doc["outcomes"].size(), 3u);
    EXPECT_EQ(doc["outcomes"][0]["start"], 500);
    EXPECT_EQ(doc["outcomes"][0]["end"], 1250);
    EXPECT_EQ(doc["outcomes"][2]["written"], "Bye");

    const RunResult french =
        runZemsub({QStringLiteral("fix"), qs(files.mp4), QStringLiteral("-o"), qs(dir->file("mp4.srt")),
                   QStringLiteral("--track"), QStringLiteral("1"), QStringLiteral("--json")});
    ASSERT_EQ(french.exitCode, 0) << french.err.toStdString();
    const nlohmann::json mp4 = json(french);
    EXPECT_EQ(mp4["track"]["index"], 1);
    EXPECT_EQ(mp4["track"]["reason"], "asked for");
    ASSERT_EQ(mp4["outcomes"].size(), 2u);
    EXPECT_EQ(mp4["outcomes"][0]["written"], kFrenchFirst);
    EXPECT_EQ(mp4["outcomes"][1]["written"], kFrenchSecond);
    EXPECT_EQ(mp4["outcomes"][1]["start"], 5123);
    EXPECT_EQ(mp4["outcomes"][1]["end"], 6789);
    EXPECT_TRUE(french.err.contains(QStringLiteral("using track 1 (fre, asked for): mov_text")));
}

TEST_F(TracksCommand, WithoutADefaultFlagThePlayersChoiceIsTheFirstTextTrack)
{
    const RunResult result = runZemsub({QStringLiteral("fix"), qs(files.ass), QStringLiteral("-o"),
                                        qs(dir->file("first.srt")), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(json(result)["track"]["index"], 0);
    EXPECT_EQ(json(result)["track"]["reason"], "first text track");

    const RunResult listed = runZemsub({QStringLiteral("tracks"), qs(files.ass), QStringLiteral("--json")});
    const nlohmann::json doc = json(listed);
    ASSERT_EQ(doc["tracks"].size(), 2u);
    EXPECT_EQ(doc["tracks"][0]["codec"], "ass");
    EXPECT_EQ(doc["tracks"][0]["default"], false);
    EXPECT_EQ(doc["tracks"][1]["default"], false);
}

TEST_F(TracksCommand, ATrackOutOfRangeOrAnAbsentLanguageIsExitOne)
{
    const RunResult range =
        runZemsub({QStringLiteral("fix"), qs(files.mkv), QStringLiteral("-o"), qs(dir->file("x.srt")),
                   QStringLiteral("--track"), QStringLiteral("3")});
    EXPECT_EQ(range.exitCode, 1);
    EXPECT_TRUE(range.err.contains(QStringLiteral("there is no track 3: its subtitle tracks are 0 to 2")))
        << range.err.toStdString();
    EXPECT_FALSE(QFile::exists(qs(dir->file("x.srt"))));

    const RunResult language = runZemsub(
        {QStringLiteral("lint"), qs(files.mkv), QStringLiteral("--language"), QStringLiteral("deu")});
    EXPECT_EQ(language.exitCode, 1);
    EXPECT_TRUE(
        language.err.contains(QStringLiteral("no subtitle track in deu: its tracks are eng, fre, untagged")))
        << language.err.toStdString();

    const RunResult word =
        runZemsub({QStringLiteral("lint"), qs(files.mkv), QStringLiteral("--track"), QStringLiteral("two")});
    EXPECT_EQ(word.exitCode, 2);
    const RunResult both =
        runZemsub({QStringLiteral("lint"), qs(files.mkv), QStringLiteral("--track"), QStringLiteral("0"),
                   QStringLiteral("--language"), QStringLiteral("eng")});
    EXPECT_EQ(both.exitCode, 2);
}

TEST_F(TracksCommand, LintReadsTheChosenTrackAndSaysWhichInJson)
{
    const RunResult result = runZemsub({QStringLiteral("lint"), qs(files.mkv), QStringLiteral("--language"),
                                        QStringLiteral("FRE"), QStringLiteral("--json")});
    const nlohmann::json doc = json(result);
    ASSERT_FALSE(doc.is_discarded()) << result.out.toStdString() << result.err.toStdString();
    EXPECT_EQ(doc["track"]["index"], 1);
    EXPECT_EQ(doc["track"]["reason"], "default");
    EXPECT_EQ(doc["encoding"], "UTF-8");
    ASSERT_EQ(doc["written"].size(), 2u);
    EXPECT_EQ(doc["written"][0]["text"], kFrenchFirst);
    EXPECT_EQ(doc["written"][1]["start"], 5123);
    EXPECT_TRUE(result.err.contains(QStringLiteral("using track 1 (fre, default)")));
}

TEST_F(TracksCommand, AScriptTrackCopiedAsAssKeepsItsStyles)
{
    const std::string copy = dir->file("styled-copy.ass");
    const RunResult result =
        runZemsub({QStringLiteral("fix"), qs(files.ass), QStringLiteral("-o"), qs(copy)});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString() << result.out.toStdString();
    const std::string bytes = readFile(copy);
    EXPECT_NE(bytes.find("PlayResX: 640\n"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("Style: Sign,DejaVu Sans,40,65535,255,0,0,1,"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("Style: Default,Arial,28,16777215,"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find(std::string(",,Bonjour \xc3\xa0 tous\n")), std::string::npos) << bytes;
    EXPECT_NE(bytes.find(std::string(",,C\xc5\x93ur\n")), std::string::npos) << bytes;
}

TEST_F(TracksCommand, APictureTrackIsListedAsSuchAndReadAsTextWhenTaken)
{
    QString error;
    const std::string file =
        makePictureFile(*dir, sample(QStringLiteral("words.idx")).toStdString(), &error);
    ASSERT_TRUE(error.isEmpty()) << error.toStdString();
    const RunResult listed = runZemsub({QStringLiteral("tracks"), qs(file), QStringLiteral("--json")});
    ASSERT_EQ(listed.exitCode, 0) << listed.err.toStdString();
    const nlohmann::json doc = json(listed);
    ASSERT_EQ(doc["tracks"].size(), 2u);
    EXPECT_EQ(doc["tracks"][0]["codec"], "dvd_subtitle");
    EXPECT_EQ(doc["tracks"][0]["kind"], "picture");
    EXPECT_GT(doc["tracks"][0]["captions"], 0);
    EXPECT_EQ(doc["tracks"][1]["kind"], "text");

    // Without a default track, players take the first text track over an earlier picture track.
    const RunResult player = runZemsub({QStringLiteral("fix"), qs(file), QStringLiteral("-o"),
                                        qs(dir->file("pic.srt")), QStringLiteral("--json")});
    ASSERT_EQ(player.exitCode, 0) << player.err.toStdString();
    EXPECT_EQ(json(player)["track"]["index"], 1);
    EXPECT_EQ(json(player)["track"]["reason"], "first text track");

    // Asked for, the picture track is read as text, in the language of its tag ("en").
    const RunResult pictures =
        runZemsub({QStringLiteral("fix"), qs(file), QStringLiteral("-o"), qs(dir->file("pic0.srt")),
                   QStringLiteral("--track"), QStringLiteral("0"), QStringLiteral("--json")});
    // Exit 3: the caption drawn in italics shows upright.
    ASSERT_EQ(pictures.exitCode, 3) << pictures.err.toStdString();
    const nlohmann::json read = json(pictures);
    EXPECT_EQ(read["track"]["index"], 0);
    EXPECT_EQ(read["track"]["readAs"], "eng");
    ASSERT_EQ(read["outcomes"].size(), 8u);
    EXPECT_EQ(read["outcomes"][0]["written"], "Hello, world!");
    EXPECT_EQ(read["outcomes"][0]["start"], 1000);
    EXPECT_EQ(read["outcomes"][2]["written"], "- Home, I think.\n- Wait for me!");
    EXPECT_TRUE(QFile::exists(qs(dir->file("pic0.srt"))));
}

TEST_F(TracksCommand, TracksAreCountedAmongTheSubtitleStreamsOnly)
{
    const RunResult listed = runZemsub({QStringLiteral("tracks"), qs(files.mixed), QStringLiteral("--json")});
    ASSERT_EQ(listed.exitCode, 0) << listed.err.toStdString();
    const nlohmann::json doc = json(listed);
    ASSERT_EQ(doc["tracks"].size(), 2u);
    EXPECT_EQ(doc["tracks"][0]["track"], 0);
    EXPECT_EQ(doc["tracks"][0]["language"], "");
    EXPECT_EQ(doc["tracks"][0]["captions"], 2);
    EXPECT_EQ(doc["tracks"][1]["track"], 1);
    EXPECT_EQ(doc["tracks"][1]["language"], "eng");
    EXPECT_EQ(doc["tracks"][1]["captions"], 3);

    const RunResult fixed =
        runZemsub({QStringLiteral("fix"), qs(files.mixed), QStringLiteral("-o"), qs(dir->file("mixed.srt")),
                   QStringLiteral("--track"), QStringLiteral("0"), QStringLiteral("--json")});
    ASSERT_EQ(fixed.exitCode, 0) << fixed.err.toStdString();
    const nlohmann::json report = json(fixed);
    ASSERT_EQ(report["outcomes"].size(), 2u);
    EXPECT_EQ(report["outcomes"][0]["written"], kFrenchFirst);
    EXPECT_TRUE(fixed.err.contains(QStringLiteral("using track 0 (untagged, asked for): subrip")))
        << fixed.err.toStdString();
}

} // namespace
#endif
