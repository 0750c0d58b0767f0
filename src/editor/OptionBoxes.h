#pragma once

#include "testdoc/TestDocument.h"

#include <array>

/// The pages of the editor that hold check boxes of options.
enum class EditorOptionPage { Options, Automation, Export };

/// The frames on those pages.
enum class EditorOptionFrame {
    General,
    Questions,
    Scoring,
    Prompts,
    Automation,
    AutomaticReporting,
    IncludeInExport,
    FileName,
    Directories,
};

/// The check box of one option.
struct EditorOptionBox {
    Option Index = ReportTitle;
    QString Caption;
    EditorOptionFrame Frame = EditorOptionFrame::General;
};

/// One box an option, in the order of the options; a frame shows its boxes in this order.
const std::array<EditorOptionBox, OptionCount>& EditorOptionBoxes();

QString CaptionOf(EditorOptionFrame frame);
EditorOptionPage PageOf(EditorOptionFrame frame);

/// Whether the box can be clicked: those that name files and directories after the client need the client's name.
bool EditorOptionEnabled(const TestDocument& test, Option option);
