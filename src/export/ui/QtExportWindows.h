#pragma once

#include "export/SpreadsheetExport.h"
#include "export/ui/DialogExcel.h"
#include "platform/FileChooser.h"
#include "platform/Navigator.h"

#include <QPointer>

/// The windows of the export, above whichever window is in use.
class QtExportWindows : public ExportWindows {
  public:
    QtExportWindows(FileChooser& chooser, Navigator& navigator) : chooser_(chooser), navigator_(navigator) {}
    ~QtExportWindows() override;
    QtExportWindows(const QtExportWindows&) = delete;
    QtExportWindows& operator=(const QtExportWindows&) = delete;

    void AskNames() override;
    void Confirm(ExportForm& form) override;
    void ShowStep(const QString& caption) override;
    void CloseSteps() override;

    /// Paints what changed, while a long step runs. Nothing that the user does is acted on.
    static void StayPainted();

  private:
    FileChooser& chooser_;
    Navigator& navigator_;
    QPointer<DialogExcel> steps_;
};
