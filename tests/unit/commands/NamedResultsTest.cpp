// Every allocation of the host fails once while results are written. Where host and program are linked as one: in a
// library of its own the host has an allocator that we do not reach.

#include "GarmPC3Editor/Commands/NamedValues.h"
#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/CommandTest.h"

namespace
{
class NamedResultsOutOfMemory : public CommandTest
{
};
} // namespace

// What a host gave under a name of a result is gone as well: an old value must not look like an answer.
TEST_F(NamedResultsOutOfMemory, areWrittenAllOrNone)
{
    NamedResults results;
    results.addString(OD_T("a long enough name of a text"), OD_T("text"));
    results.addBool(OD_T("a long enough name of a flag"), true);
    results.addInt16(OD_T("a long enough name of a number"), 7);
    unsigned failures = 0;
    for (unsigned n = 1;; ++n)
    {
        values().clear();
        setText(OD_T("a long enough name of a text"), OD_T("from before"));
        bool thrown = false;
        bool reached = false;
        {
            const NamedValues named(context());
            const FailingAllocation failing(n);
            try
            {
                named.write(results);
            }
            catch (const std::bad_alloc&)
            {
                thrown = true;
            }
            reached = failing.reached();
        }
        EXPECT_EQ(thrown, reached);
        EXPECT_EQ(values().names().size(), thrown ? 0U : 3U) << n;
        if (!reached)
            break;
        ++failures;
    }
    EXPECT_GE(failures, 3U);
}
