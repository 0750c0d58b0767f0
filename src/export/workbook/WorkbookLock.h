#pragma once

#include <QLockFile>

#include <functional>
#include <memory>

/// Keeps copies of Vellumo, on this and on other machines, from writing the same workbook at the same time: a file
/// beside the workbook says who has it. It goes with the object; one that a crash left behind goes when its program is
/// no longer there, or after a minute when that was on another machine.
class WorkbookLock {
  public:
    enum class Outcome { Taken, Busy, Impossible };

    /// The workbook need not be there yet. Links to it are followed.
    explicit WorkbookLock(const QString& path);

    /// Waits at most so many milliseconds, and calls whileWaiting many times a second meanwhile, if there is one. It is
    /// impossible when no file can be made beside the workbook.
    Outcome Take(int patience, const std::function<void()>& whileWaiting);

    /// Whether it is taken, and for this workbook.
    bool IsFor(const QString& path) const;

  private:
    QString target_;
    std::unique_ptr<QLockFile> file_;
};

/// Whether another program has the workbook open: the file that LibreOffice or Excel puts beside an open document is
/// there, or a lock is on the workbook itself.
bool IsOpenInAnotherProgram(const QString& path);
