#include "editor/ui/FieldBox.h"

#include "platform/Directories.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QLabel>
#include <QPushButton>

#include <limits>

FieldBox::FieldBox(QString& field) : field_(field) {
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textChanged, this, &FieldBox::Take);
    RefreshFromTest();
}

void FieldBox::Put(const QString& text) {
    ShowText(*this, text);
    Take(text);
}

void FieldBox::FocusToTypeOver() {
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void FieldBox::Take(const QString& text) {
    field_ = text;
    Q_EMIT Changed();
}

QLayout* MakeFieldRow(const QString& caption, FieldBox* box, QWidget* button) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    box->setAccessibleName(caption);
    auto* line = new QHBoxLayout;
    line->setSpacing(GridUnit);
    line->addWidget(box, 1);
    if (button)
        line->addWidget(button);
    auto* row = new QVBoxLayout;
    row->setSpacing(GridUnit / 2);
    row->addWidget(label);
    row->addLayout(line);
    return row;
}

QWidget* MakeDirectoryButton(const EditorParts& parts, FieldBox* box, const QString& name) {
    static const QString question = QStringLiteral("Select a directory");
    auto* button = Named(new QPushButton(QStringLiteral("...")), name);
    button->setAccessibleName(question);
    button->setToolTip(question);
    button->setAutoDefault(true);
    button->setFixedWidth(6 * GridUnit);
    QObject::connect(button, &QPushButton::clicked, box, [parts, box] {
        const QString& workingDirectory = parts.UserSettings.DefaultDirectory;
        const QString chosen = parts.Files.ChooseFolder(question, workingDirectory);
        if (!chosen.isEmpty())
            box->Put(chosen);
        ChangeDirectory(workingDirectory);
    });
    return button;
}
