#include "taker/ui/frmClient.h"

#include "platform/ui/GradientBackground.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {

const std::array<QString, 2> NameLabels = {QStringLiteral("Client's Name"),
                                           QStringLiteral("Test Administrator's Name")};

} // namespace

frmClient::frmClient(Session& session, SettingsStore& store, Navigator& navigator, const QString& caption,
                     NamesAsked asked, NamesFor administration, QWidget* parent)
    : QDialog(parent), form_(session, store, asked, administration) {
    setObjectName(QStringLiteral("frmClient"));
    setWindowTitle(caption);
    new HelpKey(*this, navigator, HelpTopic::Names);

    auto* note = new QLabel(QStringLiteral("These names are optional and may be used in reports or exported files..."));
    note->setWordWrap(true);
    Chkpersist_ = Named(new QCheckBox(QStringLiteral("Persist between tests")), QStringLiteral("Chkpersist"));
    Chkpersist_->setChecked(form_.Persist());
    connect(Chkpersist_, &QCheckBox::toggled, this, &frmClient::Chkpersist_Click);

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 3, 2);
    column->addLayout(MakeNames());
    column->addWidget(Chkpersist_);
    column->addWidget(note);
    column->addStretch(1);
    column->addLayout(MakeButtons());
    connect(this, &QDialog::rejected, this, [this] { form_.Cancel(); });

    setMinimumWidth(52 * GridUnit);
    resize(60 * GridUnit, sizeHint().height());
    CentreOnScreen(*this);
    // Selected, so that typing replaces an earlier client's name.
    txtclient_[0]->selectAll();
    txtclient_[form_.ClientEnabled() || !form_.AdministratorEnabled() ? 0 : 1]->setFocus();
}

QLayout* frmClient::MakeNames() {
    auto* names = new QVBoxLayout;
    names->setSpacing(GridUnit);
    const std::array<bool, 2> enabled = {form_.ClientEnabled(), form_.AdministratorEnabled()};
    const std::array<QString, 2> texts = {form_.ClientText(), form_.AdministratorText()};
    for (size_t i = 0; i < txtclient_.size(); ++i) {
        auto* label = Named(new QLabel(NameLabels[i]), QStringLiteral("lblClient_%1").arg(i));
        txtclient_[i] = Named(new QLineEdit(texts[i]), QStringLiteral("txtclient_%1").arg(i));
        txtclient_[i]->setEnabled(enabled[i]);
        txtclient_[i]->setFont(BodyFont());
        txtclient_[i]->setAccessibleName(NameLabels[i]);
        label->setBuddy(txtclient_[i]);
        names->addWidget(label);
        names->addWidget(txtclient_[i]);
        if (i == 0)
            names->addSpacing(GridUnit);
    }
    return names;
}

QLayout* frmClient::MakeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(GridUnit);
    buttons->addStretch(1);
    for (size_t i = 0; i < Lblok_.size(); ++i) {
        Lblok_[i] = Named(new QPushButton(i == 0 ? QStringLiteral("OK") : QStringLiteral("&Cancel")),
                          QStringLiteral("Lblok_%1").arg(i));
        connect(Lblok_[i], &QPushButton::clicked, this, [this, i] { Lblok_Click(static_cast<int>(i)); });
        buttons->addWidget(Lblok_[i]);
    }
    Lblok_[0]->setDefault(true);
    return buttons;
}

void frmClient::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintGradient(*this, painter);
}

void frmClient::Chkpersist_Click() { form_.SetPersist(Chkpersist_->isChecked()); }

void frmClient::Lblok_Click(int index) {
    if (index != 0) {
        reject();
        return;
    }
    form_.Accept(txtclient_[0]->text(), txtclient_[1]->text());
    accept();
}
