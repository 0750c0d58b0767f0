#include "Application.h"

Application::~Application() {
    if (announced_)
        RevokeActiveObject(announced_, nullptr);
    TheJournal().Note(L"end");
    PostQuitMessage(0);
}

bool Application::Announce() { return SUCCEEDED(RegisterActiveObject(this, clsid_, ACTIVEOBJECT_WEAK, &announced_)); }

void Application::OpenByUser() { Show(true); }

void Application::AddVisibility(const std::wstring& name) {
    Member member;
    member.Name = name;
    member.Get = [this](const Arguments&) { return Answer(Variant::Boolean(shown_)); };
    member.Put = [this](const Arguments&, const Variant& value) {
        Show(value.AsBoolean());
        return Described(Variant::Boolean(shown_));
    };
    Add(std::move(member));
}

void Application::Show(bool shown) {
    if (shown != shown_)
        CoLockObjectExternal(this, shown, TRUE);
    shown_ = shown;
}

void Application::Quit() {
    if (HasUnsavedChanges())
        TheJournal().Note(L"asks whether to save changes");
    if (announced_)
        RevokeActiveObject(announced_, nullptr);
    announced_ = 0;
    Show(false);
}
