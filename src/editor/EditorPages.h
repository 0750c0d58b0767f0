#pragma once

#include "platform/Navigator.h"
#include "testdoc/TestChecker.h"

#include <QString>

/// The pages of the editor in the order of their tabs, from 0.
enum class EditorPage { AboutTest, Subscales, Template, Questions, Analysis, Options, Automation, Export };

inline constexpr int EditorPageCount = 8;

struct EditorPageInfo {
    QString Caption;
    QString ToolTip;
    HelpTopic Topic;
};

const EditorPageInfo& InfoOf(EditorPage page);

/// The number by which the tab strip names the help topic of a page.
inline int HelpContextOf(EditorPage page) { return 4002 + static_cast<int>(page); }

/// The page on which an element of the test is edited.
EditorPage PageOf(const TestPlace& place);
