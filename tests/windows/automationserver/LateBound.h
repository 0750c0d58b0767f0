#pragma once

#include "Journal.h"
#include "Variant.h"

#include <functional>
#include <string>
#include <vector>

/// What a member answers instead of a value: an error number and its description.
struct MemberFailure {
    std::uint16_t Number;
    std::wstring Description;
};

/// The arguments of a call by the places of the member's parameters; left out ones are "missing".
using Arguments = std::vector<Variant>;

/// A value and the text that the record has of it.
struct Answer {
    /// The record has no line of objects that are handed out, only of what is done with them.
    explicit Answer(Variant value);
    Answer(Variant value, std::wstring noted) : Value(std::move(value)), Noted(std::move(noted)) {}

    Variant Value;
    std::wstring Noted;
};

struct Member {
    std::wstring Name;
    std::vector<std::wstring> Parameters;
    /// A method, or the reading of a property.
    std::function<Answer(const Arguments& arguments)> Get;
    /// The writing of a property; answers what the record has of the value.
    std::function<std::wstring(const Arguments& arguments, const Variant& value)> Put;
    bool IsMethod = false;
    bool IsDefault = false;
};

/// An object whose members are found by name while the program runs. Members are called by position or, without regard
/// to case, by parameter name. Every call is noted, and does as ordered.
class LateBound : public IDispatch {
  public:
    /// name is what the record calls it; empty for an application itself.
    LateBound(Journal& journal, std::wstring name) : journal_(journal), name_(std::move(name)) {}
    LateBound(const LateBound&) = delete;
    LateBound& operator=(const LateBound&) = delete;
    virtual ~LateBound() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

  protected:
    void Add(Member member) { members_.push_back(std::move(member)); }
    void AddMethod(const std::wstring& name, const std::vector<std::wstring>& parameters,
                   std::function<void(const Arguments& arguments)> work);
    void AddObject(const std::wstring& name, std::function<IDispatch*()> make);
    Journal& TheJournal() const { return journal_; }

  private:
    const Member* Find(DISPID id) const;
    std::wstring FullName(const Member& member) const;
    void Obey(const std::wstring& called, const std::wstring& noted) const;
    Answer Call(const Member& member, WORD flags, const DISPPARAMS& params);

    Journal& journal_;
    std::wstring name_;
    std::vector<Member> members_;
    ULONG references_ = 1;
};

/// The record's text of an argument or answer: texts quoted, the rest bare.
std::wstring Described(const Variant& value);
