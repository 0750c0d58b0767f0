#pragma once

#include "support/FailTest.h"

#include <QAction>
#include <QDialog>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <stdexcept>

/// The control or action of that object name and type in the window. When there is none the test fails with a message,
/// and an exception ends it.
template <typename Control>
Control& Find(const QWidget& window, const QString& name,
              std::source_location where = std::source_location::current()) {
    if (Control* control = window.findChild<Control*>(name))
        return *control;
    const QString message = QStringLiteral("The window \"%1\" has no %2 \"%3\"")
                                .arg(window.objectName(), QLatin1String(Control::staticMetaObject.className()), name);
    FailTest(message, where);
    throw std::runtime_error(message.toStdString());
}

/// Shows the window, makes it active and waits for it; the test fails when it doesn't come.
void ShowAndActivate(QWidget& window, std::source_location where = std::source_location::current());

/// A click with the left button on the middle of the control (a check box or radio button: on its mark). The test fails
/// when it is missing, hidden or disabled.
void Click(QWidget& window, const QString& name, std::source_location where = std::source_location::current());

/// Chooses the menu item. The test fails when it is missing, hidden or disabled.
void Choose(QWidget& window, const QString& actionName, std::source_location where = std::source_location::current());

/// Types the text, letters of any script included, into the control; line feeds are the Return key.
void Type(QWidget& control, const QString& text);

/// One key with its modifiers, sent to the widget.
void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Renders the widget into "grabs/<name>.png" beside the test program and returns the path.
QString GrabToPng(QWidget& widget, const QString& name, std::source_location where = std::source_location::current());

/// Drives the next modal dialog that opens, once, from inside its event loop:
///
///     DialogDriver driver([](QDialog& dialog) { Click(dialog, u"cmdOk"_s); });
///     window.cmdOptions->click();
///
/// The test fails when no dialog has opened within the time, or when the dialog is still open that long after the
/// action; it is then closed, so that no test hangs. Drivers may be nested: each waits for a dialog other than those
/// that were open when it was made. Finished() says whether the action has run.
class DialogDriver : public QObject {
  public:
    explicit DialogDriver(std::function<void(QDialog&)> action, int timeoutInMilliseconds = 5000,
                          std::source_location where = std::source_location::current(),
                          FailureReport fail = FailRunningTest());
    ~DialogDriver() override;

    bool Finished() const { return state_ == State::Closing || state_ == State::Done; }

  private:
    enum class State { Waiting, Acting, Closing, Done, Failed };
    void Look();
    void GiveUp(const QString& message);

    std::function<void(QDialog&)> action_;
    int timeout_;
    std::source_location where_;
    FailureReport fail_;
    QTimer look_;
    QTimer patience_;
    State state_ = State::Waiting;
    QWidgetList before_;
    QWidget* dialog_ = nullptr;
};
