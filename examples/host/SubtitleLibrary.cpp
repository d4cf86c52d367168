#include "SubtitleLibrary.h"

namespace {

// ISubTitle* createSubtitle() and void destroySubtitle(ISubTitle**), Itanium C++ ABI.
const char kCreateSymbol[] = "_Z14createSubtitlev";
const char kDestroySymbol[] = "_Z15destroySubtitlePP9ISubTitle";

} // namespace

SubtitleLibrary::SubtitleLibrary(const QString& file) : m_library(file)
{
}

bool SubtitleLibrary::load()
{
    if (!m_library.load()) {
        m_error = m_library.errorString();
        return false;
    }
    m_create = reinterpret_cast<CreateFunction>(m_library.resolve(kCreateSymbol));
    m_destroy = reinterpret_cast<DestroyFunction>(m_library.resolve(kDestroySymbol));
    if (!m_create || !m_destroy) {
        m_error =
            QStringLiteral("%1 does not export createSubtitle and destroySubtitle").arg(m_library.fileName());
        return false;
    }
    return true;
}

ISubTitle* SubtitleLibrary::create() const
{
    return m_create();
}

void SubtitleLibrary::destroy(ISubTitle** object) const
{
    m_destroy(object);
}
