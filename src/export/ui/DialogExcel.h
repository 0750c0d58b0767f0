#pragma once

#include <QDialog>
#include <QLabel>

/// Says which step of an export is under way. It can't be closed by hand: it goes when the export is through.
class DialogExcel : public QDialog {
    Q_OBJECT

  public:
    explicit DialogExcel(QWidget* parent = nullptr);

    void SetCaption(const QString& caption);

  protected:
    void reject() override {}

  private:
    QLabel* Label1_ = nullptr;
};
