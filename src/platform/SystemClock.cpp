#include "platform/Clock.h"

QDateTime SystemClock::Now() const { return QDateTime::currentDateTime(); }
