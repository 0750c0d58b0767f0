#pragma once

#include <QListWidget>

/// A list of entries of the test, one line each, with at most one chosen. The choice is as visible without the focus,
/// and the keyboard makes it from nothing.
class EntryList : public QListWidget {
    Q_OBJECT

  public:
    /// As high as so many lines at least.
    explicit EntryList(int visibleLines, QWidget* parent = nullptr);

    /// Replaces the entries; none is chosen then. Sends no signal, as the three below.
    void SetEntries(const QStringList& entries);
    void AppendEntry(const QString& text);
    void SetEntry(int entry, const QString& text);
    /// entry: 1 to count(), 0 for none.
    void Choose(int entry);

    /// 1 to count(), 0 when none is chosen.
    int Chosen() const;

  Q_SIGNALS:
    /// The person chose an entry, or none.
    void ChoiceChanged();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};
