#include "support/FailTest.h"

#include <QTest>

void FailTest(const QString& message, std::source_location where) {
    if (QTest::currentTestFunction() == nullptr)
        qFatal("%s", qUtf8Printable(message));
    QTest::qFail(qUtf8Printable(message), where.file_name(), static_cast<int>(where.line()));
}
