#include "editor/ui/TextBox.h"

#include "base/LineBreak.h"
#include "platform/ui/FocusOutline.h"
#include "platform/ui/Typography.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextDocument>

TextBox::TextBox(Form form, int visibleLines, QWidget* parent) : QPlainTextEdit(parent), form_(form) {
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    const int frame = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    setMinimumHeight(fontMetrics().lineSpacing() * visibleLines + frame);
    new FocusOutline(*this);
    connect(this, &QPlainTextEdit::textChanged, this, &TextBox::Edited);
}

QString TextBox::Text() const {
    // Not toPlainText, which turns non-breaking spaces into others.
    return document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, LineBreak)
        .replace(QChar::LineSeparator, LineBreak);
}

void TextBox::SetText(const QString& text) {
    const QSignalBlocker quiet(this);
    setPlainText(text);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (form_ == Form::OneParagraph && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        focusNextChild();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}
