#include "export/ui/DialogExcel.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QVBoxLayout>

DialogExcel::DialogExcel(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("DialogExcel"));
    setWindowTitle(QStringLiteral("Please Wait"));
    setModal(true);
    setCursor(Qt::WaitCursor);

    Label1_ = Named(new QLabel, QStringLiteral("Label1"));
    Label1_->setFont(BodyFont());
    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setWordWrap(true);
    Label1_->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 3, 1);
    column->addWidget(Label1_);
    resize(56 * GridUnit, 14 * GridUnit);
    CentreOnScreen(*this);
}

void DialogExcel::SetCaption(const QString& caption) {
    // A path is one long word: it may be broken behind each of its folders.
    QString breakable = caption;
    breakable.replace(u'/', QStringLiteral("/\u200B")).replace(u'\\', QStringLiteral("\\\u200B"));
    Label1_->setText(breakable);
    Label1_->setAccessibleName(caption);
    const int needed = layout()->heightForWidth(width());
    if (needed > height())
        resize(width(), needed);
}
