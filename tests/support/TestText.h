#pragma once

#include "testdoc/TestParser.h"

/// A test as LoadTest makes it of a file with this text, without a file; its lines are joined as reading joins them.
inline TestDocument TestFromText(const QString& text, const QString& path = QStringLiteral("/tests/Mood.vlm")) {
    TestDocument test;
    test.TestFileName = path;
    test.TestFileText =
        QString(text).remove(u'\n').remove(u'\r').replace(QStringLiteral("<P>"), QStringLiteral("\r\n"));
    test.TestFileLength = static_cast<int>(test.TestFileText.size());
    LoadTest(test);
    return test;
}
