#include "app/ui/HelpWindow.h"

#include "app/HelpPages.h"
#include "platform/ui/LinkButton.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window), browser_(new QTextBrowser) {
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("Vellumo Help"));
    browser_->setObjectName(QStringLiteral("HelpBrowser"));
    browser_->setAccessibleName(QStringLiteral("Help page"));
    browser_->document()->setDocumentMargin(3 * GridUnit);
    browser_->setFrameShape(QFrame::NoFrame);
    TakeColours();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(MakeButtons());
    column->addWidget(browser_, 1);
    MakeShortcuts();
    resize(90 * GridUnit, 80 * GridUnit);
    CentreOnScreen(*this);
}

void HelpWindow::ShowTopic(HelpTopic topic) { ShowPage(HelpPageOf(topic)); }

void HelpWindow::ShowIndex() { ShowPage(HelpIndexPage); }

void HelpWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // The page keeps the colours that it was laid out with.
    if (event->type() == QEvent::PaletteChange && !browser_->source().isEmpty()) {
        TakeColours();
        browser_->reload();
    }
}

void HelpWindow::ShowPage(const QString& page) {
    browser_->setSource(QUrl(QStringLiteral("qrc:/help/") + page));
    browser_->setFocus();
}

QLayout* HelpWindow::MakeButtons() {
    contents_ = Named(new QPushButton(QStringLiteral("&Contents")), QStringLiteral("HelpContents"));
    back_ = Named(new QPushButton(QStringLiteral("&Back")), QStringLiteral("HelpBack"));
    forward_ = Named(new QPushButton(QStringLiteral("&Forward")), QStringLiteral("HelpForward"));
    close_ = Named(new QPushButton(QStringLiteral("C&lose")), QStringLiteral("HelpClose"));
    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(contents_, &QPushButton::clicked, this, &HelpWindow::ShowIndex);
    connect(back_, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward_, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    connect(close_, &QPushButton::clicked, this, &QWidget::close);
    connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);

    auto* row = new QHBoxLayout;
    SetRoom(*row, 2, 1);
    row->addWidget(contents_);
    row->addWidget(back_);
    row->addWidget(forward_);
    row->addStretch(1);
    row->addWidget(close_);
    return row;
}

void HelpWindow::MakeShortcuts() {
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, &HelpWindow::ShowIndex);
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, browser_, &QTextBrowser::backward);
    connect(new QShortcut(QKeySequence::Forward, this), &QShortcut::activated, browser_, &QTextBrowser::forward);
}

void HelpWindow::TakeColours() {
    const QString link =
        ReadableLink(palette(), {palette().color(QPalette::Base)}, palette().color(QPalette::Text)).name();
    browser_->document()->setDefaultStyleSheet(
        QStringLiteral("a { color: %1; } h1 { font-size: 20pt; } h2 { font-size: 14pt; margin-top: 16px; }"
                       "p, li, td, th { line-height: 130%; } td, th { padding: 4px 16px 4px 0; }"
                       "th { text-align: left; }")
            .arg(link));
}
