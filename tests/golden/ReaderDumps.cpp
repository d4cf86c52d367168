#include "golden/ReaderDumps.h"

#include <climits>
#include <cstdio>
#include <clocale>
#include <map>
#include <vector>

#include "golden/GoldenText.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"
#include "reference/LookupScans.h"
#include "support/TestFiles.h"

namespace golden {

const char* const kSubMarker = "%%SUB%%\n";

namespace {

constexpr size_t kTagTextLimit = 4096;
// A SubRip look-up fills every key it walks past; past this many the map after
// the look-ups is too large to take.
constexpr long long kWalkLimit = 100000;

class CtypeScope
{
public:
    explicit CtypeScope(const char* name) : m_previous(std::setlocale(LC_CTYPE, nullptr))
    {
        m_ok = std::setlocale(LC_CTYPE, name) != nullptr;
    }
    ~CtypeScope() { std::setlocale(LC_CTYPE, m_previous.c_str()); }
    bool ok() const { return m_ok; }

private:
    std::string m_previous;
    bool m_ok = false;
};

const char* const kWideLocales[] = {"C.UTF-8", "C"};

std::string num(long long v)
{
    return std::to_string(v);
}

std::string num(double v)
{
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

template <class Entry> std::vector<long long> lookupTimes(const std::map<int, Entry>& map)
{
    std::vector<long long> times = {LLONG_MIN, INT_MIN, -1, 0, 1, 2, 499, 500, 999, 1000, 1001,
                                    INT_MAX, (long long)INT_MAX + 1, LLONG_MAX};
    size_t i = 0;
    const size_t n = map.size();
    for (const auto& [key, e] : map) {
        if (i < 8 || i + 4 >= n) {
            for (long long t : {e.start, e.end}) {
                times.push_back(t);
                if (t > LLONG_MIN)
                    times.push_back(t - 1);
                if (t < LLONG_MAX)
                    times.push_back(t + 1);
            }
            times.push_back(e.start + (e.end - e.start) / 2);
        }
        ++i;
    }
    return times;
}

template <class String> void writeLines(std::string& out, const std::vector<String>& lines)
{
    ListWriter list(out, "lines", lines.size());
    for (size_t i = 0; i < lines.size(); ++i)
        list.item(i, quoted(lines[i]));
    list.finish();
}

template <class Entry> void writeSrtMap(std::string& out, const char* title, const std::map<int, Entry>& map)
{
    ListWriter list(out, title, map.size());
    size_t i = 0;
    for (const auto& [key, e] : map)
        list.item(i++, num((long long)key) + " [" + num(e.start) + ", " + num(e.end) + "] " + quoted(e.text));
    list.finish();
}

template <class Parser> void writeSrtMapAfterLookups(std::string& out, Parser& parser, long long bound)
{
    if (bound > kWalkLimit)
        out += "map after look-ups: not taken, the look-ups walk " + std::to_string(bound) + " keys\n";
    else
        writeSrtMap(out, "map after look-ups", parser.GetMap());
}

template <class Entry> void writeAssMap(std::string& out, const char* title, const std::map<int, Entry>& map)
{
    ListWriter list(out, title, map.size());
    size_t i = 0;
    for (const auto& [key, e] : map)
        list.item(i++, num((long long)key) + " layer " + num((long long)e.layer) + " [" + num(e.start) + ", " +
                           num(e.end) + "] style " + quoted(e.style) + " name " + quoted(e.name) + " effect " +
                           quoted(e.effect) + " text " + quoted(e.text));
    list.finish();
}

template <class Parser> bool openCatching(Parser& parser, const char* path, std::string& out)
{
    try {
        const bool opened = parser.Open(path);
        out += std::string("open: ") + (opened ? "true" : "false") + "\n";
    } catch (int thrown) {
        out += "open: threw int " + num((long long)thrown) + "\n";
        return false;
    }
    return true;
}

template <class Parser, class Ask>
void writeAnswers(std::string& out, Parser& parser, const std::vector<long long>& times, Ask ask)
{
    ListWriter list(out, "answers", times.size());
    for (size_t i = 0; i < times.size(); ++i)
        list.item(i, num(times[i]) + " " + ask(parser, times[i]));
    list.finish();
}

void dumpSrtNarrow(std::string& out)
{
    out += "== SubRip narrow\n";
    xcSrtParser parser;
    openCatching(parser, "in.srt", out);
    out += std::string("isOpen: ") + (parser.IsOpen() ? "true" : "false") + "\n";
    writeLines(out, parser.GetLines());
    writeSrtMap(out, "map", parser.GetMap());
    const long long bound = zemsub::reference::scanWalkBound(parser.GetMap());
    writeAnswers(out, parser, lookupTimes(parser.GetMap()), [](xcSrtParser& p, long long t) {
        return quoted(p.GetSubTitle(t)) + (p.GetSubTitleU(t) ? " wide!" : "");
    });
    writeSrtMapAfterLookups(out, parser, bound);
}

void dumpSrtWide(std::string& out, const char* locale)
{
    out += std::string("== SubRip wide, ") + locale + "\n";
    xcSrtParserU parser;
    openCatching(parser, "in.srt", out);
    out += std::string("isOpen: ") + (parser.IsOpen() ? "true" : "false") + "\n";
    writeLines(out, parser.GetLines());
    writeSrtMap(out, "map", parser.GetMap());
    const long long bound = zemsub::reference::scanWalkBound(parser.GetMap());
    writeAnswers(out, parser, lookupTimes(parser.GetMap()), [](xcSrtParserU& p, long long t) {
        return quoted(p.GetSubTitleU(t)) + (p.GetSubTitle(t) ? " narrow!" : "");
    });
    writeSrtMapAfterLookups(out, parser, bound);
}

template <class Style> void writeStyle(std::string& out, const Style& s)
{
    out += "style: font " + quoted(s.fontName) + " size " + num(s.fontSize) + " bold " + num((long long)s.bold) +
           " italic " + num((long long)s.italic) + "\n";
    out += "  colours";
    for (int i = 0; i < 4; ++i)
        out += " " + num((long long)s.colour[i]) + "/" + num((long long)s.alpha[i]);
    out += "\n  margins " + num((long long)s.marginL) + " " + num((long long)s.marginR) + " " +
           num((long long)s.marginV) + " " + num((long long)s.marginVCopy) + " encoding " +
           num((long long)s.encoding) + " alignment " + num((long long)s.alignment) + " border " +
           num((long long)s.borderStyle) + "\n";
    out += "  scale " + num(s.scaleX) + " " + num(s.scaleY) + " spacing " + num(s.spacing) + " angle " +
           num(s.angle) + " outline " + num(s.outline) + " shadow " + num(s.shadow) + "\n";
}

template <class Parser, class Ask> void dumpAss(std::string& out, Parser& parser, Ask ask)
{
    openCatching(parser, "in.ass", out);
    out += std::string("isOpen: ") + (parser.IsOpen() ? "true" : "false") + "\n";
    out += "playRes: " + num((long long)parser.GetPlayResX()) + " " + num((long long)parser.GetPlayResY()) + "\n";
    out += "collisions: " + quoted(parser.GetCollisions()) + "\n";
    writeStyle(out, parser.GetStyle());
    writeLines(out, parser.GetLines());
    writeAssMap(out, "map", parser.GetMap());
    writeAnswers(out, parser, lookupTimes(parser.GetMap()), ask);
    writeAssMap(out, "map after look-ups", parser.GetMap());
}

template <class Entry> std::vector<long long> idxTimes(const std::map<int, Entry>& map)
{
    std::vector<long long> times = {LLONG_MIN, INT_MIN, -1, 0, 1, 499, 500, 999, 1000, INT_MAX, LLONG_MAX};
    size_t used = 0;
    for (const auto& [key, e] : map) {
        if (++used > 12)
            break;
        for (long long d : {-1000LL, -999LL, -500LL, -499LL, 0LL, 499LL, 500LL, 999LL, 1000LL})
            times.push_back(e.time + d);
    }
    return times;
}

template <class Parser> void writeIdxState(std::string& out, Parser& parser)
{
    out += "subPath: " + quoted(parser.GetSubPath()) + "\n";
    out += "customColorSwitch: " + num((long long)parser.GetCustomColorSwitch()) + " transparencyMask: " +
           num((long long)parser.GetTransparencyMask()) + "\n";
    out += "palette:";
    for (int i = 0; i < 16; ++i)
        out += " " + num((long long)parser.GetPalette()[i]);
    out += "\ncustomColors:";
    for (int i = 0; i < 4; ++i)
        out += " " + num((long long)parser.GetCustomColors()[i]);
    out += "\n";
    writeLines(out, parser.GetLines());
    ListWriter list(out, "map", parser.GetMap().size());
    size_t i = 0;
    for (const auto& [key, e] : parser.GetMap())
        list.item(i++, num((long long)key) + " time " + num(e.time) + " filePos " + num(e.filePos));
    list.finish();
}

template <class Parser, class Time> void writePackets(std::string& out, Parser& parser, const std::vector<long long>& times)
{
    ListWriter list(out, "filePos and packets", times.size());
    for (size_t i = 0; i < times.size(); ++i) {
        const Time t = Time(times[i]);
        std::string line = num((long long)t) + " filePos " + num(parser.GetFilePos(t));
        int packetSize = -7, controlOffset = -7;
        unsigned char* packet = parser.GetPacket(t, packetSize, controlOffset);
        line += " packet ";
        if (packet) {
            line += "size " + num((long long)packetSize) + " control " + num((long long)controlOffset) + " bytes " +
                    hash(std::string(reinterpret_cast<const char*>(packet), size_t(packetSize)));
            delete[] packet;
        } else {
            line += "null size " + num((long long)packetSize) + " control " + num((long long)controlOffset);
        }
        list.item(i, line);
    }
    list.finish();
}

void dumpIdxNarrow(std::string& out)
{
    out += "== VobSub index narrow\n";
    xcIdxParser parser;
    if (openCatching(parser, "in.idx", out)) {
        // The map is kept across opens.
        out += "second ";
        openCatching(parser, "in.idx", out);
    }
    writeIdxState(out, parser);
    writePackets<xcIdxParser, long long>(out, parser, idxTimes(parser.GetMap()));
}

void dumpIdxWide(std::string& out, const char* locale)
{
    out += std::string("== VobSub index wide, ") + locale + "\n";
    xcIdxParserU parser;
    // The path's storage is read as narrow bytes: the file opened is "x".
    wchar_t path[] = L"x.idx";
    try {
        out += std::string("open: ") + (parser.Open(path) ? "true" : "false") + "\n";
    } catch (int thrown) {
        out += "open: threw int " + num((long long)thrown) + "\n";
    }
    writeIdxState(out, parser);
    writePackets<xcIdxParserU, int>(out, parser, idxTimes(parser.GetMap()));
}

void dumpTags(std::string& out, const std::string& bytes)
{
    const std::string text = bytes.substr(0, kTagTextLimit);
    std::wstring wtext;
    for (unsigned char b : text)
        wtext += wchar_t(b);
    xcAssParser narrow;
    xcAssParserU wide;
    out += "== tag stripping of the first " + num((long long)text.size()) + " bytes\n";
    out += "narrow: " + quoted(narrow.RemoveSSATags(xcString(text.data(), int(text.size())), 0)) + "\n";
    out += "wide: " + quoted(wide.RemoveSSATags(xcWString(wtext))) + "\n";
}

} // namespace

std::string dumpReaders(const GoldenInput& input)
{
    std::string out;
    TempDir dir;
    InDirectory here(dir.path());

    dir.write("in.srt", input.bytes);
    dumpSrtNarrow(out);
    for (const char* locale : kWideLocales) {
        CtypeScope scope(locale);
        dumpSrtWide(out, locale);
    }

    dir.write("in.ass", input.bytes);
    out += "== ASS/SSA narrow\n";
    xcAssParser assNarrow;
    dumpAss(out, assNarrow, [](xcAssParser& p, long long t) {
        return quoted(p.GetSubTitle(t)) + (p.GetSubTitleU(t) ? " wide!" : "");
    });
    for (const char* locale : kWideLocales) {
        CtypeScope scope(locale);
        out += std::string("== ASS/SSA wide, ") + locale + "\n";
        xcAssParserU assWide;
        dumpAss(out, assWide, [](xcAssParserU& p, long long t) {
            return quoted(p.GetSubTitleU(t)) + (p.GetSubTitle(t) ? " narrow!" : "");
        });
    }

    std::string idx = input.bytes;
    std::string sub = input.subBytes;
    bool hasSub = input.hasSub;
    const size_t marker = idx.find(kSubMarker);
    if (!hasSub && marker != std::string::npos) {
        sub = idx.substr(marker + std::string(kSubMarker).size());
        idx.resize(marker);
        hasSub = true;
    }
    dir.write("in.idx", idx);
    if (hasSub)
        dir.write(".idxsub", sub);
    dumpIdxNarrow(out);
    dir.write("x", idx);
    for (const char* locale : kWideLocales) {
        CtypeScope scope(locale);
        dumpIdxWide(out, locale);
    }

    dumpTags(out, input.bytes);
    return out;
}

} // namespace golden
