#pragma once

#include "export/workbook/ZipPackage.h"

#include <optional>
#include <vector>

/// Where the parts of a workbook lie in its package.
struct PackageMap {
    /// The workbook's own part, such as "xl/workbook.xml".
    QString Workbook;
    /// The sheet that is seen first: the active one, or the first visible worksheet when that one isn't visible.
    QString Sheet;
    /// All worksheets, by their names.
    std::vector<std::pair<QString, QString>> Sheets;
    std::optional<QString> SharedStrings;
    std::optional<QString> Styles;
    /// Whether days count from 1904 instead of 1900.
    bool From1904 = false;
};

/// Reads a package's lists. Throws WorkbookError when it is no workbook.
PackageMap MapPackage(const ZipPackage& package);

/// Adds a part for the formats to a workbook that has none, as far as the package's lists are concerned, and returns
/// its name.
QString AddStylesPart(ZipPackage& package, const PackageMap& map);

/// Lets every program calculate all formulas when it opens the workbook.
void CalculateOnOpening(ZipPackage& package, const PackageMap& map);

/// The most bytes of one of the package's lists.
inline constexpr qint64 MaxListBytes = 16 << 20;
