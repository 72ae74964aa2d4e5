#pragma once

#include "GarmPC3Editor/GmMetaNode.h"
#include "mfc/Mfc.h"
#include "win32/windows/SystemHandles.h"

// The properties of the product family's own printers: paper, quality and orientation, edited in a device mode.
//
// It works together with the host dialog that the editor was opened from: it offers that dialog's papers and copies the
// choice back to it. The host's dialog need not have those controls.
//
// Set m_devMode and m_printerName, then run DoModal. OK writes into the device mode and has the printer's driver
// complete it.
class CPDFPrintDlg : public CDialog
{
public:
    // page is the page that opens the dialog: two windows above it is the sheet, and above that the host's dialog.
    CPDFPrintDlg(const GmMetaNode& meta, CWnd* page);

    BOOL OnInitDialog() override;
    BOOL DestroyWindow() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;

    afx_msg void OnPaint();
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg void OnPaperChange();
    afx_msg void OnUnitChange();
    afx_msg void OnWidthTyped();
    afx_msg void OnLengthTyped();
    DECLARE_MESSAGE_MAP()

private:
    HWND hostControl(int id) const;
    void showOrientationImages();
    void copyHostPapers(HWND hostPapers);
    void fillQualities() const;
    void enableCustomSize(bool enable) const;
    void showLengths(double width, double length) const;
    CString selectedPaper() const;
    bool isCustomPaper() const;
    // Shows the limit beside a field, or that the length exceeds it. Returns whether the length is possible.
    bool showNote(int note, double length) const;
    void showLimit(int note) const;
    void showLimits() const;
    bool checkLengths() const;
    void chooseInHost() const;
    void writeDevMode();
    void completeByDriver();

    // The values that are exchanged with the controls.
    int m_paper = 0;
    int m_quality = 0;
    double m_width = 0.0; // of a custom size, in the unit
    double m_length = 0.0;
    int m_orientation = 0;  // 0 portrait, 1 landscape
    int m_unit = 0;         // 0 millimetres, 1 inches
    HICON m_icon = nullptr; // from the library

public:
    DEVMODEW* m_devMode = nullptr; // not owned; has as many bytes as it claims

private:
    BitmapHandle m_portrait;
    BitmapHandle m_landscape;
    HBITMAP m_previousPortrait = nullptr; // the controls' own bitmaps from before
    HBITMAP m_previousLandscape = nullptr;

public:
    OdString m_printerName;

private:
    GmMetaNode m_meta;
    HWND m_hostDialog;
};
