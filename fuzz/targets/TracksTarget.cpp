// The container path: a file's subtitle tracks listed, one chosen, and fixed.
// The first byte picks the input's name (bits 0-1: .mkv, .mp4, .srt, .mkv),
// the track asked for (bits 2-3: none, 0, 1, 5), the language (bits 4-5: none,
// eng, fre, und) and the copy's format (bit 6: SubRip or ASS); the rest is the
// file. The listing either says why it cannot read the bytes or numbers its
// tracks from 0 with sound counts and times; a choice is within range and
// honours what was asked; fix takes the same track or says why not.
#include <QByteArray>
#include <QString>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "ZemsubFix.h"
#include "reading/SubtitleTracks.h"
#include "reading/TrackChoice.h"

namespace {

const char* const kNames[4] = {"in.mkv", "in.mp4", "in.srt", "in.mkv"};
const int kTracks[4] = {-1, 0, 1, 5};
const char* const kLanguages[4] = {"", "eng", "fre", "und"};

} // namespace

int fuzz_tracks(const uint8_t* data, size_t size)
{
    using namespace zemsub::tool;
    if (size < 1)
        return 0;
    const QString name = QString::fromLatin1(kNames[data[0] & 3]);
    const int requested = kTracks[(data[0] >> 2) & 3];
    // A track and a language together are refused; ask for one of them.
    const QString language = requested >= 0 ? QString() : QString::fromLatin1(kLanguages[(data[0] >> 4) & 3]);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), int(size - 1));

    const TrackList list = listSubtitleTracks(bytes, name);
    if (!list.read) {
        FUZZ_CHECK(!list.failure.isEmpty());
        FUZZ_CHECK(list.tracks.empty());
    }
    for (size_t i = 0; i < list.tracks.size(); ++i) {
        const SubtitleTrack& track = list.tracks[i];
        FUZZ_CHECK(track.index == int(i));
        FUZZ_CHECK(!track.codec.isEmpty());
        FUZZ_CHECK(track.captions >= 0);
        FUZZ_CHECK(track.captions > 0 || (track.first == -1 && track.last == -1));
        FUZZ_CHECK(track.captions == 0 || track.first <= track.last);
        FUZZ_CHECK(track.language != QLatin1String("und"));
    }

    const TrackChoice choice = chooseTrack(list.tracks, requested, language);
    if (choice.chosen) {
        FUZZ_CHECK(choice.index >= 0 && choice.index < int(list.tracks.size()));
        FUZZ_CHECK(!choice.why.isEmpty());
        if (requested >= 0)
            FUZZ_CHECK(choice.index == requested);
        if (!language.isEmpty())
            FUZZ_CHECK(list.tracks[size_t(choice.index)].language.compare(language, Qt::CaseInsensitive) ==
                       0);
        if (requested < 0 && language.isEmpty()) {
            bool anyDefault = false;
            for (const SubtitleTrack& track : list.tracks)
                anyDefault = anyDefault || track.isDefault;
            FUZZ_CHECK(list.tracks[size_t(choice.index)].isDefault == anyDefault);
        }
    } else {
        FUZZ_CHECK(!choice.error.isEmpty());
        FUZZ_CHECK(choice.index == -1);
        FUZZ_CHECK(list.tracks.empty() || requested >= int(list.tracks.size()) || !language.isEmpty());
    }

    zemsubfix::FixOptions options;
    options.track = requested;
    options.language = language;
    options.format = (data[0] & 0x40) ? zemsubfix::CopyFormat::Ass : zemsubfix::CopyFormat::SubRip;
    const zemsubfix::FixReport report = zemsubfix::fixBuffer(bytes, name, options);
    if (!report.readable) {
        FUZZ_CHECK(!report.error.isEmpty());
        FUZZ_CHECK(report.copy.isEmpty());
        // Refused for want of a track only when no track could be chosen.
        FUZZ_CHECK(report.track == -1 || choice.chosen);
        return 0;
    }
    FUZZ_CHECK(list.read && choice.chosen);
    FUZZ_CHECK(report.track == choice.index);
    FUZZ_CHECK(report.trackReason == choice.why);
    // A picture track is read as text, in the language of its tag.
    FUZZ_CHECK(!list.tracks[size_t(report.track)].pictures || !report.ocrLanguage.isEmpty());
    FUZZ_CHECK(report.error.isEmpty());
    FUZZ_CHECK(report.copyOpens || report.copyLines > 20000);
    FUZZ_CHECK(report.exitCode() == (report.allAsWritten() ? 0 : 3));
    return 0;
}
