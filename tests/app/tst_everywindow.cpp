#include "support/EveryWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

namespace {

/// What 1024 x 768 at 200 % and 1920 x 1080 at 300 % leave, in both directions the lesser, under a title bar.
constexpr QSize SmallScreen(512, 360);
constexpr int TitleBar = 24;
/// The least height in which the content of a window can still be read by scrolling.
constexpr int LeastView = 80;

QString NameOf(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(),
             button  ? button->text()
             : label ? label->text().left(40)
                     : QString());
}

bool IsControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLabel*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QTextEdit*>(&widget) ||
           widget.inherits("QPlainTextEdit") || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QTabBar*>(&widget) ||
           qobject_cast<const QGroupBox*>(&widget);
}

/// The visible controls that the window itself put there, not those inside other controls.
QList<QWidget*> ControlsOf(const QWidget& window) {
    QList<QWidget*> controls;
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        if (widget->isVisible() && widget->window() == &window && IsControl(*widget) &&
            !widget->objectName().startsWith(QStringLiteral("qt_")) && !qobject_cast<QLineEdit*>(widget->parent()) &&
            !qobject_cast<QComboBox*>(widget->parent()) && !qobject_cast<QTabBar*>(widget->parent()))
            controls.append(widget);
    return controls;
}

const QScrollArea* ScrollAreaAround(const QWidget& widget) {
    for (const QWidget* outer = widget.parentWidget(); outer; outer = outer->parentWidget())
        if (const auto* area = qobject_cast<const QScrollArea*>(outer))
            return area;
    return nullptr;
}

/// The buttons by which a person begins, goes on or leaves.
bool MustStayInView(const QAbstractButton& button) {
    static const QStringList captions{QStringLiteral("OK"),         QStringLiteral("Cancel"),
                                      QStringLiteral("Apply"),      QStringLiteral("Save"),
                                      QStringLiteral("Begin Test"), QStringLiteral("Resume Test"),
                                      QStringLiteral("Quit"),       QStringLiteral("Edit Test"),
                                      QStringLiteral("Save Test"),  QStringLiteral("Return To Main Menu"),
                                      QStringLiteral("Close"),      QStringLiteral("Report")};
    return captions.contains(QString(button.text()).remove(u'&'));
}

class Faults {
  public:
    void Visit(QWidget& window, const QString& name) {
        at_ = name;
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        LookAtMnemonics(window);
        LookAtNames(window);
        LookAtSizes(window);
    }

    QStringList Sizes;
    QStringList Mnemonics;
    QStringList Names;

  private:
    void Add(QStringList& list, const QString& text) { list.append(at_ + QStringLiteral(": ") + text); }

    void LookAtSizes(QWidget& window) {
        if (qEnvironmentVariable("QT_QPA_PLATFORM").startsWith(QStringLiteral("offscreen:")) &&
            (window.width() > SmallScreen.width() || window.height() > SmallScreen.height() - TitleBar))
            Add(Sizes, QStringLiteral("opens with %1 x %2").arg(window.width()).arg(window.height()));
        const QSize usual = window.size();
        const QSize small(SmallScreen.width(), SmallScreen.height() - TitleBar);
        // Twice, as by hand: a window that gives up a picture on its way can then become smaller still.
        for (int step = 0; step < 2; ++step) {
            window.resize(usual.boundedTo(small));
            QTest::qWait(30);
        }
        if (window.width() > small.width() || window.height() > small.height())
            Add(Sizes, QStringLiteral("needs %1 x %2").arg(window.width()).arg(window.height()));
        const auto controls = ControlsOf(window);
        for (const QWidget* control : controls)
            LookAtPlace(window, *control);
        const auto areas = window.findChildren<QScrollArea*>();
        for (const QScrollArea* area : areas)
            if (area->isVisible())
                LookAtScrolling(*area);
        window.resize(usual);
    }

    void LookAtPlace(const QWidget& window, const QWidget& control) {
        const QScrollArea* area = ScrollAreaAround(control);
        const QWidget& around = area ? *area->widget() : window;
        const QRect place(control.mapTo(&around, QPoint(0, 0)), control.size());
        if (!around.rect().contains(place))
            Add(Sizes, NameOf(control) + QStringLiteral(" isn't whole in the window"));
        const auto* button = qobject_cast<const QAbstractButton*>(&control);
        if (button && area && MustStayInView(*button))
            Add(Sizes, NameOf(control) + QStringLiteral(" scrolls away"));
        const bool cuts = control.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        QSize needed = control.minimumSizeHint();
        const auto* label = qobject_cast<const QLabel*>(&control);
        if (label && label->wordWrap())
            needed = QSize(0, label->heightForWidth(label->width()));
        if (control.minimumWidth() > 0)
            needed.setWidth(control.minimumWidth());
        if (control.minimumHeight() > 0)
            needed.setHeight(control.minimumHeight());
        if (button)
            needed = needed.expandedTo(button->fontMetrics().size(Qt::TextShowMnemonic, button->text()));
        if (control.height() < needed.height() || (!cuts && control.width() < needed.width()))
            Add(Sizes, NameOf(control) + QStringLiteral(" is cut: %1 x %2 of %3 x %4")
                                             .arg(control.width())
                                             .arg(control.height())
                                             .arg(needed.width())
                                             .arg(needed.height()));
    }

    void LookAtScrolling(const QScrollArea& area) {
        const QSize view = area.viewport()->size();
        if (area.widget()->width() > view.width())
            Add(Sizes, NameOf(area) + QStringLiteral(" scrolls sideways: %1 of %2")
                                          .arg(view.width())
                                          .arg(area.widget()->width()));
        if (view.height() < qMin(LeastView, area.widget()->height()))
            Add(Sizes, NameOf(area) + QStringLiteral(" shows %1 of %2").arg(view.height()).arg(area.widget()->height()));
    }

    void Collect(QMap<QString, QStringList>& owners, const QString& caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty())
            owners[key.toString()].append(caption);
    }

    void Report(const QMap<QString, QStringList>& owners, const QString& where) {
        for (auto owner = owners.begin(); owner != owners.end(); ++owner)
            if (owner->size() > 1)
                Add(Mnemonics, where + owner.key() + QStringLiteral(" is ") + owner->join(QStringLiteral(" and ")));
    }

    void LookAtMnemonics(const QWidget& window) {
        QMap<QString, QStringList> owners;
        const auto controls = ControlsOf(window);
        for (const QWidget* control : controls) {
            if (const auto* button = qobject_cast<const QAbstractButton*>(control))
                Collect(owners, button->text());
            if (const auto* group = qobject_cast<const QGroupBox*>(control))
                Collect(owners, group->title());
            if (const auto* label = qobject_cast<const QLabel*>(control); label && label->buddy())
                Collect(owners, label->text());
            if (const auto* tabs = qobject_cast<const QTabBar*>(control))
                for (int i = 0; i < tabs->count(); ++i)
                    Collect(owners, tabs->tabText(i));
        }
        if (const auto* bar = window.findChild<QMenuBar*>())
            for (const QAction* menu : bar->actions())
                if (menu->isVisible()) {
                    Collect(owners, menu->text());
                    LookIntoMenu(*menu->menu());
                }
        Report(owners, {});
    }

    void LookIntoMenu(const QMenu& menu) {
        QMap<QString, QStringList> owners;
        for (const QAction* item : menu.actions())
            if (item->isVisible())
                Collect(owners, item->text());
        Report(owners, QStringLiteral("menu ") + menu.title() + QStringLiteral(", "));
    }

    void LookAtNames(const QWidget& window) {
        const auto controls = ControlsOf(window);
        for (QWidget* control : controls) {
            const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(control);
            const QString name = access ? access->text(QAccessible::Name) : QString();
            const auto* label = qobject_cast<const QLabel*>(control);
            if (name.trimmed().isEmpty() && !(label && label->text().isEmpty()))
                Add(Names, NameOf(*control) + QStringLiteral(" has none"));
            if (label && !name.contains(QString(label->text()).remove(u'&').remove(QChar(0x200B))) && !label->buddy())
                Add(Names, NameOf(*control) + QStringLiteral(" is hidden by \"%1\"").arg(name));
        }
    }

    QString at_;
};

} // namespace

class EveryWindow : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        VisitEveryWindow(QStringLiteral(VELLUMO_SOURCE_DIR),
                         [this](QWidget& window, const QString& name) { faults_.Visit(window, name); });
    }

    void SmallScreen_EveryWindow_IsUsable() { FailOn(faults_.Sizes); }
    void Mnemonics_SeenTogether_Differ() { FailOn(faults_.Mnemonics); }
    void Accessibility_EveryControl_HasItsText() { FailOn(faults_.Names); }

  private:
    static void FailOn(const QStringList& faults) {
        for (const QString& fault : faults)
            qWarning("%s", qPrintable(fault));
        QVERIFY(faults.isEmpty());
    }

    Faults faults_;
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    if (qEnvironmentVariable("QT_QPA_PLATFORM") == QStringLiteral("offscreen")) {
        QFile screen(folder.filePath(QStringLiteral("screen.json")));
        (void)screen.open(QIODevice::WriteOnly);
        screen.write(QStringLiteral(R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": %1, "height": %2,
            "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                         .arg(SmallScreen.width())
                         .arg(SmallScreen.height())
                         .toUtf8());
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
    }
#ifndef Q_OS_WIN
    QApplication::setStyle(QStringLiteral("Fusion"));
#endif
    QApplication application(argc, argv);
    EveryWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_everywindow.moc"
