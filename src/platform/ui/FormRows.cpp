#include "platform/ui/FormRows.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QLabel>
#include <QPlainTextEdit>

QGridLayout* MakeFormGrid(QGroupBox* group) {
    auto* grid = new QGridLayout(group);
    SetRoom(*grid, 2, 1);
    grid->setHorizontalSpacing(2 * GridUnit);
    grid->setColumnMinimumWidth(0, 21 * GridUnit);
    grid->setColumnStretch(1, 1);
    return grid;
}

void AddFormRow(QGridLayout* grid, const QString& caption, QWidget* box, QWidget* button) {
    const int row = grid->rowCount();
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    box->setAccessibleName(caption);
    const bool lines = qobject_cast<QPlainTextEdit*>(box) != nullptr;
    grid->addWidget(label, row, 0, lines ? Qt::AlignTop : Qt::Alignment());
    grid->addWidget(box, row, 1, 1, button ? 1 : 2);
    if (button)
        grid->addWidget(button, row, 2);
}

QPushButton* MakeBrowseButton(const QString& name, const QString& accessibleName) {
    auto* button = Named(new QPushButton(QStringLiteral("Browse...")), name);
    button->setAccessibleName(accessibleName);
    return button;
}

QLayout* BoxWithButton(const QString& caption, QLineEdit* box, QPushButton* button) {
    auto* label = new QLabel(caption);
    box->setAccessibleName(caption);
    label->setBuddy(box);
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(box, 1);
    row->addWidget(button);
    auto* column = new QVBoxLayout;
    column->setSpacing(GridUnit);
    column->addWidget(label);
    column->addLayout(row);
    return column;
}

QLayout* ButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addStretch(1);
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}
