#pragma once

#include "platform/ui/LinkButton.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>

/// The home view of the editor: what test is loaded, and the shortcut to its web page.
class HomeView : public QWidget {
    Q_OBJECT

  public:
    HomeView();

    /// withTest: whether a test is loaded, which a web page can be made of.
    void Show(const QString& message, bool withTest);

  Q_SIGNALS:
    void ExportHtmlWanted();

  private:
    QLabel* lblinstructions_ = nullptr;
    QFrame* Frame23_ = nullptr;
    LinkButton* Label10_ = nullptr;
    QToolButton* Picture2_ = nullptr;
};
