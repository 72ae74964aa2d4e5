// Both commands with any named values, any files on the search path, any printers, and a user who does anything: their
// results are complete, an exception only reports a wrong value, and nothing stays open.

#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"
#include "fuzz/CommandSession.h"
#include "fuzz/FuzzTarget.h"
#include "kernel/OdRxObjectImpl.h"
#include "spooler/DevModeView.h"

#include <gtest/gtest.h>

namespace
{
struct Argument
{
    const OdChar* name;
    int restype; // that the command expects
};

constexpr Argument getDevModeArguments[] = {
    {OD_T("deviceName"), kRtString}, {OD_T("printerName"), kRtString}, {OD_T("hwndPost"), kRtPointer}};
constexpr Argument editArguments[] = {
    {OD_T("plotCfgName"), kRtString}, {OD_T("bSystemPrinter"), kRtBool}, {OD_T("paperName"), kRtString}};

bool isWrong(CommandSession& session, const Argument& argument)
{
    const OdRxObjectPtr value = session.values().get(argument.name);
    if (!value)
        return false;
    const OdResBufPtr buffer = odrxCast<OdResBuf>(value);
    return !buffer || buffer->restype() != argument.restype;
}

bool isMissing(CommandSession& session, const OdChar* name)
{
    return !session.values().get(name);
}

// Runs the command. False if it threw, which it may do only for a wrong value and without having written anything.
template <class Command>
bool run(CommandSession& session, bool mayThrow)
{
    const std::vector<OdString> before = session.values().names();
    try
    {
        OdRxObjectImpl<Command>::createObject()->execute(session.context());
        return true;
    }
    catch (const OdError&)
    {
        EXPECT_TRUE(mayThrow);
        EXPECT_EQ(session.values().names(), before);
        return false;
    }
}

OdResBufPtr resultOf(CommandSession& session, const OdChar* name, int restype)
{
    OdResBufPtr value = odrxCast<OdResBuf>(session.values().get(name));
    if (value && value->restype() == restype)
        return value;
    ADD_FAILURE() << "no result " << OdString(name);
    return OdResBuf::newRb(restype);
}

void expectAnswerOfGetDevMode(CommandSession& session)
{
    const OdString printer = resultOf(session, OD_T("printerName"), kRtString)->getString();
    EXPECT_EQ(resultOf(session, OD_T("result"), kRtBool)->getBool(), !printer.isEmpty());
    resultOf(session, OD_T("paperName"), kRtString);
    resultOf(session, OD_T("driverType"), kRtInt16);
    resultOf(session, OD_T("canonicalModelName"), kRtString);
    const OdResBufPtr chunk = resultOf(session, OD_T("devMode"), kRtBinaryChunk);
    const OdBinaryData& bytes = chunk->getBinaryChunk();
    if (!bytes.isEmpty())
    {
        EXPECT_EQ(DevModeView(std::span(bytes.begin(), bytes.end())).bytes().size(), bytes.size());
    }
}

void runGetDevMode(CommandSession& session)
{
    bool mayThrow = false;
    for (const Argument& argument : getDevModeArguments)
        mayThrow = mayThrow || isWrong(session, argument);
    // Only the class of this value matters.
    const OdRxObjectPtr paper = session.values().get(OD_T("paperName"));
    mayThrow = mayThrow || (paper && !odrxCast<OdResBuf>(paper));

    const bool complete = !isMissing(session, OD_T("deviceName")) && !isMissing(session, OD_T("printerName"));
    const OdResBufPtr window = mayThrow ? nullptr : odrxCast<OdResBuf>(session.values().get(OD_T("hwndPost")));
    const bool inBackground = window && window->getPointer();
    const std::vector<OdString> before = session.values().names();
    const OdResBufPtr device = odrxCast<OdResBuf>(session.values().get(OD_T("deviceName")));
    const bool checks = complete && inBackground && !device->getString().isEmpty();
    if (!run<PC3GetDevModeCommand>(session, mayThrow))
        return;
    if (checks)
        session.noteCheck();
    if (complete && !inBackground)
        expectAnswerOfGetDevMode(session);
    else
    {
        EXPECT_EQ(session.values().names(), before);
    }
}

void runEdit(CommandSession& session)
{
    bool mayThrow = false;
    for (const Argument& argument : editArguments)
        mayThrow = mayThrow || isWrong(session, argument);
    const std::vector<OdString> before = session.values().names();
    const int sheets = session.editor().sheets;
    if (!run<PC3EditCommand>(session, mayThrow))
        return;
    if (session.editor().sheets == sheets)
    {
        EXPECT_EQ(session.values().names(), before);
        return;
    }
    resultOf(session, OD_T("fileName"), kRtString);
    resultOf(session, OD_T("paperName"), kRtString);
    resultOf(session, OD_T("result"), kRtInt16);
    resultOf(session, OD_T("canonicalModelName"), kRtString);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    CommandSession session(input);
    for (int steps = 0; steps < 16 && !input.isEmpty(); ++steps)
    {
        switch (input.below(6))
        {
        case 0:
            session.putFile(input);
            break;
        case 1:
            session.changeRoom(input);
            break;
        case 2:
        case 3:
            session.setValue(input);
            break;
        case 4:
            session.sabotage(input);
            runGetDevMode(session);
            break;
        default:
            session.sabotage(input);
            session.scriptUser(input);
            runEdit(session);
        }
        session.expectLeftAsFound();
    }
    session.finishChecks();
    session.expectWholeFiles();
    session.expectLeftAsFound();
    return 0;
}
