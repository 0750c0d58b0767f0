#pragma once

#include "LateBound.h"

/// What both applications have in common. One that was made by automation and never shown ends with its last
/// reference; a shown one stays until it is told to quit. The process ends with it.
class Application : public LateBound {
  public:
    Application(Journal& journal, const CLSID& clsid) : LateBound(journal, {}), clsid_(clsid) {
        AddVisibility(L"Visible");
        AddVisibility(L"UserControl");
        AddMethod(L"Quit", {}, [this](const Arguments&) { Quit(); });
    }
    ~Application() override;

    /// Puts the application into the table of running ones; false when that fails.
    bool Announce();
    /// Shows it, as one that its user has started.
    void OpenByUser();

  protected:
    /// Whether quitting would lose something; the record is told.
    virtual bool HasUnsavedChanges() const { return false; }

  private:
    void AddVisibility(const std::wstring& name);
    void Show(bool shown);
    void Quit();

    CLSID clsid_;
    DWORD announced_ = 0;
    bool shown_ = false;
};
