#include "editor/ui/AboutTestTab.h"

#include "platform/ui/Choosing.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QLabel>
#include <QVBoxLayout>

#include <limits>

namespace {

constexpr int LinesOfText = 4;

void AddLabelled(QVBoxLayout* column, const QString& caption, QWidget* box, int stretch) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    box->setAccessibleName(caption.chopped(1));
    column->addWidget(label);
    column->addWidget(box, stretch);
    column->addSpacing(GridUnit);
}

} // namespace

AboutTestTab::AboutTestTab(const EditorParts& parts) : EditorTab(parts) {
    txtTitle_ = Named(new QLineEdit, QStringLiteral("txtTitle"));
    // A line edit would cut what is pasted at its usual length.
    txtTitle_->setMaxLength(std::numeric_limits<int>::max());
    connect(txtTitle_, &QLineEdit::textChanged, this, [this](const QString& text) {
        Test().TestTitle = text;
        Q_EMIT Changed();
    });
    txtIntroduction_ = MakeTextBox(QStringLiteral("txtIntroduction"), &TestDocument::TestIntroduction);
    txtInstructions_ = MakeTextBox(QStringLiteral("txtInstructions"), &TestDocument::TestInstructions);
    txtCompletion_ = MakeTextBox(QStringLiteral("txtCompletion"), &TestDocument::TestCompletionMessage);

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 1);
    AddLabelled(column, QStringLiteral("Title:"), txtTitle_, 0);
    AddLabelled(column, QStringLiteral("Introduction to Test:"), txtIntroduction_, 1);
    AddLabelled(column, QStringLiteral("Test Instructions:"), txtInstructions_, 1);
    AddLabelled(column, QStringLiteral("Test Completion Message:"), txtCompletion_, 1);
}

TextBox* AboutTestTab::MakeTextBox(const QString& name, QString TestDocument::*field) {
    auto* box = Named(new TextBox(TextBox::Form::Paragraphs, LinesOfText), name);
    connect(box, &TextBox::Edited, this, [this, box, field] {
        Test().*field = box->Text();
        Q_EMIT Changed();
    });
    return box;
}

void AboutTestTab::RefreshFromTest() {
    ShowText(*txtTitle_, Test().TestTitle);
    txtIntroduction_->SetText(Test().TestIntroduction);
    txtInstructions_->SetText(Test().TestInstructions);
    txtCompletion_->SetText(Test().TestCompletionMessage);
}

void AboutTestTab::GoTo(const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Introduction:
        return txtIntroduction_->setFocus();
    case TestPlace::Instructions:
        return txtInstructions_->setFocus();
    case TestPlace::CompletionMessage:
        return txtCompletion_->setFocus();
    default:
        return txtTitle_->setFocus();
    }
}
