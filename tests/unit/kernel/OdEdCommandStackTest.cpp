#include "kernel/OdEdCommandStack.h"
#include "kernel/OdStaticRxObject.h"
#include "tests/support/ErrorCode.h"
#include "tests/support/NamedCommand.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
using Names = NamedCommand::Names;

class TestCommand : public NamedCommand
{
public:
    TestCommand(Names names, Action action, int* living)
        : NamedCommand(std::move(names), std::move(action)), m_living(living)
    {
        if (m_living)
            ++*m_living;
    }
    ~TestCommand() override
    {
        if (m_living)
            --*m_living;
        if (atEnd)
            atEnd();
    }

    std::function<void()> atEnd;

private:
    int* m_living;
};

OdSmartPtr<TestCommand> makeCommand(const Names& names, TestCommand::Action action = {}, int* living = nullptr)
{
    return OdRxObjectImpl<TestCommand>::createObject(names, std::move(action), living);
}

const Names edit = {OD_T("GROUP"), OD_T("_EDIT"), OD_T("BEARBEITEN")};
const Names view = {OD_T("GROUP"), OD_T("_VIEW"), OD_T("ANSEHEN")};
const Names other = {OD_T("OTHER"), OD_T("_OTHER"), OD_T("ANDERES")};

class CommandStack : public testing::Test
{
protected:
    // Outlives the stack, which destroys its last commands with the test object.
    int living = 0;
    OdEdCommandStackPtr stack = odedNewCommandStack();
};
} // namespace

TEST_F(CommandStack, holdsAReference)
{
    EXPECT_TRUE(stack->addCommand(makeCommand(edit, {}, &living).get()));
    EXPECT_EQ(living, 1);
    EXPECT_EQ(stack->lookupGlobal(OD_T("_EDIT"))->refCount(), 2) << "that of the stack and that of the result";
    stack.release();
    EXPECT_EQ(living, 0);
}

TEST_F(CommandStack, keepsTheFirstOfAGlobalName)
{
    const auto first = makeCommand(edit);
    EXPECT_TRUE(stack->addCommand(first.get()));

    EXPECT_FALSE(stack->addCommand(makeCommand({OD_T("X"), OD_T("_edit"), OD_T("X")}, {}, &living).get()));
    EXPECT_EQ(living, 0) << "the second command is not kept";
    EXPECT_EQ(stack->lookup(OD_T("_EDIT")).get(), first.get());
    EXPECT_EQ(stack->commands().size(), 1U);
}

TEST_F(CommandStack, sharedLocalNameBelongsToTheFirst)
{
    const auto first = makeCommand(edit);
    const auto second = makeCommand({OD_T("GROUP"), OD_T("_SECOND"), edit.local});
    EXPECT_TRUE(stack->addCommand(first.get()));
    EXPECT_TRUE(stack->addCommand(second.get()));
    EXPECT_EQ(stack->lookupLocal(edit.local).get(), first.get());
    EXPECT_EQ(stack->lookupGlobal(OD_T("_SECOND")).get(), second.get());
}

TEST_F(CommandStack, findsByGlobalAndLocalName)
{
    const auto command = makeCommand(edit);
    stack->addCommand(command.get());
    EXPECT_EQ(stack->lookupGlobal(OD_T("_Edit")).get(), command.get());
    EXPECT_EQ(stack->lookupGlobal(edit.local), nullptr);
    EXPECT_EQ(stack->lookupLocal(OD_T("bearbeiten")).get(), command.get());
    EXPECT_EQ(stack->lookupLocal(edit.global), nullptr);
    EXPECT_EQ(stack->lookup(OD_T("_EDIT")).get(), command.get());
    EXPECT_EQ(stack->lookup(OD_T("BEARBEITEN")).get(), command.get());
    EXPECT_EQ(stack->lookup(OD_T("EDIT")), nullptr);
}

TEST_F(CommandStack, globalNamePrecedesAnEqualLocalOne)
{
    const auto local = makeCommand({OD_T("GROUP"), OD_T("_LOCAL"), OD_T("_EDIT")});
    const auto global = makeCommand(edit);
    stack->addCommand(local.get());
    stack->addCommand(global.get());
    EXPECT_EQ(stack->lookup(OD_T("_EDIT")).get(), global.get());
}

TEST_F(CommandStack, emptyNameFindsNothing)
{
    stack->addCommand(makeCommand({OD_T("GROUP"), OD_T("_QUIET"), OdString()}).get());
    EXPECT_EQ(stack->lookup(OdString()), nullptr);
    EXPECT_EQ(stack->lookupLocal(OdString()), nullptr);
    EXPECT_FALSE(stack->executeCommand(OdString(), nullptr));
}

TEST_F(CommandStack, refusesNullAndAnEmptyGlobalName)
{
    for (const auto& command : {OdSmartPtr<TestCommand>(), makeCommand({OD_T("GROUP"), OdString(), OD_T("X")})})
        EXPECT_EQ(errorCodeOf([&] { stack->addCommand(command.get()); }), eInvalidInput);
    EXPECT_TRUE(stack->commands().empty());
}

TEST_F(CommandStack, listsCommandsInInsertionOrder)
{
    const auto first = makeCommand(view);
    const auto second = makeCommand(edit);
    stack->addCommand(first.get());
    stack->addCommand(second.get());
    const auto commands = stack->commands();
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0].get(), first.get());
    EXPECT_EQ(commands[1].get(), second.get());
}

TEST_F(CommandStack, removingAGroupRemovesOnlyItsCommands)
{
    stack->addCommand(makeCommand(edit, {}, &living).get());
    stack->addCommand(makeCommand(other, {}, &living).get());
    stack->addCommand(makeCommand(view, {}, &living).get());
    stack->removeGroup(OD_T("GROUP"));
    EXPECT_EQ(living, 1);
    EXPECT_EQ(stack->lookup(OD_T("_EDIT")), nullptr);
    EXPECT_EQ(stack->lookup(OD_T("ANSEHEN")), nullptr);
    EXPECT_NE(stack->lookup(OD_T("_OTHER")), nullptr);
}

TEST_F(CommandStack, removingAnUnknownGroupDoesNothing)
{
    stack->addCommand(makeCommand(edit).get());
    EXPECT_NO_THROW(stack->removeGroup(OD_T("UNKNOWN")));
    EXPECT_NO_THROW(stack->removeGroup(OdString()));
    EXPECT_EQ(stack->commands().size(), 1U);
}

TEST_F(CommandStack, departingCommandNoLongerFindsItsGroup)
{
    std::size_t seen = 99;
    {
        const auto first = makeCommand(edit);
        first->atEnd = [&] { seen = stack->commands().size(); };
        stack->addCommand(first.get());
    }
    stack->addCommand(makeCommand(view).get());
    stack->removeGroup(OD_T("GROUP"));
    EXPECT_EQ(seen, 0U);
}

TEST_F(CommandStack, passesTheContextToTheCommand)
{
    class Context : public OdStaticRxObject<OdEdCommandContext>
    {
    };
    Context context;
    OdEdCommandContext* got = nullptr;
    stack->addCommand(makeCommand(edit, [&](OdEdCommandContext* given) { got = given; }).get());
    EXPECT_TRUE(stack->executeCommand(OD_T("_EDIT"), &context));
    EXPECT_EQ(got, &context);
    EXPECT_FALSE(stack->executeCommand(OD_T("_UNKNOWN"), &context));
}

TEST_F(CommandStack, anExceptionOfACommandPropagates)
{
    stack->addCommand(makeCommand(edit, [](OdEdCommandContext*) { throw OdError_NotThatKindOfClass(); }).get());
    EXPECT_THROW(stack->executeCommand(OD_T("_EDIT"), nullptr), OdError_NotThatKindOfClass);
    EXPECT_EQ(stack->lookup(OD_T("_EDIT"))->refCount(), 2) << "the reference held during the run was released";
}

TEST_F(CommandStack, commandMayRemoveItsOwnGroup)
{
    int livingInside = -1;
    const auto work = [&](OdEdCommandContext*)
    {
        stack->removeGroup(OD_T("GROUP"));
        livingInside = living;
    };
    stack->addCommand(makeCommand(edit, work, &living).get());
    EXPECT_TRUE(stack->executeCommand(OD_T("_EDIT"), nullptr));
    EXPECT_EQ(livingInside, 1);
    EXPECT_EQ(living, 0);
    EXPECT_TRUE(stack->commands().empty());
}

TEST_F(CommandStack, aCommandMayRunAndAddOthers)
{
    bool ran = false;
    stack->addCommand(makeCommand(view, [&](OdEdCommandContext*) { ran = true; }).get());
    stack->addCommand(makeCommand(edit,
                                  [&](OdEdCommandContext* context)
                                  {
                                      stack->executeCommand(OD_T("_VIEW"), context);
                                      stack->addCommand(makeCommand(other).get());
                                  })
                          .get());
    stack->executeCommand(OD_T("_EDIT"), nullptr);
    EXPECT_TRUE(ran);
    EXPECT_NE(stack->lookup(OD_T("_OTHER")), nullptr);
}

TEST(RegisteredCommands, areSharedByTheWholeProcess)
{
    const OdEdCommandStackPtr first = odedRegCmds();
    EXPECT_EQ(first, odedRegCmds());
    first->addCommand(makeCommand(other).get());
    EXPECT_NE(odedRegCmds()->lookup(OD_T("_OTHER")), nullptr);
    odedRegCmds()->removeGroup(OD_T("OTHER"));
    EXPECT_TRUE(first->commands().empty());
}
