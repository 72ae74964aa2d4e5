// Errors pass from one library to another: class information and the state of the runtime have to be one.

#include "Fixtures.h"
#include "kernel/OdAlloc.h"
#include "kernel/OdError.h"
#include "kernel/OdResBuf.h"

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>

namespace
{
class CrossLibraryErrors : public testing::Test
{
protected:
    using Throw = void (*)();
    using Catch = int (*)(void (*)());
    using Count = int (*)();

    LibraryHandle module{::LoadLibraryW(fixture(OD_T("None.grx")).c_str())};
    Throw throwWrongClass = exported<Throw>(module.get(), "testThrowWrongClass");
    Catch catchIn = exported<Catch>(module.get(), "testCatch");
    Count uncaughtIn = exported<Count>(module.get(), "testUncaughtExceptions");
};

void throwInvalidInput()
{
    throw OdError(eInvalidInput);
}
void throwWrongKind()
{
    (void)OdResBuf::newRb(kRtBool)->getString();
}
void throwOther()
{
    throw std::runtime_error("no error of the kernel");
}
void throwNothing() {}
} // namespace

TEST_F(CrossLibraryErrors, errorOfModuleIsCaughtByItsClass)
{
    EXPECT_THROW(throwWrongClass(), OdError_NotThatKindOfClass);
}

TEST_F(CrossLibraryErrors, moduleErrorKeepsItsCode)
{
    try
    {
        throwWrongClass();
        FAIL();
    }
    catch (const OdError& error)
    {
        EXPECT_EQ(error.code(), eNotThatKindOfClass);
        EXPECT_NE(dynamic_cast<const OdError_NotThatKindOfClass*>(&error), nullptr);
    }
}

TEST_F(CrossLibraryErrors, errorOfModuleIsStandardException)
{
    EXPECT_THROW(throwWrongClass(), std::exception);
}

TEST_F(CrossLibraryErrors, moduleCatchesErrorsOfProgramAndOfKernel)
{
    EXPECT_EQ(catchIn(&throwInvalidInput), eInvalidInput);
    EXPECT_EQ(catchIn(&throwWrongKind), eInvalidResBuf);
    EXPECT_EQ(catchIn(&throwOther), -2);
    EXPECT_EQ(catchIn(&throwNothing), -1);
}

TEST_F(CrossLibraryErrors, uncaughtExceptionCountStaysRight)
{
    for (int i = 0; i < 5; ++i)
    {
        EXPECT_THROW(throwWrongClass(), OdError);
        EXPECT_EQ(catchIn(&throwInvalidInput), eInvalidInput);
        EXPECT_EQ(std::uncaught_exceptions(), 0);
        EXPECT_EQ(uncaughtIn(), 0);
    }
}

TEST_F(CrossLibraryErrors, bothSidesSeeExceptionThatIsUnderWay)
{
    struct Looker
    {
        ~Looker()
        {
            here = std::uncaught_exceptions();
            there = count();
        }
        Count count;
        int& here;
        int& there;
    };
    int here = 0;
    int there = 0;
    try
    {
        const Looker looker{uncaughtIn, here, there};
        throwWrongClass();
    }
    catch (const OdError&)
    {
        // Only what the looker saw on the way matters.
    }
    EXPECT_EQ(here, 1);
    EXPECT_EQ(there, 1);
}
