#pragma once

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

#include <memory>
#include <span>

class OdString;
struct DevModeMerge;

// A new page for a kind of tree entry, created and placed in the tab's frame; null for kinds without a page and if the
// window cannot be created.
std::unique_ptr<GmDeviceSubDlg> createDevicePage(std::int32_t type, GmTabDevice& tab);

// Whether several copies are collated.
class CCollating : public GmDeviceSubDlg
{
public:
    explicit CCollating(GmTabDevice& tab);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnSelChange();
    DECLARE_MESSAGE_MAP()

private:
    int m_choice; // 0 off, 1 on: also the entry of the list
    CComboBox m_list;
};

// The colours and the resolution of vector graphics, read-only: they are set in the driver's own dialog.
class CVectorGraphics : public GmDeviceSubDlg
{
public:
    explicit CVectorGraphics(GmTabDevice& tab);

    BOOL OnInitDialog() override;

private:
    void showValues() const;
};

// Quality of raster images and embedded objects, and what plots are to be optimised for.
//
// A slider limits a value to its range, so a value from a file outside that range changes when the page is left.
class CRasterGraphics : public GmDeviceSubDlg
{
public:
    explicit CRasterGraphics(GmTabDevice& tab);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* scrollBar);
    DECLARE_MESSAGE_MAP()

private:
    void showValues() const;

    GmRasterValues m_values;
    CSliderCtrl m_ismMax;
    CSliderCtrl m_oleMax;
    CSliderCtrl m_preference;
};

// Whether TrueType text is plotted as text or as graphics.
class CTrueType : public GmDeviceSubDlg
{
public:
    explicit CTrueType(GmTabDevice& tab);

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnChoice();
    DECLARE_MESSAGE_MAP()

private:
    int m_choice; // 0 as text, 1 as graphics
};

// Whether lines overwrite or merge with what is under them. Disabled if the configuration has no such value: its
// printer was changed while the tree still has the previous printer's entry.
class CMergeCtrl : public GmDeviceSubDlg
{
public:
    explicit CMergeCtrl(GmTabDevice& tab);

    BOOL OnInitDialog() override;
    void activate() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnChoice();
    DECLARE_MESSAGE_MAP()

private:
    void enableIfThereIsAValue() const;

    int m_choice; // 0 overwrite, 1 merge
};

// Opens the settings of the printer's driver, or for the product family's own printers the dialog that replaces them.
// The settings go into the configuration at once, not through the tab's commit.
class CCustomProp : public GmDeviceSubDlg
{
public:
    explicit CCustomProp(GmTabDevice& tab);

protected:
    afx_msg void OnDriverSettings();
    DECLARE_MESSAGE_MAP()

private:
    void editDevMode();
    DevModeMerge showDriverDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode);
    DevModeMerge showVirtualPrinterDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode);
};
