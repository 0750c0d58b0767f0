#pragma once

#include "platform/Navigator.h"

#include <QList>
#include <QStringList>

#include <functional>

/// Notes the calls in their order, by name, with a text argument in parentheses: "ShowStartScreen",
/// "AskNames(Enter Your Name)", "ShowText(Report)", "ShowHelp(ReportEditor)". What it answers is set by the test.
class RecordingNavigator : public Navigator {
  public:
    void ShowStartScreen() override { Note(QStringLiteral("ShowStartScreen")); }
    bool CloseAllAndShowStartScreen() override;
    bool BeginLoadedTest() override;
    bool AskNames(const QString& caption) override;
    void ShowGeneralOptions() override { Note(QStringLiteral("ShowGeneralOptions")); }
    void ShowText(const QString& text, const QString& caption, TextKind kind) override;
    void ShowHelp(HelpTopic topic) override;
    void ShowAbout() override { Note(QStringLiteral("ShowAbout")); }
    bool EditTest() override;
    bool EditNewTest() override;
    void ExportHtml() override { Note(QStringLiteral("ExportHtml")); }
    void EndProgram() override { Note(QStringLiteral("EndProgram")); }

    static QString NameOf(HelpTopic topic);

    QStringList Calls;
    /// The texts given to ShowText, one for each of its calls.
    QStringList ShownTexts;
    TextKind LastKind = TextKind::Reading;

    bool CloseAllAnswer = true;
    bool BeginAnswer = true;
    bool AskNamesAnswer = true;
    bool EditAnswer = true;
    /// Runs within the call of that name, as the other window would.
    std::function<void(const QString& call)> Meanwhile;

  private:
    void Note(const QString& call);
};
