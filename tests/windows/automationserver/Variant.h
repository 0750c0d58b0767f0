#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <utility>

/// A VARIANT that frees what it holds.
class Variant {
  public:
    Variant() { VariantInit(&value_); }
    /// A copy, without indirections; empty when that fails.
    explicit Variant(const VARIANT& source) : Variant() { VariantCopyInd(&value_, const_cast<VARIANT*>(&source)); }
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    static Variant Text(const std::wstring& text) {
        Variant made;
        made.value_.vt = VT_BSTR;
        made.value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        return made;
    }
    static Variant Number(double number) {
        Variant made;
        made.value_.vt = VT_R8;
        made.value_.dblVal = number;
        return made;
    }
    static Variant Date(double serial) {
        Variant made = Number(serial);
        made.value_.vt = VT_DATE;
        return made;
    }
    static Variant Integer(long number) {
        Variant made;
        made.value_.vt = VT_I4;
        made.value_.lVal = number;
        return made;
    }
    static Variant Boolean(bool value) {
        Variant made;
        made.value_.vt = VT_BOOL;
        made.value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return made;
    }
    static Variant Error(SCODE code) {
        Variant made;
        made.value_.vt = VT_ERROR;
        made.value_.scode = code;
        return made;
    }
    /// Takes over the caller's reference.
    static Variant Object(IDispatch* object) {
        Variant made;
        made.value_.vt = VT_DISPATCH;
        made.value_.pdispVal = object;
        return made;
    }

    VARTYPE Type() const { return value_.vt; }
    const VARIANT& Get() const { return value_; }
    bool Missing() const { return value_.vt == VT_ERROR && value_.scode == DISP_E_PARAMNOTFOUND; }
    /// Throws the HRESULT of a value that can't be changed to the type.
    Variant As(VARTYPE type) const {
        Variant changed;
        if (const HRESULT result = VariantChangeType(&changed.value_, const_cast<VARIANT*>(&value_), 0, type);
            FAILED(result))
            throw result;
        return changed;
    }
    std::wstring AsText() const {
        const Variant text = As(VT_BSTR);
        return {text.value_.bstrVal ? text.value_.bstrVal : L"", SysStringLen(text.value_.bstrVal)};
    }
    long AsInteger() const { return As(VT_I4).value_.lVal; }
    double AsNumber() const { return As(VT_R8).value_.dblVal; }
    bool AsBoolean() const { return As(VT_BOOL).value_.boolVal != VARIANT_FALSE; }
    /// Gives the value away.
    void MoveTo(VARIANT& target) {
        target = value_;
        VariantInit(&value_);
    }

  private:
    VARIANT value_;
};
