#include "export/ui/QtExportWindows.h"

#include "export/ui/DialogExport.h"

#include <QApplication>

QtExportWindows::~QtExportWindows() { CloseSteps(); }

// Without a caption of its own the names window lets both names be entered, also where the test asks for none.
void QtExportWindows::AskNames() { navigator_.AskNames(QString()); }

void QtExportWindows::Confirm(ExportForm& form) {
    DialogExport(form, chooser_, navigator_, QApplication::activeWindow()).exec();
}

void QtExportWindows::ShowStep(const QString& caption) {
    if (!steps_)
        steps_ = new DialogExcel(QApplication::activeWindow());
    steps_->SetCaption(caption);
    steps_->show();
    StayPainted();
    steps_->repaint();
}

void QtExportWindows::CloseSteps() { delete steps_.data(); }

void QtExportWindows::StayPainted() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
