#pragma once

#include <QBasicTimer>
#include <QDialog>

/// A sheet with rating scales on which the answers wander from mark to mark. Draws one moment of that; who shows it
/// says which.
class AboutPicture : public QWidget {
    Q_OBJECT

  public:
    explicit AboutPicture(QWidget* parent = nullptr);

    /// Goes on by a moment, in seconds of the animation.
    void Advance(double seconds);
    double Moment() const { return moment_; }

    QSize sizeHint() const override { return {448, 192}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void PaintScale(QPainter& painter, const QRectF& line, int scale) const;

    double moment_ = 0;
};

/// Name, version and licence of the program, under an animated picture. The picture stands still when the style asks
/// for no animations, and while the box is hidden.
class AboutBox : public QDialog {
    Q_OBJECT

  public:
    explicit AboutBox(QWidget* parent = nullptr);

    AboutPicture& Picture() { return *picture_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    AboutPicture* picture_;
    QBasicTimer timer_;
};
