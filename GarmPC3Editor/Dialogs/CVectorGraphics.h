#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

// The colours and the resolution of vector graphics, to look at: the driver's own dialog sets them.
class CVectorGraphics : public GmDeviceSubDlg
{
public:
    explicit CVectorGraphics(GmTabDevice& tab);

    BOOL OnInitDialog() override;

private:
    void showValues() const;
};
