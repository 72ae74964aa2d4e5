#pragma once

#include "tests/support/operator/UiThread.h"
#include "tests/support/operator/WindowTools.h"

#include <functional>
#include <string>
#include <vector>

namespace editordriver
{
// One entry of the device tree.
struct TreeEntry
{
    int type = 0; // its item data
    int depth = 0;
    bool marked = false;
    std::wstring label;
};

// What a person does with mouse and keyboard. Hidden and disabled controls obey messages but no person, so every action
// looks first and throws std::runtime_error when a person could not do it.
class Hands
{
public:
    explicit Hands(UiThread& ui) : m_ui(ui) {}

    // Waits for a dialog in which one could work: visible, enabled, and another than the one so far.
    void awaitDialog();
    // The same, unless over() comes true first; whether there is a dialog.
    bool awaitDialogUnless(const std::function<bool()>& over);
    // Waits until the present dialog is gone, and goes on with the one below, if there is one.
    void awaitClosed();
    HWND dialog() const noexcept { return m_dialog; }

    // A visible control of the present dialog or of a page in it. Of several with the number, the first.
    HWND control(int id) const;
    bool hasControl(int id) const noexcept;

    void click(int id);
    void sendCommand(int id); // as Escape or a program would: the dialog's own message, sent
    void postCommand(int id); // the same, posted: for what opens another window
    void pressEscape();
    void type(int id, const std::wstring& text);     // in place of what is there
    void typeFileName(const std::wstring& fullPath); // into a Save dialog
    void choose(int id, int index);                  // of a combo box, by the arrow keys
    void slide(int id, int position);                // a slider, by the arrow keys
    void showTab(int index);
    void selectEntry(int type);

    std::wstring text(int id) const { return textOf(control(id)); }
    std::wstring title() const;
    std::wstring boxText() const; // of a message box
    std::vector<std::wstring> choices(int id) const { return entriesOf(control(id)); }
    // Of a combo box, slider, check box or radio button.
    int value(int id) const { return valueOf(control(id)); }
    static int valueOf(HWND control);
    bool isEnabled(int id) const;
    int tab() const;
    std::vector<HWND> controls() const { return visibleWindowsIn(m_dialog); }
    std::vector<TreeEntry> entries() const;

private:
    HWND usable(int id) const;
    HWND tree() const;

    UiThread& m_ui;
    HWND m_dialog = nullptr;
};
} // namespace editordriver
