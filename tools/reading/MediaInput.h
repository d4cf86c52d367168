#ifndef ZEMSUB_READING_MEDIAINPUT_H
#define ZEMSUB_READING_MEDIAINPUT_H

#include <QByteArray>
#include <QString>
#include <optional>

namespace zemsub::tool {

// What the readers read: a file on disk, which FFmpeg opens and reads as
// players do (a film is never held in memory), or bytes in memory named as a
// file (the name gives the extension FFmpeg's probing weighs).
class MediaInput
{
public:
    MediaInput(const QByteArray& bytes, const QString& fileName);

    // The file at path, or why it cannot be read ("cannot open: ..."). Pipes
    // and devices are read in whole, as they can be read only once.
    static std::optional<MediaInput> open(const QString& path, QString* error);

    const QString& fileName() const { return m_fileName; }
    bool onDisk() const { return m_onDisk; }
    // The name FFmpeg opens: the file itself on disk, else the name of the bytes.
    QByteArray url() const;
    // Every byte: those in memory, or the file read in. Only for what is read
    // whole anyway (a subtitle file's text); empty when the file cannot be read.
    QByteArray wholeBytes() const;
    const QByteArray& memoryBytes() const { return m_bytes; }

private:
    MediaInput() = default;

    QString m_fileName;
    QByteArray m_bytes;
    bool m_onDisk = false;
};

} // namespace zemsub::tool

#endif
