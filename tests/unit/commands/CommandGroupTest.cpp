#include "GarmPC3Editor/Commands/CommandGroup.h"

#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"
#include "kernel/OdAlloc.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdError.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/support/room/PrinterRoom.h"
#include "tests/unit/commands/ScriptedModule.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{
const OdString group(OD_T("HIDDEN_GARM_COMMAND_PC3EDITOR"));

class CommandGroupTest : public ::testing::Test
{
protected:
    ~CommandGroupTest() override
    {
        odrxSetAllocSource(nullptr);
        unregisterCommands();
    }

    static OdEdCommandPtr find(const OdChar* globalName) { return odedRegCmds()->lookupGlobal(globalName); }

    PrinterRoom m_room;
    ScriptedModule m_module;
};

int codeOf(OdEdCommand& command, bool off)
{
    try
    {
        command.undefine(off);
    }
    catch (const OdError& error)
    {
        return error.code();
    }
    return eOk;
}

TEST_F(CommandGroupTest, registersBothCommandsAndSays5100)
{
    EXPECT_EQ(registerCommands(), 5100);
    const std::vector<OdEdCommandPtr> commands = odedRegCmds()->commands();
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0]->globalName(), OD_T("_PC3EDIT"));
    EXPECT_EQ(commands[0]->localName(), OD_T("PC3EDIT"));
    EXPECT_EQ(commands[1]->globalName(), OD_T("_PC3GETDEVMODE"));
    EXPECT_EQ(commands[1]->localName(), OD_T("PC3GETDEVMODE"));
    for (const OdEdCommandPtr& command : commands)
    {
        EXPECT_EQ(command->groupName(), group);
        EXPECT_EQ(command->module(), nullptr);
        EXPECT_EQ(command->flags(), 0);
    }
}

TEST_F(CommandGroupTest, editCommandKnowsLanguageLibraryOfItsRegistration)
{
    const HINSTANCE library = m_room.newLibrary();
    m_module.setResourceInstance(library);
    registerCommands();
    m_module.setResourceInstance(m_room.newLibrary());
    EXPECT_EQ(dynamic_cast<PC3EditCommand&>(*find(OD_T("_PC3EDIT"))).resourceInstance(), library);
}

TEST_F(CommandGroupTest, theStackHoldsTheOnlyReferences)
{
    registerCommands();
    for (const OdChar* name : {OD_T("_PC3EDIT"), OD_T("_PC3GETDEVMODE")})
        EXPECT_EQ(find(name)->refCount(), 2) << "the stack's and the one that asks";
}

TEST_F(CommandGroupTest, undefineThrowsCode3ForOnAndOff)
{
    registerCommands();
    for (const OdChar* name : {OD_T("_PC3EDIT"), OD_T("_PC3GETDEVMODE")})
        for (const bool off : {true, false})
        {
            EXPECT_EQ(codeOf(*find(name), off), 3);
            EXPECT_TRUE(find(name));
        }
}

TEST_F(CommandGroupTest, removalTakesTheWholeGroupAndNothingElse)
{
    class Other : public PC3EditorCommand
    {
    public:
        Other()
        {
            setGroupName(OD_T("SOMEBODY_ELSE"));
            setGlobalName(OD_T("_OTHER"));
            setLocalName(OD_T("OTHER"));
        }
        void execute(OdEdCommandContext* /*context*/) override {}
    };
    odedRegCmds()->addCommand(OdRxObjectImpl<Other>::createObject().get());
    registerCommands();
    EXPECT_EQ(unregisterCommands(), 5100);
    EXPECT_FALSE(find(OD_T("_PC3EDIT")));
    EXPECT_FALSE(find(OD_T("_PC3GETDEVMODE")));
    EXPECT_FALSE(odedRegCmds()->lookupLocal(OD_T("PC3EDIT")));
    EXPECT_TRUE(find(OD_T("_OTHER")));
    odedRegCmds()->removeGroup(OD_T("SOMEBODY_ELSE"));
}

TEST_F(CommandGroupTest, removalWithoutCommandsIsFine)
{
    EXPECT_EQ(unregisterCommands(), 5100);
    registerCommands();
    EXPECT_EQ(unregisterCommands(), 5100);
    EXPECT_EQ(unregisterCommands(), 5100);
}

TEST_F(CommandGroupTest, registeringTwiceKeepsTheFirst)
{
    registerCommands();
    const OdEdCommandPtr first = find(OD_T("_PC3EDIT"));
    EXPECT_EQ(registerCommands(), 5100);
    EXPECT_EQ(find(OD_T("_PC3EDIT")), first);
    EXPECT_EQ(odedRegCmds()->commands().size(), 2U);
}

// -- Memory that runs out --------------------------------------------------------------------------------------------

int allocationsLeft = 0;

void* limitedSource(std::size_t size)
{
    return allocationsLeft-- > 0 ? std::malloc(size) : nullptr;
}

TEST_F(CommandGroupTest, withoutMemoryForFirstCommandNothingIsRegistered)
{
    odedRegCmds();
    allocationsLeft = 0;
    odrxSetAllocSource(&limitedSource);
    EXPECT_EQ(registerCommands(), -5001);
    EXPECT_TRUE(odedRegCmds()->commands().empty());
}

TEST_F(CommandGroupTest, withoutMemoryForSecondCommandFirstStays)
{
    odedRegCmds();
    allocationsLeft = 1;
    odrxSetAllocSource(&limitedSource);
    EXPECT_EQ(registerCommands(), -5001);
    EXPECT_TRUE(find(OD_T("_PC3EDIT")));
    EXPECT_FALSE(find(OD_T("_PC3GETDEVMODE")));
}

TEST_F(CommandGroupTest, aCommandWithoutMemoryThrowsBadAllocation)
{
    allocationsLeft = 0;
    odrxSetAllocSource(&limitedSource);
    try
    {
        OdRxObjectImpl<PC3EditCommand>::createObject();
        FAIL() << "made without memory";
    }
    catch (const std::bad_alloc& error)
    {
        EXPECT_STREQ(error.what(), "bad allocation");
    }
}

// -- Names -----------------------------------------------------------------------------------------------------------

TEST_F(CommandGroupTest, withoutLanguageLibraryTheNamesAreTheFallbacks)
{
    EXPECT_EQ(OdRxObjectImpl<PC3EditCommand>::createObject()->localName(), OD_T("PC3EDIT"));
    EXPECT_EQ(OdRxObjectImpl<PC3GetDevModeCommand>::createObject()->localName(), OD_T("PC3GETDEVMODE"));
}

// Lets a test try names that no command has.
class OpenCommand : public PC3EditorCommand
{
public:
    using PC3EditorCommand::loadLocalName;
    using PC3EditorCommand::setGlobalName;
    using PC3EditorCommand::setGroupName;
    using PC3EditorCommand::setLocalName;
    void execute(OdEdCommandContext* /*context*/) override {}
};

template <class Work>
int codeThrownBy(Work work)
{
    try
    {
        work();
    }
    catch (const OdError& error)
    {
        return error.code();
    }
    return eOk;
}

TEST_F(CommandGroupTest, emptyNameThrowsAndKeepsTheOldOne)
{
    const OdSmartPtr<OpenCommand> command = OdRxObjectImpl<OpenCommand>::createObject();
    command->setGlobalName(OD_T("_GLOBAL"));
    command->setLocalName(OD_T("LOCAL"));
    EXPECT_EQ(codeThrownBy([&] { command->setGroupName({}); }), 3);
    EXPECT_EQ(codeThrownBy([&] { command->setGlobalName({}); }), 3);
    EXPECT_EQ(codeThrownBy([&] { command->setLocalName({}); }), 3);
    EXPECT_EQ(codeThrownBy([&] { command->loadLocalName(3000, OD_T("")); }), 3);
    EXPECT_EQ(command->groupName(), group);
    EXPECT_EQ(command->globalName(), OD_T("_GLOBAL"));
    EXPECT_EQ(command->localName(), OD_T("LOCAL"));
}

// -- Fields ----------------------------------------------------------------------------------------------------------

class FieldReader : public PC3EditCommand
{
public:
    // The fields between the group name and the library stay cleared; the library is the last one.
    bool reservedFieldsAreClear() const { return !m_reserved1 && !m_reserved2 && m_reserved3 == 0; }

    bool fieldsAreInOrder() const
    {
        const auto at = [](const auto& field) { return reinterpret_cast<std::uintptr_t>(&field); };
        return at(m_localName) < at(m_globalName) && at(m_globalName) < at(m_groupName) &&
               at(m_groupName) < at(m_reserved1) && at(m_reserved1) < at(m_reserved2) &&
               at(m_reserved2) < at(m_reserved3) && at(m_reserved3) < at(m_hResource);
    }
};

TEST_F(CommandGroupTest, fieldsStandInOrderAndAreCleared)
{
    // Memory filled with other bytes.
    odrxSetAllocSource(
        [](std::size_t size) -> void*
        {
            void* block = std::malloc(size);
            return block ? std::memset(block, 0xA5, size) : nullptr;
        });
    const OdSmartPtr<FieldReader> command = OdRxObjectImpl<FieldReader>::createObject();
    EXPECT_TRUE(command->fieldsAreInOrder());
    EXPECT_TRUE(command->reservedFieldsAreClear());
    EXPECT_EQ(command->resourceInstance(), nullptr);
    const HINSTANCE library = m_room.newLibrary();
    command->setResourceInstance(library);
    EXPECT_EQ(command->resourceInstance(), library);
}
} // namespace
