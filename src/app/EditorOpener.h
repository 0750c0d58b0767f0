#pragma once

/// Opens the test editor's window.
class EditorOpener {
  public:
    virtual ~EditorOpener() = default;

    /// On the test in memory, which is the one last read.
    virtual void OpenOnTest() = 0;
    /// On a new, empty test.
    virtual void OpenOnNewTest() = 0;
};
