#include "support/WindowDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

namespace {

constexpr int LookEveryMilliseconds = 10;

QPoint ClickPointOf(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    const bool check = qobject_cast<const QCheckBox*>(&control) != nullptr;
    const bool radio = qobject_cast<const QRadioButton*>(&control) != nullptr;
    if (button == nullptr || (!check && !radio))
        return control.rect().center();
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    return control.style()
        ->subElementRect(check ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option, &control)
        .center();
}

QWidgetList OpenModalDialogs() {
    QWidgetList dialogs;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->isModal())
            dialogs.append(widget);
    return dialogs;
}

} // namespace

void ShowAndActivate(QWidget& window, std::source_location where) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        FailTest(QStringLiteral("The window \"%1\" didn't become active").arg(window.objectName()), where);
}

void Click(QWidget& window, const QString& name, std::source_location where) {
    auto* control = window.findChild<QWidget*>(name);
    if (control == nullptr)
        return FailTest(QStringLiteral("There is no control \"%1\" to click").arg(name), where);
    if (!control->isVisible() || !control->isEnabled())
        return FailTest(QStringLiteral("The control \"%1\" is hidden or disabled").arg(name), where);
    QTest::mouseClick(control, Qt::LeftButton, Qt::NoModifier, ClickPointOf(*control));
}

void Choose(QWidget& window, const QString& actionName, std::source_location where) {
    auto* action = window.findChild<QAction*>(actionName);
    if (action == nullptr)
        return FailTest(QStringLiteral("There is no menu item \"%1\"").arg(actionName), where);
    if (!action->isVisible() || !action->isEnabled())
        return FailTest(QStringLiteral("The menu item \"%1\" is hidden or disabled").arg(actionName), where);
    action->trigger();
}

void Type(QWidget& control, const QString& text) {
    const QPointer<QWidget> alive(&control);
    for (const QChar letter : text) {
        if (alive.isNull())
            return;
        if (letter == QLatin1Char('\n'))
            QTest::keyClick(&control, Qt::Key_Return);
        else
            QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&widget, key, modifiers); }

QString GrabToPng(QWidget& widget, const QString& name, std::source_location where) {
    const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/grabs"));
    folder.mkpath(QStringLiteral("."));
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    if (!widget.grab().save(path))
        FailTest(QStringLiteral("Can't write %1").arg(path), where);
    return path;
}

DialogDriver::DialogDriver(std::function<void(QDialog&)> action, int timeoutInMilliseconds, std::source_location where,
                           FailureReport fail)
    : action_(std::move(action)),
      timeout_(timeoutInMilliseconds),
      where_(where),
      fail_(std::move(fail)),
      before_(OpenModalDialogs()) {
    connect(&look_, &QTimer::timeout, this, &DialogDriver::Look);
    look_.start(LookEveryMilliseconds);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, [this] {
        GiveUp(state_ == State::Waiting ? QStringLiteral("No dialog opened in time")
                                        : QStringLiteral("The dialog stayed open after the test's action"));
    });
    patience_.start(timeout_);
}

DialogDriver::~DialogDriver() {
    if (state_ == State::Waiting)
        fail_(QStringLiteral("The expected dialog never opened"), where_);
}

void DialogDriver::Look() {
    QWidget* active = QApplication::activeModalWidget();
    if (state_ == State::Waiting) {
        auto* dialog = qobject_cast<QDialog*>(active);
        if (dialog == nullptr || !dialog->isVisible() || before_.contains(dialog))
            return;
        dialog_ = dialog;
        state_ = State::Acting;
        patience_.start(timeout_);
        action_(*dialog);
        if (state_ == State::Acting)
            state_ = State::Closing;
    } else if (state_ == State::Closing && !OpenModalDialogs().contains(dialog_)) {
        state_ = State::Done;
        look_.stop();
        patience_.stop();
    }
}

void DialogDriver::GiveUp(const QString& message) {
    if (state_ == State::Done || state_ == State::Failed)
        return;
    state_ = State::Failed;
    look_.stop();
    fail_(message, where_);
    for (QWidget* widget : OpenModalDialogs())
        if (auto* dialog = qobject_cast<QDialog*>(widget); dialog != nullptr && !before_.contains(dialog))
            dialog->reject();
}
