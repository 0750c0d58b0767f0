#include "platform/NameRefusal.h"

// Here every name is that of a file, and devices have paths of their own.
QString NameRefusal(const QString&) { return {}; }
