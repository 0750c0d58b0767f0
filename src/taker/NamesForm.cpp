#include "taker/NamesForm.h"

NamesAsked NamesAskedBy(const TestDocument& test) {
    return {test.TestOption(PromptClientName), test.TestOption(PromptTesterName)};
}

NamesForm::NamesForm(Session& session, SettingsStore& store, NamesAsked asked, NamesFor administration)
    : session_(session),
      store_(store),
      asked_(asked),
      clientName_(administration == NamesFor::Running ? session.ClientName : session.NextClientName) {
    session_.NamesCancelled = false;
    if (Persist())
        return;
    session_.KeptClientName.clear();
    // Whoever administers the running test is nobody of an earlier one.
    if (administration == NamesFor::Next)
        session_.AdministratorName.clear();
}

QString NamesForm::ClientText() const {
    if (!asked_.Client)
        return DisabledName;
    return clientName_.isEmpty() ? session_.KeptClientName : clientName_;
}

QString NamesForm::AdministratorText() const {
    return asked_.Administrator ? session_.AdministratorName : DisabledName;
}

bool NamesForm::Persist() const { return session_.UserSettings.NamePersist; }

void NamesForm::SetPersist(bool persist) {
    session_.UserSettings.NamePersist = persist;
    store_.Write(NamePersistKey, SettingText(persist));
    if (persist)
        return;
    // Otherwise saving the general options later would bring the stored name back.
    session_.UserSettings.AdministratorName.clear();
    store_.Write(AdministratorNameKey, QString());
}

void NamesForm::Accept(const QString& clientText, const QString& administratorText) {
    if (asked_.Client) {
        clientName_ = clientText;
        session_.KeptClientName = Persist() ? clientText : QString();
    }
    if (asked_.Administrator)
        session_.AdministratorName = administratorText;
    if (!Persist())
        return;
    session_.UserSettings.AdministratorName = session_.AdministratorName;
    store_.Write(AdministratorNameKey, session_.AdministratorName);
}

void NamesForm::Cancel() { session_.NamesCancelled = true; }
