#include "export/ui/DialogExcel.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QVBoxLayout>

namespace {

/// A path is one long word: it may be broken behind each of its folders, and where a name is longer than a line.
QString Breakable(const QString& caption) {
    constexpr int longestWord = 40;
    QString breakable;
    int sinceBreak = 0;
    for (const QChar c : caption) {
        breakable += c;
        sinceBreak = c.isSpace() ? 0 : sinceBreak + 1;
        if (c == u'/' || c == u'\\' || (sinceBreak >= longestWord && !c.isHighSurrogate())) {
            breakable += QChar(0x200B);
            sinceBreak = 0;
        }
    }
    return breakable;
}

} // namespace

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
    Label1_->setText(Breakable(caption));
    Label1_->setAccessibleName(caption);
    const int needed = layout()->heightForWidth(width());
    if (needed > height())
        resize(width(), needed);
}
