#pragma once

#include <QPlainTextEdit>

/// A box for a text that wraps. Tab leaves it.
class TextBox : public QPlainTextEdit {
    Q_OBJECT

  public:
    /// In a box of Paragraphs Return begins a new line; in one of OneParagraph, whose line breaks a test file would
    /// lose, it goes on to the next control. A pasted line break stays in either.
    enum class Form { Paragraphs, OneParagraph };
    explicit TextBox(Form form, int visibleLines, QWidget* parent = nullptr);

    /// The text to the letter, its lines joined by CR LF.
    QString Text() const;
    /// Shows the text, without the signal that it was edited; the cursor stands at its begin.
    void SetText(const QString& text);

  Q_SIGNALS:
    /// The person changed the text.
    void Edited();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Form form_;
};
