#include "editor/ui/RangeFrame.h"

#include "platform/ui/Typography.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int BoundUnits = 10;

QLabel* MakeLabel(const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
    return label;
}

QLayout* MakeBounds(const RangeControls& controls) {
    auto* bounds = new QHBoxLayout;
    bounds->setSpacing(GridUnit);
    const QString caption = controls.BoundsCaption.trimmed();
    controls.Low->setAccessibleName(caption + QStringLiteral(", from"));
    controls.High->setAccessibleName(caption + QStringLiteral(", to"));
    for (QLineEdit* bound : {controls.Low, controls.High})
        bound->setFixedWidth(BoundUnits * GridUnit);
    bounds->addWidget(controls.Low);
    bounds->addWidget(MakeLabel(QStringLiteral("to"), controls.High));
    bounds->addWidget(controls.High);
    bounds->addStretch(1);
    return bounds;
}

} // namespace

QGroupBox* MakeRangeFrame(const QString& caption, const RangeControls& controls) {
    auto* frame = new QGroupBox(caption);
    auto* grid = new QGridLayout(frame);
    SetRoom(*grid, 2, 1);
    grid->setHorizontalSpacing(2 * GridUnit);
    grid->setColumnStretch(1, 1);

    grid->addWidget(MakeLabel(controls.BoundsCaption, controls.Low), 0, 0);
    grid->addLayout(MakeBounds(controls), 0, 1);
    grid->addWidget(MakeLabel(controls.TextCaption, controls.Text), 1, 0, Qt::AlignTop);
    controls.Text->setAccessibleName(controls.TextCaption.trimmed());
    controls.Text->setFixedHeight(controls.Text->minimumHeight() + GridUnit / 2);
    grid->addWidget(controls.Text, 1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(GridUnit);
    for (QPushButton* button : controls.Buttons)
        buttons->addWidget(button);
    buttons->addStretch(1);
    grid->addLayout(buttons, 2, 1);

    controls.Ranges->setAccessibleName(caption);
    grid->addWidget(controls.Ranges, 3, 0, 1, 2);
    grid->setRowStretch(3, 1);
    return frame;
}

void FocusToTypeOver(QLineEdit& box) {
    box.setFocus(Qt::OtherFocusReason);
    box.selectAll();
}
