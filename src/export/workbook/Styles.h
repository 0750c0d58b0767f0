#pragma once

#include "export/workbook/XmlTree.h"

#include <map>

/// The cell formats of a workbook. Throws WorkbookError for a part that can't be read.
class Styles {
  public:
    explicit Styles(const QByteArray& xml);

    /// Whether cells of that format (an index from 0) show their number as a date.
    bool IsDate(int style) const;
    /// The format that is like the given one (-1 for none) but shows dates: that one, one that is there already, or a
    /// new one.
    int DateStyle(int like);

    bool Changed() const { return changed_; }
    QByteArray Xml() const { return XmlOf(document_); }

  private:
    bool IsDateFormat(int numberFormat) const;
    int FindOrAddDateStyle(int like);

    pugi::xml_document document_;
    pugi::xml_node formats_;
    // What was found already, by format; a column of dates asks for the same one in each of its rows.
    mutable std::map<int, bool> isDate_;
    std::map<int, int> dateStyles_;
    bool changed_ = false;
};

/// The part of a workbook with nothing but the usual format.
extern const QByteArray PlainStyles;
