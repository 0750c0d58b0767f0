#pragma once

#include <QComboBox>

/// Chooses a language by its name; typing its first letters finds it. The first entry is the system's.
class LanguageBox : public QComboBox {
    Q_OBJECT

  public:
    explicit LanguageBox(const QString& language, QWidget* parent = nullptr);

    /// The chosen language as a tag of BCP 47; "" for the system's.
    QString Language() const { return currentData().toString(); }
    /// Chooses it; one that isn't listed is put at the end of the list.
    void SetLanguage(const QString& language);

  protected:
    /// The wheel scrolls the page that the box is on, unless the box has the focus.
    void wheelEvent(QWheelEvent* event) override;
};
