// Unloading the module, in a process of its own: objects that are created once per process must exist before memory
// runs out, and other tests would have created them.

#include "GarmPC3Editor/Commands/CommandGroup.h"
#include "kernel/OdEdCommandStack.h"
#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/ScriptedModule.h"

#include <gtest/gtest.h>

// A command left on the stack would be called after its code is unloaded.
TEST(EndOfModule, leavesNoCommandBehindWhateverItLacks)
{
    const ScriptedModule module;
    for (unsigned n = 1;; ++n)
    {
        ASSERT_EQ(registerCommands(), eRoutineNormal);
        bool reached = false;
        {
            const FailingAllocation failing(n);
            EXPECT_EQ(unregisterCommands(), eRoutineNormal) << n;
            reached = failing.reached();
        }
        EXPECT_TRUE(odedRegCmds()->commands().empty()) << n;
        if (!reached)
            break;
    }
}
