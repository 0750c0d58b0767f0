#pragma once

/// Gives the editor's tabs to assistive technologies: none of them is selected while no page is shown, and pressing one
/// chooses its page even where the tab bar takes it for the current one already.
void UseEditorTabAccess();
