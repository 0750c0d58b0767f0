#pragma once

#include <QString>

/// What the HTML template file says about itself in its "DESCRIPTION" section; "" when the file can't be read or has
/// no such section.
QString ReadTemplateDescription(const QString& path);
