#ifndef ZEMSUB_HOST_SUBTITLELIBRARY_H
#define ZEMSUB_HOST_SUBTITLELIBRARY_H

#include "ISubTitle.h"

#include <QLibrary>
#include <QString>

// The library as a player holds it: loaded from a file at run time, its two
// entry points resolved by their C++ (mangled) names.
class SubtitleLibrary
{
public:
    explicit SubtitleLibrary(const QString& file);

    bool load();
    QString errorString() const { return m_error; }

    ISubTitle* create() const;
    void destroy(ISubTitle** object) const;

private:
    using CreateFunction = ISubTitle* (*)();
    using DestroyFunction = void (*)(ISubTitle**);

    QLibrary m_library;
    QString m_error;
    CreateFunction m_create = nullptr;
    DestroyFunction m_destroy = nullptr;
};

#endif
