#pragma once

#include "base/Failure.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>
#include <variant>

struct IDispatch;

/// What an automation member refuses, by number; Message() is its description.
class AutomationError : public Failure {
  public:
    AutomationError(int number, const QString& description) : Failure(description), number_(number) {}

    int Number() const { return number_; }

  private:
    int number_;
};

/// The number of "the server has gone", by which the spreadsheet application also says that a file is open elsewhere.
inline constexpr int ServerGone = 462;

/// Makes COM ready in this thread while it lives.
class ComApartment {
  public:
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool entered_;
};

class AutomationObject;

/// What automation members take and give. Whatever else they give counts as nothing.
using AutomationValue = std::variant<std::monostate, bool, double, QString, QDate, AutomationObject>;

/// One object of another program, whose members are found by name, without regard to case, when they are used. Copies
/// share the object, which is let go with the last of them. Everything throws AutomationError on failure; a program
/// that is busy is waited for, ten seconds at most.
class AutomationObject {
  public:
    /// The running application of that class, or nothing when none runs.
    static std::optional<AutomationObject> Running(const QString& programId);
    /// A new instance of the application.
    static AutomationObject Created(const QString& programId);

    /// Takes over one reference.
    explicit AutomationObject(IDispatch* object) : object_(object) {}
    AutomationObject(const AutomationObject& other);
    AutomationObject(AutomationObject&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    AutomationObject& operator=(AutomationObject other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~AutomationObject();

    struct NamedArgument;

    AutomationValue Get(const QString& member, const QList<AutomationValue>& arguments = {}) const;
    void Put(const QString& member, const AutomationValue& value, const QList<AutomationValue>& arguments = {}) const;
    AutomationValue Call(const QString& member, const QList<AutomationValue>& arguments = {},
                         const QList<NamedArgument>& named = {}) const;

    /// The member, which has to be an object.
    AutomationObject Object(const QString& member) const;

    /// The member that stands for the object itself, such as the value of a cell.
    AutomationValue GetDefault() const;
    void PutDefault(const AutomationValue& value) const;

  private:
    IDispatch* object_;
};

struct AutomationObject::NamedArgument {
    QString Name;
    AutomationValue Value;
};
