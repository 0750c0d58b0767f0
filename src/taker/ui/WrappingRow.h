#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// A row of widgets that become narrower, and then go on in further lines, where one is too narrow. In a single line
/// the widgets after the gap go to the right end.
class WrappingRow : public QLayout {
  public:
    WrappingRow();

    /// What is added from now on goes to the right end.
    void AddGap() { gap_ = items_.size(); }

    void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Place({0, 0, width, 0}, false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& room) override;

  private:
    /// Returns the height that is needed in that room, and moves the widgets there when asked to.
    int Place(const QRect& room, bool moves) const;
    /// The width of a single line, with the widgets as wide as they like to be or as narrow as they can be.
    int WidthOfAll(bool narrow) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
    size_t gap_ = SIZE_MAX;
};
