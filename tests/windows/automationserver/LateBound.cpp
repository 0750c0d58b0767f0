#include "LateBound.h"

#include "Text.h"

namespace {

/// What a member throws for a call that is told to fail with its number in wCode.
struct CodedFailure : MemberFailure {};

bool Writes(WORD flags) { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }

Arguments ArgumentsOf(const Member& member, WORD flags, const DISPPARAMS& params) {
    const UINT first = Writes(flags) ? 1 : 0;
    if (Writes(flags) && (params.cNamedArgs < 1 || params.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        throw DISP_E_PARAMNOTOPTIONAL;
    if (params.cArgs < params.cNamedArgs || params.cArgs - first > member.Parameters.size())
        throw DISP_E_BADPARAMCOUNT;
    Arguments arguments;
    for (std::size_t i = 0; i < member.Parameters.size(); ++i)
        arguments.push_back(Variant::Error(DISP_E_PARAMNOTFOUND));
    for (UINT i = params.cNamedArgs; i < params.cArgs; ++i)
        arguments[params.cArgs - 1 - i] = Variant(params.rgvarg[i]);
    for (UINT i = first; i < params.cNamedArgs; ++i) {
        const auto place = static_cast<std::size_t>(params.rgdispidNamedArgs[i]);
        if (place >= arguments.size())
            throw DISP_E_PARAMNOTFOUND;
        arguments[place] = Variant(params.rgvarg[i]);
    }
    for (const Variant& argument : arguments)
        if (argument.Missing())
            throw DISP_E_PARAMNOTOPTIONAL;
    return arguments;
}

/// The call's own text: a method's arguments behind it, those by name with the parameter's name; a property's in
/// brackets.
std::wstring Noted(const std::wstring& name, const Member& member, const Arguments& arguments,
                   const DISPPARAMS& params) {
    std::wstring text;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        bool byName = false;
        for (UINT n = 0; n < params.cNamedArgs; ++n)
            byName = byName || params.rgdispidNamedArgs[n] == static_cast<DISPID>(i);
        text += i > 0 ? L"," : L"";
        text += (byName ? member.Parameters[i] + L'=' : L"") + Described(arguments[i]);
    }
    if (text.empty())
        return name;
    return member.IsMethod ? name + L' ' + text : name + L'(' + text + L')';
}

void Tell(EXCEPINFO* exception, const MemberFailure& failure, bool inCode) {
    if (!exception)
        return;
    *exception = {};
    exception->wCode = inCode ? failure.Number : WORD(0);
    exception->scode = inCode ? 0 : static_cast<SCODE>(0x800A0000U + failure.Number);
    exception->bstrSource = SysAllocString(L"Vellumo's automation server");
    exception->bstrDescription = SysAllocStringLen(failure.Description.data(), UINT(failure.Description.size()));
}

std::wstring FailureText(const MemberFailure& failure) {
    return L" ! " + std::to_wstring(failure.Number) + L' ' + Escaped(failure.Description);
}

} // namespace

std::wstring Described(const Variant& value) {
    switch (value.Type()) {
    case VT_EMPTY:
        return L"empty";
    case VT_BOOL:
        return value.AsBoolean() ? L"true" : L"false";
    case VT_BSTR:
        return Quoted(value.AsText());
    case VT_DISPATCH:
        return {};
    case VT_ERROR:
        return L"error";
    default:
        return NumberText(value.AsNumber());
    }
}

Answer::Answer(Variant value) : Value(std::move(value)), Noted(Described(Value)) {}

HRESULT LateBound::QueryInterface(REFIID iid, void** object) {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG LateBound::Release() {
    const ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT LateBound::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT LateBound::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT LateBound::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    HRESULT result = S_OK;
    const Member* member = nullptr;
    for (std::size_t i = 0; i < members_.size(); ++i)
        if (SameName(members_[i].Name, names[0])) {
            member = &members_[i];
            ids[0] = member->IsDefault ? DISPID_VALUE : static_cast<DISPID>(i + 1);
        }
    if (!member) {
        ids[0] = DISPID_UNKNOWN;
        result = DISP_E_UNKNOWNNAME;
    }
    for (UINT i = 1; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
        for (std::size_t p = 0; member && p < member->Parameters.size(); ++p)
            if (SameName(member->Parameters[p], names[i]))
                ids[i] = static_cast<DISPID>(p);
        if (ids[i] == DISPID_UNKNOWN)
            result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

HRESULT LateBound::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                          EXCEPINFO* exception, UINT*) {
    static int answered = 0;
    const Member* member = Find(id);
    if (!member)
        return DISP_E_MEMBERNOTFOUND;
    if (const auto [calls, code] = journal_.Answers(); answered < calls) {
        ++answered;
        journal_.Note(L"answered " + FullName(*member));
        return code;
    }
    // A member may be the last thing that is done with the object.
    AddRef();
    HRESULT outcome = S_OK;
    try {
        Answer answer = Call(*member, flags, *params);
        if (result)
            answer.Value.MoveTo(*result);
    } catch (const CodedFailure& failure) {
        Tell(exception, failure, true);
        outcome = DISP_E_EXCEPTION;
    } catch (const MemberFailure& failure) {
        Tell(exception, failure, false);
        outcome = DISP_E_EXCEPTION;
    } catch (HRESULT failed) {
        journal_.Note(L"misused " + FullName(*member) + L' ' + std::to_wstring(failed));
        outcome = failed;
    }
    Release();
    return outcome;
}

void LateBound::AddMethod(const std::wstring& name, const std::vector<std::wstring>& parameters,
                          std::function<void(const Arguments& arguments)> work) {
    Member member;
    member.Name = name;
    member.Parameters = parameters;
    member.IsMethod = true;
    member.Get = [work](const Arguments& arguments) {
        work(arguments);
        return Answer(Variant(), {});
    };
    Add(std::move(member));
}

void LateBound::AddObject(const std::wstring& name, std::function<IDispatch*()> make) {
    Member member;
    member.Name = name;
    member.Get = [make](const Arguments&) { return Answer(Variant::Object(make())); };
    Add(std::move(member));
}

const Member* LateBound::Find(DISPID id) const {
    for (std::size_t i = 0; i < members_.size(); ++i)
        if (id == (members_[i].IsDefault ? DISPID_VALUE : static_cast<DISPID>(i + 1)))
            return &members_[i];
    return nullptr;
}

std::wstring LateBound::FullName(const Member& member) const {
    if (member.IsDefault)
        return name_;
    return name_.empty() ? member.Name : name_ + L'.' + member.Name;
}

void LateBound::Obey(const std::wstring& called, const std::wstring& noted) const {
    const Order order = journal_.OrderFor(called);
    switch (order.What) {
    case Order::Kind::Work:
        return;
    case Order::Kind::Vanish:
        journal_.Note(noted + L" ! vanished");
        TerminateProcess(GetCurrentProcess(), 1);
        return;
    case Order::Kind::Fail:
        throw MemberFailure{order.Number, order.Description};
    case Order::Kind::FailWithCode:
        throw CodedFailure{{order.Number, order.Description}};
    }
}

Answer LateBound::Call(const Member& member, WORD flags, const DISPPARAMS& params) {
    const bool writes = Writes(flags);
    const WORD reading = member.IsMethod ? DISPATCH_METHOD : DISPATCH_PROPERTYGET;
    if (writes ? !member.Put : !member.Get || !(flags & reading))
        throw DISP_E_MEMBERNOTFOUND;
    const Arguments arguments = ArgumentsOf(member, flags, params);
    std::wstring line = Noted(FullName(member), member, arguments, params);
    try {
        // The order's name of a cell is that of all of them.
        const std::wstring called = FullName(member).substr(0, FullName(member).find(L'('));
        if (writes) {
            const Variant value(params.rgvarg[0]);
            line += L" = ";
            Obey(called + L'=', line + Described(value));
            const std::wstring taken = member.Put(arguments, value);
            journal_.Note(line + taken);
            return Answer(Variant(), {});
        }
        Obey(called, line);
        Answer answer = member.Get(arguments);
        if (member.IsMethod)
            journal_.Note(line);
        else if (!answer.Noted.empty())
            journal_.Note(line + L" ? " + answer.Noted);
        return answer;
    } catch (const MemberFailure& failure) {
        journal_.Note(line + (writes ? Described(Variant(params.rgvarg[0])) : L"") + FailureText(failure));
        throw;
    }
}
