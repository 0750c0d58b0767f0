#include "platform/windows/Automation.h"

#include <QElapsedTimer>
#include <QThread>

#include <cmath>
#include <limits>
#include <vector>

#include <windows.h>

#include <oleauto.h>

namespace {

/// Members are asked for, and texts and numbers understood, in this language, whatever the user's is: an application
/// always knows it, and reads a text in the same way on every machine.
constexpr LCID EnglishUnitedStates = 0x0409;

constexpr int PatienceMilliseconds = 10'000;
constexpr unsigned long PauseMilliseconds = 100;

/// The first day that automation dates count from.
const QDate DayZero(1899, 12, 30);

/// HRESULTs of this form carry an application's own number in their lower half.
constexpr HRESULT WithNumber = static_cast<HRESULT>(0x800A0000);

QString TextOf(BSTR text) {
    return text ? QString(reinterpret_cast<const QChar*>(text), static_cast<qsizetype>(SysStringLen(text))) : QString();
}

/// A VARIANT that owns what it holds. It adds no members, so that an array of them is one of VARIANTs.
class Variant : public VARIANT {
  public:
    Variant() { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    /// Takes a value, when it holds nothing yet. Objects aren't handed over.
    void Take(const AutomationValue& value);
    AutomationValue Value() const;

  private:
    std::optional<double> Number() const;
};
static_assert(sizeof(Variant) == sizeof(VARIANT));

void Variant::Take(const AutomationValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) {
        vt = VT_BOOL;
        boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const auto* number = std::get_if<double>(&value)) {
        // Rows and columns are whole numbers to their applications.
        const bool whole = *number == std::floor(*number) && std::abs(*number) <= std::numeric_limits<LONG>::max();
        vt = whole ? VT_I4 : VT_R8;
        if (whole)
            lVal = static_cast<LONG>(*number);
        else
            dblVal = *number;
    } else if (const auto* text = std::get_if<QString>(&value)) {
        vt = VT_BSTR;
        bstrVal = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text->utf16()), static_cast<UINT>(text->size()));
    } else if (const auto* day = std::get_if<QDate>(&value)) {
        vt = VT_DATE;
        date = static_cast<DATE>(DayZero.daysTo(*day));
    }
}

std::optional<double> Variant::Number() const {
    Variant number;
    switch (vt) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
        if (SUCCEEDED(VariantChangeTypeEx(&number, const_cast<Variant*>(this), EnglishUnitedStates, 0, VT_R8)))
            return number.dblVal;
    }
    return std::nullopt;
}

AutomationValue Variant::Value() const {
    if (const auto number = Number())
        return *number;
    switch (vt) {
    case VT_BSTR:
        return TextOf(bstrVal);
    case VT_BOOL:
        return boolVal != VARIANT_FALSE;
    case VT_DATE:
        return DayZero.addDays(static_cast<qint64>(std::floor(date)));
    case VT_ERROR:
        // What a cell holds whose formula can't be calculated.
        return QStringLiteral("#ERROR");
    case VT_DISPATCH:
        if (pdispVal) {
            pdispVal->AddRef();
            return AutomationObject(pdispVal);
        }
    }
    return {};
}

int NumberOf(HRESULT result) {
    if (result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) || result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED))
        return ServerGone;
    if ((result & static_cast<HRESULT>(0xFFFF0000)) == WithNumber)
        return result & 0xFFFF;
    return static_cast<int>(result);
}

[[noreturn]] void Fail(HRESULT result) { throw AutomationError(NumberOf(result), qt_error_string(result)); }

[[noreturn]] void Fail(EXCEPINFO& details) {
    if (details.pfnDeferredFillIn)
        details.pfnDeferredFillIn(&details);
    const int number = details.wCode != 0 ? details.wCode : NumberOf(details.scode);
    QString description = TextOf(details.bstrDescription);
    if (description.isEmpty())
        description = details.wCode != 0 ? QStringLiteral("Error %1").arg(number) : qt_error_string(details.scode);
    SysFreeString(details.bstrSource);
    SysFreeString(details.bstrDescription);
    SysFreeString(details.bstrHelpFile);
    throw AutomationError(number, description);
}

/// What the spreadsheet application's members answer while its user types into a cell.
constexpr HRESULT UserIsTyping = static_cast<HRESULT>(0x800AC472);

/// An application refuses calls while its user is in the middle of something.
bool IsBusy(HRESULT result) {
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER || result == UserIsTyping;
}

template <typename Step> HRESULT Patiently(Step step) {
    QElapsedTimer waited;
    waited.start();
    HRESULT result = step();
    while (IsBusy(result) && waited.elapsed() < PatienceMilliseconds) {
        QThread::msleep(PauseMilliseconds);
        result = step();
    }
    return result;
}

CLSID ClassOf(const QString& programId) {
    CLSID id;
    if (const HRESULT found = CLSIDFromProgID(reinterpret_cast<const wchar_t*>(programId.utf16()), &id); FAILED(found))
        Fail(found);
    return id;
}

/// The numbers of a member and of its named arguments.
std::vector<DISPID> NumbersOf(IDispatch* object, const QString& member,
                              const QList<AutomationObject::NamedArgument>& named) {
    std::vector<QString> names{member};
    for (const auto& argument : named)
        names.push_back(argument.Name);
    std::vector<wchar_t*> letters;
    for (QString& name : names)
        letters.push_back(reinterpret_cast<wchar_t*>(name.data()));
    std::vector<DISPID> numbers(names.size());
    const HRESULT found = Patiently([&] {
        return object->GetIDsOfNames(IID_NULL, letters.data(), static_cast<UINT>(letters.size()), EnglishUnitedStates,
                                     numbers.data());
    });
    if (FAILED(found))
        throw AutomationError(NumberOf(found), QStringLiteral("'%1': ").arg(member) + qt_error_string(found));
    return numbers;
}

/// Calls a member by its number. Arguments stand from the last to the first, behind the named ones, as COM wants them.
AutomationValue Invoke(IDispatch* object, DISPID member, WORD kind, const std::vector<const AutomationValue*>& values,
                       std::vector<DISPID> named) {
    std::vector<Variant> arguments(values.size());
    for (size_t i = 0; i < values.size(); ++i)
        arguments[i].Take(*values[i]);
    DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(named.size())};
    Variant answer;
    EXCEPINFO details{};
    const HRESULT done = Patiently([&] {
        return object->Invoke(member, IID_NULL, EnglishUnitedStates, kind, &parameters,
                              kind == DISPATCH_PROPERTYPUT ? nullptr : &answer, &details, nullptr);
    });
    if (done == DISP_E_EXCEPTION)
        Fail(details);
    if (FAILED(done))
        Fail(done);
    return answer.Value();
}

std::vector<const AutomationValue*> Backwards(const QList<AutomationValue>& arguments) {
    std::vector<const AutomationValue*> values;
    for (auto argument = arguments.crbegin(); argument != arguments.crend(); ++argument)
        values.push_back(&*argument);
    return values;
}

constexpr WORD GetOrCall = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

} // namespace

// A thread that Qt or a caller made ready in another way is used as it is.
ComApartment::ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ComApartment::~ComApartment() {
    if (entered_)
        CoUninitialize();
}

std::optional<AutomationObject> AutomationObject::Running(const QString& programId) {
    IUnknown* running = nullptr;
    if (FAILED(GetActiveObject(ClassOf(programId), nullptr, &running)))
        return std::nullopt;
    IDispatch* object = nullptr;
    const HRESULT asked =
        Patiently([&] { return running->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object)); });
    running->Release();
    return SUCCEEDED(asked) ? std::optional(AutomationObject(object)) : std::nullopt;
}

AutomationObject AutomationObject::Created(const QString& programId) {
    IDispatch* object = nullptr;
    const HRESULT made = CoCreateInstance(ClassOf(programId), nullptr, CLSCTX_LOCAL_SERVER | CLSCTX_INPROC_SERVER,
                                          IID_IDispatch, reinterpret_cast<void**>(&object));
    if (FAILED(made))
        Fail(made);
    return AutomationObject(object);
}

AutomationObject::AutomationObject(const AutomationObject& other) : object_(other.object_) {
    if (object_)
        object_->AddRef();
}

AutomationObject::~AutomationObject() {
    if (object_)
        object_->Release();
}

AutomationValue AutomationObject::Get(const QString& member, const QList<AutomationValue>& arguments) const {
    return Invoke(object_, NumbersOf(object_, member, {})[0], GetOrCall, Backwards(arguments), {});
}

void AutomationObject::Put(const QString& member, const AutomationValue& value,
                           const QList<AutomationValue>& arguments) const {
    std::vector<const AutomationValue*> values = Backwards(arguments);
    values.insert(values.begin(), &value);
    Invoke(object_, NumbersOf(object_, member, {})[0], DISPATCH_PROPERTYPUT, values, {DISPID_PROPERTYPUT});
}

AutomationValue AutomationObject::Call(const QString& member, const QList<AutomationValue>& arguments,
                                       const QList<NamedArgument>& named) const {
    const std::vector<DISPID> numbers = NumbersOf(object_, member, named);
    std::vector<const AutomationValue*> values;
    for (const NamedArgument& argument : named)
        values.push_back(&argument.Value);
    for (const AutomationValue* value : Backwards(arguments))
        values.push_back(value);
    return Invoke(object_, numbers[0], GetOrCall, values, {numbers.begin() + 1, numbers.end()});
}

AutomationObject AutomationObject::Object(const QString& member) const {
    const AutomationValue value = Get(member);
    if (const auto* object = std::get_if<AutomationObject>(&value))
        return *object;
    throw AutomationError(91, QStringLiteral("'%1' is not there").arg(member));
}

AutomationValue AutomationObject::GetDefault() const { return Invoke(object_, DISPID_VALUE, GetOrCall, {}, {}); }

void AutomationObject::PutDefault(const AutomationValue& value) const {
    Invoke(object_, DISPID_VALUE, DISPATCH_PROPERTYPUT, {&value}, {DISPID_PROPERTYPUT});
}
