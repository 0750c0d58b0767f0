#pragma once

#include "cli/Console.h"

#include <QStringList>

/// Runs vellumo-cli with the arguments behind the program's name. Returns the exit status; never throws.
int RunTool(const QStringList& arguments, Console& console);
