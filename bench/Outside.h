#pragma once

#include "platform/FileChooser.h"
#include "platform/Launcher.h"
#include "platform/Navigator.h"
#include "platform/OfficeProbe.h"
#include "platform/Prompts.h"

// Nothing outside the windows is reached while they are measured.
class NoPrompts : public Prompts {
    PromptAnswer Ask(const Prompt&) override { return PromptAnswer::Ok; }
    int Choose(const ChoicePrompt& prompt) override { return prompt.Escape; }
};
class NoChooser : public FileChooser {
    QString OpenFile(const FileQuestion&) override { return {}; }
    QString SaveFile(const FileQuestion&) override { return {}; }
    QString ChooseFolder(const QString&, const QString&) override { return {}; }
};
class NoLauncher : public Launcher {
    Result Open(const QString&, const QString&, WindowState) override { return Result::Done(); }
};
class NoOffice : public OfficeProbe {
    QString QueryRegistryString(RegistryRoot, const QString&, const QString&) const override { return {}; }
};
class NoNavigator : public Navigator {
    void ShowStartScreen() override {}
    bool CloseAllAndShowStartScreen() override { return false; }
    bool BeginLoadedTest() override { return false; }
    bool AskNames(const QString&) override { return false; }
    void ShowGeneralOptions() override {}
    void ShowText(const QString&, const QString&, TextKind) override {}
    void ShowHelp(HelpTopic) override {}
    void ShowAbout() override {}
    bool EditTest() override { return false; }
    bool EditNewTest() override { return false; }
    void ExportHtml() override {}
    void EndProgram() override {}
};
