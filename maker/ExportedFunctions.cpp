#include "ISubTitle.h"

#include <new>

#include "maker/ZemSubtitleMaker.h"

ISubTitle* createSubtitle()
{
    // A throwing constructor releases the storage and the exception goes on.
    return new ZemSubtitleMaker;
}

void destroySubtitle(ISubTitle** object)
{
    if (!object || !*object)
        return;
    // Storage only: ISubTitle has no destructor, so the maker's is not run and a
    // manager that close() did not delete stays behind.
    ::operator delete(static_cast<void*>(*object));
    *object = nullptr;
}

FILE* sub_open(const char* path, char* mode)
{
    return std::fopen(path, mode);
}
