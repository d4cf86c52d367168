#ifndef ZEMSUB_TOOL_INDEXPICTURES_H
#define ZEMSUB_TOOL_INDEXPICTURES_H

#include "SubPathArrangement.h"
#include "pictures/SubpictureDecoder.h"
#include "playback/LibraryView.h"

#include <QSize>
#include <QString>
#include <memory>
#include <vector>

class xcIdxParser;

namespace zemsub::tool {

// What the index reader answers at one time, and the picture of its packet.
struct IndexPicture
{
    long long time = 0;
    long long filePos = 0;
    bool packet = false;
    int packetSize = 0;
    int controlOffset = 0;
    QString subPath; // the .sub path the index reader formed
    DecodedSubpicture subpicture;
};

// A VobSub index opened by the library's index reader, with the .sub file beside
// it put where the reader looks. Each look-up cuts the packet with GetPacket, as a
// player gets it, and decodes it with FFmpeg in the index's colours: its palette,
// and its custom colours when they are switched on.
class IndexPictures
{
public:
    // The index at path; null when the reader does not open it, *failure then saying why.
    static std::unique_ptr<IndexPictures> open(const QString& path, QString* failure);
    ~IndexPictures();
    IndexPictures(const IndexPictures&) = delete;
    IndexPictures& operator=(const IndexPictures&) = delete;

    // Look-ups may add entries to the reader's map, as in a player.
    IndexPicture at(long long ms);

    // The frame the positions refer to: the index's "size:" line; without one, as
    // large as its pictures reach, at least 720x480.
    QSize frameSize() const { return m_frameSize; }
    // Whether the frame was taken from the pictures, for want of a "size:" line.
    bool frameFromPictures() const { return m_frameFromPictures; }
    // "the index has no size: line; its frame is WxH, ..." when the frame was taken from the pictures.
    QString frameNote() const;
    // The "timestamp" entries as read, in key order.
    const std::vector<IndexEntry>& entries() const { return m_entries; }
    // The .sub file beside the index that the reader is given; empty when there is none.
    const QString& subFile() const { return m_subFile; }

private:
    IndexPictures();
    // Why the reader does not open the index; empty when it does.
    QString load(const QString& path);

    std::unique_ptr<xcIdxParser> m_parser;
    QSize m_frameSize{720, 480};
    bool m_frameFromPictures = false;
    std::vector<IndexEntry> m_entries;
    QString m_subFile;
    std::unique_ptr<SubPathArrangement> m_arrangement;
    std::unique_ptr<SubpictureDecoder> m_decoder;
};

} // namespace zemsub::tool

#endif
