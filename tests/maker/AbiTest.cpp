// The library as a player binds it: loaded with dlopen, the three functions found by
// their mangled names, the object driven through its vtable by a host-side copy of
// the interface.

#include <gtest/gtest.h>

#include <cxxabi.h>
#include <dlfcn.h>

#include <QPixmap>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "ISubTitle.h"
#include "maker/ZemSubtitleMaker.h"
#include "support/TestFiles.h"

#include "MakerTestSupport.h"

namespace host {

// What a player declares: same fields, same slot order, no destructor.
struct SubtitleData
{
    int width;
    int height;
    QPixmap* image;
    int reserved;
    int x;
    int y;
};

#if defined(__GNUC__)
#    pragma GCC diagnostic push
#    pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif
class ISubTitle
{
public:
    virtual bool open(const char* path) = 0;
    virtual bool close() = 0;
    virtual bool isOpened() = 0;
    virtual SubtitleData* getSubtitleData(long long position, long long offset) = 0;
    virtual void destroySubData(SubtitleData* data) = 0;
    virtual void setVideoSize(int width, int height) = 0;
    virtual void setFontInfo(const char* family, int colour, int pointSize, const char* style,
                             int lineSpacing) = 0;
    virtual void setSubtitlePos(int x, int y) = 0;
    virtual void setTrasparency(int percent) = 0;
};
#if defined(__GNUC__)
#    pragma GCC diagnostic pop
#endif

using CreateFn = ISubTitle* (*)();
using DestroyFn = void (*)(ISubTitle**);
using OpenFn = FILE* (*)(const char*, char*);

} // namespace host

namespace {

// Mangled names under the Itanium C++ ABI, each checked against its signature below.
constexpr const char* kCreate = "_Z14createSubtitlev";
constexpr const char* kDestroy = "_Z15destroySubtitlePP9ISubTitle";
constexpr const char* kSubOpen = "_Z8sub_openPKcPc";

struct Slot
{
    const char* mangled;
    const char* signature;
};

// ZemSubtitleMaker's overrides in ISubTitle slot order.
const Slot kSlots[9] = {
    {"_ZN16ZemSubtitleMaker4openEPKc", "ZemSubtitleMaker::open(char const*)"},
    {"_ZN16ZemSubtitleMaker5closeEv", "ZemSubtitleMaker::close()"},
    {"_ZN16ZemSubtitleMaker8isOpenedEv", "ZemSubtitleMaker::isOpened()"},
    {"_ZN16ZemSubtitleMaker15getSubtitleDataExx", "ZemSubtitleMaker::getSubtitleData(long long, long long)"},
    {"_ZN16ZemSubtitleMaker14destroySubDataEP12SubtitleData",
     "ZemSubtitleMaker::destroySubData(SubtitleData*)"},
    {"_ZN16ZemSubtitleMaker12setVideoSizeEii", "ZemSubtitleMaker::setVideoSize(int, int)"},
    {"_ZN16ZemSubtitleMaker11setFontInfoEPKciiS1_i",
     "ZemSubtitleMaker::setFontInfo(char const*, int, int, char const*, int)"},
    {"_ZN16ZemSubtitleMaker14setSubtitlePosEii", "ZemSubtitleMaker::setSubtitlePos(int, int)"},
    {"_ZN16ZemSubtitleMaker14setTrasparencyEi", "ZemSubtitleMaker::setTrasparency(int)"},
};

std::string demangle(const char* mangled)
{
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> text(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                                std::free);
    return status == 0 && text ? std::string(text.get()) : std::string();
}

// Symbol name (mangled) of the function at address, as the dynamic linker knows it.
std::string symbolAt(void* address)
{
    Dl_info info{};
    if (!dladdr(address, &info) || !info.dli_sname)
        return std::string();
    return info.dli_sname;
}

class Library : public ::testing::Test
{
protected:
    void SetUp() override
    {
        handle = dlopen(ZEMSUB_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(handle, nullptr) << dlerror();
        create = reinterpret_cast<host::CreateFn>(dlsym(handle, kCreate));
        destroy = reinterpret_cast<host::DestroyFn>(dlsym(handle, kDestroy));
        subOpen = reinterpret_cast<host::OpenFn>(dlsym(handle, kSubOpen));
        ASSERT_NE(create, nullptr);
        ASSERT_NE(destroy, nullptr);
        ASSERT_NE(subOpen, nullptr);
    }
    void TearDown() override
    {
        if (handle)
            dlclose(handle);
    }

    void* handle = nullptr;
    host::CreateFn create = nullptr;
    host::DestroyFn destroy = nullptr;
    host::OpenFn subOpen = nullptr;
};

} // namespace

static_assert(offsetof(host::SubtitleData, width) == offsetof(::SubtitleData, width));
static_assert(offsetof(host::SubtitleData, height) == offsetof(::SubtitleData, height));
static_assert(offsetof(host::SubtitleData, image) == offsetof(::SubtitleData, image));
static_assert(offsetof(host::SubtitleData, reserved) == offsetof(::SubtitleData, reserved));
static_assert(offsetof(host::SubtitleData, x) == offsetof(::SubtitleData, x));
static_assert(offsetof(host::SubtitleData, y) == offsetof(::SubtitleData, y));
static_assert(sizeof(host::SubtitleData) == sizeof(::SubtitleData));
static_assert(sizeof(::ISubTitle) == sizeof(void*), "only the vtable pointer");

TEST(AbiNames, MangledNamesSpellTheExportedSignatures)
{
    EXPECT_EQ(demangle(kCreate), "createSubtitle()");
    EXPECT_EQ(demangle(kDestroy), "destroySubtitle(ISubTitle**)");
    EXPECT_EQ(demangle(kSubOpen), "sub_open(char const*, char*)");
    for (const Slot& slot : kSlots)
        EXPECT_EQ(demangle(slot.mangled), slot.signature);
}

TEST(AbiNames, DeclarationsInTheHeaderBindToThoseNames)
{
    EXPECT_EQ(symbolAt(reinterpret_cast<void*>(&::createSubtitle)), kCreate);
    EXPECT_EQ(symbolAt(reinterpret_cast<void*>(&::destroySubtitle)), kDestroy);
    EXPECT_EQ(symbolAt(reinterpret_cast<void*>(&::sub_open)), kSubOpen);
}

TEST_F(Library, ResolvesTheSameFunctionsTheHeaderDeclares)
{
    EXPECT_EQ(reinterpret_cast<void*>(create), reinterpret_cast<void*>(&::createSubtitle));
    EXPECT_EQ(reinterpret_cast<void*>(destroy), reinterpret_cast<void*>(&::destroySubtitle));
    EXPECT_EQ(reinterpret_cast<void*>(subOpen), reinterpret_cast<void*>(&::sub_open));
}

TEST_F(Library, HasNoUnmangledEntryPoints)
{
    EXPECT_EQ(dlsym(handle, "createSubtitle"), nullptr);
    EXPECT_EQ(dlsym(handle, "destroySubtitle"), nullptr);
    EXPECT_EQ(dlsym(handle, "sub_open"), nullptr);
}

TEST_F(Library, VtableHoldsTheNineOperationsInSlotOrder)
{
    host::ISubTitle* subtitle = create();
    ASSERT_NE(subtitle, nullptr);
    void* const* vptr = *reinterpret_cast<void* const* const*>(subtitle);

    auto* vtable = static_cast<char*>(dlsym(handle, "_ZTV16ZemSubtitleMaker"));
    ASSERT_NE(vtable, nullptr);
    // offset to top, type information, then the slots
    EXPECT_EQ(reinterpret_cast<const char*>(vptr), vtable + 2 * sizeof(void*));
    EXPECT_EQ(vptr[-1], dlsym(handle, "_ZTI16ZemSubtitleMaker"));
    for (int i = 0; i < 9; ++i) {
        void* expected = dlsym(handle, kSlots[i].mangled);
        ASSERT_NE(expected, nullptr) << kSlots[i].signature;
        EXPECT_EQ(vptr[i], expected) << "slot " << i + 1 << ": " << kSlots[i].signature;
    }
    destroy(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
}

TEST_F(Library, VtablesHaveNineSlotsAndNoDestructor)
{
    // 2 header words + 9 slots; a destructor would add two more.
    FILE* nm = popen("nm -D -S --defined-only '" ZEMSUB_LIBRARY_FILE "'", "r");
    ASSERT_NE(nm, nullptr);
    char line[1024];
    long makerSize = -1;
    long interfaceSize = -1;
    while (std::fgets(line, sizeof line, nm)) {
        char value[64], size[64], type[8], name[512];
        if (std::sscanf(line, "%63s %63s %7s %511s", value, size, type, name) != 4)
            continue;
        if (std::strcmp(name, "_ZTV16ZemSubtitleMaker") == 0)
            makerSize = std::strtol(size, nullptr, 16);
        if (std::strcmp(name, "_ZTV9ISubTitle") == 0)
            interfaceSize = std::strtol(size, nullptr, 16);
    }
    EXPECT_EQ(pclose(nm), 0);
    EXPECT_EQ(makerSize, static_cast<long>(11 * sizeof(void*)));
    if (interfaceSize >= 0) {  // only emitted where the compiler needed it
        EXPECT_EQ(interfaceSize, static_cast<long>(11 * sizeof(void*)));
    }
}

// Calls through the host's own declaration of the interface: the undefined-behaviour
// sanitizer's dynamic type check would object to exactly what a player does.
#if defined(__GNUC__)
__attribute__((no_sanitize("vptr")))
#endif
static void playerSession(host::CreateFn create, host::DestroyFn destroy, const std::string& path)
{
    host::ISubTitle* subtitle = create();
    ASSERT_NE(subtitle, nullptr);
    subtitle->setVideoSize(640, 480);
    subtitle->setFontInfo(makertest::kFamily, 0x00FFFF, 20, "Bold", 4);
    subtitle->setSubtitlePos(320, 450);
    subtitle->setTrasparency(0);
    EXPECT_FALSE(subtitle->isOpened());
    EXPECT_EQ(subtitle->getSubtitleData(1500, 0), nullptr);

    ASSERT_TRUE(subtitle->open(path.c_str()));
    EXPECT_TRUE(subtitle->isOpened());

    host::SubtitleData* data = subtitle->getSubtitleData(1000, 500);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->width, 640);
    EXPECT_EQ(data->height, 480);
    EXPECT_EQ(data->x, 0);
    EXPECT_EQ(data->y, 210);
    ASSERT_NE(data->image, nullptr);
    EXPECT_EQ(data->image->size(), QSize(640, 480));
    const QImage image = makertest::pixels(*data->image);
    const makertest::InkBox text = makertest::inkBox(image, makertest::redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_LE(text.bottom, 449);
    // yellow text (red and green) at alpha 200 over its outline
    EXPECT_GT(makertest::countPixels(image, [](QRgb p) { return qRed(p) > 150 && qGreen(p) > 150; }), 0);
    EXPECT_EQ(makertest::countPixels(image, [](QRgb p) { return qBlue(p) > 0; }), 0);

    host::SubtitleData* again = subtitle->getSubtitleData(1800, 0);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->image, data->image);
    subtitle->destroySubData(again);
    subtitle->destroySubData(data);
    subtitle->destroySubData(nullptr);

    EXPECT_EQ(subtitle->getSubtitleData(2500, 0), nullptr);
    EXPECT_TRUE(subtitle->close());
    EXPECT_FALSE(subtitle->close());
    EXPECT_FALSE(subtitle->isOpened());
    EXPECT_EQ(subtitle->getSubtitleData(3500, 0), nullptr);

    // destroySubtitle leaves the members by design (font, last text); release them
    // here, on the library's own class, so that leak checkers stay quiet.
    reinterpret_cast<ZemSubtitleMaker*>(subtitle)->~ZemSubtitleMaker();
    destroy(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
}

TEST_F(Library, PlayerSessionThroughTheVtable)
{
    TempDir dir;
    playerSession(create, destroy, dir.write("movie.srt", makertest::twoCaptionSrt()));
}

TEST_F(Library, DestroyThroughTheResolvedFunctionClearsThePointer)
{
    host::ISubTitle* subtitle = create();
    ASSERT_NE(subtitle, nullptr);
    destroy(&subtitle);
    EXPECT_EQ(subtitle, nullptr);
    destroy(&subtitle);  // pointer to a null pointer: nothing
    destroy(nullptr);
    EXPECT_EQ(subtitle, nullptr);
}

TEST_F(Library, ResolvedSubOpenIsPlainFopen)
{
    TempDir dir;
    const std::string path = dir.write("x.bin", "xyz");
    char mode[] = "rb";
    FILE* file = subOpen(path.c_str(), mode);
    ASSERT_NE(file, nullptr);
    char buffer[4] = {};
    EXPECT_EQ(std::fread(buffer, 1, 3, file), 3u);
    EXPECT_STREQ(buffer, "xyz");
    std::fclose(file);
    EXPECT_EQ(subOpen(dir.file("none").c_str(), mode), nullptr);
}
