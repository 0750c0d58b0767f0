#include "Workbook.h"

#include "LateBound.h"
#include "Text.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

[[noreturn]] void Fail(const std::wstring& description) { throw MemberFailure{1004, description}; }

/// The application has a working folder of its own, so that only a whole path means the same to both sides; it doesn't
/// know the slash.
void RequireWholePath(const std::wstring& path) {
    if (path.find(L'/') != std::wstring::npos || !std::filesystem::path(path).is_absolute())
        Fail(L"'" + path + L"' is no whole path.");
}

std::wstring ValueText(const Cell& cell) {
    return cell.What == Cell::Kind::Text || cell.What == Cell::Kind::Formula ? Escaped(cell.Text)
                                                                             : NumberText(cell.Number);
}

} // namespace

void Workbook::Open(const std::wstring& path) {
    RequireWholePath(path);
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file)
        Fail(L"'" + path + L"' could not be found.");
    for (std::string bytes; std::getline(file, bytes);) {
        std::wistringstream line(FromUtf8(bytes));
        int row = 0;
        int column = 0;
        std::wstring kind;
        std::wstring value;
        line >> row >> column >> kind;
        line.ignore();
        std::getline(line, value);
        Cell cell;
        for (int i = 1; i <= static_cast<int>(Cell::Kind::Formula); ++i)
            if (KindName(static_cast<Cell::Kind>(i)) == kind)
                cell.What = static_cast<Cell::Kind>(i);
        if (row < 1 || column < 1 || cell.What == Cell::Kind::Empty)
            Fail(L"The format of '" + path + L"' is not valid.");
        if (cell.What == Cell::Kind::Text || cell.What == Cell::Kind::Formula)
            cell.Text = Unescaped(value);
        else
            cell.Number = std::wcstod(value.c_str(), nullptr);
        cells_[{row, column}] = cell;
    }
    path_ = path;
}

void Workbook::SaveAs(const std::wstring& path) {
    RequireWholePath(path);
    if (std::filesystem::exists(path) && !SameName(path, path_))
        Fail(L"A file named '" + path + L"' already exists.");
    Write(path);
    path_ = path;
}

void Workbook::Save() {
    if (path_.empty())
        Fail(L"The workbook has no file.");
    Write(path_);
}

Cell Workbook::Get(int row, int column) const {
    const auto found = cells_.find({row, column});
    return found == cells_.end() ? Cell() : found->second;
}

void Workbook::Set(int row, int column, const Cell& cell) {
    changed_ = true;
    if (cell.What == Cell::Kind::Empty)
        cells_.erase({row, column});
    else
        cells_[{row, column}] = cell;
}

void Workbook::Write(const std::wstring& path) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    for (const auto& [place, cell] : cells_)
        file << Utf8(std::to_wstring(place.first) + L'\t' + std::to_wstring(place.second) + L'\t' +
                     KindName(cell.What) + L'\t' + ValueText(cell) + L'\n');
    file.close();
    if (!file)
        Fail(L"Cannot access the file '" + path + L"'.");
    changed_ = false;
}
