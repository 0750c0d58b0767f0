#pragma once

#include <QList>
#include <QPushButton>

/// The palette's link colour where it can be read on all of these backgrounds, otherwise the other colour.
QColor ReadableLink(const QPalette& palette, const QList<QColor>& backgrounds, const QColor& otherwise);

/// A button in the look of a link, for the gradient background: reached and pressed with the keyboard as any button.
class LinkButton : public QPushButton {
    Q_OBJECT

  public:
    explicit LinkButton(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};
