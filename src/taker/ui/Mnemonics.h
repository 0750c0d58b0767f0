#pragma once

#include <QList>
#include <QMenuBar>
#include <QPushButton>
#include <QStringList>

/// A button with its caption, and the same caption with other letters marked for when the first is taken.
struct MarkedButton {
    QPushButton* Button;
    QStringList Captions;
};

/// Gives each button that is seen the first of its captions whose letter neither a menu that is seen nor a button
/// before it has. Where all are taken the caption has no mark.
void GiveCaptions(const QMenuBar& menus, const QList<MarkedButton>& buttons);
