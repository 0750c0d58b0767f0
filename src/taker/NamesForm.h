#pragma once

#include "platform/SettingsStore.h"
#include "taker/Session.h"

/// Which of the two names may be entered.
struct NamesAsked {
    bool Client = true;
    bool Administrator = true;
};

/// The names that the test asks for.
NamesAsked NamesAskedBy(const TestDocument& test);

/// What a box holds whose name isn't asked for.
inline const QString DisabledName = QStringLiteral("<Disabled>");

/// Whose administration the client's name is for.
enum class NamesFor { Running, Next };

/// The rules of the names window. Making one is its opening: NamesCancelled is cleared, and so are the names of earlier
/// administrations, unless names are kept from one test to the next; those of the running one stay. A kept client's
/// name is only offered: it counts when the window is answered.
class NamesForm {
  public:
    NamesForm(Session& session, SettingsStore& store, NamesAsked asked, NamesFor administration);

    bool ClientEnabled() const { return asked_.Client; }
    bool AdministratorEnabled() const { return asked_.Administrator; }
    /// What the boxes hold at first.
    QString ClientText() const;
    QString AdministratorText() const;
    bool Persist() const;

    /// Takes effect and is stored at once, whatever button ends the window. Not persisting forgets the stored name.
    void SetPersist(bool persist);
    /// Takes the texts of the enabled boxes as the names.
    void Accept(const QString& clientText, const QString& administratorText);
    void Cancel();

  private:
    Session& session_;
    SettingsStore& store_;
    NamesAsked asked_;
    QString& clientName_;
};
