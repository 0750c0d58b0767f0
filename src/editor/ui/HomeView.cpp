#include "editor/ui/HomeView.h"

#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace {

/// A page of text, in the palette's colours.
QIcon PageIcon(const QPalette& palette, int size) {
    QPixmap picture(2 * size, 2 * size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(2 * size / 32.0, 2 * size / 32.0);
    painter.setPen(QPen(palette.color(QPalette::ButtonText), 1.5));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRoundedRect(QRectF(4, 2, 24, 28), 2, 2);
    painter.setPen(QPen(palette.color(QPalette::Highlight), 3));
    painter.drawLine(QPointF(9, 9), QPointF(23, 9));
    painter.setPen(QPen(palette.color(QPalette::ButtonText), 1.5));
    for (const double y : {15.0, 19.0, 23.0})
        painter.drawLine(QPointF(9, y), QPointF(23, y));
    return QIcon(picture);
}

} // namespace

HomeView::HomeView() {
    lblinstructions_ = Named(new QLabel, QStringLiteral("lblinstructions"));
    lblinstructions_->setTextFormat(Qt::PlainText);
    lblinstructions_->setWordWrap(true);
    lblinstructions_->setFont(BodyFont());
    lblinstructions_->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    constexpr int iconSize = 4 * GridUnit;
    Frame23_ = Named(new QFrame, QStringLiteral("Frame23"));
    Frame23_->setFrameShape(QFrame::StyledPanel);
    Picture2_ = Named(new QToolButton, QStringLiteral("Picture2"));
    Picture2_->setAutoRaise(true);
    Picture2_->setIcon(PageIcon(palette(), iconSize));
    Picture2_->setIconSize({iconSize, iconSize});
    Picture2_->setFocusPolicy(Qt::NoFocus);
    Picture2_->setAccessibleName(QStringLiteral("Save Test As WWW Page"));
    Label10_ = Named(new LinkButton(QStringLiteral("Save Test As WWW Page")), QStringLiteral("Label10"));
    connect(Picture2_, &QToolButton::clicked, this, &HomeView::ExportHtmlWanted);
    connect(Label10_, &QPushButton::clicked, this, &HomeView::ExportHtmlWanted);

    auto* row = new QHBoxLayout(Frame23_);
    SetRoom(*row, 1, 1);
    row->addWidget(Picture2_);
    row->addWidget(Label10_);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    SetRoom(*column, 4, 3);
    column->addWidget(lblinstructions_);
    column->addWidget(Frame23_, 0, Qt::AlignLeft);
    column->addStretch(1);
    auto* whole = new QVBoxLayout(this);
    SetRoom(*whole, 0, 0);
    whole->addWidget(new ScrollingPage(content));
}

void HomeView::Show(const QString& message, bool withTest) {
    lblinstructions_->setText(message);
    Frame23_->setVisible(withTest);
}
