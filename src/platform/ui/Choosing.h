#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

// The accessibility interface checks, selects and fills in without a click or a key.

/// Shows a value in a check box or another checkable button. Its toggled signal then means that a person changed it, by
/// whatever means.
inline void ShowTicked(QAbstractButton& button, bool ticked) {
    const QSignalBlocker quiet(button);
    button.setChecked(ticked);
}

/// Shows a text in a box. Its textChanged signal then means that a person changed it, by whatever means.
inline void ShowText(QLineEdit& box, const QString& text) {
    const QSignalBlocker quiet(box);
    box.setText(text);
}

/// The row that a person selects becomes the current one, by whatever means it is selected.
inline void MakeSelectedRowCurrent(QListWidget& list) {
    QObject::connect(&list, &QListWidget::itemSelectionChanged, &list, [&list] {
        const QList<QListWidgetItem*> selected = list.selectedItems();
        if (selected.size() == 1 && selected.first() != list.currentItem())
            list.setCurrentItem(selected.first());
    });
}
