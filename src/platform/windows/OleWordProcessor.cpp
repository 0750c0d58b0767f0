#include "platform/windows/OleWordProcessor.h"

#include "platform/windows/Automation.h"

namespace {

const QString ApplicationId = QStringLiteral("word.application");
const QString Documents = QStringLiteral("documents");

bool HasDocument(const AutomationObject& application) {
    const AutomationValue count = application.Object(Documents).Get(QStringLiteral("Count"));
    const auto* number = std::get_if<double>(&count);
    return number && *number >= 1;
}

AutomationObject ApplicationWithDocument() {
    if (const auto running = AutomationObject::Running(ApplicationId); running && HasDocument(*running))
        return *running;
    return AutomationObject::Created(ApplicationId);
}

void Show(const AutomationObject& application) { application.Put(QStringLiteral("Visible"), true); }

void Type(const AutomationObject& application, const QString& text) {
    if (!HasDocument(application))
        application.Object(Documents).Call(QStringLiteral("Add"));
    application.Object(QStringLiteral("selection")).Call(QStringLiteral("typetext"), {text});
}

} // namespace

Result OleWordProcessor::TypeText(const QString& text) {
    const ComApartment com;
    try {
        const AutomationObject application = ApplicationWithDocument();
        try {
            Type(application, text);
        } catch (const AutomationError&) {
            // A program that was started and stays out of sight could never be closed by its user.
            Show(application);
            throw;
        }
        Show(application);
    } catch (const AutomationError& failure) {
        return Result::Failed(failure.Message());
    }
    return Result::Done();
}
