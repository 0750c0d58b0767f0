#pragma once

#include "editor/ui/EditorTab.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"

/// What a page of the editor works with, with scripted boxes and file dialogs.
struct PageParts {
    EditorParts Parts() { return {Test, UserSettings, Boxes, Files}; }

    TestDocument Test;
    Settings UserSettings;
    ScriptedPrompts Boxes;
    ScriptedFileChooser Files;
};
