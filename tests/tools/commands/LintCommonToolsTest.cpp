// lint on files written the way common tools write them: each is read with the
// captions FFmpeg reads, and the library's reading of it is judged against them.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QString>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

#    include <string>
#    include <utility>
#    include <vector>

namespace {

struct Caption
{
    long long start;
    long long end;
    std::string text;
};

nlohmann::json lintJson(const std::string& path, int expectedExit)
{
    const RunResult result = runZemsub({"lint", "--json", QString::fromStdString(path)});
    EXPECT_EQ(result.exitCode, expectedExit) << result.err.toStdString();
    if (result.exitCode != 0 && result.exitCode != 3)
        return nlohmann::json::object();
    return nlohmann::json::parse(result.out.toStdString());
}

void expectWritten(const nlohmann::json& report, const std::vector<Caption>& captions)
{
    ASSERT_EQ(report["captions"], captions.size());
    ASSERT_EQ(report["written"].size(), captions.size());
    for (size_t i = 0; i < captions.size(); ++i) {
        const nlohmann::json& block = report["written"][i];
        EXPECT_EQ(block["caption"], i + 1);
        EXPECT_EQ(block["start"], captions[i].start) << i;
        EXPECT_EQ(block["end"], captions[i].end) << i;
        EXPECT_EQ(block["text"], captions[i].text) << i;
    }
}

std::vector<std::string> causeCodes(const nlohmann::json& report)
{
    std::vector<std::string> codes;
    for (const nlohmann::json& finding : report["findings"]) {
        for (const nlohmann::json& cause : finding["causes"])
            codes.push_back(cause["code"]);
    }
    return codes;
}

std::string withCrLf(const std::string& text)
{
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return crlf;
}

// UTF-8 to UTF-16LE behind FF FE (characters of the Basic Multilingual Plane).
std::string utf16le(const std::string& utf8)
{
    const QString text = QString::fromStdString(utf8);
    std::string bytes("\xFF\xFE", 2);
    for (QChar c : text) {
        bytes += char(c.unicode() & 0xFF);
        bytes += char(c.unicode() >> 8);
    }
    return bytes;
}

const std::string kFrench = "1\n00:00:01,000 --> 00:00:03,000\nBonjour, ça va ?\n\n"
                            "2\n00:00:03,500 --> 00:00:06,000\nTrès bien, merci.\nEt toi, Chloé ?\n\n"
                            "3\n00:00:06,500 --> 00:00:09,000\nÀ demain !\n\n";
const std::vector<Caption> kFrenchCaptions = {{1000, 3000, "Bonjour, ça va ?"},
                                              {3500, 6000, "Très bien, merci.\nEt toi, Chloé ?"},
                                              {6500, 9000, "À demain !"}};

TEST(ZemsubLintCommonTools, Utf16WithItsMarkAndCrLfAsWindowsEditorsSaveUnicode)
{
    TempDir dir;
    const nlohmann::json report = lintJson(dir.write("unicode.srt", utf16le(withCrLf(kFrench))), 3);
    EXPECT_EQ(report["encoding"], "UTF-16LE");
    EXPECT_EQ(report["ffmpegFormat"], "srt");
    EXPECT_EQ(report["formatCode"], 4);
    expectWritten(report, kFrenchCaptions);
    EXPECT_EQ(report["findings"].size(), 3u);
    for (const std::string& code : causeCodes(report))
        EXPECT_EQ(code, "utf16");
}

TEST(ZemsubLintCommonTools, Windows1252WithCrLfAsOlderEditorsSaveAnsi)
{
    // E9 "é", 92 a right single quotation mark, 85 an ellipsis: Windows-1252, not Latin-1.
    const std::string ansi =
        "1\n00:00:01,000 --> 00:00:03,000\nC\x92\x65st l\x92\xE9t\xE9\x85\n\n"
        "2\n00:00:03,500 --> 00:00:06,000\nIl fait d\xE9j\xE0 chaud, n\x92\x65st-ce pas\x85\n\n"
        "3\n00:00:06,500 --> 00:00:09,000\nL\x92\x65nfant s\x92\x65st endormi.\n\n";
    TempDir dir;
    const nlohmann::json report = lintJson(dir.write("ansi.srt", withCrLf(ansi)), 3);
    EXPECT_EQ(report["encoding"], "WINDOWS-1252");
    EXPECT_EQ(report["formatCode"], 1);
    expectWritten(report, {{1000, 3000, "C’est l’été…"},
                           {3500, 6000, "Il fait déjà chaud, n’est-ce pas…"},
                           {6500, 9000, "L’enfant s’est endormi."}});
    // The carriage returns keep every number line from being one: nothing shows.
    EXPECT_EQ(report["findings"].size(), 3u);
    EXPECT_EQ(report["findings"][0]["causes"][0]["code"], "crlf");
}

TEST(ZemsubLintCommonTools, Utf8WithItsMarkAsScriptEditorsSave)
{
    const std::string script =
        "\xEF\xBB\xBF[Script Info]\nTitle: Ferry\nScriptType: v4.00+\nPlayResX: 1920\nPlayResY: 1080\n\n"
        "[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
        "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, "
        "Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
        "Style: "
        "Default,Arial,48,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,"
        "1\n\n"
        "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:01.00,0:00:03.00,Default,,0,0,0,,Grüß dich, {\\i1}Jürgen{\\i0}!\n"
        "Dialogue: 0,0:00:03.50,0:00:06.00,Default,,0,0,0,,Schön, dich zu sehen.\\NWie geht’s?\n"
        "Dialogue: 0,0:00:06.50,0:00:09.00,Default,,0,0,0,,Tschüss!\n";
    TempDir dir;
    const nlohmann::json report = lintJson(dir.write("editor.ass", script), 3);
    EXPECT_EQ(report["encoding"], "UTF-8");
    EXPECT_EQ(report["kind"], "script");
    expectWritten(report, {{1000, 3000, "Grüß dich, Jürgen!"},
                           {3500, 6000, "Schön, dich zu sehen.\nWie geht’s?"},
                           {6500, 9000, "Tschüss!"}});
    // The last Dialogue line is never answered; the colours are noted.
    ASSERT_EQ(report["findings"].size(), 1u);
    EXPECT_EQ(report["findings"][0]["caption"], 3);
    EXPECT_EQ(report["findings"][0]["causes"][0]["code"], "last-entry");
    EXPECT_EQ(report["notes"].size(), 4u);
}

TEST(ZemsubLintCommonTools, WebVttAsBrowsersAndStreamingSitesServeIt)
{
    const std::string vtt = "WEBVTT\n\n"
                            "00:00:01.000 --> 00:00:03.000\nHello <b>there</b>.\n\n"
                            "intro\n00:00:03.500 --> 00:00:06.000 align:start\nTwo lines,\nas written.\n\n"
                            "00:00:06.500 --> 00:00:09.000\nFish &amp; chips\n";
    TempDir dir;
    const nlohmann::json report = lintJson(dir.write("captions.vtt", vtt), 3);
    EXPECT_EQ(report["kind"], "other");
    EXPECT_EQ(report["ffmpegFormat"], "webvtt");
    EXPECT_EQ(report["formatCode"], 0);
    expectWritten(report, {{1000, 3000, "Hello there."},
                           {3500, 6000, "Two lines,\nas written."},
                           {6500, 9000, "Fish & chips"}});
    for (const std::string& code : causeCodes(report))
        EXPECT_EQ(code, "extension");
}

TEST(ZemsubLintCommonTools, WebVttUnderASubRipNameIsReadAsWebVtt)
{
    const std::string vtt = "WEBVTT\n\n00:00:01.000 --> 00:00:03.000\nOne\n\n"
                            "00:00:03.500 --> 00:00:06.000\nTwo\n\n00:00:06.500 --> 00:00:09.000\nThree\n";
    TempDir dir;
    const nlohmann::json report = lintJson(dir.write("renamed.srt", vtt), 3);
    EXPECT_EQ(report["ffmpegFormat"], "webvtt");
    EXPECT_EQ(report["formatCode"], 1);
    ASSERT_FALSE(report["findings"].empty());
    const std::vector<std::string> codes = causeCodes(report);
    EXPECT_NE(std::find(codes.begin(), codes.end(), "other-format"), codes.end());
    EXPECT_NE(report["findings"][0]["causes"][0]["text"].get<std::string>().find("WebVTT"),
              std::string::npos);
}

TEST(ZemsubLintCommonTools, ForcedEncodingIsHandedToFfmpeg)
{
    TempDir dir;
    const std::string path = dir.write("greek.srt", "1\n00:00:01,000 --> 00:00:02,000\n\xE1\xE2\xE3\n\n"
                                                    "2\n00:00:03,000 --> 00:00:04,000\nB\n");
    const RunResult result =
        runZemsub({"lint", "--json", "--encoding", "ISO-8859-7", QString::fromStdString(path)});
    ASSERT_EQ(result.exitCode, 3) << result.err.toStdString();
    const nlohmann::json report = nlohmann::json::parse(result.out.toStdString());
    EXPECT_EQ(report["encoding"], "ISO-8859-7");
    EXPECT_EQ(report["encodingForced"], true);
    EXPECT_EQ(report["written"][0]["text"], "αβγ");
    const RunResult unknown =
        runZemsub({"lint", "--encoding", "NO-SUCH-ENCODING", QString::fromStdString(path)});
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.err.contains("greek.srt: cannot lint: ")) << unknown.err.toStdString();
}

} // namespace
#endif
