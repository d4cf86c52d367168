#ifndef ZEMSUB_READING_FILEBYTES_H
#define ZEMSUB_READING_FILEBYTES_H

#include <QByteArray>
#include <QFile>
#include <QString>

namespace zemsub::tool {

// A file's bytes, mapped into memory where the system can rather than read:
// a film of gigabytes costs address space, and its pages stay the file's.
// The bytes are valid while this object lives.
class FileBytes
{
public:
    explicit FileBytes(const QString& path);
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    bool opened() const { return m_error.isEmpty(); }
    // Why the file could not be read ("cannot open: ..."), when not opened.
    const QString& error() const { return m_error; }
    const QByteArray& bytes() const { return m_bytes; }

private:
    QFile m_file;
    QByteArray m_bytes;
    QString m_error;
};

} // namespace zemsub::tool

#endif
