#pragma once

#include <QString>

/// The control, under its name.
template <typename Control> Control* Named(Control* control, const QString& name) {
    control->setObjectName(name);
    return control;
}
