// Each behaviour that keeps a caption from showing as written has one code and
// its words, the same for lint and fix, worded from what is known of the file.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "playback/Causes.h"
#    include "playback/ReaderLimits.h"
#    include "manager/detail/FormatCodes.h"

#    include <gtest/gtest.h>

#    include <set>

using namespace zemsub::tool;

TEST(ZemsubCauses, EveryCauseHasItsOwnCodeAndWords)
{
    const CauseContext context{false, QStringLiteral("SubRip subtitle"), zemsub::detail::kFormatSrt,
                               QStringLiteral("C.UTF-8")};
    std::set<QString> codes;
    for (int id = int(CauseId::Extension); id <= int(CauseId::Unexplained); ++id) {
        const Cause cause = describeCause(CauseId(id), context);
        EXPECT_EQ(int(cause.id), id);
        EXPECT_FALSE(cause.code.isEmpty()) << id;
        EXPECT_FALSE(cause.text.isEmpty()) << cause.code.toStdString();
        EXPECT_TRUE(codes.insert(cause.code).second) << "code used twice: " << cause.code.toStdString();
    }
}

TEST(ZemsubCauses, TheWordsQuoteTheReadersLimitAndTheLocale)
{
    const CauseContext subRip{false, QString(), zemsub::detail::kFormatSrt, QStringLiteral("C")};
    const CauseContext script{true, QString(), zemsub::detail::kFormatAss, QStringLiteral("de_DE.UTF-8")};
    EXPECT_TRUE(describeCause(CauseId::OpenRefused, subRip)
                    .text.contains(QString::number(readerLineLimit(zemsub::detail::kFormatSrt))));
    EXPECT_TRUE(describeCause(CauseId::OpenRefused, script)
                    .text.contains(QString::number(readerLineLimit(zemsub::detail::kFormatAss))));
    EXPECT_TRUE(describeCause(CauseId::Utf16, script).text.contains(QStringLiteral("de_DE.UTF-8")));
    // Line ends spoil a script's section names, a SubRip file's numbers.
    EXPECT_TRUE(describeCause(CauseId::CrLf, script).text.contains(QStringLiteral("ScriptType")));
    EXPECT_TRUE(describeCause(CauseId::CrLf, subRip).text.contains(QStringLiteral("number lines")));
    EXPECT_EQ(describeCause(CauseId::CrLf, script).code, describeCause(CauseId::CrLf, subRip).code);
}

#endif
