#include "taker/ui/QuestionWindow.h"

#include "platform/ui/Typography.h"

#include <QResizeEvent>

#include <cmath>

QuestionWindow::QuestionWindow(int leastHeight, QWidget* parent) : QTextEdit(parent), leastHeight_(leastHeight) {
    setReadOnly(true);
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setAccessibleName(QStringLiteral("Question Window"));
    setFont(ScaledFont(1.5));
    document()->setDocumentMargin(GridUnit);
}

void QuestionWindow::ShowQuestion(const QString& text) { ShowText(text, Qt::AlignHCenter, QSizePolicy::Maximum); }

void QuestionWindow::ShowInformation(const QString& text, Qt::Alignment alignment) {
    ShowText(text, alignment, QSizePolicy::Expanding);
}

void QuestionWindow::ShowText(const QString& text, Qt::Alignment alignment, QSizePolicy::Policy height) {
    setSizePolicy(QSizePolicy::Expanding, height);
    document()->setDefaultTextOption(QTextOption(alignment));
    setPlainText(text);
    updateGeometry();
}

QSize QuestionWindow::sizeHint() const {
    const int needed = static_cast<int>(std::ceil(document()->size().height())) + 2 * frameWidth();
    return {60 * GridUnit, qBound(leastHeight_, needed, qMax(leastHeight_, window()->height() * 2 / 5))};
}

QSize QuestionWindow::minimumSizeHint() const { return {30 * GridUnit, qMin(leastHeight_ / 2, 5 * GridUnit)}; }

void QuestionWindow::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        updateGeometry();
}
