#include "editor/ui/EntryList.h"

#include "platform/ui/FocusOutline.h"
#include "platform/ui/Typography.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace {

/// More letters than any line shows, and few enough to be measured while someone waits.
constexpr int LettersOfALine = 500;
constexpr int LineGap = GridUnit / 2;

/// Draws an entry as one line, whatever breaks are in it, and the chosen one as if the list had the focus.
class OneLine : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        return value.toString().left(LettersOfALine).simplified();
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), option.fontMetrics.height() + LineGap};
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state |= QStyle::State_Active;
    }
};

} // namespace

EntryList::EntryList(int visibleLines, QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new OneLine(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumHeight(visibleLines * (fontMetrics().height() + LineGap) + 2 * frameWidth());
    new FocusOutline(*this);
    connect(this, &QListWidget::itemSelectionChanged, this, &EntryList::ChoiceChanged);
}

void EntryList::SetEntries(const QStringList& entries) {
    const QSignalBlocker quiet(this);
    clear();
    addItems(entries);
}

void EntryList::AppendEntry(const QString& text) {
    const QSignalBlocker quiet(this);
    addItem(text);
}

void EntryList::SetEntry(int entry, const QString& text) { item(entry - 1)->setText(text); }

void EntryList::Choose(int entry) {
    const QSignalBlocker quiet(this);
    if (entry == 0) {
        clearSelection();
        return;
    }
    setCurrentRow(entry - 1, QItemSelectionModel::ClearAndSelect);
    scrollToItem(item(entry - 1));
}

int EntryList::Chosen() const {
    const QModelIndexList chosen = selectedIndexes();
    return chosen.isEmpty() ? 0 : chosen.first().row() + 1;
}

void EntryList::keyPressEvent(QKeyEvent* event) {
    // The list's own keys move on from an entry; with none chosen they would pass over the first one.
    const bool down = event->key() == Qt::Key_Down || event->key() == Qt::Key_PageDown;
    const bool up = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
    if (Chosen() == 0 && count() > 0 && (down || up)) {
        // The entry that has the focus without being chosen; the first one has it by itself.
        const int focused = qMax(currentRow(), 0);
        setCurrentRow(up && focused == 0 ? count() - 1 : focused, QItemSelectionModel::ClearAndSelect);
        return;
    }
    QListWidget::keyPressEvent(event);
}
