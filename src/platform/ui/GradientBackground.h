#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

struct GradientColours {
    QColor Top;
    QColor Bottom;
};

/// The background's colours, made from the palette's window and highlight colours and so light or dark as the theme
/// is. The window text stands out from both at least 4.5 to 1, wherever it does so from the plain window colour.
GradientColours GradientColoursOf(const QPalette& palette);

/// How far two colours stand apart, from 1 (alike) to 21 (black and white), as WCAG 2.1 defines the contrast ratio.
double ContrastRatio(const QColor& one, const QColor& other);

/// Fills the widget with the vertical gradient; to be called from its paintEvent.
void PaintGradient(const QWidget& widget, QPainter& painter);

/// A plain container with the gradient behind its children.
class GradientBackground : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent* event) override;
};
