#include "plothost/EditQuery.h"

#include "kernel/OdError.h"
#include "plothost/ModuleCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ScriptedCommand.h"

using namespace plothost;
using testing::HasSubstr;

namespace
{
class EditQuery : public testing::Test
{
protected:
    void SetUp() override
    {
        ScriptedCommand::add(OD_T("PC3EDIT"), [this](GmServicesManagerInterface& values) { m_script(values); });
    }
    void TearDown() override
    {
        ScriptedCommand::removeAll();
        namedValues().clear();
    }

    // As the command does: the saved flag first, then the driver type under the same name.
    static void answerAll(GmServicesManagerInterface& values)
    {
        values.set(OD_T("fileName"), OdResBuf::newRb(kRtString, OD_T("saved.pc3")));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, OD_T("A3")));
        values.set(OD_T("result"), OdResBuf::newRb(kRtBool, true));
        values.set(OD_T("result"), OdResBuf::newRb(kRtInt16, OdInt16(3)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("M")));
    }

    ScriptedCommand::Script m_script = [](GmServicesManagerInterface&) {};
};

OdString textIn(GmServicesManagerInterface& values, const OdChar* name)
{
    const OdResBufPtr value = OdResBuf::cast(values.get(name).get());
    return value ? value->getString() : OdString(OD_T("(none)"));
}
} // namespace

TEST_F(EditQuery, aConfigurationIsAskedForByItsNameAndPaper)
{
    bool ran = false;
    m_script = [&ran](GmServicesManagerInterface& values)
    {
        ran = true;
        EXPECT_EQ(textIn(values, OD_T("plotCfgName")), OD_T("plan"));
        EXPECT_FALSE(OdResBuf::cast(values.get(OD_T("bSystemPrinter")).get())->getBool());
        EXPECT_EQ(textIn(values, OD_T("paperName")), OD_T("A4"));
        EXPECT_EQ(values.names().size(), 3U) << "nothing else is there";
    };
    static_cast<void>(edit({OD_T("plan"), false, OD_T("A4")}));
    EXPECT_TRUE(ran);
}

TEST_F(EditQuery, aPrinterIsAskedForAsPrinterAndNoPaperIsNotPassed)
{
    bool ran = false;
    m_script = [&ran](GmServicesManagerInterface& values)
    {
        ran = true;
        EXPECT_EQ(textIn(values, OD_T("plotCfgName")), OD_T("Plotter A"));
        EXPECT_TRUE(OdResBuf::cast(values.get(OD_T("bSystemPrinter")).get())->getBool());
        EXPECT_FALSE(values.get(OD_T("paperName")));
    };
    static_cast<void>(edit({OD_T("Plotter A"), true, {}}));
    EXPECT_TRUE(ran);
}

TEST_F(EditQuery, theFourValuesAreTheAnswer)
{
    m_script = answerAll;
    const EditAnswer answer = edit({OD_T("plan"), false, OD_T("A4")});
    EXPECT_EQ(answer.problem, "");
    ASSERT_TRUE(answer.report.has_value());
    EXPECT_EQ(answer.report->name, OD_T("plan"));
    EXPECT_FALSE(answer.report->isPrinter);
    EXPECT_EQ(answer.report->fileName, OD_T("saved.pc3"));
    EXPECT_EQ(answer.report->paperName, OD_T("A3"));
    EXPECT_EQ(answer.report->result, 3);
    EXPECT_EQ(answer.report->canonicalModelName, OD_T("M"));
}

TEST_F(EditQuery, aCommandThatLeavesNothingGaveNoAnswerAlsoWithItsPaperStillThere)
{
    const EditAnswer answer = edit({OD_T("plan"), false, OD_T("A4")});
    EXPECT_EQ(answer.problem, "");
    EXPECT_FALSE(answer.report.has_value());
}

TEST_F(EditQuery, answersOfAnEarlierRunAreGone)
{
    m_script = answerAll;
    EXPECT_TRUE(edit({OD_T("plan"), false, {}}).report.has_value());
    m_script = [](GmServicesManagerInterface&) {};
    EXPECT_FALSE(edit({OD_T("plan"), false, {}}).report.has_value());
}

TEST_F(EditQuery, anAnswerThatIsMissingOrOfAnotherKindIsNoCompleteAnswer)
{
    for (const OdChar* name : {OD_T("fileName"), OD_T("paperName"), OD_T("result"), OD_T("canonicalModelName")})
        for (const bool otherKind : {false, true})
        {
            m_script = [name, otherKind](GmServicesManagerInterface& values)
            {
                answerAll(values);
                values.set(name, otherKind ? OdResBuf::newRb(kRtDouble, 1.0) : OdResBufPtr());
            };
            const EditAnswer answer = edit({OD_T("plan"), false, {}});
            EXPECT_EQ(answer.problem, "the command 'PC3EDIT' returned an incomplete answer") << odToUtf8(name);
            EXPECT_FALSE(answer.report.has_value()) << odToUtf8(name);
        }
}

TEST_F(EditQuery, aSavedFlagThatIsNotReplacedByTheDriverTypeIsNoCompleteAnswer)
{
    m_script = [](GmServicesManagerInterface& values)
    {
        answerAll(values);
        values.set(OD_T("result"), OdResBuf::newRb(kRtBool, true));
    };
    EXPECT_THAT(edit({OD_T("plan"), false, {}}).problem, HasSubstr("an incomplete answer"));
}

TEST_F(EditQuery, whatTheCommandThrowsIsTold)
{
    m_script = [](GmServicesManagerInterface& values)
    {
        answerAll(values);
        throw OdError_NotThatKindOfClass();
    };
    const EditAnswer answer = edit({OD_T("plan"), false, {}});
    EXPECT_THAT(answer.problem, HasSubstr("the command 'PC3EDIT' failed: "));
    EXPECT_FALSE(answer.report.has_value());
}

TEST_F(EditQuery, withoutTheCommandThereIsNoAnswer)
{
    ScriptedCommand::removeAll();
    EXPECT_EQ(edit({OD_T("plan"), false, {}}).problem, "the module has no command 'PC3EDIT'");
}
