// The end of the module, in a process of its own: what is made once for the whole process must be there already when
// memory has run out, and other tests would have made it.

#include "GarmPC3Editor/Commands/CommandGroup.h"
#include "kernel/OdEdCommandStack.h"
#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/ScriptedModule.h"

#include <gtest/gtest.h>

// A command that stayed would be called after its code is gone.
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
