// The tools' folders are layers: reading, pictures, playback, fix, then the
// command line; each includes only the layers below it and the library.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace {

// The folders each layer of tools/ may include from, beside its own.
const std::map<QString, QStringList>& allowedBelow()
{
    static const std::map<QString, QStringList> allowed{
        {QStringLiteral("reading"), {}},
        {QStringLiteral("pictures"), {QStringLiteral("reading")}},
        {QStringLiteral("playback"), {}},
        {QStringLiteral("fix"), {QStringLiteral("reading"), QStringLiteral("pictures"), QStringLiteral("playback")}},
    };
    return allowed;
}

// Folders of tools/ and of the library a file may name in an include.
const QStringList kToolLayers{QStringLiteral("reading"), QStringLiteral("pictures"), QStringLiteral("playback"),
                              QStringLiteral("fix"), QStringLiteral("zemsub"), QStringLiteral("samplegen")};

// A source file of the tree and its text.
struct Source
{
    QString path;
    QString text;
};

// Every .h and .cpp below the folders (relative to the source tree), with its text.
std::vector<Source> sourcesUnder(const QStringList& folders)
{
    std::vector<Source> sources;
    for (const QString& folder : folders) {
        QDirIterator it(QStringLiteral(ZEMSUB_SOURCE_DIR "/") + folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                        QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            if (!file.open(QIODevice::ReadOnly)) {
                ADD_FAILURE() << "cannot read " << file.fileName().toStdString();
                continue;
            }
            sources.push_back(Source{file.fileName(), QString::fromUtf8(file.readAll())});
        }
    }
    return sources;
}

} // namespace

TEST(ZemsubToolLayers, EachLayerIncludesOnlyTheLayersBelowIt)
{
    static const QRegularExpression include(QStringLiteral("^#\\s*include \"([a-z]+)/"),
                                            QRegularExpression::MultilineOption);
    int files = 0;
    for (const auto& [layer, below] : allowedBelow()) {
        QDirIterator it(QStringLiteral(ZEMSUB_SOURCE_DIR "/tools/") + layer,
                        {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.cmake")}, QDir::Files);
        while (it.hasNext()) {
            QFile file(it.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            ++files;
            const QString text = QString::fromUtf8(file.readAll());
            for (auto matches = include.globalMatch(text); matches.hasNext();) {
                const QString folder = matches.next().captured(1);
                if (!kToolLayers.contains(folder))
                    continue; // the library's own folders
                EXPECT_TRUE(folder == layer || below.contains(folder))
                    << file.fileName().toStdString() << " includes from " << folder.toStdString();
            }
            // The companion library's sources are its own and the layers' below.
            EXPECT_FALSE(text.contains(QStringLiteral("zemsub/lint")) || text.contains(QStringLiteral("../zemsub/")))
                << file.fileName().toStdString() << " reaches into the command line";
        }
    }
    EXPECT_GT(files, 40);
}

TEST(ZemsubToolLayers, OnlyTheCommandsTurnAFailureIntoAnExit)
{
    static const QRegularExpression exits(QStringLiteral("\\b(fileError|usageError|ToolError)\\b"));
    int files = 0;
    for (const Source& source : sourcesUnder({QStringLiteral("tools")})) {
        if (source.path.contains(QStringLiteral("/tools/zemsub/commands/")) ||
            source.path.endsWith(QStringLiteral("/zemsub/main.cpp")))
            continue;
        ++files;
        EXPECT_FALSE(exits.match(source.text).hasMatch())
            << source.path.toStdString() << " ends the program itself; it should answer the failure";
    }
    EXPECT_GT(files, 80);
}

TEST(ZemsubToolLayers, OnlyTheReadingOpensAnInputAndChoosesItsTrack)
{
    // Opening and demuxing, listing the tracks and taking one: reading/TrackInput.cpp
    // (openTrack) for all; each step is named only where it is declared, defined and called there.
    struct Way
    {
        QRegularExpression pattern;
        QStringList files; // where it may stand, under tools/reading/
    };
    const std::vector<Way> ways{
        {QRegularExpression(QStringLiteral("\\bavformat_open_input\\s*\\(")), {QStringLiteral("DemuxedInput.cpp")}},
        {QRegularExpression(QStringLiteral("\\bav_find_best_stream\\s*\\(")), {}},
        {QRegularExpression(QStringLiteral("\\bDemuxedInput\\s+\\w+\\s*\\(|make_unique<DemuxedInput>")),
         {QStringLiteral("TrackInput.cpp")}},
        {QRegularExpression(QStringLiteral("\\bdescribeTracks\\s*\\(")),
         {QStringLiteral("SubtitleTracks.h"), QStringLiteral("SubtitleTracks.cpp"), QStringLiteral("TrackInput.cpp")}},
        {QRegularExpression(QStringLiteral("\\bchooseTrack\\s*\\(")),
         {QStringLiteral("TrackChoice.h"), QStringLiteral("TrackChoice.cpp"), QStringLiteral("TrackInput.cpp")}},
    };
    const std::vector<Source> sources = sourcesUnder({QStringLiteral("tools")});
    for (const Source& source : sources) {
        for (const Way& way : ways) {
            const bool allowed = std::any_of(way.files.begin(), way.files.end(), [&source](const QString& name) {
                return source.path.endsWith(QStringLiteral("/tools/reading/") + name);
            });
            const QRegularExpressionMatch found = way.pattern.match(source.text);
            EXPECT_TRUE(allowed || !found.hasMatch()) << source.path.toStdString()
                                                      << " opens an input or takes a track itself: "
                                                      << found.captured(0).toStdString();
        }
    }
    EXPECT_GT(sources.size(), 80u);
}

TEST(ZemsubToolLayers, OnlyTheLibraryFrameSourceLaysACaptionOnAFrame)
{
    // render, sheet and the example host's capture all take a played file's
    // frame from zemsub/frames/LibraryFrames.cpp.
    static const QRegularExpression ways(QStringLiteral("\\b(getSubtitleData|drawPixmap)\\s*\\("));
    int files = 0;
    for (const Source& source : sourcesUnder({QStringLiteral("tools"), QStringLiteral("examples")})) {
        if (source.path.contains(QStringLiteral("/tools/zemsub/frames/LibraryFrames.")))
            continue;
        ++files;
        const QRegularExpressionMatch found = ways.match(source.text);
        EXPECT_FALSE(found.hasMatch())
            << source.path.toStdString() << " lays a caption itself: " << found.captured(0).toStdString();
    }
    EXPECT_GT(files, 90);
}

TEST(ZemsubToolLayers, OnlyThePlaybackTellsWhatAPathIsToTheLibrary)
{
    // A path's facts, the manager's choice and the index test: playback/LibraryInput.h
    // (askLibrary) for every command. fix's check plays the copy it wrote.
    static const QRegularExpression ways(
        QStringLiteral("\\b(inspectFile|isIndexPath)\\s*\\(|\\bManagerSession\\s+\\w+\\s*\\(|make_unique<ManagerSession>"));
    int files = 0;
    for (const Source& source : sourcesUnder({QStringLiteral("tools")})) {
        if (source.path.contains(QStringLiteral("/tools/playback/")) ||
            source.path.endsWith(QStringLiteral("/tools/fix/CopyCheck.cpp")))
            continue;
        ++files;
        const QRegularExpressionMatch found = ways.match(source.text);
        EXPECT_FALSE(found.hasMatch()) << source.path.toStdString() << " asks the library what the path is itself: "
                                       << found.captured(0).toStdString();
    }
    EXPECT_GT(files, 80);
}
