#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

/// The grid of a group of boxes: captions, boxes that take the room, and buttons at their end.
QGridLayout* MakeFormGrid(QGroupBox* group);

/// One line of a form: caption, box, and a button at its end when there is one.
void AddFormRow(QGridLayout* grid, const QString& caption, QWidget* box, QWidget* button = nullptr);

/// The button that looks for a file, with a name that says which.
QPushButton* MakeBrowseButton(const QString& name, const QString& accessibleName);

/// The caption above a box that takes the row's width, with its button behind it.
QLayout* BoxWithButton(const QString& caption, QLineEdit* box, QPushButton* button);

/// The buttons that end a dialog, at the right.
QLayout* ButtonRow(std::initializer_list<QPushButton*> buttons);
