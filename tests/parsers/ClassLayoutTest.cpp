// The exported parser and manager classes keep their released layout: each
// matches a plain record of the same members in the same order, the members
// that are never used included. Checked when this file compiles.

#include <cstdio>
#include <map>
#include <vector>

#include "manager/xcSubtitleManager.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"

namespace {

template <class S, class Entry, class Style> struct AssLayout
{
    void* vtable;
    FILE* file;
    std::vector<S> lines;
    std::map<int, Entry> map;
    bool opened;
    S spare;
    S collisions;
    int playResX;
    int playResY;
    Style style;
    void* index;
};

template <class S, class Entry> struct IdxLayout
{
    void* vtable;
    FILE* file;
    std::vector<S> lines;
    std::map<int, Entry> map;
    bool opened;
    S subPath;
    int customColorSwitch;
    unsigned int transparencyMask;
    unsigned int palette[16];
    unsigned int customColors[4];
    S spare1;
    S spare2;
};

struct ManagerLayout
{
    void* vtable;
    int formatCode;
    bool reserved;
    bool wide;
    IParser* reservedParser;
    xcAssParser* assParser;
    xcSrtParser* srtParser;
    xcAssParserU* assParserU;
    xcSrtParserU* srtParserU;
    std::map<int, IParser*> registry;
};

static_assert(sizeof(xcAssParser) == sizeof(AssLayout<xcString, ASS_SESSION_ST, ASS_STYLE_ST>));
static_assert(sizeof(xcAssParserU) == sizeof(AssLayout<xcWString, ASS_SESSION_ST_U, ASS_STYLE_ST_U>));
static_assert(sizeof(xcIdxParser) == sizeof(IdxLayout<xcString, SUB_SESSION_ST>));
static_assert(sizeof(xcIdxParserU) == sizeof(IdxLayout<xcWString, SUB_SESSION_ST_U>));
static_assert(sizeof(xcSubtitleManager) == sizeof(ManagerLayout));

} // namespace
