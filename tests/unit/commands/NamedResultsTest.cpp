// Every allocation of the host fails once while results are written. Only where host and program are linked together: a
// host in its own library has an allocator that we cannot replace.

#include "GarmPC3Editor/Commands/NamedValues.h"
#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/CommandTest.h"

namespace
{
class NamedResultsOutOfMemory : public CommandTest
{
};
} // namespace

// A host's value under the name of a result is removed too: an old value must not look like a result.
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
