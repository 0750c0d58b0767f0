#include "export/ui/QtExportWindows.h"

#include "export/ui/DialogExport.h"
#include "platform/ui/WindowInFront.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

namespace {

/// In milliseconds.
constexpr int LongestPlacing = 200;

} // namespace

QtExportWindows::~QtExportWindows() { CloseSteps(); }

// Without a caption of its own the names window lets both names be entered, also where the test asks for none.
void QtExportWindows::AskNames() { navigator_.AskNames(QString()); }

void QtExportWindows::Confirm(ExportForm& form) { DialogExport(form, chooser_, navigator_, WindowInFront()).exec(); }

void QtExportWindows::ShowStep(const QString& caption) {
    if (!steps_)
        steps_ = new DialogExcel(WindowInFront());
    steps_->SetCaption(caption);
    steps_->show();
    // A window that has just been shown can only be painted when the desktop has placed it.
    QElapsedTimer sinceShown;
    sinceShown.start();
    do
        StayPainted();
    while (!steps_->windowHandle()->isExposed() && sinceShown.elapsed() < LongestPlacing);
    steps_->repaint();
}

void QtExportWindows::CloseSteps() {
    if (!steps_)
        return;
    QWidget* owner = steps_->parentWidget();
    delete steps_.data();
    // A message box over the steps takes the focus with it into nothing.
    if (owner)
        owner->activateWindow();
}

void QtExportWindows::StayPainted() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
