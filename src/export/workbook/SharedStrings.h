#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// The texts that the cells of a workbook share. Throws WorkbookError for a part that can't be read.
class SharedStrings {
  public:
    explicit SharedStrings(const QByteArray& xml);

    /// The text at an index from 0. Throws WorkbookError when there is none.
    QString At(qsizetype index) const;

  private:
    QByteArray xml_;
    /// Where every so many-th entry begins; the others are found from there.
    std::vector<quint32> entries_;
    qsizetype count_ = 0;
};
