#pragma once

#include <QString>

#include <functional>
#include <source_location>

/// Marks the running test function as failed and returns. Outside a test function the program ends.
void FailTest(const QString& message, std::source_location where = std::source_location::current());

/// How the doubles report what went against the script; a test of the doubles hands in its own.
using FailureReport = std::function<void(const QString& message, std::source_location where)>;

inline FailureReport FailRunningTest() {
    return [](const QString& message, std::source_location where) { FailTest(message, where); };
}
