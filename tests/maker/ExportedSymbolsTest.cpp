// The dynamic symbol table of the built library holds the public surface and
// nothing else: the entry points, __wtoi and the public classes.

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace {

const std::vector<std::string> kClasses = {
    "ISubTitle",   "ZemSubtitleMaker", "xcSubtitleManager", "IParser",     "xcSrtParser", "xcSrtParserU",
    "xcAssParser", "xcAssParserU",     "xcIdxParser",       "xcIdxParserU", "xcString",    "xcWString",
};

const std::set<std::string> kFunctions = {
    "createSubtitle()",
    "destroySubtitle(ISubTitle**)",
    "sub_open(char const*, char*)",
    "__wtoi(wchar_t const*)",
};

bool startsWith(const std::string& text, const std::string& prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool belongsToTheSurface(const std::string& name)
{
    if (kFunctions.count(name))
        return true;
    for (const std::string& cls : kClasses) {
        if (startsWith(name, cls + "::"))
            return true;
        if (name == "vtable for " + cls || name == "typeinfo for " + cls || name == "typeinfo name for " + cls)
            return true;
    }
    return false;
}

// Demangled names of the defined dynamic symbols, from nm.
std::vector<std::string> exportedSymbols()
{
    std::vector<std::string> names;
    FILE* nm = popen("nm -D --defined-only -C '" ZEMSUB_LIBRARY_FILE "' 2>/dev/null", "r");
    if (!nm)
        return names;
    std::string line;
    char chunk[4096];
    while (std::fgets(chunk, sizeof chunk, nm)) {
        line += chunk;
        if (line.empty() || line.back() != '\n')
            continue;
        line.pop_back();
        // "<value> <type> <name>", the name may hold blanks
        const std::size_t first = line.find(' ');
        const std::size_t second = first == std::string::npos ? first : line.find(' ', first + 1);
        if (second != std::string::npos)
            names.push_back(line.substr(second + 1));
        line.clear();
    }
    if (pclose(nm) != 0)
        names.clear();
    return names;
}

class ExportedSymbols : public ::testing::Test
{
protected:
    void SetUp() override
    {
        names = exportedSymbols();
        ASSERT_FALSE(names.empty()) << "nm gave nothing for " << ZEMSUB_LIBRARY_FILE;
        all.insert(names.begin(), names.end());
    }

    std::vector<std::string> names;
    std::set<std::string> all;
};

} // namespace

TEST(ExportedSurface, ClassifierAcceptsTheSurfaceAndRejectsTheRest)
{
    EXPECT_TRUE(belongsToTheSurface("createSubtitle()"));
    EXPECT_TRUE(belongsToTheSurface("xcString::find(char, int) const"));
    EXPECT_TRUE(belongsToTheSurface("vtable for xcWString"));
    EXPECT_FALSE(belongsToTheSurface("xcString* std::__do_uninit_copy<xcString const*, xcString*>("
                                     "xcString const*, xcString const*, xcString*)"));
    EXPECT_FALSE(belongsToTheSurface("std::vector<xcString, std::allocator<xcString> >::~vector()"));
    EXPECT_FALSE(belongsToTheSurface("zemsub::detail::paintCaption(QString const&)"));
    EXPECT_FALSE(belongsToTheSurface("createSubtitle"));
    EXPECT_FALSE(belongsToTheSurface("vtable for SRC_SESSION_ST"));
    EXPECT_FALSE(belongsToTheSurface("_edata"));
}

TEST_F(ExportedSymbols, EverySymbolBelongsToThePublicSurface)
{
    for (const std::string& name : names)
        EXPECT_TRUE(belongsToTheSurface(name)) << name;
}

TEST_F(ExportedSymbols, NoStandardTemplateIsExported)
{
    // The name proper (before its parameter list) never comes from the standard library.
    for (const std::string& name : names)
        EXPECT_EQ(name.substr(0, name.find('(')).find("std::"), std::string::npos) << name;
}

TEST_F(ExportedSymbols, TheFourFunctionsAreExported)
{
    for (const std::string& name : kFunctions)
        EXPECT_TRUE(all.count(name)) << name;
}

TEST_F(ExportedSymbols, EveryClassHasItsTypeInformation)
{
    for (const std::string& cls : kClasses) {
        EXPECT_TRUE(all.count("typeinfo for " + cls)) << cls;
        EXPECT_TRUE(all.count("typeinfo name for " + cls)) << cls;
        if (cls != "ISubTitle") {  // the interface's vtable is only emitted where needed
            EXPECT_TRUE(all.count("vtable for " + cls)) << cls;
        }
    }
}

TEST_F(ExportedSymbols, ConstructorsAndDestructorsAreExported)
{
    for (const std::string& cls : kClasses) {
        if (cls == "ISubTitle")
            continue;  // no constructor or destructor of its own
        if (cls != "IParser") {
            EXPECT_TRUE(all.count(cls + "::" + cls + "()")) << cls;
        }
        EXPECT_TRUE(all.count(cls + "::~" + cls + "()")) << cls;
    }
}

TEST_F(ExportedSymbols, MakerOperationsAndAccessorsAreExported)
{
    const char* members[] = {
        "open(char const*)",
        "close()",
        "isOpened()",
        "getSubtitleData(long long, long long)",
        "destroySubData(SubtitleData*)",
        "setVideoSize(int, int)",
        "setFontInfo(char const*, int, int, char const*, int)",
        "setSubtitlePos(int, int)",
        "setTrasparency(int)",
        "createSubManager()",
        "makeSubImage(QString const&)",
        "manager() const",
        "font() const",
        "lineSpacing() const",
        "captionX() const",
        "captionY() const",
        "textColor() const",
        "outlineColor() const",
        "alpha() const",
        "lastText() const",
        "captionImage() const",
        "videoWidth() const",
        "videoHeight() const",
    };
    for (const char* member : members)
        EXPECT_TRUE(all.count(std::string("ZemSubtitleMaker::") + member)) << member;
}

TEST_F(ExportedSymbols, ManagerAndParserOperationsAreExported)
{
    const char* members[] = {
        "xcSubtitleManager::Open(char const*)",
        "xcSubtitleManager::IsOpen()",
        "xcSubtitleManager::GetSubTitle(long long)",
        "xcSubtitleManager::GetSubTitleU(long long)",
        "xcSubtitleManager::GetFormatCode() const",
        "xcSubtitleManager::IsWide() const",
        "xcSrtParser::Open(char const*)",
        "xcSrtParser::GetSubTitle(long long)",
        "xcSrtParser::ConvertBufToSrtMap()",
        "xcSrtParserU::GetSubTitleU(long long)",
        "xcAssParser::ConvertBufToAssMap()",
        "xcAssParserU::ConvertBufToAssMap()",
        "xcIdxParser::ConvertBufToIdxMap()",
        "xcIdxParserU::ConvertBufToIdxMap()",
        "xcString::getData() const",
        "xcWString::getData() const",
    };
    for (const char* member : members)
        EXPECT_TRUE(all.count(member)) << member;
}
