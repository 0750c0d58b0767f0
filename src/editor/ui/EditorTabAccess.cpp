#include "editor/ui/EditorTabAccess.h"

#include "editor/ui/EditorTabStrip.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace {

class TabAccess : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    TabAccess(EditorTabStrip* strip, int index) : strip_(strip), index_(index) {}

    bool isValid() const override { return strip_ && index_ < strip_->count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(strip_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QRect rect() const override {
        return strip_->tabRect(index_).translated(strip_->mapToGlobal(QPoint(0, 0)));
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name          ? strip_->tabText(index_)
               : kind == QAccessible::Description ? strip_->tabToolTip(index_)
                                                  : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state = parent()->state();
        state.selectable = true;
        state.selected = strip_->IsChosen(index_);
        state.focused = state.focused && strip_->currentIndex() == index_;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        if (action == pressAction() && isValid())
            strip_->Choose(index_);
    }

  private:
    QPointer<EditorTabStrip> strip_;
    int index_;
};

class StripAccess : public QAccessibleWidget {
  public:
    explicit StripAccess(EditorTabStrip* strip) : QAccessibleWidget(strip, QAccessible::PageTabList), strip_(strip) {}
    ~StripAccess() override {
        for (const QAccessible::Id tab : tabs_)
            QAccessible::deleteAccessibleInterface(tab);
    }

    int childCount() const override { return strip_ ? strip_->count() : 0; }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        while (tabs_.size() <= index)
            tabs_.append(QAccessible::registerAccessibleInterface(new TabAccess(strip_, static_cast<int>(tabs_.size()))));
        return QAccessible::accessibleInterface(tabs_[index]);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return strip_ ? child(strip_->tabAt(strip_->mapFromGlobal(QPoint(x, y)))) : nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        return strip_ && strip_->hasFocus() ? child(strip_->currentIndex()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* tab) const override {
        return static_cast<int>(tabs_.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(tab))));
    }

  private:
    QPointer<EditorTabStrip> strip_;
    mutable QList<QAccessible::Id> tabs_;
};

QAccessibleInterface* Make(const QString& className, QObject* object) {
    auto* strip = className == QLatin1String(EditorTabStrip::staticMetaObject.className())
                      ? qobject_cast<EditorTabStrip*>(object)
                      : nullptr;
    return strip ? new StripAccess(strip) : nullptr;
}

} // namespace

void UseEditorTabAccess() {
    static const bool installed = (QAccessible::installFactory(Make), true);
    Q_UNUSED(installed);
}
