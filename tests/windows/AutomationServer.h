#pragma once

#include "support/FailTest.h"
#include "support/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

/// The stand-in for the spreadsheet application and the word processor, registered for this object's life, with a
/// folder of its own. What it is told and how it writes its record is said in its main.cpp.
class AutomationServer {
  public:
    /// The test fails when it can't be registered.
    AutomationServer() {
        Register();
        Clear();
    }
    ~AutomationServer() {
        Stop();
        Unregister();
    }
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    void Register() {
        if (Call({QStringLiteral("/register"), QDir::toNativeSeparators(folder_.path())}) != 0)
            FailTest(QStringLiteral("The automation server can't be registered: ") + errors_);
    }
    void Unregister() { Call({QStringLiteral("/unregister")}); }
    /// Ends all its processes.
    void Stop() { Call({QStringLiteral("/stop")}); }
    /// As it was at first.
    void Clear() {
        Stop();
        Order({});
        QFile::remove(folder_.filePath(QStringLiteral("record.txt")));
    }
    /// The lines hold for the next calls, instead of those before.
    void Order(const QString& lines) { PutBytes(folder_.filePath(QStringLiteral("orders.txt")), lines.toUtf8()); }

    /// Starts the application as its user would, and waits until it can be attached to.
    void Run(const QStringList& application) {
        const qsizetype before = Record().size();
        QProcess::startDetached(Program(), QStringList(QStringLiteral("/run")) + application);
        QElapsedTimer timer;
        timer.start();
        while (Record().size() == before && timer.elapsed() < Patience)
            QThread::msleep(20);
        if (Record().size() == before)
            FailTest(QStringLiteral("The automation server doesn't start."));
    }
    /// How many of its processes run; ends is whether they are expected to end, so that it is worth waiting.
    int Running(bool ends) { return Call({QStringLiteral("/count"), QString::number(ends ? Patience : 0)}); }

    /// The record so far, without its applications' ends, which come when they like.
    QStringList Record() const {
        const QString path = folder_.filePath(QStringLiteral("record.txt"));
        QStringList lines =
            QFile::exists(path) ? QString::fromUtf8(BytesOf(path)).split(u'\n', Qt::SkipEmptyParts) : QStringList();
        lines.removeAll(QStringLiteral("excel end"));
        lines.removeAll(QStringLiteral("word end"));
        return lines;
    }

  private:
    static constexpr int Patience = 15000;

    static QString Program() {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/vellumo-automation-server.exe");
    }
    int Call(const QStringList& arguments) {
        QProcess process;
        process.start(Program(), arguments);
        const bool ended = process.waitForFinished(2 * Patience);
        errors_ = ended ? QString::fromUtf8(process.readAllStandardError()) : process.errorString();
        return ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QTemporaryDir folder_;
    QString errors_;
};

/// The cells of a row of one of the server's workbooks, from the first column on, each as kind and value.
inline QString RowOfWorkbook(const QString& path, int row) {
    QStringList cells;
    const QStringList lines = QString::fromUtf8(BytesOf(path)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QStringList parts = line.split(u'\t');
        if (parts.size() != 4 || parts.at(0).toInt() != row)
            continue;
        while (cells.size() < parts.at(1).toInt() - 1)
            cells.append(QStringLiteral("-"));
        cells.append(parts.at(2) + u' ' + parts.at(3));
    }
    return cells.join(QStringLiteral(" | "));
}
