#include "FileBytes.h"

#include <limits>

namespace zemsub::tool {

FileBytes::FileBytes(const QString& path) : m_file(path)
{
    if (!m_file.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("cannot open: %1").arg(m_file.errorString());
        return;
    }
    const qint64 size = m_file.size();
    // Qt 5 counts a byte array's size in an int.
    using Size = decltype(QByteArray().size());
    if (size > std::numeric_limits<Size>::max()) {
        m_error =
            QStringLiteral("cannot open: its %1 bytes are more than this build reads at once").arg(size);
        return;
    }
    const uchar* mapped = size > 0 ? m_file.map(0, size) : nullptr;
    if (mapped) {
        m_bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(mapped), Size(size));
        return;
    }
    // Pipes, devices and empty files are read as they come.
    m_bytes = m_file.readAll();
}

} // namespace zemsub::tool
