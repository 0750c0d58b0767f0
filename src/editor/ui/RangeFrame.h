#pragma once

#include "editor/ui/EntryList.h"
#include "editor/ui/TextBox.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

/// The controls of a frame in which ranges are edited. They are made by their page.
struct RangeControls {
    QString BoundsCaption;
    QString TextCaption;
    QLineEdit* Low = nullptr;
    QLineEdit* High = nullptr;
    TextBox* Text = nullptr;
    QList<QPushButton*> Buttons;
    EntryList* Ranges = nullptr;
};

/// Lays them out in a frame, in the order in which they are used, and names them for a screen reader.
QGroupBox* MakeRangeFrame(const QString& caption, const RangeControls& controls);

/// The box with everything in it selected, ready to be typed over.
void FocusToTypeOver(QLineEdit& box);
