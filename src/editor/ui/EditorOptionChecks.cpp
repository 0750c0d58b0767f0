#include "editor/ui/EditorOptionChecks.h"

#include "platform/ui/Choosing.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QVBoxLayout>

EditorOptionChecks::EditorOptionChecks(TestDocument& test) : test_(test) {
    for (const EditorOptionBox& box : EditorOptionBoxes()) {
        const int i = box.Index;
        auto* check = Named(new QCheckBox(box.Caption), QStringLiteral("ChkReportOptions_%1").arg(i));
        connect(check, &QCheckBox::toggled, this, [this, i] { ChkReportOptions_Click(i); });
        ChkReportOptions_[static_cast<size_t>(i - 1)] = check;
    }
    RefreshFromTest();
}

EditorOptionChecks::~EditorOptionChecks() {
    for (const QPointer<QCheckBox>& check : ChkReportOptions_)
        if (check && check->parent() == nullptr)
            delete check;
}

QGroupBox* EditorOptionChecks::MakeFrame(EditorOptionFrame frame, QLayout* above) {
    auto* group = new QGroupBox(CaptionOf(frame));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 1);
    if (above)
        column->addLayout(above);
    for (const EditorOptionBox& box : EditorOptionBoxes())
        if (box.Frame == frame)
            column->addWidget(Box(box.Index));
    column->addStretch(1);
    return group;
}

void EditorOptionChecks::RefreshFromTest() {
    for (int i = 1; i <= OptionCount; ++i)
        if (QCheckBox* check = Box(i))
            ShowTicked(*check, test_.TestOption(i));
    EnableBoxes();
}

void EditorOptionChecks::ChkReportOptions_Click(int i) {
    test_.TestOption(i) = Box(i)->isChecked();
    EnableBoxes();
    Q_EMIT Changed();
}

void EditorOptionChecks::EnableBoxes() {
    for (const EditorOptionBox& box : EditorOptionBoxes())
        if (QCheckBox* check = Box(box.Index))
            check->setEnabled(EditorOptionEnabled(test_, box.Index));
}
