#include "support/ScriptedFileChooser.h"

ScriptedFileChooser::~ScriptedFileChooser() { Verify(); }

void ScriptedFileChooser::ExpectOpen(const QString& answer, std::source_location where) {
    script_.push_back({Kind::Open, answer, where});
}

void ScriptedFileChooser::ExpectSave(const QString& answer, std::source_location where) {
    script_.push_back({Kind::Save, answer, where});
}

void ScriptedFileChooser::ExpectFolder(const QString& answer, std::source_location where) {
    script_.push_back({Kind::Folder, answer, where});
}

QString ScriptedFileChooser::OpenFile(const FileQuestion& question) { return Next(Kind::Open, question); }

QString ScriptedFileChooser::SaveFile(const FileQuestion& question) { return Next(Kind::Save, question); }

QString ScriptedFileChooser::ChooseFolder(const QString& title, const QString& start) {
    return Next(Kind::Folder, {title, {}, start, {}});
}

void ScriptedFileChooser::Verify() {
    for (const Step& step : script_)
        fail_(QStringLiteral("An expected %1 dialog never came").arg(NameOf(step.What)), step.Where);
    script_.clear();
}

QString ScriptedFileChooser::NameOf(Kind kind) {
    switch (kind) {
    case Kind::Open:
        return QStringLiteral("open");
    case Kind::Save:
        return QStringLiteral("save");
    case Kind::Folder:
        return QStringLiteral("folder");
    }
    return {};
}

QString ScriptedFileChooser::Next(Kind kind, const FileQuestion& question) {
    questions_.append(question);
    if (script_.empty()) {
        fail_(QStringLiteral("An unexpected %1 dialog came").arg(NameOf(kind)), std::source_location::current());
        return {};
    }
    const Step step = script_.front();
    script_.pop_front();
    if (step.What != kind) {
        fail_(QStringLiteral("A dialog of kind \"%1\" came instead of \"%2\"").arg(NameOf(kind), NameOf(step.What)),
              step.Where);
        return {};
    }
    return step.Answer;
}
