#pragma once

#include <QString>

/// What the HTML template file says about itself in its "DESCRIPTION" section; "" when the file can't be read or has
/// no such section. A relative path is found as FindTemplateFile says.
QString ReadTemplateDescription(const QString& path, const QString& programFolder = {});
