#pragma once

#include "GarmPC3Editor/Commands/Editor.h"

#include <functional>
#include <optional>

// The editor's windows and their resource sentry, scripted by a test. By default the sheet is cancelled, and so is the
// name dialog.
class ScriptedEditor
{
public:
    ScriptedEditor();
    ~ScriptedEditor(); // no sentry may be left
    ScriptedEditor(const ScriptedEditor&) = delete;
    ScriptedEditor& operator=(const ScriptedEditor&) = delete;

    // What the user does in the sheet. outcome starts as an unchanged sheet that is cancelled.
    std::function<void(EditorOutcome& outcome)> onSheet;

    // What the user enters for a proposed path.
    std::function<std::optional<OdString>(const OdString& proposedPath)> onName;

    int sheets = 0; // shown so far
    int names = 0;

    // Whether resources come from the language library.
    static bool resourcesAreCurrent() noexcept;
};
