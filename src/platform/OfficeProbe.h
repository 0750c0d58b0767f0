#pragma once

#include <QString>

enum class RegistryRoot { ClassesRoot };

/// Looks up what is installed.
class OfficeProbe {
  public:
    virtual ~OfficeProbe() = default;

    /// The text stored there, or "" when there is none. Away from Windows a small table stands in for the registry.
    virtual QString QueryRegistryString(RegistryRoot root, const QString& subKey, const QString& valueName) const = 0;

    /// Whether that text is not empty under the class root.
    bool ApplicationInstalled(const QString& subKey, const QString& valueName) const {
        return !QueryRegistryString(RegistryRoot::ClassesRoot, subKey, valueName).isEmpty();
    }
};

inline const QString SpreadsheetKey = QStringLiteral("Excel.Sheet\\CurVer");
inline const QString WordProcessorKey = QStringLiteral("Word.Document\\CurVer");
