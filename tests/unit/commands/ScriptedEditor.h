#pragma once

#include "GarmPC3Editor/Commands/Editor.h"

#include <functional>
#include <optional>

// The editor's windows and the sentry in front of them, as a test scripts them. Unless it says otherwise the sheet is
// cancelled, and a name that is asked for is refused.
class ScriptedEditor
{
public:
    ScriptedEditor();
    ~ScriptedEditor(); // no sentry may be left
    ScriptedEditor(const ScriptedEditor&) = delete;
    ScriptedEditor& operator=(const ScriptedEditor&) = delete;

    // What the user does with the sheet. outcome starts as an untouched sheet that is cancelled.
    std::function<void(EditorOutcome& outcome)> onSheet;

    // What the user enters for a proposed path.
    std::function<std::optional<OdString>(const OdString& proposedPath)> onName;

    int sheets = 0; // shown so far
    int names = 0;

    // Whether the language library is the place resources come from.
    static bool resourcesAreCurrent() noexcept;
};
