#include "taker/ui/WrappingRow.h"

#include "platform/ui/Typography.h"

#include <algorithm>

WrappingRow::WrappingRow() { SetRoom(*this, 0, 1); }

QLayoutItem* WrappingRow::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingRow::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = items_[static_cast<size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

int WrappingRow::WidthOfAll(bool narrow) const {
    int width = 0;
    for (const auto& item : items_)
        if (!item->isEmpty())
            width += (width > 0 ? spacing() : 0) + (narrow ? item->minimumSize() : item->sizeHint()).width();
    return width;
}

QSize WrappingRow::sizeHint() const {
    const int width = WidthOfAll(false);
    return {width, heightForWidth(width)};
}

QSize WrappingRow::minimumSize() const {
    QSize least;
    for (const auto& item : items_)
        if (!item->isEmpty())
            least = least.expandedTo(item->minimumSize());
    return least;
}

void WrappingRow::setGeometry(const QRect& room) {
    QLayout::setGeometry(room);
    Place(room, true);
}

int WrappingRow::Place(const QRect& room, bool moves) const {
    const bool narrow = room.width() < WidthOfAll(false);
    const int spare = room.width() - WidthOfAll(narrow);
    int left = room.left();
    int top = room.top();
    int lineHeight = 0;
    for (size_t i = 0; i < items_.size(); ++i) {
        if (i == gap_ && spare > 0)
            left += spare;
        QLayoutItem& item = *items_[i];
        if (item.isEmpty())
            continue;
        const QSize size((narrow ? item.minimumSize() : item.sizeHint()).width(), item.sizeHint().height());
        if (lineHeight > 0 && left + size.width() > room.left() + room.width()) {
            left = room.left();
            top += lineHeight + spacing();
            lineHeight = 0;
        }
        if (moves)
            item.setGeometry({QPoint(left, top), size});
        left += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return top + lineHeight - room.top();
}
