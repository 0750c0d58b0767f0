#pragma once

#include "Cell.h"

#include <map>
#include <string>
#include <utility>

/// The cells of a workbook's one sheet, and its file: a line for every cell, with its row, column, kind and value
/// between tabs, in UTF-8.
class Workbook {
  public:
    /// Throws MemberFailure when there is no such file, or it isn't one of these.
    void Open(const std::wstring& path);
    /// Throws MemberFailure for a folder that isn't there and for a file of something else. Replaces no other file.
    void SaveAs(const std::wstring& path);
    /// Throws MemberFailure for a workbook without a file, and when it can't be written.
    void Save();

    const std::wstring& Path() const { return path_; }
    bool Changed() const { return changed_; }
    Cell Get(int row, int column) const;
    void Set(int row, int column, const Cell& cell);

  private:
    void Write(const std::wstring& path);

    std::wstring path_;
    bool changed_ = false;
    std::map<std::pair<int, int>, Cell> cells_;
};
