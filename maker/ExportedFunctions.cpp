#include "ISubTitle.h"

FILE* sub_open(const char* path, char* mode)
{
    return std::fopen(path, mode);
}
