#include "editor/ui/FindingsLine.h"

#include "editor/FindingsText.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int MostRowsShown = 12;
constexpr int IconSize = 2 * GridUnit;

/// The window's text, nearer to its background, yet with enough contrast to be read.
QColor Muted(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    const auto between = [](int one, int other) { return (3 * one + other) / 4; };
    return {between(text.red(), window.red()), between(text.green(), window.green()),
            between(text.blue(), window.blue())};
}

QIcon IconOf(const QStyle& style, Severity level) {
    return style.standardIcon(level == Severity::Error ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning);
}

} // namespace

void SummaryButton::ShowSummary(const QString& summary, Tone tone) {
    tone_ = tone;
    // An ampersand in a finding is a letter, and no shortcut.
    setText(QString(summary).replace(u'&', QStringLiteral("&&")));
    setAccessibleName(summary);
    setToolTip(tone == Tone::Quiet ? QString() : summary.toHtmlEscaped());
    setCursor(tone == Tone::Quiet ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

QSize SummaryButton::sizeHint() const { return {60 * GridUnit, fontMetrics().height() + GridUnit}; }

QSize SummaryButton::minimumSizeHint() const { return {12 * GridUnit, sizeHint().height()}; }

void SummaryButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect room = rect().adjusted(GridUnit, 0, -GridUnit, 0);
    if (tone_ != Tone::Quiet) {
        const QIcon icon = IconOf(*style(), tone_ == Tone::Error ? Severity::Error : Severity::Warning);
        const QRect place(layoutDirection() == Qt::RightToLeft ? room.right() - IconSize : room.left(),
                          room.center().y() - IconSize / 2 + 1, IconSize, IconSize);
        icon.paint(&painter, place);
        room.adjust(layoutDirection() == Qt::RightToLeft ? 0 : IconSize + GridUnit / 2, 0,
                    layoutDirection() == Qt::RightToLeft ? -IconSize - GridUnit / 2 : 0, 0);
    }
    QFont lined = font();
    lined.setUnderline(underMouse() && tone_ != Tone::Quiet);
    painter.setFont(lined);
    painter.setPen(tone_ == Tone::Quiet ? Muted(palette()) : palette().color(QPalette::WindowText));
    painter.drawText(room, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeading),
                     fontMetrics().elidedText(accessibleName(), Qt::ElideRight, room.width()));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
}

FindingsLine::FindingsLine(QWidget* parent)
    : QWidget(parent),
      Summary_(Named(new SummaryButton, QStringLiteral("FindingsSummary"))),
      Length_(Named(new QLabel, QStringLiteral("FindingsLength"))) {
    Summary_->setAttribute(Qt::WA_Hover);
    Summary_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Return presses it as Space does, and no default button of the window instead.
    Summary_->setAutoDefault(true);
    Length_->setAccessibleDescription(QStringLiteral("Length of the test"));
    // Room for any length from the start, so that nothing moves while a person types.
    QFont widest = Length_->font();
    widest.setBold(true);
    Length_->setMinimumWidth(QFontMetrics(widest).horizontalAdvance(LengthUsedText(888'888)));
    Length_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);

    auto* line = new QHBoxLayout(this);
    SetRoom(*line, 0, 2);
    line->addWidget(Summary_, 1);
    line->addWidget(Length_);
    connect(Summary_, &QPushButton::clicked, this, &FindingsLine::Summary_Click);
    Show({}, 0);
}

void FindingsLine::Show(const std::vector<Finding>& findings, int lengthUsed) {
    findings_ = ErrorsFirst(findings);
    Summary_->ShowSummary(FindingsSummary(findings_), findings_.empty() ? SummaryButton::Tone::Quiet
                                                      : findings_.front().Level == Severity::Error
                                                          ? SummaryButton::Tone::Error
                                                          : SummaryButton::Tone::Warning);
    Summary_->setAccessibleDescription(findings_.empty()       ? QStringLiteral("A check of the test finds nothing")
                                       : findings_.size() == 1 ? QStringLiteral("Goes to what the check found")
                                                               : QStringLiteral("Lists what the check found"));
    Length_->setText(LengthUsedText(lengthUsed));
    QFont font = this->font();
    font.setBold(lengthUsed > MaxTestFileLength);
    Length_->setFont(font);
}

void FindingsLine::Summary_Click() {
    if (findings_.size() == 1)
        Q_EMIT Chosen(findings_.front().Place);
    else if (!findings_.empty())
        OpenList();
}

void FindingsLine::OpenList() {
    auto* popup = Named(new QFrame(this, Qt::Popup), QStringLiteral("FindingsPopup"));
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    auto* list = Named(new QListWidget, QStringLiteral("FindingsList"));
    list->setAccessibleName(QStringLiteral("Findings"));
    list->setFrameShape(QFrame::NoFrame);
    list->setWordWrap(true);
    list->setTextElideMode(Qt::ElideNone);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setIconSize({IconSize, IconSize});
    list->setSpacing(1);
    for (const Finding& finding : findings_) {
        auto* item = new QListWidgetItem(IconOf(*style(), finding.Level), FindingLine(finding), list);
        item->setData(Qt::AccessibleTextRole,
                      (finding.Level == Severity::Error ? QStringLiteral("Error: ") : QStringLiteral("Warning: ")) +
                          FindingLine(finding));
        item->setData(Qt::UserRole, QVariant::fromValue(finding.Place));
    }
    list->setCurrentRow(0);
    auto* layout = new QVBoxLayout(popup);
    SetRoom(*layout, 0, 0);
    layout->addWidget(list);
    // Return reaches a list as "activated", a click does so only where the desktop's single click activates.
    connect(list, &QListWidget::itemActivated, popup,
            [this, popup](QListWidgetItem* item) { Item_Chosen(*item, *popup); });
    connect(list, &QListWidget::itemClicked, popup,
            [this, popup](QListWidgetItem* item) { Item_Chosen(*item, *popup); });

    PlaceList(*popup, *list);
    popup->show();
    list->setFocus(Qt::PopupFocusReason);
}

void FindingsLine::Item_Chosen(const QListWidgetItem& item, QWidget& popup) {
    // Both signals may come for one click.
    if (!popup.isVisible())
        return;
    const auto place = item.data(Qt::UserRole).value<TestPlace>();
    popup.close();
    Q_EMIT Chosen(place);
}

/// As wide as this line, no higher than its rows need, below this line or, where the screen ends, above it.
void FindingsLine::PlaceList(QWidget& popup, const QListWidget& list) {
    popup.setFixedWidth(std::max(width(), 40 * GridUnit));
    popup.ensurePolished();
    popup.layout()->activate();
    int height = 2 * GridUnit;
    for (int row = 0; row < std::min(list.count(), MostRowsShown); ++row)
        height += list.sizeHintForRow(row) + 2 * list.spacing();
    const QRect free = screen()->availableGeometry();
    const QPoint below = mapToGlobal(QPoint(0, this->height()));
    const QPoint above = mapToGlobal(QPoint(0, 0));
    const int roomBelow = free.bottom() - below.y();
    const int roomAbove = above.y() - free.top();
    const bool goesBelow = roomBelow >= height || roomBelow >= roomAbove;
    height = std::min(height, goesBelow ? roomBelow : roomAbove);
    popup.setFixedHeight(height);
    popup.move(std::clamp(below.x(), free.left(), std::max(free.left(), free.right() - popup.width())),
               goesBelow ? below.y() : above.y() - height);
}
