#pragma once

#include <QWidget>

#include <optional>

/// Three pictures side by side, for the mouse: a pencil, a folder and two sliders. The links beneath them say what
/// they do and serve the keyboard.
class PictureMenu : public QWidget {
    Q_OBJECT

  public:
    enum class Region { Editor, Browse, Options };

    explicit PictureMenu(QWidget* parent = nullptr);

    /// The region at that point of the picture, nothing outside of all.
    std::optional<Region> RegionAt(const QPointF& point) const;
    QRectF RectOf(Region region) const;

    /// The width of a picture, and what is between two.
    static constexpr int TileWidth = 96;
    static constexpr int Gap = 16;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  Q_SIGNALS:
    void Picture1_Click(PictureMenu::Region region);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    QRectF TileOf(Region region) const;
    void SetHovered(std::optional<Region> region);

    std::optional<Region> hovered_;
    std::optional<Region> pressed_;
};
