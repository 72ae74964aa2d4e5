#pragma once

#include "mfc/CWnd.h"
#include "tests/win/support/MessageBoxAnswerer.h"

// Answers message boxes only: dialogs of our own are left alone.
class BoxAnswerer : public MessageBoxAnswerer
{
public:
    BoxAnswerer() : MessageBoxAnswerer([](HWND window) { return CWnd::FromHandlePermanent(window) != nullptr; }) {}
};
