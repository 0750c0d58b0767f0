#pragma once

#include "platform/Navigator.h"

#include <QString>

/// The page of the help with the list of all topics.
inline const QString HelpIndexPage = QStringLiteral("index.html");

/// The file name of the topic's help page.
QString HelpPageOf(HelpTopic topic);
