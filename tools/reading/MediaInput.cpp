#include "MediaInput.h"

#include <QFile>
#include <QFileInfo>

namespace zemsub::tool {

MediaInput::MediaInput(const QByteArray& bytes, const QString& fileName) : m_fileName(fileName), m_bytes(bytes)
{
}

std::optional<MediaInput> MediaInput::open(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot open: %1").arg(file.errorString());
        return std::nullopt;
    }
    if (!QFileInfo(path).isFile())
        return MediaInput(file.readAll(), path);
    MediaInput input;
    input.m_fileName = path;
    input.m_onDisk = true;
    return input;
}

QByteArray MediaInput::url() const
{
    // "file:" keeps a colon in the name from being read as a protocol.
    return m_onDisk ? QByteArray("file:") + QFile::encodeName(m_fileName) : m_fileName.toUtf8();
}

QByteArray MediaInput::wholeBytes() const
{
    if (!m_onDisk)
        return m_bytes;
    QFile file(m_fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace zemsub::tool
