#pragma once

#include "mfc/CWnd.h"

// A scroll bar; only the type is needed, for the handlers of scroll messages.
class CScrollBar : public CWnd
{
};
