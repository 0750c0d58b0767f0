#pragma once

#include "platform/Navigator.h"
#include "taker/NamesForm.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include <array>

/// The names window: the client's and the test administrator's names.
class frmClient : public QDialog {
    Q_OBJECT

  public:
    frmClient(Session& session, SettingsStore& store, Navigator& navigator, const QString& caption, NamesAsked asked,
              NamesFor administration, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QLayout* MakeNames();
    QLayout* MakeButtons();

    void Chkpersist_Click();
    void Lblok_Click(int index);

    NamesForm form_;
    std::array<QLineEdit*, 2> txtclient_{};
    QCheckBox* Chkpersist_ = nullptr;
    std::array<QPushButton*, 2> Lblok_{};
};
