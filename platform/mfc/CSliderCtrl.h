#pragma once

#include "mfc/CWnd.h"

// A slider (trackbar). Setting a position sends no notification and limits it to the range.
class CSliderCtrl : public CWnd
{
public:
    int GetPos() const { return static_cast<int>(SendMessage(TBM_GETPOS)); }
    void SetPos(int position) const { SendMessage(TBM_SETPOS, TRUE, position); }
    int GetRangeMin() const { return static_cast<int>(SendMessage(TBM_GETRANGEMIN)); }
    int GetRangeMax() const { return static_cast<int>(SendMessage(TBM_GETRANGEMAX)); }
    void GetRange(int& minimum, int& maximum) const
    {
        minimum = GetRangeMin();
        maximum = GetRangeMax();
    }
    // Each end with its own message: the combined message has only 16 bits for each.
    void SetRange(int minimum, int maximum, BOOL redraw = FALSE) const
    {
        SetRangeMin(minimum);
        SetRangeMax(maximum, redraw);
    }
    void SetRangeMin(int minimum, BOOL redraw = FALSE) const
    {
        SendMessage(TBM_SETRANGEMIN, static_cast<WPARAM>(redraw), minimum);
    }
    void SetRangeMax(int maximum, BOOL redraw = FALSE) const
    {
        SendMessage(TBM_SETRANGEMAX, static_cast<WPARAM>(redraw), maximum);
    }
    void SetTicFreq(int frequency) const { SendMessage(TBM_SETTICFREQ, static_cast<WPARAM>(frequency)); }
};
