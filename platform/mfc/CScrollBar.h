#pragma once

#include "mfc/CWnd.h"

// A scroll bar; only its name is needed, in the handlers of scroll messages.
class CScrollBar : public CWnd
{
};
