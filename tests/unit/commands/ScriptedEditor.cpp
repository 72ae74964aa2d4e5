#include "tests/unit/commands/ScriptedEditor.h"

#include "GarmPC3Editor/Decisions/ConfigurationNames.h"
#include "GarmPC3Editor/PC3ResourceSentry.h"

#include <gtest/gtest.h>

namespace
{
int sentries = 0;
ScriptedEditor* editor = nullptr;
} // namespace

PC3ResourceSentry::PC3ResourceSentry() noexcept : m_hSavedResource(nullptr)
{
    ++sentries;
}

PC3ResourceSentry::~PC3ResourceSentry()
{
    --sentries;
}

EditorOutcome runEditor(const OdSharedPtr<GmPlotCfg3>& cfg, const OdString& path)
{
    EXPECT_TRUE(ScriptedEditor::resourcesAreCurrent());
    EditorOutcome outcome;
    outcome.cfg = cfg;
    outcome.path = path;
    outcome.fileTitle = fileTitle(path, *cfg);
    if (!editor)
        return outcome;
    ++editor->sheets;
    if (editor->onSheet)
        editor->onSheet(outcome);
    return outcome;
}

std::optional<OdString> askForName(const OdString& proposedPath)
{
    EXPECT_TRUE(ScriptedEditor::resourcesAreCurrent());
    if (!editor)
        return std::nullopt;
    ++editor->names;
    return editor->onName ? editor->onName(proposedPath) : std::nullopt;
}

ScriptedEditor::ScriptedEditor()
{
    sentries = 0;
    editor = this;
}

ScriptedEditor::~ScriptedEditor()
{
    EXPECT_EQ(sentries, 0);
    editor = nullptr;
}

bool ScriptedEditor::resourcesAreCurrent() noexcept
{
    return sentries > 0;
}
